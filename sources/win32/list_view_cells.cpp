#include "sources/win32/list_view_cells.h"

#include <commctrl.h>

namespace
{

LVITEMW cell_item(int column, std::span<wchar_t> text)
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    return item;
}

} // namespace

void read_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text)
{
    LVITEMW item = cell_item(column, text);
    SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
}

void set_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text)
{
    LVITEMW item = cell_item(column, text);
    SendMessageW(list, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
}

bool is_row_ticked(HWND list, std::uint32_t row)
{
    const auto state = static_cast<int>(SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK));
    // State image 1 is an empty check box, 2 a ticked one.
    return (state >> 12) - 1 > 0;
}
