// Handing a profile to Wendlow as if it had been dropped on its window. It knows the program from outside
// only.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace profile_tool
{

// The running program's main window; null when there is none.
HWND find_wendlow();

// The path from its root on; empty when the system makes none of it.
std::wstring full_path_of(const std::wstring& path);

// Posts the drop of one file on the window. The receiver has the block of memory from then on.
bool post_drop(HWND window, const std::wstring& full_path);

// Finds Wendlow, or starts it from beside this program and waits for its window, and drops the file on it.
// What went wrong, or nothing.
std::optional<std::wstring> open_in_wendlow(const std::wstring& path);

} // namespace profile_tool
