#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/box_watcher.h"
#include "tests/support/fixture_programs.h"
#include "tests/support/real_input.h"
#include "tests/support/text.h"
#include "tests/support/wendlow_process.h"
#include "tests/support/windows_lookup.h"

using namespace test_support;

namespace
{

using Cells = std::vector<std::wstring>;

// Ids of the controls of Modify Cell, which are the order of Tab as well.
enum Cell { kX, kY, kWidth, kHeight, kOk, kCancel };

void put_on_clipboard(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(block), text.c_str(), bytes);
    GlobalUnlock(block);
    const HWND owner =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (OpenClipboard(owner) == FALSE || EmptyClipboard() == FALSE ||
        SetClipboardData(CF_UNICODETEXT, block) == nullptr || CloseClipboard() == FALSE)
        throw Failure("the clipboard does not take the text");
}

// One program on the list, its window and its row.
class OnTheList : public testing::Test
{
protected:
    OnTheList()
    {
        fixtures_.add(L"listed", {.title = L"Listed", .x = 200, .y = 150, .width = 400, .height = 300});
        window_ = fixtures_.start(L"listed");
        rescan();
    }

    void rescan()
    {
        wendlow_.scan();
        row_ = wendlow_.row_of(L"Listed");
    }

    // Opens Modify Cell over the X of the row.
    void open() { cell_ = wendlow_.open_modify_cell(row_, 2); }
    HWND control(int id) const { return GetDlgItem(cell_, id); }
    // Replaces the text of an edit box as a user does, by a double click and typing.
    void type_into(int id, const std::wstring& text)
    {
        bring_to_front(cell_);
        double_click(centre_of(control(id)));
        type_text(text);
        wait_until([&] { return text_of(id) == text; }, kShortWait,
                   "the edit box to take " + printable(text));
    }
    std::wstring text_of(int id) const
    {
        std::wstring text(100, L'\0');
        text.resize(static_cast<std::size_t>(
            SendMessageW(control(id), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
        return text;
    }
    void press_ok()
    {
        click(control(kOk));
        wait_until([&] { return !IsWindow(cell_); }, kShortWait, "Modify Cell to close");
    }
    int focused_control() const
    {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(cell_, nullptr), &info);
        return info.hwndFocus ? GetDlgCtrlID(info.hwndFocus) : -1;
    }
    bool focus_comes_to(int id) const
    {
        return becomes_true([&] { return focused_control() == id; });
    }

    void change(int id, const std::wstring& text)
    {
        open();
        type_into(id, text);
        press_ok();
    }

    // X, Y, Width and Height of the row.
    Cells cells() const
    {
        const Cells row = wendlow_.list_view().row(row_);
        return {row.begin() + 2, row.end()};
    }
    bool comes_to(int x, int y, int width, int height) const
    {
        const RECT place{x, y, x + width, y + height};
        return becomes_true([&] {
            const RECT found = rectangle_of(window_);
            return EqualRect(&found, &place) != FALSE;
        });
    }
    void tick_and_move()
    {
        wendlow_.list_view().click_check_box(row_);
        click(GetDlgItem(wendlow_.list_window(), 1));
        wendlow_.wait_until_idle();
    }

    FixturePrograms fixtures_;
    WendlowProcess wendlow_;
    HWND window_ = nullptr;
    HWND cell_ = nullptr;
    int row_ = 0;
};

using ModifyCell = OnTheList;
using Move = OnTheList;

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

TEST_F(ModifyCell, TakesAPastedNegativeNumber)
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

TEST_F(ModifyCell, LetsTheLastCharacterDecide)
{
    open();
    SendMessageW(control(kX), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"12a3"));
    SendMessageW(control(kY), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"123a"));
    press_ok();
    EXPECT_EQ(cells()[0], L"12a3");
    EXPECT_EQ(cells()[1], L"150");
}

TEST_F(ModifyCell, TabGoesRoundTheControls)
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

TEST_F(ModifyCell, CopesWithoutARow)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    PostMessageW(wendlow_.list_window(), WM_COMMAND, 101, 0);
    const RemoteListView list = wendlow_.list_view();
    const POINT below_all = {list.cell_centre(0, 1).x, rectangle_of(list.window()).bottom - 40};
    cell_ = wait_for([&] { return wendlow_.modify_cell_window(); }, kShortWait, "Modify Cell");
    PostMessageW(control(kCancel), BM_CLICK, 0, 0);
    wait_until([&] { return !IsWindow(cell_); }, kShortWait, "Modify Cell to close");

    bring_to_front(wendlow_.list_window());
    click(below_all);
    wendlow_.wait_until_idle();
    PostMessageW(wendlow_.list_window(), WM_COMMAND, 101, 0);
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

TEST_F(ModifyCell, GoesWithTheList)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    open();
    wendlow_.close_list_window();
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(cell_); }));
    boxes.expect_no_boxes();
}

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
