// Profile files dropped on the main window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <cstdint>

#include "sources/funcs_layout_windows/profiles/combo_boxes.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

// Runs the Load Profile command on the first of the dropped files; the others are left alone. The drop handle
// is not released. A handle whose memory holds no list of files is refused like a path that cannot be
// queried. Returns 1; after an error box of unconverted bytes -1 for a null window or handle, -2 without
// memory for the path, -3 when there is no path, -4 when the load failed.
std::int32_t on_wm_dropfiles(HWND hwnd_MW, HDROP hDrop, LoadedProfiles_STR* p_LoadedProfiles_STR,
                             CB_mng_STR* p_CB_Profile_mng_STR);
