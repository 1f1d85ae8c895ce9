#include "sources/funcs_layout_windows/launching/window_matching.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "sources/funcs_layout_windows/launching/entry_path.h"
#include "sources/funcs_layout_windows/launching/launching_errors.h"
#include "sources/funcs_layout_windows/open_windows/shell_folder_walk.h"
#include "sources/funcs_layout_windows/open_windows/window_filter.h"
#include "sources/funcs_layout_windows/open_windows/window_inspection.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/real_pixels.h"
#include "sources/win32/text_in.h"

namespace
{

// Units asked for with WM_GETTEXT.
constexpr std::size_t kTitleLimit_units = 1000;

bool arrays_present(const HWNDs_loadedPrgsProfile_STR* record)
{
    return record->p_hwnd_arr != nullptr && record->ptcBuf != nullptr && record->pcFileData != nullptr &&
           record->uiSize_chars != 0 && record->uiSize_bytes != 0;
}

bool fields_present(const HWNDs_loadedPrgsProfile_STR* record)
{
    return arrays_present(record) && record->pc_arr_STRs_InfoLoadedPrg != nullptr && record->N_prgs != 0;
}

// A window without area that is not at the origin belongs to no entry.
bool is_empty_off_origin(HWND hwnd)
{
    const RECT rect = real_window_rect(hwnd);
    return (rect.left != 0 || rect.top != 0) && rect.right == rect.left && rect.bottom == rect.top;
}

bool was_started_as(const HWNDs_loadedPrgsProfile_STR* record, DWORD process_id, DWORD thread_id)
{
    const STR_InfoLoadedPrg* begin = record->pc_arr_STRs_InfoLoadedPrg;
    return std::any_of(begin, begin + record->N_prgs, [=](const STR_InfoLoadedPrg& started) {
        return started.dwProcessId == process_id && started.dwThreadId == thread_id;
    });
}

// Gives the window to every entry that names its executable.
void match_entries(const HWNDs_loadedPrgsProfile_STR* record, HWND hwnd, std::wstring_view image,
                   DWORD process_id, DWORD thread_id)
{
    for (const profile_file::Entry& entry : profile_file::entries(record->pcFileData)) {
        if (entry.kind == profile_file::kKind_folder || !entry_has_path(entry, image))
            continue;
        HWND& found = record->p_hwnd_arr[entry.index];
        if (found == nullptr || was_started_as(record, process_id, thread_id))
            found = hwnd;
    }
}

struct FolderMatch {
    const std::uint8_t* pcFileData;
    HWND* p_arr1D_hwnd;
};

bool match_folder(HWND hwnd, std::wstring_view path, void* context)
{
    const auto* match = static_cast<const FolderMatch*>(context);
    for (const profile_file::Entry& entry : profile_file::entries(match->pcFileData)) {
        if (entry.kind != profile_file::kKind_program && entry_has_path(entry, path))
            match->p_arr1D_hwnd[entry.index] = hwnd;
    }
    return true;
}

// True when entry `index` is among the `n_failed` failed entries, which are in entry order.
bool is_failed_entry(const std::uint32_t* p_arr1D_ui_failed, std::uint32_t n_failed, std::uint32_t index)
{
    return p_arr1D_ui_failed != nullptr &&
           std::binary_search(p_arr1D_ui_failed, p_arr1D_ui_failed + n_failed, index);
}

// True when every entry of that kind has a window or is among the failed ones.
bool all_found(std::uint8_t kind, const std::uint8_t* pcFileData, const HWND* windows, std::uint32_t uiN_wnds,
               const std::uint32_t* p_arr1D_ui_failed, std::uint32_t n_failed)
{
    for (std::uint32_t i = 0; i < uiN_wnds; ++i) {
        const bool missing = profile_file::kind_of_entry(pcFileData, i) == kind && windows[i] == nullptr;
        if (missing && !is_failed_entry(p_arr1D_ui_failed, n_failed, i))
            return false;
    }
    return true;
}

} // namespace

