// The main window: its class and its window procedure.
#pragma once

#include <windows.h>

#include "sources/main_prg/main_window_state.h"

// The class name also tells a running instance from none.
inline constexpr wchar_t kClass_MainWindow[] = L"prg_wnds_layout";
inline constexpr wchar_t kTitle_MainWindow[] = L"Wendlow";

// The main window's procedure.
LRESULT CALLBACK WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
