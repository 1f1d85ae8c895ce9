// Which window belongs to which entry of a profile that was just started.
#pragma once

#include <windows.h>

#include <cstdint>
#include <type_traits>

// One program that was started. All but the index are 0 when the start failed.
struct STR_InfoLoadedPrg {
    std::uint32_t uiIndex_wnd; // the profile entry; matching goes by path and ids and does not read it
    // Quirk: open until this process ends; the search goes by ids, which stay a program's while it is held
    // open.
    HANDLE hProcess;
    HANDLE hThread;
    std::uint32_t dwProcessId;
    std::uint32_t dwThreadId;
};
static_assert(sizeof(STR_InfoLoadedPrg) == 32 && std::is_trivially_copyable_v<STR_InfoLoadedPrg>);

// What the program matcher works on.
struct HWNDs_loadedPrgsProfile_STR {
    HWND* p_hwnd_arr;               // window found for each entry, 0 = none yet; kept between passes
    wchar_t* ptcBuf;                // receives the image path of a window's process
    std::uint32_t uiSize_chars;     // capacity of ptcBuf in units
    std::uint32_t uiSize_bytes;     // the same in bytes
    const std::uint8_t* pcFileData; // the profile file, checked
    const STR_InfoLoadedPrg* pc_arr_STRs_InfoLoadedPrg;
    std::uint32_t N_prgs; // number of launch records
};
static_assert(std::is_trivially_copyable_v<HWNDs_loadedPrgsProfile_STR>);

// Results besides 1 (done). Negative ones have been shown in an error box, but for kMatch_no_shell_windows.
inline constexpr std::int32_t kMatch_no_shell_windows = -3; // of GetHWNDS_of_LoadedFolders; no box
inline constexpr std::int32_t kFolders_missing = 2;         // of check_folders_loaded

// EnumWindows callback: `lParam` is the matcher's record. An entry takes the first window of any process that
// runs its executable; a window made by the first thread of a process that this load started replaces it.
// Entries with one executable share one window. Returns TRUE to go on; FALSE after an error box for a null
// record or field, or when an image path could not be queried.
BOOL CALLBACK GetHWNDS_of_LoadedPrograms(HWND hwnd, LPARAM lParam);

// One pass over all top-level windows; then the windows found for entries of kind 1 are copied to
// `pc_arr1D_hwnd_Programs_only`, which like the record's array has `uiN_wnds` elements.
// Returns 1; -1 for a null argument or uiN_wnds 0, -2 for a null or zero field of the record.
std::int32_t find_hwnds_Programs_fill_array(HWNDs_loadedPrgsProfile_STR* p_HWNDs_loadedPrgsProfile_STR,
                                            std::uint32_t uiN_wnds, HWND* pc_arr1D_hwnd_Programs_only);

// One pass over the shell's folder windows: every entry whose kind is not 1 gets the last window that shows
// its folder, also one that was open before. Returns 1; -1 for a null argument; -3 when the shell reports no
// windows; -4 when it gives no list.
std::int32_t GetHWNDS_of_LoadedFolders(const std::uint8_t* pcFileData, HWND* p_arr1D_hwnd);

// Returns 1 when every folder entry of the `uiN_wnds` has a window or failed to start, 2 when one that
// started has none yet; -1 for a null argument or uiN_wnds 0. The failed entries are uiN_failed_Folders +
// uiN_failed_Programs indexes.
std::int32_t check_folders_loaded(const std::uint8_t* pcFileData, const HWND* pc_arr1D_hwnd,
                                  std::uint32_t uiN_wnds, const std::uint32_t* p_arr1D_ui_failed,
                                  std::uint32_t uiN_failed_Folders, std::uint32_t uiN_failed_Programs);

// The same for the program entries and `pc_arr1D_hwnd_Programs_only`: true when each has a window or failed
// to start.
bool all_programs_found(const std::uint8_t* pcFileData, const HWND* pc_arr1D_hwnd_Programs_only,
                        std::uint32_t uiN_wnds, const std::uint32_t* p_arr1D_ui_failed,
                        std::uint32_t uiN_failed_Folders, std::uint32_t uiN_failed_Programs);
