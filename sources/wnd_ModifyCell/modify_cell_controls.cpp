#include "sources/wnd_ModifyCell/modify_cell_controls.h"

#include <array>
#include <cstddef>
#include <optional>

#include "sources/funcs_layout_windows/drawing/fonts.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/win32/accessible_name.h"
#include "sources/win32/controls.h"
#include "sources/win32/own_window.h"
#include "sources/wnd_ModifyCell/modify_cell_applying.h"
#include "sources/wnd_ModifyCell/modify_cell_errors.h"

namespace
{

// Everything about one control that does not depend on the screen.
struct ControlKind {
    const wchar_t* class_name;
    const wchar_t* text;
    DWORD style;
    DWORD extended_style;
    FixedRow failure;
};

constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | ES_NUMBER;

// By identifier.
constexpr std::array<ControlKind, MODIFY_CELL_CONTROLS> kControls{{
    {L"EDIT", L"", kEditStyle, WS_EX_CLIENTEDGE, kModifyCreateX},
    {L"EDIT", L"", kEditStyle, WS_EX_CLIENTEDGE, kModifyCreateY},
    {L"EDIT", L"", kEditStyle, WS_EX_CLIENTEDGE, kModifyCreateWidth},
    {L"EDIT", L"", kEditStyle, WS_EX_CLIENTEDGE, kModifyCreateHeight},
    {L"button", L"Ok", kButtonStyle, 0, kModifyCreateOk},
    {L"button", L"Cancel", kButtonStyle, 0, kModifyCreateCancel},
}};

constexpr std::array<ModifyCellControl, MODIFY_CELL_CONTROLS> kCreationOrder{
    MODIFY_CELL_OK, MODIFY_CELL_CANCEL, MODIFY_CELL_X, MODIFY_CELL_Y, MODIFY_CELL_WIDTH, MODIFY_CELL_HEIGHT};

// Buttons' styles while they have the focus and while they do not.
constexpr DWORD kButton_focused = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_CENTER | BS_DEFPUSHBUTTON;
constexpr DWORD kButton_unfocused = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_CENTER | BS_PUSHBUTTON;

// The identifier of one of this window's controls.
unsigned control_id(HWND control)
{
    return static_cast<unsigned>(GetDlgCtrlID(control)) % MODIFY_CELL_CONTROLS;
}

void focus_next_control(HWND control)
{
    SetFocus(modify_cell.controls[(control_id(control) + 1) % MODIFY_CELL_CONTROLS]);
}

LRESULT call_previous_procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcW(modify_cell.previous_procedures[control_id(hwnd)], hwnd, message, wParam, lParam);
}

// Characters, Backspace and the clipboard keys arrive as WM_CHAR.
// Quirk: no other key reaches an edit box (arrows, Delete); kept so that keys mean the same in every version.
LRESULT CALLBACK WndProc_ModifyCell_Edit(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_KEYDOWN)
        return call_previous_procedure(hwnd, message, wParam, lParam);
    if (wParam == VK_TAB)
        focus_next_control(hwnd);
    return 0;
}

// Enter presses the button that has the focus.
// Quirk: the window closes even when its texts could not be applied; kept so that Enter means the same in
// every version.
void press_button(HWND button)
{
    const HWND dialog = GetParent(button);
    if (dialog == nullptr) {
        report<kModifyNoParent>();
        return;
    }
    if (control_id(button) == MODIFY_CELL_OK)
        on_Button_OK(dialog, modify_cell.cell.hwndListView, modify_cell.cell.uiRow, &scan_record);
    destroy_own_window_of_class(dialog, kClass_ModifyCell);
}

LRESULT on_button_key(HWND button, WPARAM key)
{
    if (key == VK_TAB)
        focus_next_control(button);
    else if (key == VK_RETURN)
        press_button(button);
    return 0; // Quirk: Space presses no button; kept so that keys mean the same in every version.
}

LRESULT CALLBACK WndProc_ModifyCell_Button(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SETFOCUS:
        PostMessageW(hwnd, BM_SETSTYLE, kButton_focused, TRUE);
        return 0;
    case WM_KILLFOCUS:
        PostMessageW(hwnd, BM_SETSTYLE, kButton_unfocused, TRUE);
        return 0;
    case WM_KEYDOWN:
        return on_button_key(hwnd, wParam);
    default:
        return call_previous_procedure(hwnd, message, wParam, lParam);
    }
}

// The font height for the controls; none after an error box.
std::optional<std::int32_t> find_font_height(HWND hwnd, const ModifyCellLayout& layout)
{
    const auto height = find_button_font_size(hwnd, L"Cancel", layout.button_height, layout.button_width);
    if (!height) {
        report<kModifyNoDc>();
        return std::nullopt;
    }
    if (*height < 0) {
        report<kModifyFontSize>();
        return std::nullopt;
    }
    return height;
}

} // namespace

void create_controls(HWND hwnd, HINSTANCE instance, ModifyCell_STR* state)
{
    for (const ModifyCellControl id : kCreationOrder) {
        const ControlKind& kind = kControls[id];
        state->controls[id] = create_control(hwnd, instance, kind.class_name, kind.text, kind.style,
                                             kind.extended_style, state->layout.controls[id], id);
        if (state->controls[id] == nullptr)
            report_owned(hwnd, kind.failure);
        if (id < kModifyCell_edits)
            set_accessible_name(state->controls[id], kModifyCell_labels[id]);
        if (id == MODIFY_CELL_X)
            SetFocus(state->controls[id]);
    }
}

bool set_control_font(HWND hwnd, const ModifyCell_STR* state)
{
    const auto height = find_font_height(hwnd, state->layout);
    if (!height)
        return false;
    const HFONT font = create_control_font(*height);
    if (font == nullptr) {
        report<kModifyFont>();
        return false;
    }
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(font));
    for (const HWND control : state->controls)
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    return true;
}

void subclass_controls(HWND hwnd, ModifyCell_STR* state)
{
    for (unsigned id = 0; id < MODIFY_CELL_CONTROLS; ++id) {
        const WNDPROC procedure =
            id < kModifyCell_edits ? WndProc_ModifyCell_Edit : WndProc_ModifyCell_Button;
        const LONG_PTR previous =
            SetWindowLongPtrW(state->controls[id], GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        if (previous == 0)
            report_owned<kModifySubclass>(hwnd);
        else
            state->previous_procedures[id] = reinterpret_cast<WNDPROC>(previous);
    }
}
