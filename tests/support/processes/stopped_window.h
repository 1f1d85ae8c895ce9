#pragma once

#include <windows.h>

#include "tests/support/basics/waiting.h"

namespace test_support
{

// Stops the thread of another program's window, so that it handles no message until it is let go on.
class StoppedWindow
{
public:
    explicit StoppedWindow(HWND window)
        : thread_(OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(window, nullptr)))
    {
        if (SuspendThread(thread_) != 0)
            throw Failure("the window's thread cannot be stopped");
    }
    ~StoppedWindow()
    {
        go_on();
        CloseHandle(thread_);
    }
    StoppedWindow(const StoppedWindow&) = delete;
    StoppedWindow& operator=(const StoppedWindow&) = delete;

    void go_on() const { ResumeThread(thread_); }

private:
    HANDLE thread_;
};

} // namespace test_support
