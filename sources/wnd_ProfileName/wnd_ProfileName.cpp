#include "sources/wnd_ProfileName/wnd_ProfileName.h"

#include <algorithm>
#include <array>

#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/win32/accessible_name.h"
#include "sources/win32/controls.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/wait_cursor.h"
#include "sources/win32/window_classes.h"
#include "sources/wnd_ProfileName/profile_name_errors.h"
#include "sources/wnd_ProfileName/profile_name_layout.h"
#include "sources/wnd_ProfileName/profile_name_notices.h"

namespace
{

enum ProfileNameControl : unsigned { ID_BTN_OK = 1, ID_BTN_CANCEL = 2, ID_EDIT_NAME = 3 };

constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE;
constexpr wchar_t kLabel[] = L"Enter name of Profile:";

// Distance from the owner's upper left corner to this window's, in pixels.
constexpr int kOffset_from_owner = 70;

constexpr std::size_t kNameBuffer_units = 1024;

// The process-wide state: one window at a time.
struct ProfileName_STR {
    HWND hwnd_ListWindows;
    HWND hEdit;
    std::int32_t i_outer_width;
    ProfileNameLayout layout;
    bool flag_controls_exist;
    std::int32_t i_client_width; // this and the next as WM_SIZE told; unread: the layout goes by the screen
    std::int32_t i_client_height;
};
ProfileName_STR profile_name;
bool class_registered = false;

// Creates a button; a failure is shown as row `failure`.
void create_button(HWND hwnd, HINSTANCE instance, const wchar_t* text, DWORD style, const PixelRect& rect,
                   ProfileNameControl id, FixedRow failure)
{
    if (create_control(hwnd, instance, L"button", text, style, 0, rect, id) == nullptr)
        report_owned(hwnd, failure);
}

void on_WM_CREATE(HWND hwnd, const CREATESTRUCTW* creation, ProfileName_STR* state)
{
    *state = {};
    const auto* p_hwnd_ListWindows = static_cast<const HWND*>(creation->lpCreateParams);
    if (p_hwnd_ListWindows == nullptr) {
        report<kNameCreateParameter>(p_hwnd_ListWindows);
        return;
    }
    state->hwnd_ListWindows = *p_hwnd_ListWindows;
    // The system may have made the window wider than it was asked to.
    RECT outer{};
    GetWindowRect(hwnd, &outer);
    state->i_outer_width = outer.right - outer.left;
    state->layout = compute_profile_name_layout(state->i_outer_width, GetSystemMetrics(SM_CXSCREEN),
                                                GetSystemMetrics(SM_CYSCREEN));
    const HINSTANCE instance = creation->hInstance;
    create_button(hwnd, instance, L"Ok", kButtonStyle | BS_DEFPUSHBUTTON, state->layout.ok, ID_BTN_OK,
                  kNameCreateOk);
    create_button(hwnd, instance, L"Cancel", kButtonStyle, state->layout.cancel, ID_BTN_CANCEL,
                  kNameCreateCancel);
    state->hEdit = create_control(hwnd, instance, L"EDIT", L"", kEditStyle, WS_EX_CLIENTEDGE,
                                  state->layout.edit, ID_EDIT_NAME);
    if (state->hEdit == nullptr)
        report_owned<kNameCreateEdit>(hwnd);
    set_accessible_name(state->hEdit, kLabel);
    SendMessageW(state->hEdit, EM_LIMITTEXT, kProfileName_max_units, 0);
    SetFocus(state->hEdit);
    state->flag_controls_exist = true;
}

void on_WM_PAINT(HWND hwnd, const ProfileName_STR* state)
{
    const PaintDC dc(hwnd);
    fill_background(hwnd, dc.get());
    if (!state->flag_controls_exist)
        return;
    RECT label = to_RECT(state->layout.label);
    SetBkMode(dc.get(), TRANSPARENT);
    DrawTextW(dc.get(), kLabel, -1, &label, DT_SINGLELINE | DT_VCENTER);
}

void on_WM_COMMAND(HWND hwnd, WPARAM wParam, const ProfileName_STR* state)
{
    if (HIWORD(wParam) != BN_CLICKED)
        return;
    if (LOWORD(wParam) == ID_BTN_OK) {
        const std::int32_t result = on_Button_OK(hwnd, state->hwnd_ListWindows, state->hEdit);
        if (result < 0)
            report<kNameOkFailed>(result);
    } else if (LOWORD(wParam) == ID_BTN_CANCEL) {
        const std::int32_t result = on_Button_CANCEL(hwnd);
        if (result < 0)
            report<kNameCancelFailed>(result);
    }
}

} // namespace

