#include <windows.h>

#include <cstdio>

// Keeps Wine's desktop there between the programs of a session. Without it each program starts the desktop
// anew, and the desktop holds on to the program's output for a second after its end. Says so on standard
// output when the desktop is there, and runs until the session ends.
int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*command_line*/, int /*show_command*/)
{
    GetDesktopWindow();
    CreateWindowExW(0, L"Static", L"session keeper", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, instance, nullptr);
    std::puts("the desktop is there");
    std::fflush(stdout);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
