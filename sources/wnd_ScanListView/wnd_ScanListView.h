// The List of Windows window: shows a scan and offers Move, Create Profile and Modify Cell.
#pragma once

#include <windows.h>

// The window's procedure. The class is registered at start-up; the Scan command opens the window. It shows
// the process-wide scan record, and releases the record's blocks when it is destroyed.
LRESULT CALLBACK WndProc_ScanListView(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
