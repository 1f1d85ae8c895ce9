// The picture in the main window.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/main_view/main_layout.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

// Draws the axes with their labels, the five miniature windows and the labels of the two lists over the
// background, in the rectangles that on_WM_SIZE computed. Keeps the label font's size in the record. Returns
// 1; -1 after an error box when an argument is null. The drawing primitives' results are not looked at.
std::int32_t draw_MainWindow(HWND hwnd_MW, HDC hdc_MW, STR_GeomLt* pSTR_GeomLt, HFONT hFont_buttons,
                             const LoadedProfiles_STR* pLoadedProfiles_STR);
