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

using test_support::ImportHook;

// What the entry point does, step by step.
class StartUpSteps
{
public:
    void add(const char* format, auto... values)
    {
        char text[80];
        snprintf(text, sizeof text, format, values...);
        steps.push_back(text);
    }
    // Which window a call is for.
    const char* name_of(HWND handle) const
    {
        if (handle == nullptr)
            return "null";
        return handle == running_instance ? "the other" : handle == window ? "main" : "?";
    }

    std::vector<std::string> steps;
    HWND running_instance = nullptr;
    HWND window = nullptr; // the main window
};

// What is set for the whole process, and the size of the screen.
class RecordedSettings
{
public:
    explicit RecordedSettings(StartUpSteps* steps) : steps_(*steps) {}
    RecordedSettings(const RecordedSettings&) = delete;
    RecordedSettings& operator=(const RecordedSettings&) = delete;

private:
    StartUpSteps& steps_;
    // Not carried out: the test's own process would stay so.
    ImportHook<"SetDefaultDllDirectories", decltype(SetDefaultDllDirectories)> libraries_{
        "kernel32.dll", [this](DWORD folders) -> BOOL {
            steps_.add("libraries from %lX", folders);
            return TRUE;
        }};
    ImportHook<"DisableProcessWindowsGhosting", decltype(DisableProcessWindowsGhosting)> ghosts_{
        "user32.dll", [this] { steps_.add("no ghosting"); }};
    ImportHook<"InitCommonControlsEx", decltype(InitCommonControlsEx)> controls_{
        "comctl32.dll", [this](const INITCOMMONCONTROLSEX* what) {
            steps_.add("common controls %lX of %lu bytes", what->dwICC, what->dwSize);
            return controls_.call_original(what);
        }};
    ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen_{
        "user32.dll", [this](int metric) {
            return metric == SM_CXSCREEN ? 1366 : metric == SM_CYSCREEN ? 768 : screen_.call_original(metric);
        }};
};

// The search for another instance, and what is done with its window.
class RecordedInstance
{
public:
    explicit RecordedInstance(StartUpSteps* steps) : steps_(*steps) {}
    RecordedInstance(const RecordedInstance&) = delete;
    RecordedInstance& operator=(const RecordedInstance&) = delete;

private:
    StartUpSteps& steps_;
    ImportHook<"FindWindowW", decltype(FindWindowW)> find_{
        "user32.dll", [this](LPCWSTR class_name, LPCWSTR title) {
            steps_.add("find %ls, %s", class_name, title == nullptr ? "any title" : "one title");
            return steps_.running_instance;
        }};
    ImportHook<"ShowWindowAsync", decltype(ShowWindowAsync)> show_async_{
        "user32.dll", [this](HWND handle, int command) {
            steps_.add("show %s: %d", steps_.name_of(handle), command);
            return TRUE;
        }};
    ImportHook<"SetForegroundWindow", decltype(SetForegroundWindow)> foreground_{
        "user32.dll", [this](HWND handle) {
            steps_.add("bring %s to the front", steps_.name_of(handle));
            return TRUE;
        }};
};

// The classes and the main window. What is created is real unless a failure is asked for.
class RecordedCreation
{
public:
    struct Arguments {
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

    explicit RecordedCreation(StartUpSteps* steps) : steps_(*steps) {}
    RecordedCreation(const RecordedCreation&) = delete;
    RecordedCreation& operator=(const RecordedCreation&) = delete;

    bool classes_fail = false;
    bool window_fails = false;
    std::vector<WNDCLASSEXW> classes;
    Arguments window{};

private:
    // Of the main window; its controls are not noted.
    HWND note(HWND created, const Arguments& arguments)
    {
        steps_.add("create");
        window = arguments;
        return steps_.window = created;
    }

