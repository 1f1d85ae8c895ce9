// The wait cursor gives way to the arrow while a message box is up.
#pragma once

// How many scopes show the wait cursor since the last pause began; counted by win32/wait_cursor. Belongs to
// the one thread that has windows.
extern int wait_cursor_scopes;

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
    int scopes_;
};
