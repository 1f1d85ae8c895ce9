// wendlow-open FILE: loads a profile in Wendlow; for shortcuts, logon tasks and "Open with". It has no
// window; what it cannot do it says in a box.
#include <windows.h>

#include <shellapi.h>

#include <optional>
#include <string>

#include "tools/wendlow_profile/system/opening.h"
#include "tools/wendlow_profile/system/system_libraries.h"

namespace
{

enum ExitCode { FINE = 0, WRONG_USAGE = 2, NOT_LOADED = 3 };

int say(const std::wstring& text, ExitCode code)
{
    MessageBoxW(nullptr, text.c_str(), L"Wendlow", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
    return code;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    profile_tool::take_libraries_from_windows_only();
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (arguments == nullptr || count != 2)
        return say(
            L"wendlow-open FILE loads the profile FILE in Wendlow.\n\nExactly one file has to be named.",
            WRONG_USAGE);
    const std::wstring path = arguments[1];
    LocalFree(arguments);
    const std::optional<std::wstring> wrong = profile_tool::open_in_wendlow(path);
    return wrong ? say(path + L"\n\n" + *wrong, NOT_LOADED) : FINE;
}
