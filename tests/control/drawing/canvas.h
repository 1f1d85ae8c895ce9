#pragma once

#include <windows.h>

namespace drawing_tests
{

// A white picture in memory to draw on.
class Canvas
{
public:
    Canvas(int width, int height) : dc_(CreateCompatibleDC(nullptr))
    {
        const HDC screen = GetDC(nullptr);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, width, height, WHITENESS);
    }
    ~Canvas()
    {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return dc_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

private:
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
};

} // namespace drawing_tests
