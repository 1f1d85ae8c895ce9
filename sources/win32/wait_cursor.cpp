#include "sources/win32/wait_cursor.h"

#include <utility>

namespace
{

int waits = 0; // scopes that show the wait cursor, since the last pause began

} // namespace

WaitCursor::WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT)))
{
    ++waits;
}

WaitCursor::~WaitCursor()
{
    --waits;
    SetCursor(before_);
}

WaitCursorPause::WaitCursorPause() : waits_(std::exchange(waits, 0))
{
    if (waits_ != 0)
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

WaitCursorPause::~WaitCursorPause()
{
    waits = waits_;
    if (waits_ != 0)
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

bool keep_wait_cursor(UINT hit_test)
{
    if (waits == 0 || hit_test != HTCLIENT)
        return false;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
}
