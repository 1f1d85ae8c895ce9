// Checks on window handles that may be stale or come from elsewhere.
#pragma once

#include <windows.h>

// True when `window` is a live window of this thread and of the class `class_name` (any case).
inline bool is_own_window_of_class(HWND window, const wchar_t* class_name)
{
    wchar_t found[64]{};
    return window != nullptr && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() &&
           GetClassNameW(window, found, static_cast<int>(sizeof found / sizeof *found)) != 0 &&
           lstrcmpiW(found, class_name) == 0;
}

// Destroys `window` when it is a live window of this thread and of that class. A stale handle, whose value
// the system may have given to another window meanwhile, is left alone.
inline void destroy_own_window_of_class(HWND window, const wchar_t* class_name)
{
    if (is_own_window_of_class(window, class_name))
        DestroyWindow(window);
}
