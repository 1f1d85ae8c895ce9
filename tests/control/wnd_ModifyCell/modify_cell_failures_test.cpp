#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <cstring>
#include <string>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/control/fixtures/screen_of_size.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

using namespace test_support;
using modify_cell_tests::ModifyCell;
using modify_cell_tests::Texts;

TEST_F(ModifyCell, ReportsAClickThatHitNoRow)
{
    open(-1);
    EXPECT_EQ(texts(), (Texts{L"", L"", L"", L""}));
    const BoxWatcher boxes;
    press(cell_control::kOk);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 668, 845},
                                 L"incorrect input parameters:\nrow = -1, counter_valid = 2")}});
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
        const ExpectedBox box{L"error", compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 668, 845},
                                                     L"incorrect input parameters:\nrow = " +
                                                         std::to_wstring(row) + L", counter_valid = 2")};
        const BoxWatcher boxes;
        open(row);
        for (int id = 0; id < 4; ++id)
            enter(id, L"77");
        EXPECT_EQ(
            on_Button_OK(dialog, fixture.list().window(), static_cast<std::uint32_t>(row), &scan_record), -3);
        press(cell_control::kOk);
        EXPECT_TRUE(IsWindow(dialog));
        SendMessageW(control(cell_control::kOk), WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_FALSE(IsWindow(dialog));
        boxes.expect_boxes({box, box, box});
        EXPECT_EQ(std::memcmp(&scan_record, &record, sizeof record), 0);
        EXPECT_TRUE(geometry() == before);
    }
}

TEST_F(ModifyCell, RefusesAMissingHandleOrRecord)
{
    open(0);
    for (int id = 0; id < 4; ++id)
        enter(id, L"77");
    const HWND list = fixture.list().window();
    const STR_ENUM_WNDS_DATA kept = scan_record;
    scan_record.pcDynMem_WinHndls = nullptr; // what is missing comes first
    const auto text_for = [](const void* window, const void* list_given, const void* record) {
        return compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 642, 801},
                            L"incorrect input parameters:\nhwndThis = " + pointer(window) +
                                L", hwndListView = " + pointer(list_given) + L", pSTR = " + pointer(record));
    };
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(nullptr, list, 0, &scan_record), -1);
    EXPECT_EQ(on_Button_OK(dialog, nullptr, 0, &scan_record), -1);
    EXPECT_EQ(on_Button_OK(dialog, list, 0, nullptr), -1);
    scan_record = kept;
    boxes.expect_boxes({{L"error", text_for(nullptr, list, &scan_record)},
                        {L"error", text_for(dialog, nullptr, &scan_record)},
                        {L"error", text_for(dialog, list, nullptr)}});
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, ReportsAMissingListAfterCheckingTheRest)
{
    open(0);
    for (int id = 0; id < 4; ++id)
        enter(id, L"77");
    // A list of this thread that is gone, and a window of another class.
    const HWND gone =
        CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD, 0, 0, 9, 9, first, nullptr, nullptr, nullptr);
    ASSERT_NE(gone, nullptr);
    DestroyWindow(gone);
    const auto box_for = [](HWND list) {
        return ExpectedBox{L"error",
                           compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 661, 834},
                                        L"the list of windows is gone:\nhwndListView = " + pointer(list))};
    };
    const STR_ENUM_WNDS_DATA kept = scan_record;
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(dialog, gone, 0, &scan_record), -4);
    EXPECT_EQ(on_Button_OK(dialog, first, 0, &scan_record), -4);
    boxes.expect_boxes({box_for(gone), box_for(first)});
    scan_record.pcDynMem_GeomText = nullptr;
    EXPECT_EQ(on_Button_OK(dialog, gone, 0, &scan_record), -2);
    scan_record = kept;
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, TreatsAnEditThatCouldNotBeCreatedAsEmpty)
{
    // The window itself and both buttons are the first calls, then come X, Y, Width and Height.
    for (int missing = 0; missing < 4; ++missing) {
        SCOPED_TRACE(missing);
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", missing + 4,
                                                                                nullptr, 8);
        const BoxWatcher boxes;
        open(0);
        EXPECT_EQ(boxes.count(), 2u);
        ASSERT_EQ(control(missing), nullptr);
        for (int id = 0; id < 4; ++id) {
            if (id != missing)
                enter(id, std::to_wstring(71 + id));
        }
        press(cell_control::kOk);
        EXPECT_EQ(boxes.count(), 2u); // and none for the edit that is not there
        EXPECT_FALSE(IsWindow(dialog));
        const char* const stored[] = {"0,72 73x74", "71,0 73x74", "71,72 0x74", "71,72 73x0"};
        EXPECT_EQ(entry(0), stored[missing]);
        // The row keeps what it showed where the edit is not there.
        const Texts before =
            missing == 0 ? Texts{L"10", L"50", L"300", L"200"} : Texts{L"71", L"72", L"73", L"74"};
        EXPECT_EQ(cells(0)[static_cast<std::size_t>(missing)], before[static_cast<std::size_t>(missing)]);
    }
}

