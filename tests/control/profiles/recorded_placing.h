#pragma once

#include <windows.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/imports/import_patch.h"

namespace profile_tests
{

// Calls of this thread that show, place or close windows, in order, as text: "show 9 a", "front a",
// "move a 1,2 301x201", "post 16 a", and what is left for the window to do later: "later show 9 a", "later
// place a 1,2 301x201 with 4014" (the flags, a window to go behind would be named). They are not carried out.
// Windows are named by their position in `known`, "0" for none and "?" for others.
class RecordedPlacing
{
public:
    explicit RecordedPlacing(std::vector<HWND> known) : known_(std::move(known)) {}
    std::vector<std::string> calls;

private:
    std::string name(HWND window) const
    {
        for (std::size_t i = 0; i < known_.size(); ++i)
            if (known_[i] == window)
                return std::string(1, static_cast<char>('a' + i));
        return window ? "?" : "0";
    }

    static std::string place(int x, int y, int width, int height)
    {
        return std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
               std::to_string(height);
    }

    std::vector<HWND> known_;
    test_support::ImportHook<"ShowWindow", decltype(ShowWindow)> show_{
        "user32.dll", [this](HWND window, int command) {
            calls.push_back("show " + std::to_string(command) + " " + name(window));
            return TRUE;
        }};
    test_support::ImportHook<"SetForegroundWindow", decltype(SetForegroundWindow)> front_{
        "user32.dll", [this](HWND window) {
            calls.push_back("front " + name(window));
            return TRUE;
        }};
    test_support::ImportHook<"MoveWindow", decltype(MoveWindow)> move_{
        "user32.dll", [this](HWND window, int x, int y, int width, int height, BOOL repaint) {
            calls.push_back("move " + name(window) + " " + place(x, y, width, height) +
                            (repaint ? "" : " silently"));
            return TRUE;
        }};
    test_support::ImportHook<"ShowWindowAsync", decltype(ShowWindowAsync)> show_later_{
        "user32.dll", [this](HWND window, int command) {
            calls.push_back("later show " + std::to_string(command) + " " + name(window));
            return TRUE;
        }};
    test_support::ImportHook<"SetWindowPos", decltype(SetWindowPos)> place_{
        "user32.dll", [this](HWND window, HWND after, int x, int y, int width, int height, UINT flags) {
            char hexadecimal[12] = {};
            snprintf(hexadecimal, sizeof hexadecimal, "%X", flags);
            calls.push_back(std::string(flags & SWP_ASYNCWINDOWPOS ? "later " : "") + "place " +
                            name(window) + " " + place(x, y, width, height) + " with " + hexadecimal +
                            (after ? " behind " + name(after) : ""));
            return TRUE;
        }};
    test_support::ImportHook<"PostMessageW", decltype(PostMessageW)> post_{
        "user32.dll", [this](HWND window, UINT message, WPARAM wide, LPARAM narrow) {
            calls.push_back("post " + std::to_string(message) + " " + name(window) +
                            (wide == 0 && narrow == 0 ? "" : " with something"));
            return TRUE;
        }};
};

} // namespace profile_tests
