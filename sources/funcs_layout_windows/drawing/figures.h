// Lines, the miniature window, and the background of all windows.
#pragma once

#include <windows.h>

#include <cstdint>

// Draws a line with the selected pen. Returns 1; -1 after an error box for a null context or a line without
// length.
std::int32_t vex_DrawLine(HDC hdc, std::int32_t x0, std::int32_t y0, std::int32_t x1, std::int32_t y1);

// Draws a miniature window: an outline `w` wide and `h` high with its upper left corner at (x, y), a title
// bar 20 pixels high and three title-bar boxes, which stand outside a frame narrower than 45 pixels. Returns
// 1; -1 after an error box when the window, the context or a size is 0.
std::int32_t draw_wnd_frame(HWND hwnd_MW, HDC hdc_MW, std::int32_t x, std::int32_t y, std::uint32_t h,
                            std::uint32_t w);

// Fills the client area of `hwnd` with the vertical gradient that is the background of the program's windows.
void fill_background(HWND hwnd, HDC hdc);
