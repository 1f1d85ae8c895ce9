#include <windows.h>

#include <unknwn.h>

#include "tests/support/folder_windows/shell_windows_stand_in/class_object.h"

// The stand-in as an in-process COM server.

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** out)
{
    using namespace test_support::stand_in;
    *out = nullptr;
    if (class_id != kShellWindowsClass)
        return CLASS_E_CLASSNOTAVAILABLE;
    return class_object().QueryInterface(interface_id, out);
}

// Never unloaded: what it has handed out is counted to the end.
STDAPI DllCanUnloadNow()
{
    return S_FALSE;
}

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH) {
        HMODULE kept = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<const wchar_t*>(module), &kept);
    }
    return TRUE;
}
