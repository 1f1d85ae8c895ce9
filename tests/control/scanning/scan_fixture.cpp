#include "tests/control/scanning/scan_fixture.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/main_prg/main_window.h"
#include "sources/wnd_ScanListView/wnd_ScanListView.h"
#include "tests/support/waiting.h"

using namespace test_support;

namespace scan_tests
{
namespace
{

void register_class(const wchar_t* name, WNDPROC procedure)
{
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    window_class.lpszClassName = name;
    RegisterClassExW(&window_class);
}

HWND make_window(const std::wstring& title, RECT place, const std::wstring& class_name, DWORD style)
{
    register_class(class_name.c_str(), DefWindowProcW);
    const HWND window = CreateWindowExW(0, class_name.c_str(), title.c_str(), style, place.left, place.top,
                                        place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr)
        throw Failure("a window of the test could not be created");
    return window;
}

} // namespace

std::wstring pointer(const void* value)
{
    wchar_t text[20]{};
    _snwprintf(text, 19, L"%016llX",
               static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(value)));
    return text;
}

TestWindow::TestWindow(const std::wstring& title, RECT place, const std::wstring& class_name, DWORD style)
    : window_(make_window(title, place, class_name, style))
{
}

TestWindow::~TestWindow()
{
    DestroyWindow(window_);
}

Desktop::Desktop(std::vector<HWND> windows_given)
    : windows(std::move(windows_given)),
      hook_("user32.dll", [this](WNDENUMPROC procedure, LPARAM lParam) -> BOOL {
          ++passes_;
          if (before_pass)
              before_pass(passes_);
          if (passes_ == failing_pass)
              return FALSE;
          for (const HWND window : windows) {
              if (procedure(window, lParam) == FALSE)
                  return FALSE;
          }
          return TRUE;
      })
{
}

ScanFixture::ScanFixture() : host_(make_window(L"", {0, 0, 10, 10}, L"ScanFixtureHost", WS_POPUP))
{
    InitCommonControls();
    register_class(L"List of Windows", WndProc_ScanListView);
}

ScanFixture::~ScanFixture()
{
    if (hwnd_ScanListView != nullptr)
        DestroyWindow(hwnd_ScanListView);
    DestroyWindow(host_);
    release_scan_blocks(&scan_record);
}

std::int32_t ScanFixture::scan()
{
    const ScanUse use;
    if (!use.is_taken())
        throw Failure("a scan is using the record");
    scan_record.counter_all = 0;
    scan_record.counter_valid = 0;
    scan_record.counter_filled = 0;
    scan_record.uiSize_TmpBuf_Path = 32768;
    return onButton_Scan_Clicked(host_, &hwnd_ScanListView, 0, 0, &scan_record);
}

RemoteListView ScanFixture::list() const
{
    const HWND list = GetDlgItem(hwnd_ScanListView, 4);
    if (list == nullptr)
        throw Failure("there is no list");
    return RemoteListView(list);
}

void ScanFixture::press(WORD button) const
{
    SendMessageW(hwnd_ScanListView, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(hwnd_ScanListView, button)));
}

std::wstring own_image_path()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::wstring title_of_slot(std::uint32_t slot)
{
    return geometry_entry(&scan_record, slot)->title;
}

std::wstring path_of_slot(std::uint32_t slot)
{
    return reinterpret_cast<const wchar_t*>(path_slot(&scan_record, slot));
}

void press_scan(HWND main_window)
{
    EXPECT_EQ(WndProc(main_window, WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), 0), 0);
}

RecordCopy::RecordCopy()
{
    const auto copy = [this](const void* block, std::size_t size_bytes) {
        const auto* bytes = static_cast<const std::uint8_t*>(block);
        parts_.emplace_back(bytes, bytes + (bytes == nullptr ? 0 : size_bytes));
    };
    const std::size_t slots = scan_record.counter_valid;
    copy(&scan_record, sizeof scan_record);
    copy(scan_record.arr1D_ui_LenPath, slots * 4);
    copy(scan_record.arr1D_uc_flag_FP, slots);
    copy(scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.uiSize_TmpBuf_Path);
    copy(scan_record.pcDynMem_FullPaths, slots * (std::size_t{scan_record.uiMaxLen_inBytes_AllPath} + 1) * 2);
    copy(scan_record.pcDynMem_WinHndls, slots * 8);
    copy(scan_record.pcDynMem_GeomText, slots * 122);
}

} // namespace scan_tests
