#include "sources/main_prg/main_window_creation.h"

#include <objbase.h>

#include <cstdint>

#include "errors/bytes_as_wide.h"
#include "sources/funcs_layout_windows/drawing/fonts.h"
#include "sources/main_prg/main_errors.h"
#include "sources/win32/accessible_name.h"
#include "sources/win32/controls.h"

namespace
{

constexpr DWORD kActionStyle = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_HASSTRINGS;
constexpr DWORD kProfileStyle = kActionStyle | CBS_AUTOHSCROLL;

// Where the controls stand until the first WM_SIZE places them.
constexpr PixelRect kPlaceholder_button{.x = 0, .y = 0, .height = 5, .width = 5};
constexpr PixelRect kPlaceholder_combo{.x = 10, .y = 10, .height = 10, .width = 10};
constexpr std::int32_t kPlaceholder_margin = 300;

// One of the two upper buttons; a failure is shown as row `failure`.
HWND create_upper_button(HWND hwnd, const MainWindow_STR* state, const wchar_t* text, MainControl id,
                         FixedRow failure)
{
    const HWND button =
        create_control(hwnd, state->hInst, L"button", text, kButtonStyle, 0, kPlaceholder_button, id);
    if (button == nullptr)
        report_owned(hwnd, failure);
    move_control(button, {.x = 0,
                          .y = 0,
                          .height = GetSystemMetrics(SM_CYSCREEN) - kPlaceholder_margin,
                          .width = GetSystemMetrics(SM_CXSCREEN) - kPlaceholder_margin});
    return button;
}

void create_controls(HWND hwnd, MainWindow_STR* state)
{
    state->hWndBTN00 = create_upper_button(hwnd, state, L"Scan", ID_BTN_SCAN, kCreateScanButton);
    state->hWndBTN_LoadProfile =
        create_upper_button(hwnd, state, L"Load Profile", ID_BTN_LOAD_PROFILE, kCreateLoadButton);
    state->hwnd_CB_Profile = create_control(hwnd, state->hInst, L"ComboBox", L"", kProfileStyle, 0,
                                            kPlaceholder_combo, ID_CB_PROFILE);
    state->hwnd_CB_Action = create_control(hwnd, state->hInst, L"ComboBox", L"", kActionStyle, 0,
                                           kPlaceholder_combo, ID_CB_ACTION);
    state->hWndBTN_Apply = create_control(hwnd, state->hInst, L"button", L"Apply", kButtonStyle, 0,
                                          kPlaceholder_combo, ID_BTN_APPLY);
    if (state->hwnd_CB_Profile == nullptr || state->hwnd_CB_Action == nullptr ||
        state->hWndBTN_Apply == nullptr)
        report<kCreateCombos>();
    set_accessible_name(state->hwnd_CB_Profile, kLabel_Profile);
    set_accessible_name(state->hwnd_CB_Action, kLabel_Action);
}

// Finds the font size that fits the buttons and stores it in the geometry record. False after an error box.
bool find_control_font_size(HWND hwnd, STR_GeomLt* geometry)
{
    // Quirk: the 8-bit text is handed over unconverted; the controls' font size is what fits its width.
    static constexpr auto kText = bytes_as_wide("Load Profile");

    const std::int32_t button_width =
        truncated_product(geometry->f_Scan_width, GetSystemMetrics(SM_CXSCREEN));
    const std::int32_t button_height =
        truncated_product(geometry->f_Scan_height, GetSystemMetrics(SM_CYSCREEN));
    const auto size = find_button_font_size(hwnd, kText.data(), button_height, button_width);
    if (!size) {
        report<kCreateNoDc>();
        return false;
    }
    geometry->i_font_size = *size;
    if (*size < 0) {
        report<kCreateFontSize>();
        return false;
    }
    return true;
}

void set_control_font(MainWindow_STR* state)
{
    state->hFont_controls = create_control_font(state->STR_GeomLt_MW.i_font_size);
    if (state->hFont_controls == nullptr)
        report<kCreateFont>();
    for (const HWND control : {state->hWndBTN00, state->hWndBTN_LoadProfile, state->hWndBTN_Apply,
                               state->hwnd_CB_Profile, state->hwnd_CB_Action})
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(state->hFont_controls), TRUE);
}

// Quirk: the answer is not used; kept so that creation takes the same steps in every version.
void query_system_info()
{
    SYSTEM_INFO unused{};
    GetSystemInfo(&unused);
}

void initialise_com()
{
    const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (result == E_INVALIDARG || result == E_OUTOFMEMORY || result == E_UNEXPECTED)
        report<kCreateCom>();
}

} // namespace

void on_WM_CREATE(HWND hwnd, const CREATESTRUCTW* creation, MainWindow_STR* state)
{
    state->hwnd_MW = hwnd;
    set_layout_constants(&state->STR_GeomLt_MW);
    query_system_info();
    state->hInst = creation->hInstance;
    create_controls(hwnd, state);
    CB_Action_init(state->hwnd_CB_Action, ID_CB_ACTION, &state->CB_Action);
    // Quirk: without a font size there is no font, no Profile list record and no COM; kept so that it means
    // the same in every version.
    if (!find_control_font_size(hwnd, &state->STR_GeomLt_MW))
        return;
    set_control_font(state);
    CB_Profile_init(state->hwnd_CB_Profile, ID_CB_PROFILE, &state->CB_Profile);
    initialise_com();
}
