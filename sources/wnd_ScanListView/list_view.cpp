#include "sources/wnd_ScanListView/list_view.h"

#include <cstddef>
#include <cstdio>

#include "errors/system_error_box.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/win32/accessible_name.h"
#include "sources/win32/list_view_cells.h"
#include "sources/wnd_ScanListView/scan_list_errors.h"
#include "sources/wnd_ScanListView/scan_list_layout.h"
#include "sources/wnd_ScanListView/scan_list_state.h"

namespace
{

constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS;
constexpr DWORD kListExtendedStyle = LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES | LVS_EX_DOUBLEBUFFER;

constexpr std::array<const wchar_t*, kScanList_columns> kHeadings{L"#", L"Window name", L"X",
                                                                  L"Y", L"Width",       L"Height"};

constexpr int kNumber_max_units = 40; // with the closing zero
using NumberText = std::array<wchar_t, kNumber_max_units>;

NumberText number_text(std::int32_t number)
{
    NumberText text{};
    _snwprintf(text.data(), text.size() - 1, L"%d", number);
    return text;
}

void create_image_list(HWND hwndLV)
{
    // Stays empty; it sets the height of the rows.
    const HIMAGELIST images =
        ImageList_Create(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), ILC_MASK, 12, 1);
    SendMessageW(hwndLV, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
}

void insert_columns(HWND hwndLV, std::int32_t client_width)
{
    for (std::size_t i = 0; i < kScanList_columns; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
        column.fmt = LVCFMT_LEFT;
        column.cx = scan_list_column_width(i, client_width);
        column.pszText = const_cast<wchar_t*>(kHeadings[i]);
        column.iSubItem = static_cast<int>(i);
        SendMessageW(hwndLV, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
}

// A row of the list, or why there is none.
struct InsertedRow {
    int index;   // -1 when the list refused
    DWORD error; // of the refusal
};

// Inserts row `row` with its number. A refusal is shown in a box.
InsertedRow insert_row(HWND hwndLV, std::uint32_t row)
{
    NumberText number = number_text(static_cast<std::int32_t>(row + 1));
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int>(row);
    item.pszText = number.data();
    item.cchTextMax = kNumber_max_units;
    InsertedRow inserted{};
    inserted.index =
        static_cast<int>(SendMessageW(hwndLV, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (inserted.index == -1) {
        inserted.error = GetLastError();
        report<kListviewInsertItem>();
    }
    return inserted;
}

// Sets one cell of the row; for a row that could not be inserted two boxes are shown instead.
void set_subitem(HWND hwndLV, const InsertedRow& row, int column, const wchar_t* text)
{
    if (row.index == -1) {
        show_system_error(row.error, ErrorEncoding::BYTES);
        report<kListviewInsertSubitem>();
        return;
    }
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row.index;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(hwndLV, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void insert_rows(HWND hwndLV)
{
    // Drawing after each insert would be many times slower; the list is shown as a whole afterwards.
    SendMessageW(hwndLV, WM_SETREDRAW, FALSE, 0);
    for (std::uint32_t row = 0; row < scan_record.counter_valid; ++row) {
        const InsertedRow inserted = insert_row(hwndLV, row);
        // Re-entrancy: a message box may have been up; closing the main window meanwhile releases the record.
        if (scan_record.pcDynMem_GeomText == nullptr)
            return;
        const GeomEntry_STR entry = *geometry_entry(&scan_record, row);
        set_subitem(hwndLV, inserted, COLUMN_NAME, entry.title == nullptr ? L"" : entry.title);
        set_subitem(hwndLV, inserted, COLUMN_X, number_text(entry.x).data());
        set_subitem(hwndLV, inserted, COLUMN_Y, number_text(entry.y).data());
        set_subitem(hwndLV, inserted, COLUMN_WIDTH, number_text(entry.width).data());
        set_subitem(hwndLV, inserted, COLUMN_HEIGHT, number_text(entry.height).data());
    }
    SendMessageW(hwndLV, WM_SETREDRAW, TRUE, 0);
}

// Keeps the row's selection in step with its check box.
void select_as_ticked(HWND hwndLV, int row)
{
    if (row < 0)
        return;
    const bool ticked = is_row_ticked(hwndLV, static_cast<std::uint32_t>(row));
    SendMessageW(hwndLV, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    item.state = ticked ? LVIS_SELECTED : 0U;
    SendMessageW(hwndLV, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// Keeps the cell under the cursor and returns the cursor's position on the screen.
POINT keep_hit_cell(HWND hwndLV)
{
    POINT cursor{};
    GetCursorPos(&cursor);
    LVHITTESTINFO hit{};
    hit.pt = cursor;
    ScreenToClient(hwndLV, &hit.pt);
    SendMessageW(hwndLV, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    scan_list.hit_cell = {.iRow = hit.iItem, .iColumn = hit.iSubItem};
    return cursor;
}

void on_right_click(HWND hwndThis, HWND hwndLV)
{
    const POINT cursor = keep_hit_cell(hwndLV);
    const int column = scan_list.hit_cell.iColumn;
    if (column >= COLUMN_X && column <= COLUMN_HEIGHT)
        TrackPopupMenu(scan_list.popup, 0, cursor.x, cursor.y, 0, hwndThis, nullptr);
}

} // namespace

std::int32_t on_WM_CREATE_02_ListView(HWND hwndThis, WPARAM /*wParam*/, LPARAM /*lParam*/, HINSTANCE hInst,
                                      HWND* p_hwndLV, unsigned uiCtlID)
{
    if (hwndThis == nullptr || hInst == nullptr || p_hwndLV == nullptr ||
        scan_record.pcDynMem_GeomText == nullptr || scan_record.counter_valid == 0) {
        const std::int32_t result = report<kListviewInput>();
        DestroyWindow(hwndThis);
        return result;
    }
    RECT client{};
    GetClientRect(hwndThis, &client);
    *p_hwndLV = CreateWindowExW(0, WC_LISTVIEWW, L"", kListStyle, 0, 0, client.right, client.bottom, hwndThis,
                                reinterpret_cast<HMENU>(static_cast<UINT_PTR>(uiCtlID)), hInst, nullptr);
    if (*p_hwndLV == nullptr) {
        // Quirk: the class name is printed as a number, the low half of its address; users compare reports
        // between versions.
        const auto class_name = static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(WC_LISTVIEWW));
        report<kListviewCreate>(client.right, client.bottom, uiCtlID, hwndThis, hInst, class_name);
        return 1;
    }
    set_accessible_name(*p_hwndLV, L"Windows");
    SendMessageW(*p_hwndLV, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kListExtendedStyle);
    create_image_list(*p_hwndLV);
    insert_columns(*p_hwndLV, client.right);
    insert_rows(*p_hwndLV);
    return 1;
}

std::int32_t on_WM_NOTIFY_ListView(HWND hwndThis, HWND hwndLV, WPARAM /*wParam*/, LPARAM /*lParam*/,
                                   const NMHDR* pNMHDR)
{
    if (hwndThis == nullptr || hwndLV == nullptr || pNMHDR == nullptr)
        return report<kListviewNotifyInput>();
    switch (pNMHDR->code) {
    case LVN_ITEMCHANGED:
        select_as_ticked(hwndLV, reinterpret_cast<const NMLISTVIEW*>(pNMHDR)->iItem);
        break;
    case NM_CLICK:
        keep_hit_cell(hwndLV);
        break;
    case NM_RCLICK:
        on_right_click(hwndThis, hwndLV);
        break;
    default:
        break;
    }
    return 1;
}

CellText read_cell(HWND hwndLV, std::uint32_t row, int column)
{
    CellText text{};
    read_cell_text(hwndLV, row, column, text);
    return text;
}

void set_column_widths(HWND hwndLV, std::int32_t client_width)
{
    for (std::size_t i = 0; i < kScanList_columns; ++i) {
        const auto width = static_cast<WORD>(scan_list_column_width(i, client_width));
        SendMessageW(hwndLV, LVM_SETCOLUMNWIDTH, i, MAKELPARAM(width, 0));
    }
}
