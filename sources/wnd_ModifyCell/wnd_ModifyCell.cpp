#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/funcs_layout_windows/drawing/fonts.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/win32/accessible_name.h"
#include "sources/win32/controls.h"
#include "sources/win32/list_view_cells.h"
#include "sources/win32/own_window.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/text_in.h"
#include "sources/win32/wait_cursor.h"
#include "sources/wnd_ModifyCell/modify_cell_errors.h"
#include "sources/wnd_ModifyCell/modify_cell_layout.h"
#include "sources/wnd_ModifyCell/modify_cell_rules.h"

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

// The labels and the list's columns, by the identifier of their edit box.
constexpr std::array<const wchar_t*, kModifyCell_edits> kLabels{L"X", L"Y", L"Width", L"Height"};
constexpr std::array<ScanListColumn, kModifyCell_edits> kColumns{COLUMN_X, COLUMN_Y, COLUMN_WIDTH,
                                                                 COLUMN_HEIGHT};

// Buttons' styles while they have the focus and while they do not.
constexpr DWORD kButton_focused = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_CENTER | BS_DEFPUSHBUTTON;
constexpr DWORD kButton_unfocused = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_CENTER | BS_PUSHBUTTON;

constexpr std::size_t kText_max_units = 50; // with the closing zero
using EditText = std::array<wchar_t, kText_max_units>;

// The process-wide state: one window at a time. A second one takes it over.
struct ModifyCell_STR {
    CellReference_STR cell;
    std::array<HWND, MODIFY_CELL_CONTROLS> controls;               // by identifier
    std::array<WNDPROC, MODIFY_CELL_CONTROLS> previous_procedures; // by identifier
    ModifyCellLayout layout;
    bool flag_created;           // the controls are complete, so the window may be painted
    std::int32_t i_client_width; // this and the next as WM_SIZE told; unread: the layout goes by the screen
    std::int32_t i_client_height;
};
ModifyCell_STR modify_cell;

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

void create_controls(HWND hwnd, HINSTANCE instance, ModifyCell_STR* state)
{
    for (const ModifyCellControl id : kCreationOrder) {
        const ControlKind& kind = kControls[id];
        state->controls[id] = create_control(hwnd, instance, kind.class_name, kind.text, kind.style,
                                             kind.extended_style, state->layout.controls[id], id);
        if (state->controls[id] == nullptr)
            report_owned(hwnd, kind.failure);
        if (id < kModifyCell_edits)
            set_accessible_name(state->controls[id], kLabels[id]);
        if (id == MODIFY_CELL_X)
            SetFocus(state->controls[id]);
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

// Gives all controls their font and keeps it with the window, which deletes it when it goes. False after an
// error box.
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

void on_WM_CREATE(HWND hwnd, const CREATESTRUCTW* creation, ModifyCell_STR* state)
{
    state->flag_created = false;
    state->layout = compute_modify_cell_layout(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    create_controls(hwnd, creation->hInstance, state);
    if (!set_control_font(hwnd, state))
        return;
    subclass_controls(hwnd, state);
    state->flag_created = true;
}

// A cell reference from the List of Windows window, of a list of this thread; other messages may come from
// anywhere.
bool is_cell_reference(HWND sender, const COPYDATASTRUCT* data)
{
    if (!is_own_window_of_class(sender, kClass_ScanListView) || data == nullptr || data->lpData == nullptr ||
        data->cbData != sizeof(CellReference_STR))
        return false;
    CellReference_STR cell{};
    std::memcpy(&cell, data->lpData, sizeof cell);
    return is_own_window_of_class(cell.hwndListView, WC_LISTVIEWW);
}

// Keeps the cell reference and shows the row's four texts.
void on_WM_COPYDATA(HWND sender, const COPYDATASTRUCT* data, ModifyCell_STR* state)
{
    if (!is_cell_reference(sender, data))
        return;
    std::memcpy(&state->cell, data->lpData, sizeof state->cell);
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        EditText text{};
        read_cell_text(state->cell.hwndListView, state->cell.uiRow, kColumns[i], text);
        SetWindowTextW(state->controls[i], text.data());
    }
}

void on_WM_PAINT(HWND hwnd, const ModifyCell_STR* state)
{
    const PaintDC dc(hwnd);
    if (!state->flag_created)
        return;
    fill_background(hwnd, dc.get());
    SetBkMode(dc.get(), TRANSPARENT);
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        RECT rect = to_RECT(state->layout.labels[i]);
        DrawTextW(dc.get(), kLabels[i], -1, &rect, DT_SINGLELINE | DT_VCENTER);
    }
}

void on_WM_COMMAND(HWND hwnd, WPARAM wParam, const ModifyCell_STR* state)
{
    if (HIWORD(wParam) != BN_CLICKED)
        return;
    if (LOWORD(wParam) == MODIFY_CELL_OK)
        on_Button_OK(hwnd, state->cell.hwndListView, state->cell.uiRow, &scan_record);
    else if (LOWORD(wParam) == MODIFY_CELL_CANCEL)
        DestroyWindow(hwnd);
}

void on_WM_DESTROY(HWND hwnd)
{
    DeleteObject(reinterpret_cast<HFONT>(SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0)));
}

