// Applying what was entered in the Modify Cell window.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/scanning/scan_record.h"

// Applies the four edit boxes of `hwndThis` to row `row` of the list and destroys the window. The row shows
// each text that ends in a digit; the scan record's geometry entry takes the number of every text, also of
// one that the row refused. An edit box that could not be created counts as empty. Returns 1; -1 when a
// handle or the record is missing, -2 when the scan's blocks are gone, -4 when the list is, -3 when the scan
// has no such row, -5 when the edit boxes are gone: nothing is changed then and the window stays.
std::int32_t on_Button_OK(HWND hwndThis, HWND hwndListView, std::uint32_t row, STR_ENUM_WNDS_DATA* pSTR);
