#include "sources/win32/real_pixels.h"

#include <shellscalingapi.h>

#include <algorithm>
#include <cstdint>

#include "sources/win32/owners/last_error.h"

namespace
{

UINT scale_of(HMONITOR monitor)
{
    UINT horizontal = 0;
    UINT vertical = 0; // always the same as the other
    return SUCCEEDED(GetDpiForMonitor(monitor, MDT_EFFECTIVE_DPI, &horizontal, &vertical)) ? horizontal : 0;
}

// Sides come from profiles and cells: any two numbers.
LONG bounded_sum(std::int32_t a, std::int32_t b)
{
    return static_cast<LONG>(
        std::clamp(std::int64_t{a} + b, std::int64_t{INT32_MIN}, std::int64_t{INT32_MAX}));
}

} // namespace

RealPixels::RealPixels() : before_(SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2))
{
    // Windows 10 before version 1703 knows the older kind only, whose coordinates are the same.
    if (before_ == nullptr)
        before_ = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
}

RealPixels::~RealPixels()
{
    const LastErrorKeeper keeper;
    if (before_ != nullptr)
        SetThreadDpiAwarenessContext(before_);
}

RECT real_window_rect(HWND hwnd)
{
    const RealPixels real;
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    return rect;
}

UINT scale_at_window(HWND hwnd)
{
    return scale_of(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST));
}

UINT scale_at_rect(const PixelRect& rect)
{
    const RECT corners{.left = rect.x,
                       .top = rect.y,
                       .right = bounded_sum(rect.x, rect.width),
                       .bottom = bounded_sum(rect.y, rect.height)};
    return scale_of(MonitorFromRect(&corners, MONITOR_DEFAULTTONEAREST));
}
