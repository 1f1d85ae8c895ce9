// The Modify Cell window: edits position and size of one row of the List of Windows window.
#pragma once

#include <windows.h>

// The window's procedure. A WM_COPYDATA that is not a cell reference of a list of this program is ignored.
LRESULT CALLBACK WndProc_ModifyCell(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
