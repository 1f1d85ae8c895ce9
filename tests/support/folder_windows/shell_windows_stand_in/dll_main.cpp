#include <windows.h>

#include <unknwn.h>

#include "tests/support/folder_windows/shell_windows_stand_in/class_object.h"
#include "tests/support/folder_windows/shell_windows_stand_in/script.h"

// The stand-in as a library in the program that uses it: registered as an in-process COM server, or lent to
// the program by a hook on its messages.

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

// The hook. It runs in the thread whose window was told, where the program asks for the shell's list later:
// a class object is known to the apartment that has registered it.
extern "C" LRESULT CALLBACK lend_when_told(int code, WPARAM removed, LPARAM narrow)
{
    using namespace test_support::stand_in;
    static const UINT told = RegisterWindowMessageW(kLendMessage);
    const auto& message = *reinterpret_cast<const MSG*>(narrow);
    if (code == HC_ACTION && removed == PM_REMOVE && message.message == told) {
        DWORD cookie = 0;
        const HRESULT result = CoRegisterClassObject(kShellWindowsClass, &class_object(),
                                                     CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
        SetPropW(message.hwnd, kLentProperty,
                 reinterpret_cast<HANDLE>(SUCCEEDED(result) ? kLent : INT_PTR{result}));
    }
    return CallNextHookEx(nullptr, code, removed, narrow);
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
