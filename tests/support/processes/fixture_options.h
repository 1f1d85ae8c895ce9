#pragma once

#include <windows.h>

#include <string>

// How a fixture program behaves. It reads this from a file which the test that starts it has written.

namespace test_support
{

struct FixtureOptions {
    std::wstring title = L"Fixture";
    std::wstring class_name = L"WendlowFixture";
    int x = 100;
    int y = 120;
    int width = 320;
    int height = 240;
    DWORD style = WS_OVERLAPPEDWINDOW;
    DWORD extended_style = 0;
    bool visible = true;
    bool minimised = false;
    // Each window after the first is 30 pixels further right and down and has " 2", " 3"... added to
    // its title.
    int window_count = 1;
    bool no_window = false;
    // Waited before the window is created, without handling messages.
    unsigned delay_milliseconds = 0;
    // The same, but handling messages, so that the program counts as ready meanwhile.
    unsigned idle_delay_milliseconds = 0;
    // Handles no message any more once the window is shown.
    bool hang_after_start = false;
    // Never answers the first question for its title (WM_GETTEXT) that comes from elsewhere.
    bool hang_on_get_text = false;
    // Ends the program when another one asks whether the window answers (WM_NULL).
    bool end_when_asked = false;
    bool refuse_close = false;
    // The window belongs to a second thread instead of the program's first.
    bool window_of_second_thread = false;
    // Takes place, size and show command from what it was started with, where these were given.
    bool use_startup = false;
    // Smallest size the window accepts; 0 = the system's.
    int minimum_width = 0;
    int minimum_height = 0;
};

// Calls visit(name, value) for every option.
template <typename Options, typename Visit> void for_each_option(Options& options, Visit visit)
{
    visit(L"title", options.title);
    visit(L"class_name", options.class_name);
    visit(L"x", options.x);
    visit(L"y", options.y);
    visit(L"width", options.width);
    visit(L"height", options.height);
    visit(L"style", options.style);
    visit(L"extended_style", options.extended_style);
    visit(L"visible", options.visible);
    visit(L"minimised", options.minimised);
    visit(L"window_count", options.window_count);
    visit(L"no_window", options.no_window);
    visit(L"delay_milliseconds", options.delay_milliseconds);
    visit(L"idle_delay_milliseconds", options.idle_delay_milliseconds);
    visit(L"hang_after_start", options.hang_after_start);
    visit(L"hang_on_get_text", options.hang_on_get_text);
    visit(L"end_when_asked", options.end_when_asked);
    visit(L"refuse_close", options.refuse_close);
    visit(L"window_of_second_thread", options.window_of_second_thread);
    visit(L"use_startup", options.use_startup);
    visit(L"minimum_width", options.minimum_width);
    visit(L"minimum_height", options.minimum_height);
}

} // namespace test_support
