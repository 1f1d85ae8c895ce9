#pragma once

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/quit_message.h"

namespace main_tests
{

// Runs the entry point on a screen of 1366 x 768 and takes down what it does, step by step. The message loop
// ends at once. What is created is real unless a failure is asked for.
class StartUp
{
public:
    struct Creation {
        DWORD extended_style;
        std::wstring class_name;
        std::wstring title;
        DWORD style;
        int x, y, width, height;
        HWND parent;
        HMENU menu;
        HINSTANCE instance;
        LPVOID parameter;
    };

    StartUp() = default;
    ~StartUp()
    {
        if (window != nullptr)
            DestroyWindow(window);
        // The end of the window asks the thread to end, which would close the boxes of later tests.
        test_support::take_quit_message();
    }
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;

    int run(int show_command) { return wWinMain(GetModuleHandleW(nullptr), nullptr, nullptr, show_command); }

    HWND running_instance = nullptr; // what is found of another instance
    bool classes_fail = false;
    bool creation_fails = false;
    WPARAM exit_code = 0; // of WM_QUIT

    std::vector<std::string> steps;
    std::vector<WNDCLASSEXW> classes;
    Creation creation{};
    HWND window = nullptr; // the main window

private:
    void step(const char* format, auto... values)
    {
        char text[80];
        snprintf(text, sizeof text, format, values...);
        steps.push_back(text);
    }

    void note_creation(HWND created, const Creation& seen)
    {
        step("create");
        creation = seen;
        window = created;
    }

    // Which window a call is for.
    const char* name_of(HWND handle) const
    {
        if (handle == nullptr)
            return "null";
        return handle == running_instance ? "the other" : handle == window ? "main" : "?";
    }

    // Not carried out: the test's own process would stay so.
    test_support::ImportHook<"SetDefaultDllDirectories", decltype(SetDefaultDllDirectories)> libraries_{
        "kernel32.dll", [this](DWORD folders) -> BOOL {
            step("libraries from %lX", folders);
            return TRUE;
        }};
    test_support::ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen_{
        "user32.dll", [this](int metric) {
            return metric == SM_CXSCREEN ? 1366 : metric == SM_CYSCREEN ? 768 : screen_.call_original(metric);
        }};
    test_support::ImportHook<"DisableProcessWindowsGhosting", decltype(DisableProcessWindowsGhosting)>
        ghosts_{"user32.dll", [this] { step("no ghosting"); }};
    test_support::ImportHook<"FindWindowW", decltype(FindWindowW)> find_{
        "user32.dll", [this](LPCWSTR class_name, LPCWSTR title) {
            step("find %ls, %s", class_name, title == nullptr ? "any title" : "one title");
            return running_instance;
        }};
    test_support::ImportHook<"ShowWindowAsync", decltype(ShowWindowAsync)> show_async_{
        "user32.dll", [this](HWND handle, int command) {
            step("show %s: %d", name_of(handle), command);
            return TRUE;
        }};
    test_support::ImportHook<"SetForegroundWindow", decltype(SetForegroundWindow)> foreground_{
        "user32.dll", [this](HWND handle) {
            step("bring %s to the front", name_of(handle));
            return TRUE;
        }};
    test_support::ImportHook<"InitCommonControlsEx", decltype(InitCommonControlsEx)> controls_{
        "comctl32.dll", [this](const INITCOMMONCONTROLSEX* what) {
            step("common controls %lX of %lu bytes", what->dwICC, what->dwSize);
            return controls_.call_original(what);
        }};
    test_support::ImportHook<"RegisterClassExW", decltype(RegisterClassExW)> register_{
        "user32.dll", [this](const WNDCLASSEXW* window_class) -> ATOM {
            step("class %ls", window_class->lpszClassName);
            classes.push_back(*window_class);
            return classes_fail ? ATOM{0} : register_.call_original(window_class);
        }};
    test_support::ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create_{
        "user32.dll",
        [this](DWORD extended_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width,
               int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) -> HWND {
            if ((style & WS_CHILD) == 0 && creation_fails)
                SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            const HWND created =
                (style & WS_CHILD) == 0 && creation_fails
                    ? nullptr
                    : create_.call_original(extended_style, class_name, title, style, x, y, width, height,
                                            parent, menu, instance, parameter);
            if ((style & WS_CHILD) == 0)
                note_creation(created, {extended_style, class_name, title, style, x, y, width, height, parent,
                                        menu, instance, parameter});
            return created;
        }};
    test_support::ImportHook<"DragAcceptFiles", decltype(DragAcceptFiles)> drops_{
        "shell32.dll", [this](HWND handle, BOOL accept) {
            step("drops on %s: %d", name_of(handle), accept);
            drops_.call_original(handle, accept);
        }};
    test_support::ImportHook<"ChangeWindowMessageFilterEx", decltype(ChangeWindowMessageFilterEx)> filter_{
        "user32.dll", [this](HWND handle, UINT message, DWORD action, PCHANGEFILTERSTRUCT status) {
            step("message %X to %s: %lu", message, name_of(handle), action);
            return filter_.call_original(handle, message, action, status);
        }};
    test_support::ImportHook<"ShowWindow", decltype(ShowWindow)> show_{
        "user32.dll", [this](HWND handle, int command) {
            step("show %s: %d", name_of(handle), command);
            return show_.call_original(handle, command);
        }};
    test_support::ImportHook<"UpdateWindow", decltype(UpdateWindow)> update_{
        "user32.dll", [this](HWND handle) {
            step("update %s", name_of(handle));
            return update_.call_original(handle);
        }};
    test_support::ImportHook<"GetMessageW", decltype(GetMessageW)> messages_{
        "user32.dll", [this](MSG* message, HWND, UINT, UINT) -> BOOL {
            step("loop");
            *message = {};
            message->message = WM_QUIT;
            message->wParam = exit_code;
            return 0;
        }};
};

} // namespace main_tests
