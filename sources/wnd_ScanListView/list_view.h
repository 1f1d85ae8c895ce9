// The list of the List of Windows window: one row per slot of the scan record, row i being slot i.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdint>

// Builds the list with its columns and rows from the scan record and stores its handle in `p_hwndLV`.
// `wParam` and `lParam` are not used. Returns 1 (also when the control could not be created, after a box); -1
// after a box when an argument is missing or the scan record is empty, in which case `hwndThis` is destroyed.
std::int32_t on_WM_CREATE_02_ListView(HWND hwndThis, WPARAM wParam, LPARAM lParam, HINSTANCE hInst,
                                      HWND* p_hwndLV, unsigned uiCtlID);

// A notification from the list: ticking a check box selects its row and clearing it deselects it; a click
// keeps the cell hit in the window's state; a right click over the columns X to Height shows the popup menu
// as well. Returns 1, or -1 after a box for a null window, list or notification.
std::int32_t on_WM_NOTIFY_ListView(HWND hwndThis, HWND hwndLV, WPARAM wParam, LPARAM lParam,
                                   const NMHDR* pNMHDR);

// The text of a cell, at most 19 units.
using CellText = std::array<wchar_t, 20>;
CellText read_cell(HWND hwndLV, std::uint32_t row, int column);

// Sets the columns' widths for a parent's client area `client_width` pixels wide.
void set_column_widths(HWND hwndLV, std::int32_t client_width);
