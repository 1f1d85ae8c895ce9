// Real pixels: where other programs' windows are on the screen, whatever the scale of a monitor.
//
// The program's own windows live in the scale of the primary monitor, and Windows converts the coordinates
// of the thread that owns them. Only inside a RealPixels do the thread's calls take and give real pixels.
#pragma once

#include <windows.h>

#include "sources/win32/pixel_rect.h"

// Real pixels on every monitor for this thread's calls, until the end of the scope. A window made meanwhile
// would not be scaled on a monitor of another scale, so no window of the program, box or dialog is made in
// the scope. A message that comes in while a call waits finds the scale of the window that it is for.
class RealPixels
{
public:
    RealPixels();
    RealPixels(const RealPixels&) = delete;
    RealPixels& operator=(const RealPixels&) = delete;
    ~RealPixels();

private:
    DPI_AWARENESS_CONTEXT before_; // null when the system refused; the thread's scale was left then
};

// The window's rectangle in real pixels; all 0 for a handle of no window.
RECT real_window_rect(HWND hwnd);

// The scale of the monitor on which the window is, or, minimised, will be when it is restored: in dots per
// inch, 96 unscaled. 0 when the system does not tell. To be called inside a
// RealPixels.
UINT scale_at_window(HWND hwnd);

// The same for a window at `rect`.
UINT scale_at_rect(const PixelRect& rect);
