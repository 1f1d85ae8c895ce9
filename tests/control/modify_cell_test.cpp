#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <array>
#include <cstring>
#include <string>

#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"
#include "tests/control/scan_desk.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"
#include "tests/support/windows_lookup.h"

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::DeskWindow;
using scan_tests::pointer;
using scan_tests::ScanDesk;

namespace
{

// A scan of two windows, and Modify Cell opened for a row of it.
class ModifyCell : public testing::Test
{
protected:
    ModifyCell() { desk.scan(); }
    ~ModifyCell() override { DestroyWindow(dialog); }

    void open(int row, int column = 2)
    {
        const STR_HitCell cell{row, column};
        SetCursorPos(200, 150);
        dialog = create_wnd_ModifyCell(hwnd_ScanListView, desk.list().window(), &cell);
    }
    HWND control(int id) const { return GetDlgItem(dialog, id); }
    std::wstring text(int id) const
    {
        wchar_t buffer[400]{};
        GetWindowTextW(control(id), buffer, 400);
        return buffer;
    }
    std::vector<std::wstring> texts() const { return {text(0), text(1), text(2), text(3)}; }
    void enter(int id, const std::wstring& value) { SetWindowTextW(control(id), value.c_str()); }
    void press(int id)
    {
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, 0), reinterpret_cast<LPARAM>(control(id)));
    }
    std::vector<std::wstring> cells(int row) const
    {
        const std::vector<std::wstring> all = desk.list().row(row);
        return {all.begin() + 2, all.end()};
    }
    static std::string entry(std::uint32_t row)
    {
        const STR_GeomEntry* entry = geometry_entry(&scan_record, row);
        return std::to_string(entry->x) + "," + std::to_string(entry->y) + " " +
               std::to_string(entry->width) + "x" + std::to_string(entry->height);
    }

    ScanDesk desk;
    DeskWindow first{L"First", {10, 50, 310, 250}};
    DeskWindow second{L"Second", {-20, 60, 180, 210}};
    Desktop desktop{{first, second}};
    HWND dialog = nullptr;
};

using Texts = std::vector<std::wstring>;

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
    press(4);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"250", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "250,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, MakesMoveUseTheChange)
{
    open(0);
    enter(0, L"250");
    press(4);
    desk.list().set_ticked(0, true);
    desk.press(1);
    pump_messages();
    EXPECT_EQ(rectangle_of(first).left, 250);
}

TEST_F(ModifyCell, TakesAPastedNegativeNumber)
{
    open(0);
    enter(0, L"-8");
    press(4);
    EXPECT_EQ(cells(0)[0], L"-8");
    EXPECT_EQ(entry(0), "-8,50 300x200");
}

