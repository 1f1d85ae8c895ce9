// The cursor that tells the user to wait. Both owners belong to the one thread that has windows.
#pragma once

#include <windows.h>

// Shows the wait cursor, and at the end of the scope the one that was there before.
class WaitCursor
{
public:
    WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

private:
    HCURSOR before_;
};

// Shows the arrow in the place of the wait cursor up to the end of the scope: while a message box is up the
// program waits for the user.
class WaitCursorPause
{
public:
    WaitCursorPause();
    WaitCursorPause(const WaitCursorPause&) = delete;
    WaitCursorPause& operator=(const WaitCursorPause&) = delete;
    ~WaitCursorPause();

private:
    int waits_;
};

// Answers WM_SETCURSOR for a window's client area: true when the wait cursor is shown and stays.
bool keep_wait_cursor(UINT hit_test);
