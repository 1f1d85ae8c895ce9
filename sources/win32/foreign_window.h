// Windows of other programs, which may be busy or hung: asking, showing and placing them.
#pragma once

#include <windows.h>

#include <cstddef>

#include "sources/win32/pixel_rect.h"

// Sends a message and waits for the answer, five seconds at most. False when there was none: the window is
// hung, died while it was asked, or is no window. Re-entrancy: the wait lets messages in.
bool ask_foreign_window(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* answer);

// Which windows handle messages. Each is asked once, so that a hung one costs a command five seconds at most.
class AskedWindows
{
public:
    AskedWindows() = default;
    AskedWindows(const AskedWindows&) = delete;
    AskedWindows& operator=(const AskedWindows&) = delete;
    ~AskedWindows();

    // False for a window that does not handle messages. Windows of this thread, and what is no window or none
    // any more, are not waited for: true. Re-entrancy: asking lets messages in.
    [[nodiscard]] bool answers(HWND hwnd);

private:
    struct Answer {
        HWND hwnd;
        bool given;
    };
    void remember(const Answer& answer);

    Answer* known_ = nullptr;
    std::size_t count_ = 0;
    std::size_t capacity_ = 0;
};

// Shows, minimises or restores a window with `command`, as ShowWindow does. One that does not answer does it
// as soon as it handles messages again.
void show_foreign_window(HWND hwnd, int command, bool answers);

// Moves and sizes a window, in real pixels and with repaint. One that does not answer takes its place,
// without coming to the front, as soon as it handles messages again. One that comes to a monitor of another
// scale, and resizes itself there, is moved once more.
void place_foreign_window(HWND hwnd, const PixelRect& rect, bool answers);

// Restores a minimised window, moves and sizes it as above and brings it to the top. The calls wait for no
// window, so it need not be asked before; it does all this as soon as it handles messages. False when the
// system refuses, most often because the window is gone.
bool place_foreign_window_on_top(HWND hwnd, const PixelRect& rect);
