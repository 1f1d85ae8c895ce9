// Window classes: what those of the program have in common.
#pragma once

#include <windows.h>

#include "sources/win32/pixel_rect.h"

// What all window classes of the program have in common: redrawn as a whole when sized, arrow cursor.
WNDCLASSEXW common_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure);

// Registers the class of a window other than the main window: the system's application icon, white
// background, no menu. False when the system refuses.
bool register_secondary_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure);

// The same once per run: `registered` remembers that it succeeded.
void register_secondary_window_class_once(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure,
                                          bool* registered);
