#include "sources/wnd_ScanListView/move_command.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/test_window.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::ScanFixture;
using scan_tests::VanishingRowFixture;

namespace
{

constexpr wchar_t kNothingTicked[] =
    L"There are no selected items.\nSelect any item, change its position (or/and dimensions)\n"
    L"and then press button Move.";

ExpectedBox refusal_box()
{
    return {L"error", compact_text({bytes_as_wide("sources/wnd_ScanListView"), bytes_as_wide("onButton_Move"),
                                    1018, 1127},
                                   L"ERROR, incorrect input parameters")};
}

// Writes the numbers of the first row.
void give_row(const ScanFixture& fixture, const std::vector<std::wstring>& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i) {
        LVITEMW item{};
        item.iSubItem = static_cast<int>(2 + i);
        item.pszText = const_cast<wchar_t*>(texts[i].c_str());
        SendMessageW(fixture.list().window(), LVM_SETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

// One scanned window of this process with its row.
struct OneRow {
    ScanFixture fixture;
    TestWindow window{L"window", {100, 120, 420, 360}};
    Desktop desktop{{window}};

    OneRow() { fixture.scan(); }

    void give(const std::wstring& x, const std::wstring& y, const std::wstring& width,
              const std::wstring& height)
    {
        give_row(fixture, {x, y, width, height});
    }
};

std::string place_of(HWND window)
{
    pump_messages();
    const RECT rect = rectangle_of(window);
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.right - rect.left) + "x" + std::to_string(rect.bottom - rect.top);
}

// A scan of two windows, both ticked; one has gone since, the other was moved.
struct GoneAndRest {
    GoneAndRest()
    {
        const TestWindow gone(L"gone", RECT{10, 20, 310, 240});
        const Desktop desktop({gone, rest});
        fixture.scan();
        MoveWindow(rest, 300, 310, 200, 210, TRUE);
        fixture.list().set_ticked(0, true);
        fixture.list().set_ticked(1, true);
    }

    ScanFixture fixture;
    TestWindow rest{L"rest", {130, 140, 450, 380}};
};

} // namespace

TEST(MoveCommand, PlacesTickedWindowsOnlyAsTheirCellsSay)
{
    ScanFixture fixture;
    const TestWindow one(L"one", {100, 120, 420, 360});
    const TestWindow two(L"two", {130, 140, 450, 380});
    const Desktop desktop({one, two});
    fixture.scan();
    MoveWindow(one, 300, 310, 200, 210, TRUE);
    MoveWindow(two, 300, 310, 200, 210, TRUE);
    fixture.list().set_ticked(1, true);
    const BoxWatcher boxes;
    fixture.press(list_control::kMove);
    boxes.expect_no_boxes();
    EXPECT_EQ(place_of(one), "300,310 200x210");
    EXPECT_EQ(place_of(two), "130,140 320x240");
}

TEST(MoveCommand, TakesNumbersAsTheyAreWritten)
{
    OneRow row;
    row.fixture.list().set_ticked(0, true);
    row.give(L"-15", L" +20x", L"350", L"0260");
    row.fixture.press(list_control::kMove);
    EXPECT_EQ(place_of(row.window), "-15,20 350x260");
    row.give(L"25", L"-30", L"350", L"260");
    row.fixture.press(list_control::kMove);
    EXPECT_EQ(place_of(row.window), "25,-30 350x260");
    row.give(L"abc", L"", L"300", L"200"); // what is no number is 0
    row.fixture.press(list_control::kMove);
    EXPECT_EQ(place_of(row.window), "0,0 300x200");
}

TEST(MoveCommand, ReadsNineteenCharactersOfACell)
{
    OneRow row;
    row.fixture.list().set_ticked(0, true);
    // The twentieth of the first is not read; the second has nineteen.
    row.give(std::wstring(17, L'0') + L"123", std::wstring(16, L'0') + L"234",
             std::wstring(16, L' ') + L"345", std::wstring(16, L' ') + L"2567");
    row.fixture.press(list_control::kMove);
    EXPECT_EQ(place_of(row.window), "12,234 345x256");
}

TEST(MoveCommand, AsksForAnAsynchronousMoveToTheTop)
{
    OneRow row;
    row.fixture.list().set_ticked(0, true);
    const FailingImport<"ShowWindowAsync", decltype(ShowWindowAsync)> restore("user32.dll", kEveryCall, FALSE,
                                                                              0);
    int calls = 0;
    const ImportHook<"SetWindowPos", decltype(SetWindowPos)> place(
        "user32.dll", [&](HWND window, HWND after, int x, int y, int width, int height, UINT flags) -> BOOL {
            ++calls;
            EXPECT_EQ(window, static_cast<HWND>(row.window));
            EXPECT_EQ(after, nullptr);
            EXPECT_EQ(flags, 0x4040u);
            EXPECT_EQ((std::vector<int>{x, y, width, height}), (std::vector<int>{100, 120, 320, 240}));
            return TRUE;
        });
    row.fixture.press(list_control::kMove);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(restore.calls(), 0); // it is not minimised
}

TEST(MoveCommand, TreatsARowWithoutCheckBoxAsNotTicked)
{
    OneRow row;
    LVITEMW item{};
    item.stateMask = LVIS_STATEIMAGEMASK;
    SendMessageW(row.fixture.list().window(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
    const BoxWatcher boxes;
    row.fixture.press(list_control::kMove);
    boxes.expect_boxes({{L"info", kNothingTicked}});
}

TEST(MoveCommand, ShowsTheInfoBoxWhenNothingIsTicked)
{
    OneRow row;
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Move(hwnd_ScanListView, row.fixture.list().window(), 0, 0,
                            scan_record.pcDynMem_WinHndls, scan_record.counter_valid),
              1);
    boxes.expect_boxes({{L"info", kNothingTicked}});
    EXPECT_EQ(boxes.boxes()[0].owner, nullptr);
}

TEST(MoveCommand, LeavesAMinimisedWindowWithoutSizeAlone)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    ShowWindow(window, SW_MINIMIZE);
    const Desktop desktop({window});
    fixture.scan();
    ASSERT_EQ(fixture.list().cell(0, 4), L"0");
    fixture.list().set_ticked(0, true);
    const BoxWatcher boxes;
    fixture.press(list_control::kMove);
    boxes.expect_no_boxes();
    pump_messages();
    EXPECT_TRUE(IsIconic(window));
}

TEST(MoveCommand, SkipsARowWithoutWidthOrHeight)
{
    OneRow row;
    row.fixture.list().set_ticked(0, true);
    const BoxWatcher boxes;
    row.give(L"1", L"2", L"0", L"200");
    row.fixture.press(list_control::kMove);
    row.give(L"1", L"2", L"300", L"0");
    row.fixture.press(list_control::kMove);
    boxes.expect_no_boxes();
    EXPECT_EQ(place_of(row.window), "100,120 320x240");
}

TEST(MoveCommand, RestoresAMinimisedWindowThatWasGivenASize)
{
    // Of another program: Windows would place a window of this thread first, and restore it later.
    FixturePrograms programs;
    programs.add(L"program");
    const HWND window = programs.start(L"program");
    ScanFixture fixture;
    const Desktop desktop({window});
    fixture.scan();
    fixture.list().set_ticked(0, true);
    ShowWindow(window, SW_MINIMIZE);
    give_row(fixture, {L"30", L"40", L"310", L"220"});
    std::vector<int> commands;
    const ImportHook<"ShowWindowAsync", decltype(ShowWindowAsync)> restore(
        "user32.dll", [&](HWND target, int command) {
            EXPECT_EQ(target, window);
            commands.push_back(command);
            return restore.call_original(target, command);
        });
    fixture.press(list_control::kMove);
    EXPECT_EQ(commands, std::vector<int>{9}); // restore
    becomes_true_pumping([&] { return !IsIconic(window) && place_of(window) == "30,40 310x220"; });
    EXPECT_FALSE(IsIconic(window));
    EXPECT_EQ(place_of(window), "30,40 310x220");
}

TEST(MoveCommand, ReportsAWindowThatIsGoneAndMovesTheRest)
{
    GoneAndRest two;
    const ScanFixture& fixture = two.fixture;
    const TestWindow& rest = two.rest;
    const BoxWatcher boxes;
    fixture.press(list_control::kMove);
    boxes.expect_boxes({{L"error",
                         L"impossible to move one of windows:\nx = 10\ny = 20\nwidth = 300\nheight = 220\n"
                         L"Probably, it was closed. Try to SCAN again.",
                         true}});
    EXPECT_EQ(place_of(rest), "130,140 320x240");
}

TEST(MoveCommand, ReportsASlotThatWasNeverFilledAndGivenASize)
{
    VanishingRowFixture scan;
    ScanFixture& fixture = scan.fixture;
    fixture.scan();
    fixture.list().set_ticked(1, true);
    const BoxWatcher boxes;
    fixture.press(list_control::kMove);
    boxes.expect_no_boxes(); // no size yet
    wchar_t size[] = L"50";
    for (const int column : {4, 5}) {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = size;
        SendMessageW(fixture.list().window(), LVM_SETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item));
    }
    EXPECT_EQ(onButton_Move(hwnd_ScanListView, fixture.list().window(), 0, 0, scan_record.pcDynMem_WinHndls,
                            scan_record.counter_valid),
              1);
    boxes.expect_boxes({{L"error",
                         L"impossible to move one of windows:\nx = 0\ny = 0\nwidth = 50\nheight = 50\n"
                         L"Probably, it was closed. Try to SCAN again.",
                         true}});
}