HWND create_wnd_ProfileName(HWND hwnd_ListWindows)
{
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(hwnd_ListWindows, GWLP_HINSTANCE));
    register_secondary_window_class_once(instance, kClass_ProfileName, WndProc_wnd_ProfileName,
                                         &class_registered);
    RECT owner{};
    GetWindowRect(hwnd_ListWindows, &owner);
    return CreateWindowExW(0, kClass_ProfileName, L"Name of Profile", WS_CAPTION | WS_SYSMENU,
                           owner.left + kOffset_from_owner, owner.top + kOffset_from_owner,
                           profile_name_width(GetSystemMetrics(SM_CXSCREEN)),
                           profile_name_height(GetSystemMetrics(SM_CYSCREEN)), hwnd_ListWindows, nullptr,
                           instance, &hwnd_ListWindows);
}

std::int32_t on_Button_OK(HWND hwnd_this_wnd, HWND hwnd_parent_wnd, HWND hEdit)
{
    if (hwnd_this_wnd == nullptr || hwnd_parent_wnd == nullptr || hEdit == nullptr)
        return report<kNameOkInput>(hwnd_this_wnd, hwnd_parent_wnd, hEdit);
    if (GetWindowTextLengthW(hEdit) <= 0)
        return report_owned<kNameOkEmpty>(hwnd_this_wnd);

    std::array<wchar_t, kNameBuffer_units> name{};
    const int length = GetWindowTextW(hEdit, name.data(), static_cast<int>(name.size()) - 1);
    // A text put into the box from outside may be longer than what it lets a user type.
    const auto length_units = std::min(static_cast<std::size_t>(std::max(length, 0)), kProfileName_max_units);
    COPYDATASTRUCT data{.dwData = kProfileName_dwData,
                        .cbData = static_cast<DWORD>(length_units * sizeof(wchar_t)),
                        .lpData = name.data()};
    SendMessageW(hwnd_parent_wnd, WM_COPYDATA, reinterpret_cast<WPARAM>(hwnd_this_wnd),
                 reinterpret_cast<LPARAM>(&data));
    return 1;
}

std::int32_t on_Button_CANCEL(HWND hwndThis)
{
    if (hwndThis == nullptr)
        return report<kNameCancelInput>(hwndThis);
    DestroyWindow(hwndThis);
    return 1;
}

LRESULT CALLBACK WndProc_wnd_ProfileName(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ProfileName_STR* state = &profile_name;
    switch (message) {
    case WM_CREATE:
        on_WM_CREATE(hwnd, reinterpret_cast<const CREATESTRUCTW*>(lParam), state);
        return 0;
    case WM_SIZE:
        state->i_client_width = LOWORD(lParam);
        state->i_client_height = HIWORD(lParam);
        return 0;
    case WM_PAINT:
        on_WM_PAINT(hwnd, state);
        return 0;
    case WM_COMMAND:
        on_WM_COMMAND(hwnd, wParam, state);
        return 0;
    case WM_SETCURSOR:
        if (keep_wait_cursor(LOWORD(lParam)))
            return TRUE;
        return DefWindowProcW(hwnd, message, wParam, lParam);
    case WM_NOTIFY:
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}
