#include "sources/win32/accessible_name.h"

#include <commctrl.h>
#include <objbase.h>

#include <oleacc.h>

#include "sources/win32/owners/com_ptr.h"

namespace
{

constexpr CLSID kCLSID_AccPropServices{
    0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr IID kIID_IAccPropServices{
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr MSAAPROPID kPROPID_ACC_NAME{
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};

constexpr UINT_PTR kSubclass_named = 1;

bool screen_reader_runs()
{
    BOOL runs = FALSE;
    return SystemParametersInfoW(SPI_GETSCREENREADER, 0, &runs, 0) != FALSE && runs != FALSE;
}

// Takes the name back with the control, whose parent may have uninitialised COM before.
LRESULT CALLBACK clear_name_at_destruction(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR reference)
{
    if (message == WM_DESTROY) {
        RemoveWindowSubclass(control, clear_name_at_destruction, id);
        auto* services = reinterpret_cast<IAccPropServices*>(reference);
        services->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &kPROPID_ACC_NAME,
                                 1);
        services->Release();
        CoUninitialize();
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

// Names the control and leaves the services, with the hold on COM that they need, to its subclass. False when
// the system refused; nothing is kept then.
bool name_until_destruction(HWND control, const wchar_t* name)
{
    ComPtr<IAccPropServices> services;
    if (FAILED(CoCreateInstance(kCLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, kIID_IAccPropServices,
                                services.out_void())) ||
        FAILED(services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                        kPROPID_ACC_NAME, name)))
        return false;
    if (SetWindowSubclass(control, clear_name_at_destruction, kSubclass_named,
                          reinterpret_cast<DWORD_PTR>(services.get())) == FALSE) {
        services->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &kPROPID_ACC_NAME,
                                 1);
        return false;
    }
    services->AddRef();
    return true;
}

} // namespace

void set_accessible_name(HWND control, const wchar_t* name)
{
    if (control == nullptr || !screen_reader_runs() ||
        FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return;
    if (!name_until_destruction(control, name))
        CoUninitialize();
}
