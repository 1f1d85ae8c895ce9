// Child controls and window classes: what all windows of the program make in the same way.
#pragma once

#include <windows.h>

#include "sources/funcs_layout_windows/pixel_rect.h"

// The buttons' style.
inline constexpr DWORD kButtonStyle = WS_CHILD | WS_VISIBLE | BS_CENTER;

// Creates a child control with identifier `id` at `rect` of the parent's client area. Null when the system
// refuses.
HWND create_control(HWND parent, HINSTANCE instance, const wchar_t* class_name, const wchar_t* text,
                    DWORD style, DWORD extended_style, const PixelRect& rect, unsigned id);

// Moves a control to its rectangle, with repaint.
void move_control(HWND control, const PixelRect& rect);

// The rectangle in the system's form.
RECT to_RECT(const PixelRect& rect);

// What all window classes of the program have in common: redrawn as a whole when sized, arrow cursor.
WNDCLASSEXW common_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure);

// Registers the class of a window other than the main window: the system's application icon, white
// background, no menu. False when the system refuses.
bool register_secondary_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure);

// The same once per run: `registered` remembers that it succeeded.
void register_secondary_window_class_once(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure,
                                          bool* registered);
