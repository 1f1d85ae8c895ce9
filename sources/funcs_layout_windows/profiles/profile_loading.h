// The Load Profile command.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/profiles/combo_boxes.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

// Loads a profile file: asks for it with the open dialog when `uc_flag_path_given` is 0, or takes
// `ptcFilePath_Profile` otherwise; checks and reads it; starts its programs, opens its folders and places
// their windows; appends it to the store and adds its name to the Profile list. A path that does not exist is
// created as an empty file, and refused. When the file is refused nothing is started and the store is left
// alone. The thread is blocked for the whole time, see launch_profile. When the main window is closed
// meanwhile the command ends quietly with 1. Returns 1, also when the user cancelled or the store took no
// more; after an error box -1 for a null argument, -2 when the dialog or the opening failed, -3 for an empty
// file, -4 when its end cannot be reached, -5 when it cannot be read, -6 without the signature, -7 without
// memory for its bytes, -10 for a file without windows, -11 for one that runs past its end; and what
// prepare_launch and launch_profile return.
// Quirk: a command that fails or refuses the file, for whatever reason, keeps the memory that it has taken,
// and the handle of a file that was not read whole; nothing is rolled back, for one rule in all cases.
std::int32_t onButton_LoadProfile_clicked(HWND hwnd_MW, std::uint8_t uc_flag_path_given,
                                          const wchar_t* ptcFilePath_Profile,
                                          LoadedProfiles_STR* p_LoadedProfiles_STR,
                                          CB_mng_STR* p_CB_Profile_mng_STR);
