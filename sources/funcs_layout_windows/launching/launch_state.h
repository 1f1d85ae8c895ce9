// The working state of one Load Profile command.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>

#include "sources/funcs_layout_windows/launching/entry_path.h"
#include "sources/funcs_layout_windows/launching/window_matching.h"

// The arrays are zero-filled blocks with one element per entry of the profile, unless said otherwise.
struct Launch_STR {
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

// Capacity of Launch_STR::ptcBuf in UTF-16 units.
inline constexpr std::uint32_t kImagePath_units = 2048;

// Fills the cleared state for the checked file `file`, which outlives it, and allocates its arrays. There are
// as many launch records as the store's handle area has bytes, whatever the profile's size. Returns 1; -9
// after a box when a block cannot be had (those obtained before stay). The caller releases it.
std::int32_t prepare_launch(Launch_STR* launch, HWND hwnd_MW, std::span<const std::uint8_t> file,
                            std::uint32_t handle_area_bytes);

// Releases the arrays.
void release_launch(Launch_STR* launch);