BOOL CALLBACK GetHWNDS_of_LoadedPrograms(HWND hwnd, LPARAM lParam)
{
    const auto* pParams_STR = reinterpret_cast<const HWNDs_loadedPrgsProfile_STR*>(lParam);
    if (pParams_STR == nullptr) {
        report<kMatchNullLParam>(pParams_STR);
        return FALSE;
    }
    if (!fields_present(pParams_STR)) {
        report<kMatchNullField>(pParams_STR->p_hwnd_arr, pParams_STR->ptcBuf, pParams_STR->uiSize_chars,
                                pParams_STR->pcFileData, pParams_STR->pc_arr_STRs_InfoLoadedPrg,
                                pParams_STR->N_prgs);
        return FALSE;
    }
    std::array<wchar_t, kTitleLimit_units> title;
    if (!is_visible(hwnd) || has_excluded_class(hwnd) || is_empty_off_origin(hwnd) ||
        !read_title(hwnd, title))
        return TRUE;

    DWORD process_id = 0;
    const DWORD thread_id = GetWindowThreadProcessId(hwnd, &process_id);
    const std::span<wchar_t> buffer(pParams_STR->ptcBuf, pParams_STR->uiSize_chars);
    const ImagePath read = read_image_path(process_id, buffer, pParams_STR->uiSize_chars);
    if (read == ImagePath::FAILED)
        report<kMatchModuleName>();
    if (read != ImagePath::READ)
        return read == ImagePath::UNAVAILABLE ? TRUE : FALSE;
    const std::wstring_view image = text_in(buffer);
    if (!is_explorer_image(image))
        match_entries(pParams_STR, hwnd, image, process_id, thread_id);
    return TRUE;
}

std::int32_t find_hwnds_Programs_fill_array(HWNDs_loadedPrgsProfile_STR* p_HWNDs_loadedPrgsProfile_STR,
                                            std::uint32_t uiN_wnds, HWND* pc_arr1D_hwnd_Programs_only)
{
    const HWNDs_loadedPrgsProfile_STR* record = p_HWNDs_loadedPrgsProfile_STR;
    if (record == nullptr || pc_arr1D_hwnd_Programs_only == nullptr || uiN_wnds == 0)
        return report<kFindProgramsInput>(record, pc_arr1D_hwnd_Programs_only, uiN_wnds);
    if (!arrays_present(record))
        return report<kFindProgramsField>(record->p_hwnd_arr, record->ptcBuf, record->pcFileData,
                                          record->uiSize_chars, record->uiSize_bytes);

    EnumWindows(GetHWNDS_of_LoadedPrograms, reinterpret_cast<LPARAM>(record));
    for (std::uint32_t i = 0; i < uiN_wnds; ++i) {
        if (profile_file::kind_of_entry(record->pcFileData, i) == profile_file::kKind_program)
            pc_arr1D_hwnd_Programs_only[i] = record->p_hwnd_arr[i];
    }
    return 1;
}

std::int32_t GetHWNDS_of_LoadedFolders(const std::uint8_t* pcFileData, HWND* p_arr1D_hwnd)
{
    if (pcFileData == nullptr || p_arr1D_hwnd == nullptr)
        return report<kLoadedFoldersInput>(pcFileData, p_arr1D_hwnd);

    ShellWindowsList list;
    const HRESULT created = open_shell_windows(&list);
    if (!list.windows)
        return report<kLoadedFoldersNoList>(created);
    const long count = count_shell_windows(list);
    if (count == 0)
        return kMatch_no_shell_windows;
    FolderMatch match{.pcFileData = pcFileData, .p_arr1D_hwnd = p_arr1D_hwnd};
    walk_shell_windows(&list, count, match_folder, &match);
    return 1;
}

std::int32_t check_folders_loaded(const std::uint8_t* pcFileData, const HWND* pc_arr1D_hwnd,
                                  std::uint32_t uiN_wnds, const std::uint32_t* p_arr1D_ui_failed,
                                  std::uint32_t uiN_failed_Folders, std::uint32_t uiN_failed_Programs)
{
    if (pcFileData == nullptr || pc_arr1D_hwnd == nullptr || uiN_wnds == 0)
        return report<kCheckFoldersInput>(pcFileData, pc_arr1D_hwnd, uiN_wnds);
    const std::uint32_t n_failed = uiN_failed_Folders == 0 ? 0 : uiN_failed_Folders + uiN_failed_Programs;
    const bool found = all_found(profile_file::kKind_folder, pcFileData, pc_arr1D_hwnd, uiN_wnds,
                                 p_arr1D_ui_failed, n_failed);
    return found ? 1 : kFolders_missing;
}

bool all_programs_found(const std::uint8_t* pcFileData, const HWND* pc_arr1D_hwnd_Programs_only,
                        std::uint32_t uiN_wnds, const std::uint32_t* p_arr1D_ui_failed,
                        std::uint32_t uiN_failed_Folders, std::uint32_t uiN_failed_Programs)
{
    const std::uint32_t n_failed = uiN_failed_Programs == 0 ? 0 : uiN_failed_Folders + uiN_failed_Programs;
    return all_found(profile_file::kKind_program, pcFileData, pc_arr1D_hwnd_Programs_only, uiN_wnds,
                     p_arr1D_ui_failed, n_failed);
}
