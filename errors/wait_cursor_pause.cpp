#include "errors/wait_cursor_pause.h"

#include <windows.h>

#include <utility>

int wait_cursor_scopes;

WaitCursorPause::WaitCursorPause() : scopes_(std::exchange(wait_cursor_scopes, 0))
{
    if (scopes_ != 0)
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

WaitCursorPause::~WaitCursorPause()
{
    wait_cursor_scopes = scopes_;
    if (scopes_ != 0)
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}
