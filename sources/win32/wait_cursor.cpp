#include "sources/win32/wait_cursor.h"

#include "errors/wait_cursor_pause.h"

WaitCursor::WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT)))
{
    ++wait_cursor_scopes;
}

WaitCursor::~WaitCursor()
{
    --wait_cursor_scopes;
    SetCursor(before_);
}

bool keep_wait_cursor(UINT hit_test)
{
    if (wait_cursor_scopes == 0 || hit_test != HTCLIENT)
        return false;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
}
