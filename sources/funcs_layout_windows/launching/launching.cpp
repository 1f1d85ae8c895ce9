#include "sources/funcs_layout_windows/launching/launching.h"

#include <shellapi.h>

#include <algorithm>

#include "sources/funcs_layout_windows/launching/launching_errors.h"
#include "sources/funcs_layout_windows/launching/launching_notices.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/foreign_window.h"
#include "sources/win32/owners/com_ptr.h"

namespace
{

using profile_file::Entry;

constexpr DWORD kInputIdle_ms = 5000;
constexpr int kSearch_attempts = 10;
constexpr DWORD kSearch_pause_ms = 1000;

// The system's own boxes leave the main window usable: it may be closed while a load is under way.
bool is_abandoned(const Launch_STR* launch)
{
    return IsWindow(launch->hwnd_MW) == FALSE;
}

void note_failed_start(Launch_STR* launch, std::uint32_t index)
{
    launch->p_arr1D_ui_failed[launch->uiN_failed_Folders + launch->uiN_failed_Programs] = index;
}

// Opens a folder window. A null path stands for one that no system call takes.
void open_folder(Launch_STR* launch, std::uint32_t index, const wchar_t* path)
{
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.lpVerb = L"open";
    info.lpFile = path;
    info.nShow = SW_SHOWNORMAL;
    const ComHold com; // Re-entrancy: the shell lets messages in, also one that closes the main window.
    if (path == nullptr || ShellExecuteExW(&info) == FALSE) {
        note_failed_start(launch, index);
        ++launch->uiN_failed_Folders;
    }
}

STARTUPINFOW startup_info(const Entry& entry)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (is_minimised(entry)) {
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_MINIMIZE;
    } else {
        startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESIZE | STARTF_USEPOSITION;
        startup.wShowWindow = SW_SHOW;
        startup.dwX = static_cast<DWORD>(entry.x);
        startup.dwY = static_cast<DWORD>(entry.y);
        startup.dwXSize = static_cast<DWORD>(entry.width);
        startup.dwYSize = static_cast<DWORD>(entry.height);
    }
    return startup;
}

// Starts a program and waits until it is ready for input; a null path as above.
// Quirk: the handles in the launch record stay open; the search matches windows by the ids that they keep.
void start_program(Launch_STR* launch, const Entry& entry, const wchar_t* path, std::size_t record_index)
{
    STARTUPINFOW startup = startup_info(entry);
    PROCESS_INFORMATION process{};
    if (path == nullptr || CreateProcessW(path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                          &startup, &process) == FALSE) {
        process = {};
        note_failed_start(launch, entry.index);
        ++launch->uiN_failed_Programs;
    }
    if (record_index < launch->max_launch_records) {
        launch->pc_arr_STRs_InfoLoadedPrg[record_index] = {.uiIndex_wnd = entry.index,
                                                           .hProcess = process.hProcess,
                                                           .hThread = process.hThread,
                                                           .dwProcessId = process.dwProcessId,
                                                           .dwThreadId = process.dwThreadId};
    }
    WaitForInputIdle(process.hProcess, kInputIdle_ms);
}

// Starts every entry in order. Entries of other kinds are passed over.
void start_entries(Launch_STR* launch)
{
    std::size_t n_records = 0;
    for (const Entry& entry : profile_file::entries(launch->pcFileData)) {
        if (is_abandoned(launch))
            break;
        const wchar_t* path = copy_entry_path(entry, launch->p_EntryPath).data();
        if (entry.kind == profile_file::kKind_folder)
            open_folder(launch, entry.index, path);
        else if (entry.kind == profile_file::kKind_program)
            start_program(launch, entry, path, n_records++);
    }
}

// Searches for the folders' windows. Sets `detected`; returns 1, or a negative result after its box.
std::int32_t detect_folders(Launch_STR* launch, bool* detected)
{
    *detected = false;
    for (int attempt = 0; attempt < kSearch_attempts && launch->uiN_Folders != 0 && !is_abandoned(launch);
         ++attempt) {
        GetHWNDS_of_LoadedFolders(launch->pcFileData, launch->p_arr1D_hwnd_Folders);
        const std::int32_t checked = check_folders_loaded(
            launch->pcFileData, launch->p_arr1D_hwnd_Folders, launch->uiN_wnds, launch->p_arr1D_ui_failed,
            launch->uiN_failed_Folders, launch->uiN_failed_Programs);
        if (checked < 0)
            return report<kLaunchCheckFolders>();
        if (checked == 1) {
            *detected = true;
            break;
        }
        if (checked == kFolders_missing)
            Sleep(kSearch_pause_ms);
    }
    return 1;
}

