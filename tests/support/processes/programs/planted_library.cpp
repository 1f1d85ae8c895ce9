// A library that somebody put beside a program under the name of one of Windows'. Loaded, it leaves a file
// beside itself, named after it, and another one when the program's image needs it to start.
#include <windows.h>

#include <cwchar>

namespace
{

void leave_file(HINSTANCE instance, const wchar_t* ending)
{
    wchar_t trace[MAX_PATH]{};
    const DWORD length = GetModuleFileNameW(instance, trace, MAX_PATH - 10);
    std::wcscpy(trace + length, ending);
    CloseHandle(CreateFileW(trace, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* at_process_start)
{
    if (reason == DLL_PROCESS_ATTACH) {
        leave_file(instance, L".loaded");
        if (at_process_start != nullptr)
            leave_file(instance, L".needed");
    }
    return TRUE;
}

// What msimg32 has, so that who wants it finds it.
extern "C" BOOL WINAPI do_nothing()
{
    return TRUE;
}