bool is_alphanumeric(wchar_t unit)
{
    return IsCharAlphaNumericW(unit) != FALSE;
}
bool is_alphabetic(wchar_t unit)
{
    return IsCharAlphaW(unit) != FALSE;
}

// The texts of the edit boxes, at most 49 units each.
using EditTexts = std::array<EditText, kModifyCell_edits>;

// False when edit boxes are gone: a second window had taken the state over and was closed. One that could not
// be created is empty.
bool read_edits(EditTexts* texts)
{
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        const HWND edit = modify_cell.controls[i];
        if (edit == nullptr)
            continue;
        if (!is_own_window_of_class(edit, WC_EDITW))
            return false;
        GetWindowTextW(edit, (*texts)[i].data(), static_cast<int>(kText_max_units));
    }
    return true;
}

// Shows the texts that are valid in the row.
void show_valid_texts(HWND hwndListView, std::uint32_t row, EditTexts* texts)
{
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        EditText& text = (*texts)[i];
        if (is_edit_valid(text_in(text), is_alphanumeric, is_alphabetic))
            set_cell_text(hwndListView, row, kColumns[i], text);
    }
}

} // namespace

std::int32_t on_Button_OK(HWND hwndThis, HWND hwndListView, std::uint32_t row, STR_ENUM_WNDS_DATA* pSTR)
{
    if (hwndThis == nullptr || hwndListView == nullptr || pSTR == nullptr)
        return report<kModifyOkInput>(hwndThis, hwndListView, pSTR);
    if (pSTR->pcDynMem_WinHndls == nullptr || pSTR->pcDynMem_GeomText == nullptr)
        return report<kModifyOkNoScan>(pSTR->pcDynMem_WinHndls, pSTR->pcDynMem_GeomText);
    if (!is_own_window_of_class(hwndListView, WC_LISTVIEWW))
        return report<kModifyOkNoList>(hwndListView);
    if (row >= pSTR->counter_valid)
        return report<kModifyOkNoRow>(row, pSTR->counter_valid);
    EditTexts texts{};
    if (!read_edits(&texts)) {
        const auto& [hEdit, hEdit_Ypos, hEdit_Width, hEdit_Height, hBtn_Ok, hBtn_Cancel] =
            modify_cell.controls;
        return report<kModifyOkNoEdits>(hEdit, hEdit_Ypos, hEdit_Width, hEdit_Height);
    }

    show_valid_texts(hwndListView, row, &texts);
    // Quirk: a text that the row refused changes the geometry all the same; kept so that a profile holds the
    // same numbers whichever version saves it.
    GeomEntry_STR* entry = geometry_entry(pSTR, row);
    entry->x = leading_number(texts[MODIFY_CELL_X].data());
    entry->y = leading_number(texts[MODIFY_CELL_Y].data());
    entry->height = leading_number(texts[MODIFY_CELL_HEIGHT].data());
    entry->width = leading_number(texts[MODIFY_CELL_WIDTH].data());
    destroy_own_window_of_class(hwndThis, kClass_ModifyCell);
    return 1;
}

LRESULT CALLBACK WndProc_ModifyCell(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ModifyCell_STR* state = &modify_cell;
    switch (message) {
    case WM_CREATE:
        on_WM_CREATE(hwnd, reinterpret_cast<const CREATESTRUCTW*>(lParam), state);
        return 0;
    case WM_COPYDATA:
        on_WM_COPYDATA(reinterpret_cast<HWND>(wParam), reinterpret_cast<const COPYDATASTRUCT*>(lParam),
                       state);
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
    case WM_DESTROY:
        on_WM_DESTROY(hwnd);
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}
