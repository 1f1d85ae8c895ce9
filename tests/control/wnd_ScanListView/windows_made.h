#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/support/imports/import_patch.h"

namespace window_tests
{

// While it lives, keeps what is given to CreateWindowExW, a line to a window:
//     class "title" identifier: style extended style left,top widthxheight
class WindowsMade
{
public:
    WindowsMade() = default;
    WindowsMade(const WindowsMade&) = delete;
    WindowsMade& operator=(const WindowsMade&) = delete;

    std::vector<std::wstring> lines;
    std::vector<HWND> parents;
    std::vector<HWND> focused; // the window with the focus before each

private:
    static std::wstring line(DWORD extended, const wchar_t* name, const wchar_t* title, DWORD style, int x,
                             int y, int width, int height, HMENU menu)
    {
        wchar_t text[300]{};
        _snwprintf(text, 299, L"%s \"%s\" %u: %08X %08X %d,%d %dx%d", name, title,
                   static_cast<unsigned>(reinterpret_cast<UINT_PTR>(menu)), style, extended, x, y, width,
                   height);
        return text;
    }

    test_support::ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> hook_{
        "user32.dll",
        [this](DWORD extended, const wchar_t* name, const wchar_t* title, DWORD style, int x, int y,
               int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter) {
            lines.push_back(line(extended, name, title, style, x, y, width, height, menu));
            parents.push_back(parent);
            focused.push_back(GetFocus());
            EXPECT_EQ(instance, GetModuleHandleW(nullptr));
            EXPECT_EQ(parameter, nullptr);
            return hook_.call_original(extended, name, title, style, x, y, width, height, parent, menu,
                                       instance, parameter);
        }};
};

} // namespace window_tests