TEST(MoveCommand, EndsWhenTheListIsClosedWhileItsBoxIsUp)
{
    GoneAndRest two;
    const ScanFixture& fixture = two.fixture;
    const TestWindow& rest = two.rest;
    const HWND list = fixture.list().window();
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
        "user32.dll", [&](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            DestroyWindow(hwnd_ScanListView);
            return box.call_original(owner, text, title, type);
        });
    int asked_in_vain = 0;
    const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam) {
            asked_in_vain += target == list && IsWindow(list) == FALSE ? 1 : 0;
            return send.call_original(target, message, wParam, lParam);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Move(hwnd_ScanListView, list, 0, 0, scan_record.pcDynMem_WinHndls,
                            scan_record.counter_valid),
              1);
    boxes.expect_boxes({{L"error",
                         L"impossible to move one of windows:\nx = 10\ny = 20\nwidth = 300\nheight = 220\n"
                         L"Probably, it was closed. Try to SCAN again.",
                         true}});
    EXPECT_FALSE(IsWindow(list));
    EXPECT_EQ(asked_in_vain, 0) << "the list's rows are gone, and so are the handles of its scan";
    EXPECT_EQ(place_of(rest), "300,310 200x210");
}

TEST(MoveCommand, RefusesAMissingListOrArrayWithFileAndFunctionUnreadable)
{
    OneRow row;
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Move(hwnd_ScanListView, nullptr, 0, 0, scan_record.pcDynMem_WinHndls, 1), -1);
    EXPECT_EQ(onButton_Move(hwnd_ScanListView, row.fixture.list().window(), 0, 0, nullptr, 1), -1);
    boxes.expect_boxes({refusal_box(), refusal_box()});
}

TEST(MoveCommand, IsReportedByTheListAgainWhenItFails)
{
    OneRow row;
    release_scan_blocks(&scan_record);
    const BoxWatcher boxes;
    row.fixture.press(list_control::kMove);
    boxes.expect_boxes(
        {refusal_box(),
         {L"error", compact_text({L"sources/wnd_ScanListView", L"WndProc_ScanListView", 287, 497},
                                 L"iRetCode = -1 <- onButton_Move()")}});
}
