// The state of the Modify Cell window.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/wnd_ModifyCell/modify_cell_layout.h"
#include "sources/wnd_ModifyCell/modify_cell_window.h"

// The labels and the list's columns, by the identifier of their edit box.
inline constexpr std::array<const wchar_t*, kModifyCell_edits> kModifyCell_labels{L"X", L"Y", L"Width",
                                                                                  L"Height"};
inline constexpr std::array<ScanListColumn, kModifyCell_edits> kModifyCell_columns{
    COLUMN_X, COLUMN_Y, COLUMN_WIDTH, COLUMN_HEIGHT};

// The text of an edit box, and of the cell that it is filled from.
inline constexpr std::size_t kEditText_max_units = 50; // with the closing zero
using EditText = std::array<wchar_t, kEditText_max_units>;

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

extern ModifyCell_STR modify_cell;