    StartUpSteps& steps_;
    ImportHook<"RegisterClassExW", decltype(RegisterClassExW)> register_{
        "user32.dll", [this](const WNDCLASSEXW* window_class) -> ATOM {
            steps_.add("class %ls", window_class->lpszClassName);
            classes.push_back(*window_class);
            return classes_fail ? ATOM{0} : register_.call_original(window_class);
        }};
    ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create_{
        "user32.dll",
        [this](DWORD extended_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width,
               int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) -> HWND {
            const auto create = [&] {
                return create_.call_original(extended_style, class_name, title, style, x, y, width, height,
                                             parent, menu, instance, parameter);
            };
            if ((style & WS_CHILD) != 0)
                return create();
            const HWND created = window_fails ? nullptr : create();
            if (window_fails)
                SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return note(created, {extended_style, class_name, title, style, x, y, width, height, parent, menu,
                                  instance, parameter});
        }};
};

// What is done with the main window once it is there.
class RecordedShowing
{
public:
    explicit RecordedShowing(StartUpSteps* steps) : steps_(*steps) {}
    RecordedShowing(const RecordedShowing&) = delete;
    RecordedShowing& operator=(const RecordedShowing&) = delete;

private:
    StartUpSteps& steps_;
    ImportHook<"DragAcceptFiles", decltype(DragAcceptFiles)> drops_{
        "shell32.dll", [this](HWND handle, BOOL accept) {
            steps_.add("drops on %s: %d", steps_.name_of(handle), accept);
            drops_.call_original(handle, accept);
        }};
    ImportHook<"ChangeWindowMessageFilterEx", decltype(ChangeWindowMessageFilterEx)> filter_{
        "user32.dll", [this](HWND handle, UINT message, DWORD action, PCHANGEFILTERSTRUCT status) {
            steps_.add("message %X to %s: %lu", message, steps_.name_of(handle), action);
            return filter_.call_original(handle, message, action, status);
        }};
    ImportHook<"ShowWindow", decltype(ShowWindow)> show_{"user32.dll", [this](HWND handle, int command) {
                                                             steps_.add("show %s: %d", steps_.name_of(handle),
                                                                        command);
                                                             return show_.call_original(handle, command);
                                                         }};
    ImportHook<"UpdateWindow", decltype(UpdateWindow)> update_{"user32.dll", [this](HWND handle) {
                                                                   steps_.add("update %s",
                                                                              steps_.name_of(handle));
                                                                   return update_.call_original(handle);
                                                               }};
};

// A message loop that ends at once.
class EmptyMessageLoop
{
public:
    explicit EmptyMessageLoop(StartUpSteps* steps) : steps_(*steps) {}
    EmptyMessageLoop(const EmptyMessageLoop&) = delete;
    EmptyMessageLoop& operator=(const EmptyMessageLoop&) = delete;

    WPARAM exit_code = 0; // of WM_QUIT

private:
    StartUpSteps& steps_;
    ImportHook<"GetMessageW", decltype(GetMessageW)> messages_{
        "user32.dll", [this](MSG* message, HWND, UINT, UINT) -> BOOL {
            steps_.add("loop");
            *message = {};
            message->message = WM_QUIT;
            message->wParam = exit_code;
            return 0;
        }};
};

// Runs the entry point on a screen of 1366 x 768 and takes down what it does.
class StartUpFixture
{
public:
    StartUpFixture() = default;
    ~StartUpFixture()
    {
        if (seen.window != nullptr)
            DestroyWindow(seen.window);
        // The end of the window asks the thread to end, which would close the boxes of later tests.
        test_support::take_quit_message();
    }
    StartUpFixture(const StartUpFixture&) = delete;
    StartUpFixture& operator=(const StartUpFixture&) = delete;

    int run(int show_command) { return wWinMain(GetModuleHandleW(nullptr), nullptr, nullptr, show_command); }

    StartUpSteps seen;
    RecordedSettings settings{&seen};
    RecordedInstance instance{&seen};
    RecordedCreation creation{&seen};
    RecordedShowing showing{&seen};
    EmptyMessageLoop loop{&seen};
};

} // namespace main_tests
