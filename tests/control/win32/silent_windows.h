#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/imports/import_patch.h"

// Windows of other programs that are said not to answer when this thread asks whether they do, and a record
// of which windows were asked.
class SilentWindows
{
public:
    explicit SilentWindows(std::vector<HWND> silent) : silent_(std::move(silent)) {}
    std::vector<HWND> asked;
    // Called while a window is being asked.
    std::function<void(HWND window)> while_asked;

private:
    LRESULT ask(HWND window)
    {
        asked.push_back(window);
        if (while_asked)
            while_asked(window);
        return std::find(silent_.begin(), silent_.end(), window) == silent_.end();
    }

    std::vector<HWND> silent_;
    test_support::ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> hook_{
        "user32.dll", [this](HWND window, UINT message, WPARAM wide, LPARAM narrow, UINT flags, UINT time,
                             PDWORD_PTR answer) {
            return message == WM_NULL
                       ? ask(window)
                       : hook_.call_original(window, message, wide, narrow, flags, time, answer);
        }};
};
