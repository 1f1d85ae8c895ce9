// Bringing a profile to the screen: start its programs, open its folders, find the windows, report, place.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

#include "sources/funcs_layout_windows/profiles/entry_path.h"
#include "sources/funcs_layout_windows/profiles/window_matching.h"

// The working state of one Load Profile command. The arrays are zero-filled blocks with one element per entry
// of the profile, unless said otherwise; whoever allocated them releases them.
struct LaunchState {
    HWND hwnd_MW;                      // owner of the reports
    const std::uint8_t* pcFileData;    // the profile file, checked
    std::uint32_t uiN_wnds;            // its number of entries
    std::uint32_t uiN_Folders;         // entries with kind flag 0
    std::uint32_t uiN_Programs;        // all other entries
    HWND* p_arr1D_hwnd_Folders;        // folder windows found
    HWND* p_arr1D_hwnd_Programs;       // program windows found by the matcher
    HWND* pc_arr1D_hwnd_Programs_only; // result: program windows
    HWND* pc_arr1D_hwnd_Folders_only;  // result: folder windows
    std::uint32_t* p_arr1D_ui_failed;  // indexes of the entries that failed to start, in entry order
    std::uint32_t uiN_failed_Folders;
    std::uint32_t uiN_failed_Programs;
    wchar_t* ptcBuf;                              // kImagePath_units units for image paths
    STR_InfoLoadedPrg* pc_arr_STRs_InfoLoadedPrg; // launch records, in entry order of the programs
    std::size_t max_launch_records;               // how many there is room for
    EntryPathBuffer* p_EntryPath;                 // the path that is being started or opened
};

// Capacity of LaunchState::ptcBuf in UTF-16 units.
inline constexpr std::uint32_t kImagePath_units = 2048;

// Results of launch_profile besides 1.
inline constexpr std::int32_t kLaunch_folder_check_failed = -15;
inline constexpr std::int32_t kLaunch_abandoned = 2;

// Starts the profile's programs and folders, finds their windows, reports what is missing and places what
// was found. The programs' process and thread handles stay open until this process ends. The
// thread is blocked for up to 5 s per program and 10 s for each of the two searches. The user sees an info
// box, owned by the main window, for programs and for folders that did not start or were not found. Returns
// 1; kLaunch_folder_check_failed after an error box, with nothing placed; kLaunch_abandoned, quietly, when
// the main window was closed meanwhile.
std::int32_t launch_profile(LaunchState* launch);
