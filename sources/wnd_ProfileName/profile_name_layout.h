// The profile name window's layout as a function of the screen size.
#pragma once

#include <cstdint>

#include "sources/win32/pixel_rect.h"

struct ProfileNameLayout {
    PixelRect ok; // client coordinates
    PixelRect cancel;
    PixelRect edit;
    PixelRect label;
};

// The outer size of the window in pixels.
std::int32_t profile_name_width(std::int32_t screen_width);
std::int32_t profile_name_height(std::int32_t screen_height);

// `outer_width` is the window's own outer width in pixels.
ProfileNameLayout compute_profile_name_layout(std::int32_t outer_width, std::int32_t screen_width,
                                              std::int32_t screen_height);
