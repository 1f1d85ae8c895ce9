// The List of Windows window's layout as a function of client size and screen size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/win32/pixel_rect.h"

// The buttons' size comes from the screen, not from the window: they keep it when the window is resized.
std::int32_t scan_list_button_width(std::int32_t screen_width);
std::int32_t scan_list_button_height(std::int32_t screen_height);

// The width of a column for a client area `client_width` pixels wide.
std::int32_t scan_list_column_width(std::size_t column, std::int32_t client_width);

// Where the window's controls are.
struct ScanListLayout {
    PixelRect move; // client coordinates
    PixelRect create_profile;
    PixelRect list;
};

// The rectangles for a client area of that size, in pixels.
ScanListLayout compute_scan_list_layout(std::int32_t client_width, std::int32_t client_height,
                                        std::int32_t screen_width, std::int32_t screen_height);
