// Owners of device contexts.
#pragma once

#include <windows.h>

#include "sources/win32/owners/last_error.h"

// The device context of a window's client area, from GetDC. May be null.
class WindowDC
{
public:
    explicit WindowDC(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    ~WindowDC()
    {
        const LastErrorKeeper keeper;
        if (dc_ != nullptr)
            ReleaseDC(window_, dc_);
    }
    [[nodiscard]] HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

// The device context of a WM_PAINT, from BeginPaint to EndPaint.
class PaintDC
{
public:
    explicit PaintDC(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
    PaintDC(const PaintDC&) = delete;
    PaintDC& operator=(const PaintDC&) = delete;
    ~PaintDC() { EndPaint(window_, &paint_); }
    [[nodiscard]] HDC get() const { return dc_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

// The state of a device context, saved now and restored at the end of the scope.
class SavedDC
{
public:
    explicit SavedDC(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
    SavedDC(const SavedDC&) = delete;
    SavedDC& operator=(const SavedDC&) = delete;
    ~SavedDC() { RestoreDC(dc_, state_); }

private:
    HDC dc_;
    int state_;
};
