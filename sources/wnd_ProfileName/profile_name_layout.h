// The profile name window's layout as a function of its own width and the screen size.
#pragma once

#include <cstdint>

#include "sources/win32/pixel_rect.h"

// Where the window's controls and its label are.
struct ProfileNameLayout {
    PixelRect ok; // client coordinates
    PixelRect cancel;
    PixelRect edit;
    PixelRect label;
};

// The outer size of the window in pixels.
std::int32_t profile_name_width(std::int32_t screen_width);
std::int32_t profile_name_height(std::int32_t screen_height);

// Every rectangle of the window, in pixels; `outer_width` is the width that the window was given.
ProfileNameLayout compute_profile_name_layout(std::int32_t outer_width, std::int32_t screen_width,
                                              std::int32_t screen_height);
