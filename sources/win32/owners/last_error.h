// Keeping GetLastError across clean-up.
#pragma once

#include <windows.h>

// Puts the thread's last-error code back at the end of the scope.
class LastErrorKeeper
{
public:
    LastErrorKeeper() : code_(GetLastError()) {}
    LastErrorKeeper(const LastErrorKeeper&) = delete;
    LastErrorKeeper& operator=(const LastErrorKeeper&) = delete;
    ~LastErrorKeeper() { SetLastError(code_); }

private:
    DWORD code_;
};
