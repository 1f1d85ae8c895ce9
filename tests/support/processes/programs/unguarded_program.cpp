// A program without any care for where its libraries come from: it needs msimg32.dll from the start, and
// loads those that its command line names.
#include <windows.h>

#include <shellapi.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    GradientFill(nullptr, nullptr, 0, nullptr, 0, GRADIENT_FILL_RECT_V);
    int count = 0;
    wchar_t** names = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i)
        LoadLibraryW(names[i]);
    LocalFree(names);
    return 0;
}
