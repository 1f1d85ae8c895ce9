#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"

#include <commctrl.h>

#include <cstddef>
#include <cstring>

#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/win32/controls.h"
#include "sources/win32/list_view_cells.h"
#include "sources/win32/own_window.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/wait_cursor.h"
#include "sources/wnd_ModifyCell/modify_cell_applying.h"
#include "sources/wnd_ModifyCell/modify_cell_controls.h"
#include "sources/wnd_ModifyCell/modify_cell_state.h"

ModifyCell_STR modify_cell;

namespace
{

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
        read_cell_text(state->cell.hwndListView, state->cell.uiRow, kModifyCell_columns[i], text);
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
        DrawTextW(dc.get(), kModifyCell_labels[i], -1, &rect, DT_SINGLELINE | DT_VCENTER);
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

} // namespace

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
