// What the layouts are made of: rectangles, the margin, truncated products.
#pragma once

#include <cstdint>

// Pixels. Height precedes width, as in the scan record's geometry entries.
struct PixelRect {
    std::int32_t x;
    std::int32_t y;
    std::int32_t height;
    std::int32_t width;
};

// A point in pixels.
struct PixelPoint {
    std::int32_t x;
    std::int32_t y;
};

// Margin around the controls of every window and gap between them, in pixels.
inline constexpr std::int32_t kMargin = 5;

// The product, truncated toward zero, in the precision of its factor: single and double differ in the last
// pixel on some screens, so the factor's type is part of each layout.
constexpr std::int32_t truncated_product(float factor, std::int32_t pixels)
{
    return static_cast<std::int32_t>(factor * static_cast<float>(pixels));
}
constexpr std::int32_t truncated_product(double factor, std::int32_t pixels)
{
    return static_cast<std::int32_t>(factor * static_cast<double>(pixels));
}
