// The state of the List of Windows window.
#pragma once

#include <windows.h>

#include "sources/wnd_ScanListView/saving/profile_writing.h"
#include "sources/wnd_ScanListView/scan_list_layout.h"

// The cell that was clicked last.
struct HitCell_STR {
    int iRow; // -1 when the click hit no row
    int iColumn;
};

// The process-wide state of the window: one at a time.
struct ScanList_STR {
    HWND hwnd; // the window that it belongs to
    HINSTANCE hInst;
    HWND hwndMove;
    HWND hwndCreateProfile;
    HWND hwndLV;
    HFONT hFont;
    HMENU menu;  // menu_popup_ModifyCell
    HMENU popup; // its submenu
    ScanListLayout layout;
    HitCell_STR hit_cell;
    HWND hwnd_ModifyCell;
    HWND hwnd_ProfileName;   // as Create Profile stored it
    HWND hwnd_COPYDATA_from; // sender of the last WM_COPYDATA
    STR_RW_PRFL RW_PRFL;
};

extern ScanList_STR scan_list;
