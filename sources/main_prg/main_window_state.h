// The state of the main window, and the identifiers of its controls and commands.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <cstdint>

#include "sources/funcs_layout_windows/main_view/main_layout.h"
#include "sources/funcs_layout_windows/profiles/combo_boxes.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

// Identifiers of the main window's controls.
enum MainControl : unsigned {
    ID_BTN_SCAN = 1,
    ID_BTN_LOAD_PROFILE = 2,
    ID_CB_PROFILE = 4,
    ID_CB_ACTION = 5,
    ID_BTN_APPLY = 6,
};

// Commands kept for menu items that the menu does not have, from the first to the last.
inline constexpr unsigned kReservedCommand_first = 3;
inline constexpr unsigned kReservedCommand_last = 8;

// The process-wide state of the main window. Fields called unread are for a debugger or a dump; the program
// is handed their values.
struct MainWindow_STR {
    HWND hwnd_MW;    // unread: every message names the window
    HINSTANCE hInst; // of the module that made the window; used for every child
    HWND hWndBTN00;  // Scan
    HWND hWndBTN_LoadProfile;
    HWND hwnd_CB_Profile;
    HWND hwnd_CB_Action;
    HWND hWndBTN_Apply;
    HFONT hFont_controls;
    bool flag_store_initialised; // set before the one attempt to set the store up
    HDROP hDrop;                 // of the last WM_DROPFILES; unread: the drop is done when its message is
    STR_GeomLt STR_GeomLt_MW;
    CB_mng_STR CB_Profile;
    CB_Action_mng_STR CB_Action;
    LoadedProfiles_STR LoadedProfiles;
};

extern MainWindow_STR main_window;