// Searches for the programs' windows. True when all were found; the pause follows the last attempt as well.
bool detect_programs(Launch_STR* launch)
{
    HWNDs_loadedPrgsProfile_STR record{.p_hwnd_arr = launch->p_arr1D_hwnd_Programs,
                                       .ptcBuf = launch->ptcBuf,
                                       .uiSize_chars = kImagePath_units,
                                       .uiSize_bytes = kImagePath_units * sizeof(wchar_t),
                                       .pcFileData = launch->pcFileData,
                                       .pc_arr_STRs_InfoLoadedPrg = launch->pc_arr_STRs_InfoLoadedPrg,
                                       .N_prgs = static_cast<std::uint32_t>(std::min<std::size_t>(
                                           launch->uiN_Programs, launch->max_launch_records))};
    for (int attempt = 0; attempt < kSearch_attempts && launch->uiN_Programs != 0 && !is_abandoned(launch);
         ++attempt) {
        if (find_hwnds_Programs_fill_array(&record, launch->uiN_wnds, launch->pc_arr1D_hwnd_Programs_only) <
            0)
            report<kLaunchFindPrograms>();
        if (all_programs_found(launch->pcFileData, launch->pc_arr1D_hwnd_Programs_only, launch->uiN_wnds,
                               launch->p_arr1D_ui_failed, launch->uiN_failed_Folders,
                               launch->uiN_failed_Programs))
            return true;
        Sleep(kSearch_pause_ms);
    }
    return false;
}

void report_missing(const Launch_STR* launch, bool folders_detected, bool programs_detected)
{
    const HWND owner = launch->hwnd_MW;
    if (launch->uiN_failed_Programs > 0 && launch->uiN_Programs > 0)
        report_owned<kLaunchProgramsFailed>(owner, launch->uiN_failed_Programs, launch->uiN_Programs);
    if (launch->uiN_failed_Folders > 0 && launch->uiN_Folders > 0)
        report_owned<kLaunchFoldersFailed>(owner, launch->uiN_failed_Folders, launch->uiN_Folders);
    if (!programs_detected && launch->uiN_Programs > 0)
        report_owned<kLaunchProgramsNotDetected>(owner);
    if (!folders_detected && launch->uiN_Folders > 0)
        report_owned<kLaunchFoldersNotDetected>(owner);
}

// Puts a window where its entry says. `restored` is the window that is restored when `hwnd` is minimised.
void place_window(HWND hwnd, const Entry& entry, HWND restored, AskedWindows* asked)
{
    const bool answers = asked->answers(hwnd);
    if (is_minimised(entry)) {
        show_foreign_window(hwnd, SW_MINIMIZE, answers);
        return;
    }
    if (IsIconic(hwnd) != FALSE) {
        show_foreign_window(restored, SW_RESTORE, asked->answers(restored));
        if (answers) // A hung window has nothing to do in front.
            SetForegroundWindow(hwnd);
    }
    place_foreign_window(hwnd, {.x = entry.x, .y = entry.y, .height = entry.height, .width = entry.width},
                         answers);
}

// Places the programs' windows, then the folders'. Windows not found are null; the calls fail without effect
// then.
void place_windows(Launch_STR* launch)
{
    AskedWindows asked;
    HWND last_program = nullptr;
    for (const Entry& entry : profile_file::entries(launch->pcFileData)) {
        if (entry.kind != profile_file::kKind_program)
            continue;
        last_program = launch->p_arr1D_hwnd_Programs[entry.index];
        place_window(last_program, entry, last_program, &asked);
    }
    for (const Entry& entry : profile_file::entries(launch->pcFileData)) {
        if (entry.kind != profile_file::kKind_folder)
            continue;
        const HWND folder = launch->p_arr1D_hwnd_Folders[entry.index];
        launch->pc_arr1D_hwnd_Folders_only[entry.index] = folder;
        // Quirk: the last program's window is restored, not the folder's; kept so that a profile loads the
        // same in every version.
        place_window(folder, entry, last_program, &asked);
    }
}

} // namespace

std::int32_t launch_profile(Launch_STR* launch)
{
    start_entries(launch);
    bool folders_detected = false;
    const std::int32_t detected = detect_folders(launch, &folders_detected);
    if (detected < 0)
        return detected;
    const bool programs_detected = detect_programs(launch);
    if (is_abandoned(launch))
        return kLaunch_abandoned;
    report_missing(launch, folders_detected, programs_detected);
    place_windows(launch);
    return is_abandoned(launch) ? kLaunch_abandoned : 1;
}
