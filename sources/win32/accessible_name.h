// Names for people who do not see the labels that the windows paint.
#pragma once

#include <windows.h>

// Gives a control the name that a screen reader says of it, until the control is destroyed. Only while a
// screen reader runs; otherwise, or when the system refuses, the control has none, as without the call.
// Nothing for a null control. `name` is copied.
void set_accessible_name(HWND control, const wchar_t* name);
