// WM_CREATE of the main window.
#pragma once

#include <windows.h>

#include "sources/main_prg/main_window_state.h"

// Builds the main window's contents: layout constants, five controls, the records of the two lists, the
// controls' font, COM on this thread. What cannot be made is shown in a box and the window goes on without
// it.
void on_WM_CREATE(HWND hwnd, const CREATESTRUCTW* creation, MainWindow_STR* state);
