#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

TEST(ListOfWindows, TickingARowSelectsItAndUntickingDeselectsIt)
{
    FixturePrograms fixtures;
    fixtures.add(L"listed", {.title = L"Listed"});
    fixtures.start(L"listed");
    const WendlowProcess wendlow;
    const RemoteListView list = wendlow.scan();
    const int row = wendlow.row_of(L"Listed");
    list.click_check_box(row);
    EXPECT_TRUE(list.is_ticked(row));
    EXPECT_TRUE(becomes_true([&] { return list.is_selected(row); }));
    list.set_ticked(row, false);
    EXPECT_FALSE(list.is_ticked(row));
    EXPECT_TRUE(becomes_true([&] { return !list.is_selected(row); }));
}

TEST(ListOfWindows, OffersModifyCellOverNumbersOnly)
{
    const WendlowProcess wendlow;
    const RemoteListView list = wendlow.scan();
    bring_to_front(wendlow.list_window());
    const auto popup = [&] { return find_window(wendlow.process_id(), L"#32768"); };
    for (const int column : {0, 1}) {
        right_click(list.cell_centre(0, column));
        wendlow.wait_until_idle();
        EXPECT_EQ(popup(), nullptr) << "column " << column;
    }
    for (const int column : {2, 3, 4, 5}) {
        right_click(list.cell_centre(0, column));
        EXPECT_TRUE(becomes_true([&] { return popup() != nullptr; })) << "column " << column;
        press_key(VK_ESCAPE);
        EXPECT_TRUE(becomes_true([&] { return popup() == nullptr; })) << "column " << column;
    }
}

TEST(ListOfWindows, ResizingChangesTheListAndItsColumnsButNotTheButtons)
{
    const WendlowProcess wendlow;
    const RemoteListView list = wendlow.scan();
    const HWND window = wendlow.list_window();
    const RECT move = rectangle_of(GetDlgItem(window, list_control::kMove));
    SetWindowPos(window, nullptr, 30, 30, 700, 400, SWP_NOZORDER);
    const RECT move_now = rectangle_of(GetDlgItem(window, list_control::kMove));
    EXPECT_TRUE(EqualRect(&move, &move_now));
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(list.column_width(1), static_cast<int>(0.56 * client.right));
    EXPECT_EQ(list.column_width(5), static_cast<int>(0.088 * client.right));
    const RECT list_rectangle = rectangle_of(list.window());
    EXPECT_EQ(list_rectangle.right - list_rectangle.left, client.right - 10);
}

} // namespace
