#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/control/fixtures/windows_made.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// The List of Windows window as it is made, and what it takes of the messages that it gets.

using namespace test_support;
using scan_tests::TwoRowsFixture;
using window_tests::WindowsMade;

namespace
{

int screen_part(float fraction, int metric)
{
    return static_cast<int>(fraction * static_cast<float>(GetSystemMetrics(metric)));
}

std::wstring size_text(int width, int height)
{
    return std::to_wstring(width) + L"x" + std::to_wstring(height);
}

HWND modify_cell()
{
    return FindWindowW(L"Modify Cell Window", nullptr);
}

} // namespace

TEST(ListOfWindows, MakesItsButtonsAndThenItsList)
{
    TwoRowsFixture scan;
    const WindowsMade made;
    ASSERT_EQ(scan.fixture.scan(), 1);
    RECT client{};
    GetClientRect(hwnd_ScanListView, &client);
    const std::wstring button = size_text(screen_part(0.09F, SM_CXSCREEN), screen_part(0.03F, SM_CYSCREEN));
    ASSERT_EQ(made.lines.size(), 4u);
    EXPECT_EQ((std::vector<std::wstring>{made.lines.begin() + 1, made.lines.end()}),
              (std::vector<std::wstring>{L"button \"Move\" 1: 50000300 00000000 0,0 " + button,
                                         L"button \"Create Profile\" 2: 50000300 00000000 0,0 " + button,
                                         L"SysListView32 \"\" 4: 50800009 00000000 0,0 " +
                                             size_text(client.right, client.bottom)}));
    EXPECT_EQ(made.parents,
              (std::vector<HWND>{nullptr, hwnd_ScanListView, hwnd_ScanListView, hwnd_ScanListView}));
}

TEST(ListOfWindows, PlacesItsControlsInOrderAndRepaintsThem)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    std::vector<std::wstring> placed;
    const ImportHook<"MoveWindow", decltype(MoveWindow)> move(
        "user32.dll", [&](HWND window, int x, int y, int width, int height, BOOL repaint) {
            placed.push_back(std::to_wstring(GetDlgCtrlID(window)) + L": " + std::to_wstring(x) + L"," +
                             std::to_wstring(y) + L" " + size_text(width, height));
            EXPECT_EQ(repaint, TRUE);
            return move.call_original(window, x, y, width, height, repaint);
        });
    EXPECT_EQ(SendMessageW(hwnd_ScanListView, WM_SIZE, SIZE_RESTORED, MAKELPARAM(500, 300)), 0);
    // The size is the one that was told, whatever size the window has.
    const int bw = screen_part(0.09F, SM_CXSCREEN);
    const int bh = screen_part(0.03F, SM_CYSCREEN);
    EXPECT_EQ(placed, (std::vector<std::wstring>{
                          L"1: 5,5 " + size_text(bw, bh),
                          L"2: " + std::to_wstring(bw + 10) + L",5 " + size_text(bw, bh),
                          L"4: 5," + std::to_wstring(bh + 10) + L" " + size_text(490, 300 - (bh + 10) - 5)}));
    const RemoteListView list = scan.fixture.list();
    const int widths[] = {44, 280, 44, 44, 44, 44};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(list.column_width(column), widths[column]) << column;
}

TEST(ListOfWindows, InsertsItsRowsByTheirNumbersAlone)
{
    TwoRowsFixture scan;
    std::vector<std::wstring> rows;
    const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == LVM_INSERTITEMW) {
                const auto& item = *reinterpret_cast<const LVITEMW*>(lParam);
                rows.push_back(std::to_wstring(item.iItem) + L": mask " + std::to_wstring(item.mask) +
                               L", text " + item.pszText + L" of " + std::to_wstring(item.cchTextMax));
            }
            return send.call_original(window, message, wParam, lParam);
        });
    ASSERT_EQ(scan.fixture.scan(), 1);
    EXPECT_EQ(rows, (std::vector<std::wstring>{L"0: mask 1, text 1 of 40", L"1: mask 1, text 2 of 40"}));
}

TEST(ListOfWindows, LeavesNothingToPaint)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    InvalidateRect(hwnd_ScanListView, nullptr, TRUE);
    EXPECT_TRUE(GetUpdateRect(hwnd_ScanListView, nullptr, FALSE));
    EXPECT_EQ(SendMessageW(hwnd_ScanListView, WM_PAINT, 0, 0), 0);
    EXPECT_FALSE(GetUpdateRect(hwnd_ScanListView, nullptr, FALSE));
}

TEST(ListOfWindows, TakesClicksOfItsListOnly)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    int menus = 0;
    const ImportHook<"TrackPopupMenu", decltype(TrackPopupMenu)> track(
        "user32.dll", [&](HMENU, UINT, int, int, int, HWND, const RECT*) -> BOOL {
            ++menus;
            return TRUE;
        });
    const POINT centre = list.cell_centre(1, 3);
    SetCursorPos(centre.x, centre.y);
    const auto click = [&](HWND from, UINT_PTR id) {
        NMITEMACTIVATE told{};
        told.hdr = {from, id, static_cast<UINT>(NM_RCLICK)};
        SendMessageW(hwnd_ScanListView, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&told));
    };
    click(list.window(), 5);
    click(GetDlgItem(hwnd_ScanListView, list_control::kMove), 4);
    click(nullptr, 4);
    EXPECT_EQ(menus, 0);
    click(list.window(), 4);
    EXPECT_EQ(menus, 1);
}

TEST(ListOfWindows, TakesCommandsAsItsButtonsAndItsMenuSendThem)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const HWND window = hwnd_ScanListView;
    const BoxWatcher boxes;
    for (const WORD id : {WORD{1}, WORD{2}}) {
        const auto button = reinterpret_cast<LPARAM>(GetDlgItem(window, id));
        EXPECT_EQ(SendMessageW(window, WM_COMMAND, MAKEWPARAM(id, 1), button), 0);
    }
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(list_control::kModifyCell, 1), 0);
    SendMessageW(window, WM_COMMAND, list_control::kModifyCell,
                 reinterpret_cast<LPARAM>(GetDlgItem(window, list_control::kMove)));
    boxes.expect_no_boxes();
    EXPECT_EQ(modify_cell(), nullptr);
    SendMessageW(window, WM_COMMAND, list_control::kModifyCell, 0);
    EXPECT_NE(modify_cell(), nullptr);
    DestroyWindow(modify_cell());
}

TEST(ListOfWindows, HasAMenuOfOneItem)
{
    TwoRowsFixture scan;
    HMENU loaded = nullptr;
    const ImportHook<"LoadMenuW", decltype(LoadMenuW)> load(
        "user32.dll", [&](HINSTANCE instance, LPCWSTR name) {
            EXPECT_EQ(instance, GetModuleHandleW(nullptr));
            EXPECT_EQ(std::wstring(name), L"menu_popup_ModifyCell");
            loaded = load.call_original(instance, name);
            return loaded;
        });
    ASSERT_EQ(scan.fixture.scan(), 1);
    const auto text_of = [](HMENU menu) {
        wchar_t text[40]{};
        GetMenuStringW(menu, 0, text, 40, MF_BYPOSITION);
        return std::wstring(text);
    };
    EXPECT_EQ(GetMenuItemCount(loaded), 1);
    EXPECT_EQ(text_of(loaded), L"menu_MW");
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(loaded, 0)), 1);
    EXPECT_EQ(text_of(GetSubMenu(loaded, 0)), L"Modify Cell");
}
