#include "tests/control/wnd_ScanListView/saving/saved_profile_fixture.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/wnd_ScanListView/wnd_ScanListView.h"
#include "tests/control/profiles/profile_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/test_window.h"

namespace profile_tests
{

namespace
{

template <typename Type> Type* block(std::size_t bytes)
{
    return static_cast<Type*>(VirtualAlloc(nullptr, bytes, MEM_COMMIT, PAGE_READWRITE));
}

} // namespace

test_support::ExpectedBox save_box(const std::wstring& function, int site, int handler,
                                   const std::wstring& detail)
{
    return {L"error", compact_text({L"sources/wnd_ScanListView", function, site, handler}, detail)};
}

test_support::ExpectedBox arrival_box(int site, int handler, const std::wstring& detail)
{
    return save_box(L"on_WM_COPYDATA_on_wnd_NameOfProfile", site, handler, detail);
}

std::wstring record_named_in(const std::wstring& text)
{
    constexpr std::wstring_view before = L"pSTR_RW_PRFL = ";
    const std::size_t found = text.find(before);
    return found == std::wstring::npos ? L"" : text.substr(found + before.size(), 16);
}

FilledScan::FilledScan(const std::vector<ScannedWindow>& windows)
{
    const std::size_t n = windows.size();
    std::size_t longest = 0;
    for (const ScannedWindow& window : windows)
        longest = std::max(longest, window.path.size() * 2);
    scan_record = {};
    scan_record.arr1D_ui_LenPath = block<std::uint32_t>(4 * n);
    scan_record.arr1D_uc_flag_FP = block<std::uint8_t>(n);
    scan_record.pcDynMem_WinHndls = block<HWND>(8 * n);
    scan_record.pcDynMem_GeomText = block<std::uint8_t>(122 * n);
    scan_record.pcDynMem_FullPaths = block<std::uint8_t>((longest + 1) * 2 * n);
    scan_record.uiMaxLen_inBytes_AllPath = static_cast<std::uint32_t>(longest);
    scan_record.counter_valid = static_cast<std::uint32_t>(n);
    scan_record.counter_filled = scan_record.counter_valid;
    for (std::size_t i = 0; i < n; ++i) {
        const ScannedWindow& window = windows[i];
        scan_record.arr1D_ui_LenPath[i] = static_cast<std::uint32_t>(window.path.size() * 2);
        scan_record.arr1D_uc_flag_FP[i] = window.flag;
        std::uint8_t* entry = scan_record.pcDynMem_GeomText + 24 * i;
        auto* title = reinterpret_cast<wchar_t*>(scan_record.pcDynMem_GeomText + 24 * n + 98 * i);
        std::memcpy(title, L"window", 12);
        std::memcpy(entry, &title, 8);
        // Height comes before width.
        const std::int32_t geometry[] = {window.x, window.y, window.height, window.width};
        std::memcpy(entry + 8, geometry, 16);
        std::memcpy(scan_record.pcDynMem_FullPaths + (longest + 1) * 2 * i, window.path.data(),
                    window.path.size() * 2);
    }
}

FilledScan::~FilledScan()
{
    release_scan_blocks(&scan_record);
    scan_record = {};
}

std::vector<ScannedWindow> ten_windows()
{
    std::vector<ScannedWindow> windows;
    for (std::int32_t i = 0; i < 10; ++i)
        windows.push_back({.flag = static_cast<std::uint8_t>(i % 3 == 0 ? 0 : 1),
                           .x = -i,
                           .y = 10 * i,
                           .width = 100 + i,
                           .height = 200 + i,
                           .path = L"C:\\p\\" + std::wstring(static_cast<std::size_t>(i), L'x') +
                                   std::to_wstring(i) + L".exe"});
    return windows;
}

test_support::Bytes profile_of(const std::vector<ScannedWindow>& windows,
                               const std::vector<std::size_t>& rows, const std::u16string& name)
{
    test_support::ProfileEncoder file;
    for (const std::size_t row : rows) {
        const ScannedWindow& window = windows[row];
        file.add({.flag = window.flag,
                  .x = window.x,
                  .y = window.y,
                  .width = window.width,
                  .height = window.height,
                  .path = test_support::units_of(window.path)});
    }
    return file.name(name).bytes();
}

ListOfWindows::ListOfWindows()
{
    INITCOMMONCONTROLSEX controls{.dwSize = sizeof(controls), .dwICC = ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    test_support::register_class(L"List of Windows", WndProc_ScanListView);
    window = CreateWindowExW(0, L"List of Windows", L"List of Windows", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50,
                             60, 700, 400, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    list = FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr);
    if (!list)
        throw test_support::Failure("no List of Windows with a list");
}

ListOfWindows::~ListOfWindows()
{
    DestroyWindow(window);
}

void ListOfWindows::set_state(int row, UINT state, UINT mask) const
{
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

HWND ListOfWindows::ask_name_for(const std::vector<int>& rows) const
{
    for (const int row : rows)
        tick(row);
    press_create_profile();
    return name_window();
}

HWND name_window()
{
    for (HWND found = nullptr; (found = FindWindowExW(nullptr, found, L"Name of Profile Window", nullptr));)
        if (GetWindowThreadProcessId(found, nullptr) == GetCurrentThreadId())
            return found;
    return nullptr;
}

void enter_name(HWND window, const std::wstring& name)
{
    SetWindowTextW(GetDlgItem(window, name_control::kName), name.c_str());
    SendMessageW(window, WM_COMMAND, name_control::kOk, 0);
}

LRESULT send_name(const ListOfWindows& list, HWND sender, ULONG_PTR data, const std::wstring& name,
                  DWORD bytes)
{
    return send_name_at(list, sender, data, name.data(), bytes);
}

LRESULT send_name_at(const ListOfWindows& list, HWND sender, ULONG_PTR data, const void* name, DWORD bytes)
{
    COPYDATASTRUCT copy{.dwData = data, .cbData = bytes, .lpData = const_cast<void*>(name)};
    return SendMessageW(list.window, WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                        reinterpret_cast<LPARAM>(&copy));
}

BOOL AnsweredSaveDialog::answer(OPENFILENAMEW* settings)
{
    ++asked;
    if (look)
        look(*settings);
    if (path_.empty())
        return FALSE;
    std::copy_n(path_.c_str(), path_.size() + 1, settings->lpstrFile);
    return TRUE;
}

std::vector<const void*> arrays_of(const STR_RW_PRFL& record)
{
    return {record.p_arr1D_ui_indexes_wnds_profile,
            record.p_arr1D_uc_flag_Prg_or_Folder,
            record.p_arr1D_ui_x,
            record.p_arr1D_ui_y,
            record.p_arr1D_ui_w,
            record.p_arr1D_ui_h,
            record.p_arr1D_ui_len_path,
            record.p_arr_strz_paths};
}

bool has_arrays(const STR_RW_PRFL& record)
{
    const std::vector<const void*> arrays = arrays_of(record);
    return std::any_of(arrays.begin(), arrays.end(), [](const void* array) { return array != nullptr; });
}

PreparedRecord::PreparedRecord(const std::vector<std::uint32_t>& rows, const std::wstring& name)
{
    record.N_wnds_in_profile = static_cast<std::uint32_t>(rows.size());
    DynMemAlloc_wnds_Profile(&record, &scan_record);
    std::copy(rows.begin(), rows.end(), record.p_arr1D_ui_indexes_wnds_profile);
    PrepareData_Write_Profile(&record, &scan_record);
    name.copy(record.tc_PrfName.data(), record.tc_PrfName.size());
    record.ui_len_PrfName_bytes = static_cast<std::uint32_t>(name.size() * 2);
}

std::int32_t PreparedRecord::write(HANDLE file, DWORD* error) const
{
    return WriteData_Profile(file, &record, record.N_wnds_in_profile, record.p_arr1D_uc_flag_Prg_or_Folder,
                             record.p_arr1D_ui_x, record.p_arr1D_ui_y, record.p_arr1D_ui_w,
                             record.p_arr1D_ui_h, record.p_arr1D_ui_len_path, record.p_arr_strz_paths, error);
}

} // namespace profile_tests
