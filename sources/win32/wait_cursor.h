// The cursor that tells the user to wait. It belongs to the one thread that has windows.
#pragma once

#include <windows.h>

// Shows the wait cursor, and at the end of the scope the one that was there before. While a message box is up
// the arrow is shown (errors/wait_cursor_pause).
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

// Answers WM_SETCURSOR for a window's client area: true when the wait cursor is shown and stays.
bool keep_wait_cursor(UINT hit_test);
