// Child controls: what all windows of the program make in the same way.
#pragma once

#include <windows.h>

#include "sources/win32/pixel_rect.h"

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
