#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"

#include "errors/system_error_box.h"
#include "sources/win32/window_classes.h"
#include "sources/wnd_ModifyCell/modify_cell_layout.h"
#include "sources/wnd_ModifyCell/modify_cell_window.h"
#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"

namespace
{

// Distance from the cursor to the window in pixels.
constexpr int kOffset_from_cursor = 30;

bool class_registered = false;

} // namespace

HWND create_wnd_ModifyCell(HWND hwnd_ListWindows, HWND hwndLV, const HitCell_STR* hit_cell)
{
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(hwnd_ListWindows, GWLP_HINSTANCE));
    register_secondary_window_class_once(instance, kClass_ModifyCell, WndProc_ModifyCell, &class_registered);
    POINT cursor{};
    GetCursorPos(&cursor);
    const HWND hwnd = CreateWindowExW(
        0, kClass_ModifyCell, L"Modify Cell", WS_CAPTION | WS_SYSMENU, cursor.x + kOffset_from_cursor,
        cursor.y + kOffset_from_cursor, modify_cell_width(GetSystemMetrics(SM_CXSCREEN)),
        modify_cell_height(GetSystemMetrics(SM_CYSCREEN)), nullptr, nullptr, instance, nullptr);
    if (hwnd == nullptr)
        show_system_error(GetLastError());
    ShowWindow(hwnd, SW_SHOW);
    UpdateWindow(hwnd);

    CellReference_STR cell{.uiRow = static_cast<std::uint32_t>(hit_cell->iRow),
                           .uiColumn = static_cast<std::uint32_t>(hit_cell->iColumn),
                           .hwndListView = hwndLV};
    COPYDATASTRUCT data{.dwData = 0, .cbData = sizeof cell, .lpData = &cell};
    SendMessageW(hwnd, WM_COPYDATA, reinterpret_cast<WPARAM>(hwnd_ListWindows),
                 reinterpret_cast<LPARAM>(&data));
    return hwnd;
}
