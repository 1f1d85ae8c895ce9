#include "sources/win32/list_view_text.h"

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
