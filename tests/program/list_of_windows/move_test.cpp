#include <windows.h>

#include <gtest/gtest.h>

#include "tests/program/list_of_windows/on_the_list_fixture.h"
#include "tests/support/boxes/box_watcher.h"

namespace
{

using namespace on_the_list;
using Move = OnTheListFixture;

TEST_F(Move, BringsTheWindowToTheRowsPlace)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    change(kX, L"700");
    change(kWidth, L"500");
    tick_and_move();
    EXPECT_TRUE(comes_to(700, 150, 500, 300));
    EXPECT_EQ(cells(), (Cells{L"700", L"150", L"500", L"300"}));
    boxes.expect_no_boxes();
}

TEST_F(Move, AsksForATickedRow)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.press_move();
    boxes.expect_boxes(
        {{L"info", L"There are no selected items.\nSelect any item, change its position (or/and "
                   L"dimensions)\nand then press button Move."}});
    EXPECT_EQ(boxes.boxes()[0].owner, nullptr);
}

TEST_F(Move, LeavesAMinimisedWindowAloneUntilItIsGivenASize)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    ShowWindow(window_, SW_MINIMIZE);
    wait_until([&] { return IsIconic(window_) != FALSE; }, kShortWait, "the minimised window");
    rescan();
    tick_and_move();
    EXPECT_TRUE(IsIconic(window_));
    open();
    type_into(kX, L"90");
    type_into(kY, L"80");
    type_into(kWidth, L"450");
    type_into(kHeight, L"350");
    press_ok();
    wendlow_.press_move();
    EXPECT_TRUE(comes_to(90, 80, 450, 350));
    EXPECT_FALSE(IsIconic(window_));
    boxes.expect_no_boxes();
}

TEST_F(Move, ReportsAWindowThatIsGone)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    fixtures_.stop(L"listed");
    wait_until([&] { return !IsWindow(window_); }, kShortWait, "the window to be gone");
    wendlow_.tick(L"Listed");
    wendlow_.press_move();
    boxes.expect_boxes({{L"error",
                         L"impossible to move one of windows:\nx = 200\ny = 150\nwidth = 400\nheight = "
                         L"300\nProbably, it was closed. Try to SCAN again.",
                         true}});
}

} // namespace
