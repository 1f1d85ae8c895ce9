// Rectangles and points as the layout tests write them down.
#pragma once

#include <cstdint>
#include <ostream>

#include "sources/win32/pixel_rect.h"

// Named apart from the program's record, which keeps height before width.
struct Box {
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height;
    bool operator==(const Box&) const = default;
};

inline void PrintTo(const Box& box, std::ostream* out)
{
    *out << "(" << box.x << ", " << box.y << ") " << box.width << " x " << box.height;
}

inline Box box_of(const PixelRect& rect)
{
    return {.x = rect.x, .y = rect.y, .width = rect.width, .height = rect.height};
}
