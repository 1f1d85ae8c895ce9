// The main window's reaction to WM_SIZE.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/main_view/main_layout.h"

// Computes the record's rectangles for the client size packed into `lParam` as WM_SIZE does and moves the
// five controls to theirs, with repaint. `wParam` is the size type. Returns 1; -1 after an error box
// of unconverted bytes when the window, the record, the Scan button or the Load Profile button is null.
std::int32_t on_WM_SIZE(HWND hwnd_MW, WPARAM wParam, LPARAM lParam, STR_GeomLt* pSTR_GeomLt, HWND hWndBTN00,
                        HWND hWndBTN02, HWND hWndBTN_Apply, HWND hwnd_CB_Profile, HWND hwnd_CB_Action);
