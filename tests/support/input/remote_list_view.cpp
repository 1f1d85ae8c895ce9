#include "tests/support/input/remote_list_view.h"

#include <commctrl.h>

#include "tests/support/basics/waiting.h"
#include "tests/support/input/real_input.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/remote_memory.h"

namespace test_support
{

namespace
{

constexpr int kTextUnits = 1024;
constexpr UINT kUnticked = 1; // state images of the check boxes
constexpr UINT kTicked = 2;

int ask_number(HWND window, UINT message, WPARAM wide = 0, LPARAM narrow = 0)
{
    return static_cast<int>(answer_of(window, message, wide, narrow));
}

LPARAM as_argument(const RemoteMemory& memory)
{
    return reinterpret_cast<LPARAM>(memory.address());
}

// A structure with a text buffer behind it, as the list view's messages want it.
template <typename Structure>
std::wstring ask_text(HWND window, UINT message, WPARAM index, Structure request)
{
    const RemoteMemory memory(window, sizeof(Structure) + kTextUnits * sizeof(wchar_t));
    request.pszText = static_cast<wchar_t*>(memory.address(sizeof(Structure)));
    request.cchTextMax = kTextUnits;
    memory.write(0, &request, sizeof(request));
    answer_of(window, message, index, as_argument(memory));
    memory.read(0, &request, sizeof(request));
    std::wstring text(kTextUnits, L'\0');
    memory.read(sizeof(Structure), text.data(), kTextUnits * sizeof(wchar_t));
    text.resize(text.find(L'\0'));
    return text;
}

RECT ask_rectangle(HWND window, UINT message, int row, RECT request)
{
    const RemoteMemory memory(window, sizeof(RECT));
    memory.write(0, &request, sizeof(request));
    if (!answer_of(window, message, static_cast<WPARAM>(row), as_argument(memory)))
        throw Failure("the list view has no row " + std::to_string(row));
    RECT rectangle{};
    memory.read(0, &rectangle, sizeof(rectangle));
    return rectangle;
}

RECT to_screen(HWND window, RECT rectangle)
{
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

// What of a row is at this place of the list's client area (LVHT_...).
UINT part_at(HWND window, POINT place)
{
    LVHITTESTINFO request{};
    request.pt = place;
    const RemoteMemory memory(window, sizeof(request));
    memory.write(0, &request, sizeof(request));
    answer_of(window, LVM_HITTEST, 0, as_argument(memory));
    memory.read(0, &request, sizeof(request));
    return request.flags;
}

// The middle of a row's check box on the screen. Where in its cell that stands differs from system to system.
POINT check_box_centre(HWND window, int row, int cell_width)
{
    RECT request{};
    request.left = LVIR_BOUNDS;
    const RECT bounds = ask_rectangle(window, LVM_GETITEMRECT, row, request);
    POINT place{bounds.left, (bounds.top + bounds.bottom) / 2};
    const auto on_check_box = [&] { return part_at(window, place) == LVHT_ONITEMSTATEICON; };
    while (!on_check_box()) {
        if (++place.x >= bounds.left + cell_width)
            throw Failure("there is no check box in row " + std::to_string(row));
    }
    const LONG left = place.x;
    while (on_check_box())
        ++place.x;
    place.x = (left + place.x) / 2;
    ClientToScreen(window, &place);
    return place;
}

} // namespace

RemoteListView::RemoteListView(HWND list) : list_(list)
{
    if (!IsWindow(list))
        throw Failure("there is no list view");
}

int RemoteListView::row_count() const
{
    return ask_number(list_, LVM_GETITEMCOUNT);
}

std::wstring RemoteListView::cell(int row, int column) const
{
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    return ask_text(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), item);
}

std::vector<std::wstring> RemoteListView::row(int row) const
{
    std::vector<std::wstring> cells;
    for (int column = 0; column < column_count(); ++column)
        cells.push_back(cell(row, column));
    return cells;
}

std::optional<int> RemoteListView::find_row(const std::wstring& text, int column) const
{
    for (int row = 0; row < row_count(); ++row)
        if (cell(row, column) == text)
            return row;
    return std::nullopt;
}

bool RemoteListView::is_ticked(int row) const
{
    const int state = ask_number(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
    return state == static_cast<int>(INDEXTOSTATEIMAGEMASK(kTicked));
}

void RemoteListView::set_ticked(int row, bool ticked) const
{
    LVITEMW item{};
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(ticked ? kTicked : kUnticked);
    const RemoteMemory memory(list_, sizeof(item));
    memory.write(0, &item, sizeof(item));
    answer_of(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), as_argument(memory));
}

void RemoteListView::click_check_box(int row) const
{
    answer_of(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    const bool before = is_ticked(row);
    bring_to_front(GetAncestor(list_, GA_ROOT));
    click(check_box_centre(list_, row, column_width(0)));

    const auto turned = [&] { return is_ticked(row) != before; };
    const std::string what = "row " + std::to_string(row) + " to be ticked or unticked by a click";
    if (GetWindowThreadProcessId(list_, nullptr) == GetCurrentThreadId())
        pump_until(turned, kShortWait, what);
    else
        wait_until(turned, kShortWait, what);
}

bool RemoteListView::is_selected(int row) const
{
    return ask_number(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) == LVIS_SELECTED;
}

int RemoteListView::column_count() const
{
    const auto header = reinterpret_cast<HWND>(answer_of(list_, LVM_GETHEADER, 0, 0));
    return header ? ask_number(header, HDM_GETITEMCOUNT) : 0;
}

std::wstring RemoteListView::heading(int column) const
{
    LVCOLUMNW request{};
    request.mask = LVCF_TEXT;
    return ask_text(list_, LVM_GETCOLUMNW, static_cast<WPARAM>(column), request);
}

int RemoteListView::column_width(int column) const
{
    return ask_number(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column));
}

DWORD RemoteListView::extended_style() const
{
    return static_cast<DWORD>(answer_of(list_, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
}

RECT RemoteListView::cell_rectangle(int row, int column) const
{
    answer_of(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT request{};
    request.left = LVIR_BOUNDS;
    if (column != 0) {
        request.top = column;
        return to_screen(list_, ask_rectangle(list_, LVM_GETSUBITEMRECT, row, request));
    }
    // The bounds of the first cell are those of the whole row.
    RECT cell = ask_rectangle(list_, LVM_GETITEMRECT, row, request);
    cell.right = cell.left + column_width(0);
    return to_screen(list_, cell);
}

POINT RemoteListView::cell_centre(int row, int column) const
{
    const RECT cell = cell_rectangle(row, column);
    return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
}

} // namespace test_support
