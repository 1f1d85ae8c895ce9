// The six controls of the Modify Cell window: made, given their font, and subclassed for their keys.
#pragma once

#include <windows.h>

#include "sources/wnd_ModifyCell/modify_cell_state.h"

// Creates the controls in `hwnd` at the rectangles of the state's layout and keeps their handles in the
// state. The X box gets the focus; each edit box has its painted label as its accessible name. One that
// cannot be created is null, after a box owned by `hwnd`; the others are made all the same.
void create_controls(HWND hwnd, HINSTANCE instance, ModifyCell_STR* state);

// Gives all controls their font and keeps it in the window's GWLP_USERDATA; the window deletes it when it is
// destroyed. False after an error box: the controls keep the system's font.
bool set_control_font(HWND hwnd, const ModifyCell_STR* state);

// Gives each control its subclass procedure, with which Tab moves the focus to the next control and Enter
// presses a button, and keeps the procedure before it in the state. One that refuses is reported in a box
// owned by `hwnd` and keeps its own.
void subclass_controls(HWND hwnd, ModifyCell_STR* state);
