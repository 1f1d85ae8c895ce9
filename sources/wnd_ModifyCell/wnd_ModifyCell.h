// The Modify Cell window: edits position and size of one row of the List of Windows window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <type_traits>

#include "sources/funcs_layout_windows/scanning/scan_record.h"

inline constexpr wchar_t kClass_ModifyCell[] = L"Modify Cell Window";

// The cell that the window is opened for: the payload of the WM_COPYDATA that follows its creation.
struct CellReference_STR {
    std::uint32_t uiRow;    // item of the list
    std::uint32_t uiColumn; // subitem that was clicked; kept, not used
    HWND hwndListView;
};
static_assert(sizeof(CellReference_STR) == 16 && std::is_trivially_copyable_v<CellReference_STR>);

// The window's procedure. A WM_COPYDATA that is not a cell reference of a list of this program is ignored.
LRESULT CALLBACK WndProc_ModifyCell(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Applies the four edit boxes of `hwndThis` to row `row` of the list and destroys the window. The row shows
// each text that ends in a digit; the scan record's geometry entry takes the number of every text, also of
// one that the row refused. An edit box that could not be created counts as empty. Returns 1; -1 when a
// handle or the record is missing, -2 when the scan's blocks are gone, -4 when the list is, -3 when the scan
// has no such row, -5 when the edit boxes are gone: nothing is changed then and the window stays.
std::int32_t on_Button_OK(HWND hwndThis, HWND hwndListView, std::uint32_t row, STR_ENUM_WNDS_DATA* pSTR);
