#pragma once

#include <windows.h>

#include <string>

namespace test_support
{

// A real folder window, opened by the shell as the program under test opens it, closed at the end. Not every
// one is a process of its own: on Windows it belongs to the desktop's, which is never ended.
class RealFolderWindow
{
public:
    explicit RealFolderWindow(const std::wstring& folder);
    ~RealFolderWindow();
    RealFolderWindow(const RealFolderWindow&) = delete;
    RealFolderWindow& operator=(const RealFolderWindow&) = delete;

    HWND window() const { return window_; }

private:
    HWND window_ = nullptr;
};

} // namespace test_support
