#include <windows.h>

#include <gtest/gtest.h>

#include "tests/program/list_of_windows/on_the_list_fixture.h"
#include "tests/support/basics/platform.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/input/clipboard.h"
#include "tests/support/windows/control_ids.h"

// Modify Cell as a user works it, with mouse, keys and clipboard.

namespace
{

using namespace on_the_list;
using ModifyCell = OnTheListFixture;

TEST_F(ModifyCell, ShowsTheWholeRowWhicheverCellWasClicked)
{
    for (const int column : {2, 3, 4, 5}) {
        SCOPED_TRACE(column);
        cell_ = wendlow_.open_modify_cell(row_, column);
        EXPECT_EQ((Cells{text_of(kX), text_of(kY), text_of(kWidth), text_of(kHeight)}),
                  (Cells{L"200", L"150", L"400", L"300"}));
        click(control(kCancel));
        EXPECT_TRUE(becomes_true([&] { return !IsWindow(cell_); }));
    }
    EXPECT_EQ(cells(), (Cells{L"200", L"150", L"400", L"300"}));
}

TEST_F(ModifyCell, PutsWhatIsTypedIntoTheRow)
{
    open();
    type_into(kX, L"250");
    type_into(kHeight, L"333");
    press_ok();
    EXPECT_EQ(cells(), (Cells{L"250", L"150", L"400", L"333"}));
    // The window itself stays where it is until Move.
    EXPECT_TRUE(comes_to(200, 150, 400, 300));
}

TEST_F(ModifyCell, RefusesLettersAndKeepsTheRowsTextForAnEmptyEdit)
{
    open();
    bring_to_front(cell_);
    double_click(centre_of(control(kWidth)));
    type_text(L"ab7c");
    EXPECT_TRUE(becomes_true([&] { return text_of(kWidth) == L"7"; }));
    type_text(L"\b");
    EXPECT_TRUE(becomes_true([&] { return text_of(kWidth).empty(); }));
    press_ok();
    EXPECT_EQ(cells(), (Cells{L"200", L"150", L"400", L"300"}));
}

TEST_F(ModifyCell, TakesANegativeNumberThatIsSetAsText)
{
    open();
    SendMessageW(control(kX), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"-8"));
    press_ok();
    EXPECT_EQ(cells()[0], L"-8");
    tick_and_move();
    EXPECT_TRUE(comes_to(-8, 150, 400, 300));
}

TEST_F(ModifyCell, TakesWhatIsPastedWithTheKeyboard)
{
    ONLY_UNDER_WINE("an edit box of Windows that takes digits only refuses to paste a sign");
    put_on_clipboard(L"-8");
    open();
    bring_to_front(cell_);
    double_click(centre_of(control(kX)));
    press_key_with(VK_CONTROL, 'V');
    EXPECT_TRUE(becomes_true([&] { return text_of(kX) == L"-8"; }));
    press_ok();
    EXPECT_EQ(cells(), (Cells{L"-8", L"150", L"400", L"300"}));
    tick_and_move();
    EXPECT_TRUE(comes_to(-8, 150, 400, 300));
}

TEST_F(ModifyCell, ChecksTheLastCharacterOfAnEdit)
{
    open();
    SendMessageW(control(kX), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"12a3"));
    SendMessageW(control(kY), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"123a"));
    press_ok();
    EXPECT_EQ(cells()[0], L"12a3");
    EXPECT_EQ(cells()[1], L"150");
}

TEST_F(ModifyCell, TabMovesThroughAllControls)
{
    open();
    bring_to_front(cell_);
    EXPECT_TRUE(focus_comes_to(kX));
    for (const int next : {kY, kWidth, kHeight, kOk, kCancel, kX}) {
        press_key(VK_TAB);
        EXPECT_TRUE(focus_comes_to(next)) << "control " << next;
    }
}

TEST_F(ModifyCell, EnterConfirmsOnOkOnlyAndEscapeDoesNothing)
{
    open();
    type_into(kX, L"77");
    press_key(VK_RETURN);
    press_key(VK_ESCAPE);
    type_text(L"8");
    EXPECT_TRUE(becomes_true([&] { return text_of(kX) == L"778"; }));
    for (const int next : {kY, kWidth, kHeight, kOk}) {
        press_key(VK_TAB);
        ASSERT_TRUE(focus_comes_to(next));
    }
    press_key(VK_SPACE);
    press_key(VK_RETURN);
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(cell_); }));
    EXPECT_EQ(cells()[0], L"778");
}

TEST_F(ModifyCell, EnterOnCancelChangesNothing)
{
    open();
    type_into(kX, L"77");
    for (const int next : {kY, kWidth, kHeight, kOk, kCancel}) {
        press_key(VK_TAB);
        ASSERT_TRUE(focus_comes_to(next));
    }
    press_key(VK_RETURN);
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(cell_); }));
    EXPECT_EQ(cells()[0], L"200");
}

TEST_F(ModifyCell, ReportsAClickThatHitNoRow)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    PostMessageW(wendlow_.list_window(), WM_COMMAND, list_control::kModifyCell, 0);
    const RemoteListView list = wendlow_.list_view();
    const POINT below_all = {list.cell_centre(0, 1).x, rectangle_of(list.window()).bottom - 40};
    cell_ = wait_for([&] { return wendlow_.modify_cell_window(); }, kShortWait, "Modify Cell");
    PostMessageW(control(kCancel), BM_CLICK, 0, 0);
    wait_until([&] { return !IsWindow(cell_); }, kShortWait, "Modify Cell to close");

    bring_to_front(wendlow_.list_window());
    click(below_all);
    wendlow_.wait_until_idle();
    PostMessageW(wendlow_.list_window(), WM_COMMAND, list_control::kModifyCell, 0);
    cell_ = wait_for([&] { return wendlow_.modify_cell_window(); }, kShortWait, "Modify Cell");
    EXPECT_EQ(text_of(kX), L"");
    PostMessageW(control(kOk), BM_CLICK, 0, 0);
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n668\n\n"
                    L"incorrect input parameters:\nrow = -1, counter_valid = " +
                        std::to_wstring(list.row_count()) + L"\nline of error handler:845"}});
    EXPECT_TRUE(IsWindow(cell_));
    EXPECT_EQ(cells(), (Cells{L"200", L"150", L"400", L"300"}));
}

TEST_F(ModifyCell, IsDestroyedWithTheList)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    open();
    wendlow_.close_list_window();
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(cell_); }));
    boxes.expect_no_boxes();
}

} // namespace
