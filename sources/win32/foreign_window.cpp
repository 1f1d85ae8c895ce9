#include "sources/win32/foreign_window.h"

#include <algorithm>

#include "sources/win32/owners/last_error.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/win32/real_pixels.h"

namespace
{

constexpr UINT kAnswer_ms = 5000;

// A hung window is not waited for to the end, one that is destroyed meanwhile not at all.
constexpr UINT kAnswer_flags = SMTO_ABORTIFHUNG | SMTO_ERRORONEXIT;

constexpr std::size_t kCapacity_first = 256; // a page of answers

bool is_at(HWND hwnd, const PixelRect& rect)
{
    const RECT now = real_window_rect(hwnd);
    return now.left == rect.x && now.top == rect.y && now.right - now.left == rect.width &&
           now.bottom - now.top == rect.height;
}

void move_now(HWND hwnd, const PixelRect& rect)
{
    MoveWindow(hwnd, rect.x, rect.y, rect.width, rect.height, TRUE);
}

// A window that comes to a monitor of another scale resizes itself.
void move_answering(HWND hwnd, const PixelRect& rect)
{
    const UINT scale = scale_at_window(hwnd);
    move_now(hwnd, rect);
    if (!is_at(hwnd, rect) && scale_at_window(hwnd) != scale)
        move_now(hwnd, rect);
}

bool ask_to_move_once(HWND hwnd, const PixelRect& rect, UINT flags)
{
    return SetWindowPos(hwnd, HWND_TOP, rect.x, rect.y, rect.width, rect.height,
                        SWP_ASYNCWINDOWPOS | flags) != FALSE;
}

// The same for a move that is not waited for: whether the window will resize itself is told by where it goes.
bool ask_to_move(HWND hwnd, const PixelRect& rect, UINT flags)
{
    const bool rescaled = scale_at_window(hwnd) != scale_at_rect(rect);
    return ask_to_move_once(hwnd, rect, flags) && (!rescaled || ask_to_move_once(hwnd, rect, flags));
}

} // namespace

bool ask_foreign_window(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* answer)
{
    return SendMessageTimeoutW(hwnd, message, wParam, lParam, kAnswer_flags, kAnswer_ms, answer) != 0;
}

AskedWindows::~AskedWindows()
{
    const LastErrorKeeper keeper;
    release_block(known_);
}

bool AskedWindows::answers(HWND hwnd)
{
    if (hwnd == nullptr || GetWindowThreadProcessId(hwnd, nullptr) == GetCurrentThreadId())
        return true;
    for (std::size_t i = 0; i < count_; ++i) {
        if (known_[i].hwnd == hwnd)
            return known_[i].given;
    }
    DWORD_PTR unused = 0;
    // The calls on a window that has died fail at once.
    const bool given = ask_foreign_window(hwnd, WM_NULL, 0, 0, &unused) || IsWindow(hwnd) == FALSE;
    remember({.hwnd = hwnd, .given = given});
    return given;
}

// Without memory the window is asked again the next time.
void AskedWindows::remember(const Answer& answer)
{
    if (count_ == capacity_) {
        const std::size_t capacity = capacity_ == 0 ? kCapacity_first : 2 * capacity_;
        auto* grown = allocate_block<Answer>(capacity * sizeof(Answer));
        if (grown == nullptr)
            return;
        std::copy_n(known_, count_, grown);
        release_block(known_);
        known_ = grown;
        capacity_ = capacity;
    }
    known_[count_++] = answer;
}

void show_foreign_window(HWND hwnd, int command, bool answers)
{
    if (answers)
        ShowWindow(hwnd, command);
    else
        ShowWindowAsync(hwnd, command);
}

void place_foreign_window(HWND hwnd, const PixelRect& rect, bool answers)
{
    const RealPixels real;
    if (answers)
        move_answering(hwnd, rect);
    else
        ask_to_move(hwnd, rect, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool place_foreign_window_on_top(HWND hwnd, const PixelRect& rect)
{
    const RealPixels real;
    if (IsIconic(hwnd) != FALSE)
        ShowWindowAsync(hwnd, SW_RESTORE);
    return ask_to_move(hwnd, rect, SWP_SHOWWINDOW);
}
