// A window with the controls of the program's main window, and their identifiers, made with bare calls.
#pragma once

#include <windows.h>

namespace bare
{

// Positions of the Action list.
inline constexpr int kMinimise = 0;
inline constexpr int kRestore = 1;
inline constexpr int kClose = 2;

// Registers the class, makes the window and its controls, shows and draws them.
HWND open_main_window(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure);

// Returns the exit code.
int run_message_loop();

} // namespace bare
