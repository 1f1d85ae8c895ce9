// Opening the Modify Cell window from the List of Windows window.
#pragma once

#include <windows.h>

#include "sources/wnd_ScanListView/scan_list_state.h"

// Creates the Modify Cell window beside the mouse cursor, shows it and sends it the cell `hit_cell` of the
// list `hwndLV`. Registers the class at the first call. Returns the window; null after the system's text when
// it cannot be created.
HWND create_wnd_ModifyCell(HWND hwnd_ListWindows, HWND hwndLV, const HitCell_STR* hit_cell);