TEST_F(ModifyCell, TakesANegativeNumberFromTheClipboard)
{
    open(0);
    const wchar_t pasted[] = L"-8";
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof pasted);
    std::memcpy(GlobalLock(block), pasted, sizeof pasted);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(dialog));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
    SendMessageW(control(0), EM_SETSEL, 0, -1);
    SendMessageW(control(0), WM_PASTE, 0, 0);
    EXPECT_EQ(text(0), L"-8");
    press(4);
    EXPECT_EQ(cells(0), (Texts{L"-8", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "-8,50 300x200");
}

TEST_F(ModifyCell, KeepsTheRowsTextWhenAnEditIsEmptyButStoresZero)
{
    open(0);
    enter(2, L"");
    press(4);
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 0x200");
}

TEST_F(ModifyCell, LetsTheLastCharacterAloneDecide)
{
    open(0);
    enter(0, L"12a3");
    enter(1, L"123a");
    press(4);
    EXPECT_EQ(cells(0), (Texts{L"12a3", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "12,123 300x200");
}

TEST_F(ModifyCell, ReadsAtMostFortyNineUnits)
{
    open(0);
    // The fiftieth unit would make the text invalid.
    enter(0, std::wstring(48, L' ') + L"7" + L"a");
    press(4);
    EXPECT_EQ(entry(0), "7,50 300x200");
    EXPECT_EQ(cells(0)[0], std::wstring(48, L' ') + L"7");
}

TEST_F(ModifyCell, ClosesWithoutAChangeOnCancelAndTheCloseBox)
{
    open(0);
    enter(0, L"99");
    press(5);
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

TEST_F(ModifyCell, SwallowsKeyPressesInTheEditsButTakesCharacters)
{
    open(0);
    SetFocus(control(0));
    SendMessageW(control(0), EM_SETSEL, 2, 2);
    for (const WPARAM key : {VK_LEFT, VK_HOME, VK_DELETE, VK_RETURN, VK_ESCAPE})
        EXPECT_EQ(SendMessageW(control(0), WM_KEYDOWN, key, 0), 0);
    EXPECT_EQ(LOWORD(SendMessageW(control(0), EM_GETSEL, 0, 0)), 2);
    SendMessageW(control(0), WM_CHAR, L'5', 0);
    EXPECT_EQ(text(0), L"105");
    SendMessageW(control(0), WM_CHAR, L'b', 0); // refused by the edit itself
    EXPECT_EQ(text(0), L"105");
    SendMessageW(control(0), WM_CHAR, VK_BACK, 0);
    EXPECT_EQ(text(0), L"10");
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(ModifyCell, AppliesOnEnterOnOkAndNotOnSpace)
{
    open(0);
    enter(3, L"333");
    SetFocus(control(4));
    SendMessageW(control(4), WM_KEYDOWN, VK_SPACE, 0);
    SendMessageW(control(4), WM_KEYUP, VK_SPACE, 0);
    SendMessageW(control(4), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_TRUE(IsWindow(dialog));
    SendMessageW(control(4), WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x333");
}

TEST_F(ModifyCell, ClosesOnEnterOnCancel)
{
    open(0);
    enter(3, L"333");
    SendMessageW(control(5), WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x200");
}

TEST_F(ModifyCell, MakesTheFocusedButtonTheDefaultOne)
{
    open(0);
    SetFocus(control(4));
    pump_messages();
    EXPECT_EQ(GetWindowLongW(control(4), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
    SetFocus(control(5));
    pump_messages();
    EXPECT_EQ(GetWindowLongW(control(4), GWL_STYLE) & BS_TYPEMASK, BS_PUSHBUTTON);
    EXPECT_EQ(GetWindowLongW(control(5), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}

TEST_F(ModifyCell, CopesWithARowThatWasNotHit)
{
    open(-1);
    EXPECT_EQ(texts(), (Texts{L"", L"", L"", L""}));
    const BoxWatcher boxes;
    press(4);
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n668\n\n"
                    L"incorrect input parameters:\nrow = -1, counter_valid = 2\n"
                    L"line of error handler:845"}});
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, WritesNothingForARowThatTheScanDoesNotHave)
{
    const STR_ENUM_WNDS_DATA record = scan_record;
    // All of the memory the geometry lies in, which is more than its entries.
    const auto geometry = [] {
        MEMORY_BASIC_INFORMATION region{};
        VirtualQuery(scan_record.pcDynMem_GeomText, &region, sizeof region);
        const auto* bytes = static_cast<const char*>(region.BaseAddress);
        return std::string(bytes, bytes + region.RegionSize);
    };
    const std::string before = geometry();
    for (const int row : {2, 0x7FFFFFFF}) {
        SCOPED_TRACE(row);
        const ExpectedBox box{
            L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n668\n\n"
                      L"incorrect input parameters:\nrow = " +
                          std::to_wstring(row) + L", counter_valid = 2\nline of error handler:845"};
        const BoxWatcher boxes;
        open(row);
        for (int id = 0; id < 4; ++id)
            enter(id, L"77");
        EXPECT_EQ(on_Button_OK(dialog, desk.list().window(), static_cast<std::uint32_t>(row), &scan_record),
                  -3);
        press(4);
        EXPECT_TRUE(IsWindow(dialog));
        SendMessageW(control(4), WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_FALSE(IsWindow(dialog));
        boxes.expect_boxes({box, box, box});
        EXPECT_EQ(std::memcmp(&scan_record, &record, sizeof record), 0);
        EXPECT_TRUE(geometry() == before);
    }
}

TEST_F(ModifyCell, RefusesAMissingHandleOrRecord)
{
    open(0);
    const HWND list = desk.list().window();
    const auto text_for = [](const void* window, const void* list_given, const void* record) {
        return L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n642\n\n"
               L"incorrect input parameters:\nhwndThis = " +
               pointer(window) + L", hwndListView = " + pointer(list_given) + L", pSTR = " + pointer(record) +
               L"\nline of error handler:801";
    };
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(nullptr, list, 0, &scan_record), -1);
    EXPECT_EQ(on_Button_OK(dialog, nullptr, 0, &scan_record), -1);
    EXPECT_EQ(on_Button_OK(dialog, list, 0, nullptr), -1);
    boxes.expect_boxes({{L"error", text_for(nullptr, list, &scan_record)},
                        {L"error", text_for(dialog, nullptr, &scan_record)},
                        {L"error", text_for(dialog, list, nullptr)}});
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(ModifyCell, StaysOpenAfterAClickWhenTheScanIsGoneAndClosesAfterEnter)
{
    open(0);
    STR_ENUM_WNDS_DATA kept = scan_record;
    scan_record.pcDynMem_WinHndls = nullptr;
    const std::wstring text_shown =
        L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n655\n\nincorrect input "
        L"parameters:\n"
        L"pcDynMem_WinHndls = 0000000000000000, pcDynMem_GeomText = " +
        pointer(scan_record.pcDynMem_GeomText) + L"\nline of error handler:823";
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(dialog, desk.list().window(), 0, &scan_record), -2);
    press(4);
    EXPECT_TRUE(IsWindow(dialog));
    SendMessageW(control(4), WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_FALSE(IsWindow(dialog));
    boxes.expect_boxes({{L"error", text_shown}, {L"error", text_shown}, {L"error", text_shown}});
    scan_record = kept;
}

TEST_F(ModifyCell, GoesWithTheList)
{
    // As the command of the popup menu opens it.
    SendMessageW(hwnd_ScanListView, WM_COMMAND, 101, 0);
    dialog = FindWindowW(L"Modify Cell Window", nullptr);
    ASSERT_NE(dialog, nullptr);
    SendMessageW(hwnd_ScanListView, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(dialog));
}

TEST_F(ModifyCell, IgnoresDataThatIsNoCellOfAListOfItsOwn)
{
    open(0);
    struct {
        std::uint32_t row, column;
        HWND list;
    } cell{1, 2, first};
    COPYDATASTRUCT data{.dwData = 0, .cbData = sizeof cell, .lpData = &cell};
    HWND sender = hwnd_ScanListView;
    const auto send = [&] {
        return SendMessageW(dialog, WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                            reinterpret_cast<LPARAM>(&data));
    };
    EXPECT_EQ(send(), 0);
    cell.list = desk.list().window();
    data.cbData = 15;
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(SendMessageW(dialog, WM_COPYDATA, 0, 0), 0);
    data.cbData = 16;
    sender = nullptr;
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(texts(), (Texts{L"10", L"50", L"300", L"200"}));
    sender = hwnd_ScanListView;
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(texts(), (Texts{L"-20", L"60", L"200", L"150"}));
}

TEST_F(ModifyCell, ReportsEveryControlThatCannotBeMade)
{
    const wchar_t* const shown[] = {L"error <- CreateWindow() btn Ok, func WndProc",
                                    L"error <- CreateWindow(), btn Cancel, func WndProc",
                                    L"err, hEdit = NULL, func WndProc",
                                    L"err, hEdit_Ypos = NULL, func WndProc",
                                    L"err, hEdit_Width = NULL, func WndProc",
                                    L"error, hEdit_Width = NULL, func WndProc_ModifyCell"};
    for (int i = 0; i < 6; ++i) {
        // The window itself is the first call.
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", i + 2, nullptr,
                                                                                8);
        const BoxWatcher boxes;
        open(0);
        boxes.expect_boxes(
            {{L"error", shown[i]}, {L"error", L"error, SetWindowLongPtr, GWL_WNDPROC, TAB focus changing"}});
        EXPECT_EQ(boxes.boxes()[0].owner, dialog);
        EXPECT_EQ(boxes.boxes()[1].owner, dialog);
        DestroyWindow(dialog);
    }
}

TEST_F(ModifyCell, ShowsTheSystemsTextWhenItCannotBeOpened)
{
    const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", 1, nullptr, 5);
    const BoxWatcher boxes;
    open(0);
    EXPECT_EQ(dialog, nullptr);
    boxes.expect_boxes({system_error_box(5)});
}

TEST_F(ModifyCell, KeepsTheSystemFontWithoutADeviceContext)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 1, nullptr, 8);
    const BoxWatcher boxes;
    open(0);
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\nWndProc_ModifyCell\nline:\n251\n\n"
                    L"one of callable functions returned error : GetDC()\nline of error handler:547"}});
    EXPECT_EQ(SendMessageW(control(0), WM_GETFONT, 0, 0), 0);
    // No subclassing: Tab does not move the focus.
    SetFocus(control(0));
    SendMessageW(control(0), WM_KEYDOWN, VK_TAB, 0);
    EXPECT_EQ(GetFocus(), control(0));
}

TEST_F(ModifyCell, ReportsAFontThatCannotBeMade)
{
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const BoxWatcher boxes;
    open(0);
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\nWndProc_ModifyCell\nline:\n283\n\n"
                    L"one of callable functions returned error : vex_CreateFont()\n"
                    L"line of error handler:591"}});
}

TEST_F(ModifyCell, ReportsAButtonWithoutParent)
{
    open(0);
    const FailingImport<"GetParent", decltype(GetParent)> fails("user32.dll", kEveryCall, nullptr, 0);
    const BoxWatcher boxes;
    SendMessageW(control(5), WM_KEYDOWN, VK_RETURN, 0);
    boxes.expect_boxes({{L"dbg, error", L"error <- GetParent()"}});
    EXPECT_TRUE(IsWindow(dialog));
}
