// The Apply command: one action on all windows of a loaded profile.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/profiles/combo_boxes.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

// Performs the action selected in the Action list on every window of the profile selected in the Profile
// list, in store order: minimise, restore and place, or ask to close (which also takes the name off the
// list). Without a selection an info box is shown and nothing happens. Handles of windows that are gone are
// used as they are; the calls fail. Returns 1; -1 after an error box for a null argument.
std::int32_t onButton_Apply_press(CB_mng_STR* p_CB_Profile_manage_STR,
                                  const CB_Action_mng_STR* p_CB_Action_manage_STR,
                                  const LoadedProfiles_STR* p_LoadedProfiles_STR);

// Restores every window of profile `index_profile` and moves it to its saved rectangle; a window saved
// without a size is left alone. Returns 1; -1 after an error box for a null store or one without files area.
std::int32_t Restore_Move_Size_wnds_Profile(const LoadedProfiles_STR* p_LoadedProfiles_STR,
                                            std::uint32_t index_profile);
