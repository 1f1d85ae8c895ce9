#pragma once

#include <windows.h>

#include <string>

#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"

// The size of the screen, and the font that fits a button, for windows that go by them.

namespace screen_tests
{

// While it lives, the screen has this size in pixels for this thread. What is shown stays where it is.
class ScreenOfSize
{
public:
    ScreenOfSize(int width, int height) : width_(width), height_(height) {}
    ScreenOfSize(const ScreenOfSize&) = delete;
    ScreenOfSize& operator=(const ScreenOfSize&) = delete;

private:
    int width_;
    int height_;
    test_support::ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> metrics_{
        "user32.dll", [this](int which) {
            return which == SM_CXSCREEN   ? width_
                   : which == SM_CYSCREEN ? height_
                                          : metrics_.call_original(which);
        }};
};

// A screen so small that no text fits a control.
struct TinyScreen : ScreenOfSize {
    TinyScreen() : ScreenOfSize(8, 8) {}
};

// That the search for a font was refused, and then an error of this text shown.
void expect_no_room_and(const test_support::BoxWatcher& boxes, const std::wstring& text);

// The height of a plain serif font whose line is at most `height_limit` pixels high and in which the text is
// at most `width_limit` wide, found here step by step: upwards by the height of six unconverted units of
// "Hello!", then downwards by the width.
int fitting_font_height(HWND window, const wchar_t* text, int height_limit, int width_limit);

// While it lives, counts the device contexts of the window's class that are got and given back.
class ContextsOf
{
public:
    explicit ContextsOf(const wchar_t* class_name) : class_name_(class_name) {}
    ContextsOf(const ContextsOf&) = delete;
    ContextsOf& operator=(const ContextsOf&) = delete;

    int got = 0;
    int released = 0; // of those

private:
    const wchar_t* class_name_;
    HDC last_ = nullptr;
    test_support::ImportHook<"GetDC", decltype(GetDC)> get_{"user32.dll", [this](HWND window) {
                                                                const HDC dc = get_.call_original(window);
                                                                wchar_t name[64]{};
                                                                GetClassNameW(window, name, 64);
                                                                if (lstrcmpW(name, class_name_) == 0) {
                                                                    ++got;
                                                                    last_ = dc;
                                                                }
                                                                return dc;
                                                            }};
    test_support::ImportHook<"ReleaseDC", decltype(ReleaseDC)> release_{
        "user32.dll", [this](HWND window, HDC dc) {
            released += dc != nullptr && dc == last_ ? 1 : 0;
            return release_.call_original(window, dc);
        }};
};

// While it lives, counts the controls that are given a font and told to draw themselves anew with it.
class FontsGiven
{
public:
    FontsGiven() = default;
    FontsGiven(const FontsGiven&) = delete;
    FontsGiven& operator=(const FontsGiven&) = delete;

    int redrawn = 0;
    int not_redrawn = 0;

private:
    test_support::ImportHook<"SendMessageW", decltype(SendMessageW)> send_{
        "user32.dll", [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_SETFONT)
                ++(lParam == TRUE ? redrawn : not_redrawn);
            return send_.call_original(window, message, wParam, lParam);
        }};
};

} // namespace screen_tests
