#pragma once

#include <windows.h>

namespace test_support
{

// Takes the end of the program, which a main window asks for when it goes, from this thread's messages; false
// when it is not there. Left there it would close every box at once. Windows hands it out after the last of
// the other posted messages only, so these are dispatched.
inline bool take_quit_message(WPARAM* exit_code = nullptr)
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_POSTMESSAGE) != FALSE) {
        if (message.message != WM_QUIT) {
            DispatchMessageW(&message);
            continue;
        }
        if (exit_code != nullptr)
            *exit_code = message.wParam;
        return true;
    }
    return false;
}

} // namespace test_support
