#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>

#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/support/basics/platform.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/input/clipboard.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using modify_cell_tests::ModifyCell;
using modify_cell_tests::Texts;

namespace
{

// Pastes over all of the text.
void paste_over(HWND edit)
{
    wait_until([&] { return GetOpenClipboardWindow() == nullptr; }, kShortWait, "the clipboard");
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_PASTE, 0, 0);
}

} // namespace

TEST_F(ModifyCell, ShowsTheRowsFourTextsWhicheverColumnWasHit)
{
    for (int column = 2; column <= 5; ++column) {
        open(1, column);
        EXPECT_EQ(texts(), (Texts{L"-20", L"60", L"200", L"150"}));
        DestroyWindow(dialog);
    }
}

TEST_F(ModifyCell, OpensBesideTheCursorWithItsSizeAndStyles)
{
    open(0);
    const RECT place = rectangle_of(dialog);
    EXPECT_EQ(place.left, 230);
    EXPECT_EQ(place.top, 180);
    EXPECT_EQ(place.right - place.left, static_cast<int>(35 + 0.135 * GetSystemMetrics(SM_CXSCREEN)));
    EXPECT_EQ(place.bottom - place.top, static_cast<int>(25 + 0.15 * GetSystemMetrics(SM_CYSCREEN)));
    EXPECT_EQ(class_of(dialog), L"Modify Cell Window");
    EXPECT_EQ(title_of(dialog), L"Modify Cell");
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(GetWindowLongW(dialog, GWL_STYLE) & (WS_CAPTION | WS_SYSMENU), WS_CAPTION | WS_SYSMENU);
    for (int id = 0; id < 4; ++id) {
        EXPECT_EQ(GetWindowLongW(control(id), GWL_STYLE), WS_CHILD | WS_VISIBLE | ES_NUMBER);
        EXPECT_EQ(GetWindowLongW(control(id), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, WS_EX_CLIENTEDGE);
    }
    EXPECT_EQ(text(4), L"Ok");
    EXPECT_EQ(text(5), L"Cancel");
}

TEST_F(ModifyCell, AppliesAChangeToRowAndGeometryAndCloses)
{
    open(0);
    enter(0, L"250");
    press(cell_control::kOk);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"250", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "250,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, MakesMoveUseTheChange)
{
    open(0);
    enter(0, L"250");
    press(cell_control::kOk);
    fixture.list().set_ticked(0, true);
    fixture.press(list_control::kMove);
    pump_messages();
    EXPECT_EQ(rectangle_of(first).left, 250);
}

TEST_F(ModifyCell, TakesANegativeNumberThatIsSetAsText)
{
    open(0);
    enter(0, L"-8");
    press(cell_control::kOk);
    EXPECT_EQ(cells(0)[0], L"-8");
    EXPECT_EQ(entry(0), "-8,50 300x200");
}

TEST_F(ModifyCell, TakesANegativeNumberFromTheClipboard)
{
    open(0);
    put_on_clipboard(L"-8");
    // Windows refuses what is no digit also where it is pasted; a box of the system's own tells.
    const HWND plain = CreateWindowExW(0, L"EDIT", L"10", WS_CHILD | ES_NUMBER, 0, 0, 90, 20, dialog, nullptr,
                                       GetModuleHandleW(nullptr), nullptr);
    paste_over(plain);
    wchar_t taken[8]{};
    GetWindowTextW(plain, taken, 8);
    if (under_wine()) {
        EXPECT_STREQ(taken, L"-8");
    }
    paste_over(control(cell_control::kX));
    EXPECT_EQ(text(0), taken);
    press(cell_control::kOk);
    EXPECT_EQ(cells(0), (Texts{taken, L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), wcscmp(taken, L"-8") == 0 ? "-8,50 300x200" : "10,50 300x200");
}

TEST_F(ModifyCell, KeepsTheRowsTextWhenAnEditIsEmptyButStoresZero)
{
    open(0);
    enter(2, L"");
    press(cell_control::kOk);
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 0x200");
}

TEST_F(ModifyCell, ChecksOnlyTheLastCharacterOfAnEdit)
{
    open(0);
    enter(0, L"12a3");
    enter(1, L"123a");
    press(cell_control::kOk);
    EXPECT_EQ(cells(0), (Texts{L"12a3", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "12,123 300x200");
}

TEST_F(ModifyCell, AsksTheSystemForTheKindOfTheLastCharacter)
{
    open(0);
    enter(0, L"12x"); // a system that counts x as alphanumeric and not as alphabetic
    enter(1, L"123"); // and 3 as no alphanumeric
    enter(2, L"124"); // and 4 as alphabetic
    enter(3, L"345");
    std::wstring asked_alphanumeric;
    std::wstring asked_alphabetic;
    const ImportHook<"IsCharAlphaNumericW", decltype(IsCharAlphaNumericW)> alphanumeric(
        "user32.dll", [&](WCHAR unit) -> BOOL {
            asked_alphanumeric += unit;
            return unit != L'3';
        });
    const ImportHook<"IsCharAlphaW", decltype(IsCharAlphaW)> alphabetic("user32.dll",
                                                                        [&](WCHAR unit) -> BOOL {
                                                                            asked_alphabetic += unit;
                                                                            return unit == L'4';
                                                                        });
    press(cell_control::kOk);
    EXPECT_EQ(cells(0), (Texts{L"12x", L"50", L"300", L"345"}));
    EXPECT_EQ(entry(0), "12,123 124x345");
    EXPECT_EQ(asked_alphanumeric, L"x345");
    EXPECT_EQ(asked_alphabetic, L"x45");
}

TEST_F(ModifyCell, ReadsAtMostFortyNineUnits)
{
    open(0);
    // The fiftieth unit would make the text invalid.
    enter(0, std::wstring(48, L' ') + L"7" + L"a");
    press(cell_control::kOk);
    EXPECT_EQ(entry(0), "7,50 300x200");
    EXPECT_EQ(cells(0)[0], std::wstring(48, L' ') + L"7");
}

TEST_F(ModifyCell, ClosesWithoutAChangeOnCancelAndTheCloseBox)
{
    open(0);
    enter(0, L"99");
    press(cell_control::kCancel);
    EXPECT_FALSE(IsWindow(dialog));
    open(0);
    enter(0, L"99");
    SendMessageW(dialog, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(cells(0)[0], L"10");
}

TEST_F(ModifyCell, MovesTheFocusWithTab)
{
    open(0);
    for (int id = 0; id < 6; ++id) {
        SetFocus(control(id));
        EXPECT_EQ(SendMessageW(control(id), WM_KEYDOWN, VK_TAB, 0), 0);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), (id + 1) % 6) << "from " << id;
    }
}

TEST_F(ModifyCell, IgnoresKeyPressesInTheEditsButTakesCharacters)
{
    open(0);
    SetFocus(control(cell_control::kX));
    SendMessageW(control(cell_control::kX), EM_SETSEL, 2, 2);
    for (const WPARAM key : {VK_LEFT, VK_HOME, VK_DELETE, VK_RETURN, VK_ESCAPE})
        EXPECT_EQ(SendMessageW(control(cell_control::kX), WM_KEYDOWN, key, 0), 0);
    EXPECT_EQ(LOWORD(SendMessageW(control(cell_control::kX), EM_GETSEL, 0, 0)), 2);
    SendMessageW(control(cell_control::kX), WM_CHAR, L'5', 0);
    EXPECT_EQ(text(0), L"105");
    SendMessageW(control(cell_control::kX), WM_CHAR, L'b', 0); // refused by the edit itself
    EXPECT_EQ(text(0), L"105");
    SendMessageW(control(cell_control::kX), WM_CHAR, VK_BACK, 0);
    EXPECT_EQ(text(0), L"10");
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(ModifyCell, AppliesOnEnterOnOkAndNotOnSpace)
{
    open(0);
    enter(3, L"333");
    SetFocus(control(cell_control::kOk));
    for (const WPARAM other : {VK_SPACE, VK_ESCAPE, VK_LEFT})
        EXPECT_EQ(key(4, other), 0);
    SendMessageW(control(cell_control::kOk), WM_KEYUP, VK_SPACE, 0);
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(key(4, VK_RETURN), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x333");
}

TEST_F(ModifyCell, ClosesOnEnterOnCancel)
{
    open(0);
    enter(3, L"333");
    for (const WPARAM other : {VK_SPACE, VK_ESCAPE, VK_LEFT})
        EXPECT_EQ(key(5, other), 0);
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(key(5, VK_RETURN), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x200");
}

TEST_F(ModifyCell, MakesTheFocusedButtonTheDefaultOne)
{
    open(0);
    SetFocus(control(cell_control::kOk));
    pump_messages();
    EXPECT_EQ(GetWindowLongW(control(cell_control::kOk), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
    SetFocus(control(cell_control::kCancel));
    pump_messages();
    EXPECT_EQ(GetWindowLongW(control(cell_control::kOk), GWL_STYLE) & BS_TYPEMASK, BS_PUSHBUTTON);
    EXPECT_EQ(GetWindowLongW(control(cell_control::kCancel), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}
