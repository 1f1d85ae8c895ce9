#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"
#include "tests/support/input/controls_window.h"
#include "tests/support/input/real_input.h"
#include "tests/support/input/remote_list_view.h"

using namespace test_support;

namespace
{

TEST(RemoteListView, ReadsRowsColumnsAndStates)
{
    const ControlsWindow window;
    const RemoteListView list(window.list());
    EXPECT_EQ(list.row_count(), 40);
    EXPECT_EQ(list.column_count(), 2);
    EXPECT_EQ(list.heading(1), L"Window name");
    EXPECT_EQ(list.column_width(1), 250);
    EXPECT_EQ(list.row(3), (std::vector<std::wstring>{L"4", L"window 4"}));
    EXPECT_EQ(list.find_row(L"window 40"), 39);
    EXPECT_EQ(list.find_row(L"window 41"), std::nullopt);
    EXPECT_EQ(list.extended_style(), 5u);
    EXPECT_FALSE(list.is_selected(3));
}

TEST(RemoteListView, TicksAndUnticksRows)
{
    const ControlsWindow window;
    const RemoteListView list(window.list());
    list.set_ticked(2, true);
    EXPECT_TRUE(list.is_ticked(2));
    EXPECT_FALSE(list.is_ticked(1));
    list.set_ticked(2, false);
    EXPECT_FALSE(list.is_ticked(2));
}

TEST(RemoteListView, ClicksCheckBoxesAndCellsWhereTheyAre)
{
    const ControlsWindow window;
    const RemoteListView list(window.list());
    list.click_check_box(35);
    EXPECT_TRUE(list.is_ticked(35));
    list.click_check_box(35);
    EXPECT_FALSE(list.is_ticked(35));
    click(list.cell_centre(1, 0));
    pump_until([&] { return list.is_selected(1); }, kShortWait, "the clicked row to be selected");
    const RECT number = list.cell_rectangle(1, 0);
    const RECT name = list.cell_rectangle(1, 1);
    EXPECT_EQ(number.right, name.left);
    EXPECT_EQ(name.right - name.left, 250);
}

} // namespace