TEST_F(ModifyCell, AppliesNothingWhenASecondOneTookItsEditsAndClosed)
{
    open(0);
    const HWND older = dialog;
    open(1);
    for (int id = 0; id < 4; ++id)
        enter(id, L"77");
    const HWND edits[] = {control(cell_control::kX), control(cell_control::kY), control(cell_control::kWidth),
                          control(cell_control::kHeight)};
    DestroyWindow(dialog);
    dialog = older;
    for (int id = 0; id < 4; ++id)
        enter(id, L"88");
    const std::wstring text_shown =
        compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 681, 867},
                     L"the edit boxes went with another window Modify Cell:\nhEdit = " + pointer(edits[0]) +
                         L", hEdit_Ypos = " + pointer(edits[1]) + L", hEdit_Width = " + pointer(edits[2]) +
                         L", hEdit_Height = " + pointer(edits[3]));
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(dialog, fixture.list().window(), 1, &scan_record), -5);
    press(cell_control::kOk);
    boxes.expect_boxes({{L"error", text_shown}, {L"error", text_shown}});
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(cells(1), (Texts{L"-20", L"60", L"200", L"150"}));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(entry(1), "-20,60 200x150");
}

TEST_F(ModifyCell, StaysOpenAfterAClickWhenTheScanIsGoneAndClosesAfterEnter)
{
    const STR_ENUM_WNDS_DATA kept = scan_record;
    for (const bool without_handles : {true, false}) {
        SCOPED_TRACE(without_handles);
        open(0);
        for (int id = 0; id < 4; ++id)
            enter(id, L"77");
        if (without_handles)
            scan_record.pcDynMem_WinHndls = nullptr;
        else
            scan_record.pcDynMem_GeomText = nullptr;
        const std::wstring text_shown = compact_text(
            {L"sources/wnd_ModifyCell", L"on_Button_OK", 655, 823},
            L"incorrect input parameters:\npcDynMem_WinHndls = " + pointer(scan_record.pcDynMem_WinHndls) +
                L", pcDynMem_GeomText = " + pointer(scan_record.pcDynMem_GeomText));
        const BoxWatcher boxes;
        EXPECT_EQ(on_Button_OK(dialog, fixture.list().window(), 0, &scan_record), -2);
        press(cell_control::kOk);
        EXPECT_TRUE(IsWindow(dialog));
        key(4, VK_RETURN);
        EXPECT_FALSE(IsWindow(dialog));
        boxes.expect_boxes({{L"error", text_shown}, {L"error", text_shown}, {L"error", text_shown}});
        scan_record = kept;
        EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
        EXPECT_EQ(entry(0), "10,50 300x200");
    }
}

TEST_F(ModifyCell, IsDestroyedWithTheList)
{
    // As the command of the popup menu opens it.
    SendMessageW(hwnd_ScanListView, WM_COMMAND, list_control::kModifyCell, 0);
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
    cell.list = fixture.list().window();
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
    const int order_of_creation[] = {4, 5, 0, 1, 2, 3};
    for (int i = 0; i < 6; ++i) {
        const int missing = order_of_creation[i];
        SCOPED_TRACE(missing);
        // The window itself is the first call.
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", i + 2, nullptr,
                                                                                8);
        const BoxWatcher boxes;
        open(0);
        boxes.expect_boxes(
            {{L"error", shown[i]}, {L"error", L"error, SetWindowLongPtr, GWL_WNDPROC, TAB focus changing"}});
        EXPECT_EQ(boxes.boxes()[0].owner, dialog);
        EXPECT_EQ(boxes.boxes()[1].owner, dialog);
        const LRESULT font = SendMessageW(control(missing == 0 ? 1 : 0), WM_GETFONT, 0, 0);
        EXPECT_NE(font, 0);
        for (int id = 0; id < 6; ++id) {
            EXPECT_EQ(control(id) != nullptr, id != missing);
            if (id == missing)
                continue;
            EXPECT_EQ(SendMessageW(control(id), WM_GETFONT, 0, 0), font);
            SetFocus(control(id));
            key(id, VK_TAB);
            const int next = (id + 1) % 6;
            if (next != missing) {
                EXPECT_EQ(GetFocus(), control(next)) << "from " << id;
            }
        }
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
    boxes.expect_boxes({{L"error", compact_text({L"sources/wnd_ModifyCell", L"WndProc_ModifyCell", 251, 547},
                                                L"one of callable functions returned error : GetDC()")}});
    expect_system_font_and_no_subclassing();
}

TEST_F(ModifyCell, KeepsTheSystemFontWhenItsTextDoesNotFit)
{
    const screen_tests::TinyScreen screen;
    const BoxWatcher boxes;
    open(0);
    screen_tests::expect_no_room_and(
        boxes, compact_text({L"sources/wnd_ModifyCell", L"WndProc_ModifyCell", 264, 569},
                            L"one of callable functions returned error : FindFontSize_fit_H_and_W()"));
    expect_system_font_and_no_subclassing();
}

TEST_F(ModifyCell, ReportsAFontThatCannotBeMade)
{
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const BoxWatcher boxes;
    open(0);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/wnd_ModifyCell", L"WndProc_ModifyCell", 283, 591},
                                 L"one of callable functions returned error : vex_CreateFont()")}});
    expect_system_font_and_no_subclassing();
}

TEST_F(ModifyCell, ReportsAButtonWithoutParent)
{
    open(0);
    for (int id = 0; id < 4; ++id)
        enter(id, L"77");
    const FailingImport<"GetParent", decltype(GetParent)> fails("user32.dll", kEveryCall, nullptr, 0);
    const BoxWatcher boxes;
    key(4, VK_RETURN);
    key(5, VK_RETURN);
    boxes.expect_boxes({{L"dbg, error", L"error <- GetParent()"}, {L"dbg, error", L"error <- GetParent()"}});
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 300x200");
}
