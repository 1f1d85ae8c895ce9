#include "sources/wnd_ScanListView/move_command.h"

#include "sources/win32/foreign_window.h"
#include "sources/win32/list_view_cells.h"
#include "sources/win32/pixel_rect.h"
#include "sources/wnd_ModifyCell/modify_cell_rules.h"
#include "sources/wnd_ScanListView/list_view.h"
#include "sources/wnd_ScanListView/scan_list_errors.h"
#include "sources/wnd_ScanListView/scan_list_layout.h"
#include "sources/wnd_ScanListView/scan_list_notices.h"

namespace
{

std::int32_t read_number(HWND hwndLV, std::uint32_t row, int column)
{
    return leading_number(read_cell(hwndLV, row, column).data());
}

PixelRect read_rectangle(HWND hwndLV, std::uint32_t row)
{
    PixelRect rect{};
    rect.x = read_number(hwndLV, row, COLUMN_X);
    rect.y = read_number(hwndLV, row, COLUMN_Y);
    rect.width = read_number(hwndLV, row, COLUMN_WIDTH);
    rect.height = read_number(hwndLV, row, COLUMN_HEIGHT);
    return rect;
}

} // namespace

std::int32_t onButton_Move(HWND /*hwndThis*/, HWND hwndLV, WPARAM /*wParam*/, LPARAM /*lParam*/,
                           const HWND* pcDynMem_WinHndls, std::uint32_t counter_valid)
{
    if (hwndLV == nullptr || pcDynMem_WinHndls == nullptr)
        return report<kMoveInput>();
    std::uint32_t n_ticked = 0;
    for (std::uint32_t row = 0; row < counter_valid; ++row) {
        if (!is_row_ticked(hwndLV, row))
            continue;
        ++n_ticked;
        const PixelRect rect = read_rectangle(hwndLV, row);
        if (rect.width == 0 || rect.height == 0 || place_foreign_window_on_top(pcDynMem_WinHndls[row], rect))
            continue;
        report<kMoveImpossible>(rect.x, rect.y, rect.width, rect.height);
        // Re-entrancy: while the box was up the list may have been closed, and its scan released.
        if (IsWindow(hwndLV) == FALSE)
            return 1;
    }
    return n_ticked == 0 ? report<kMoveNothingTicked>() : 1;
}
