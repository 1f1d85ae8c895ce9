#pragma once

#include <windows.h>

#include <string>

namespace test_support
{

// Registers a window class of this process; nothing happens when it is there already, as one of the system's:
// message boxes are made of those.
void register_class(const wchar_t* name, WNDPROC procedure);

// A top-level window of this process, destroyed at the end.
class TestWindow
{
public:
    explicit TestWindow(const std::wstring& title, RECT place = kPlace,
                        const std::wstring& class_name = L"TestWindow", DWORD style = kVisible);
    TestWindow(const std::wstring& title, DWORD style, RECT place = kPlace,
               const std::wstring& class_name = L"TestWindow");
    ~TestWindow() { DestroyWindow(window_); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    operator HWND() const { return window_; }
    HWND get() const { return window_; }

private:
    static constexpr RECT kPlace{100, 120, 420, 360};
    static constexpr DWORD kVisible = WS_OVERLAPPEDWINDOW | WS_VISIBLE;

    HWND window_;
};

} // namespace test_support
