// The Load Profile command.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/combo_boxes.h"
#include "sources/funcs_layout_windows/loaded_profiles.h"

// Results besides 1 (done, or cancelled by the user). Each has been shown in an error box.
inline constexpr std::int32_t kLoad_bad_input = -1;
inline constexpr std::int32_t kLoad_not_opened = -2; // also when the open dialog failed
inline constexpr std::int32_t kLoad_empty_file = -3;
inline constexpr std::int32_t kLoad_seek_failed = -4; // also for a file of 1 or 2 bytes
inline constexpr std::int32_t kLoad_read_failed = -5;
inline constexpr std::int32_t kLoad_wrong_signature = -6;
inline constexpr std::int32_t kLoad_no_file_memory = -7;
inline constexpr std::int32_t kLoad_no_memory = -9;
inline constexpr std::int32_t kLoad_no_windows = -10;
inline constexpr std::int32_t kLoad_past_end = -11; // arrays or a path run past the end of the file
// kLaunch_folder_check_failed (-15) comes from launching.

// Loads a profile file: asks for it with the open dialog when `uc_flag_path_given` is 0, or takes
// `ptcFilePath_Profile` otherwise; checks and reads it; starts its programs, opens its folders and places
// their windows; appends it to the store and adds its name to the Profile list. A path that does not exist is
// created as an empty file, and refused. When the file is refused nothing is started and the store is left
// alone. The thread is blocked for the whole time, see launch_profile. When the main window is closed
// meanwhile the command ends quietly with 1.
// Quirk: a command that fails or refuses the file, for whatever reason, keeps the memory that it has taken,
// and the handle of a file that was not read whole; nothing is rolled back, for one rule in all cases.
std::int32_t onButton_LoadProfile_clicked(HWND hwnd_MW, std::uint8_t uc_flag_path_given,
                                          const wchar_t* ptcFilePath_Profile,
                                          LoadedProfiles_STR* p_LoadedProfiles_STR,
                                          CB_mng_STR* p_CB_Profile_mng_STR);
