#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>

#include <algorithm>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/profiles/profile_loading.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"

// Which cursor the user sees while the program works, and when it waits for the user.

using namespace test_support;
using main_tests::MainWindowFixture;
using profile_tests::ProfileFixture;
using profile_tests::RecordedSleeps;
using scan_tests::Desktop;
using scan_tests::ScanFixture;

namespace
{

using Names = std::vector<std::string>;

std::string shown_cursor()
{
    const HCURSOR cursor = GetCursor();
    return cursor == LoadCursorW(nullptr, IDC_WAIT)    ? "wait"
           : cursor == LoadCursorW(nullptr, IDC_ARROW) ? "arrow"
           : cursor == LoadCursorW(nullptr, IDC_CROSS) ? "before"
                                                       : "another";
}

// The cursor after the mouse was moved over a part of a window.
std::string cursor_over(HWND below, WORD hit)
{
    SetCursor(LoadCursorW(nullptr, IDC_CROSS));
    SendMessageW(below, WM_SETCURSOR, reinterpret_cast<WPARAM>(below), MAKELPARAM(hit, WM_MOUSEMOVE));
    return shown_cursor();
}

// Message boxes that are answered at once, each with the cursor while it is up. The cursor before the work
// is one that the program never shows by itself.
class CursorsAtBoxes
{
public:
    CursorsAtBoxes() { SetCursor(LoadCursorW(nullptr, IDC_CROSS)); }
    Names cursors;

private:
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> hook_{"user32.dll", [this](auto...) {
                                                               cursors.push_back(shown_cursor());
                                                               return IDOK;
                                                           }};
};

} // namespace

TEST(WaitCursor, IsShownThroughoutAScan)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    Desktop desktop({window});
    Names seen;
    desktop.before_pass = [&](int) { seen.push_back(shown_cursor()); };
    const CursorsAtBoxes boxes;
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_EQ(seen, (Names{"wait", "wait"}));
    EXPECT_EQ(shown_cursor(), "before");
    EXPECT_TRUE(boxes.cursors.empty());
}

TEST(WaitCursor, IsTheArrowAtTheBoxesThatEndAScan)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const FailingImport<"K32GetModuleFileNameExW", DWORD WINAPI(HANDLE, HMODULE, LPWSTR, DWORD)> fails(
        "kernel32.dll", kEveryCall, 0, ERROR_PARTIAL_COPY);
    const CursorsAtBoxes boxes;
    EXPECT_EQ(fixture.scan(), -2);
    EXPECT_EQ(boxes.cursors, (Names{"arrow", "arrow", "arrow"}));
    EXPECT_EQ(shown_cursor(), "before");
}

TEST(WaitCursor, ComesBackAfterABoxThatDoesNotEndTheScan)
{
    ScanFixture fixture;
    fixture.folders.add(nullptr, L"C:\\windows");
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const CursorsAtBoxes boxes;
    Names at_list;
    const ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create(
        "user32.dll", [&](auto... arguments) {
            at_list.push_back(shown_cursor());
            return create.call_original(arguments...);
        });
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_EQ(boxes.cursors, Names{"arrow"}); // a folder window without a handle
    ASSERT_FALSE(at_list.empty());
    EXPECT_EQ(at_list.front(), "wait");
    EXPECT_EQ(shown_cursor(), "before");
}

TEST(WaitCursor, IsShownThroughoutALoadButNotAtItsBoxes)
{
    ProfileFixture fixture;
    const RecordedSleeps no_pauses;
    const CursorsAtBoxes boxes;
    Names starting;
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll", [&](auto...) {
        starting.push_back(shown_cursor());
        return FALSE;
    });
    Names placing;
    const ImportHook<"MoveWindow", decltype(MoveWindow)> place("user32.dll", [&](auto...) {
        placing.push_back(shown_cursor());
        return FALSE;
    });
    EXPECT_EQ(fixture.load(ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\gone.exe").name(u"P").bytes()),
              1);
    EXPECT_EQ(starting, Names{"wait"});
    EXPECT_EQ(boxes.cursors, Names{"arrow"}); // one program did not start
    EXPECT_EQ(placing, Names{"wait"});
    EXPECT_EQ(shown_cursor(), "before");
}

TEST(WaitCursor, IsTheArrowAtTheBoxThatEndsALoad)
{
    ProfileFixture fixture;
    const CursorsAtBoxes boxes;
    EXPECT_EQ(fixture.load(Bytes{1, 2, 3, 4}), -6);
    EXPECT_EQ(boxes.cursors, Names{"arrow"});
    EXPECT_EQ(shown_cursor(), "before");
}

TEST(WaitCursor, IsNotShownWhileTheUserChoosesAFile)
{
    ProfileFixture fixture;
    const CursorsAtBoxes boxes;
    Names seen;
    const ImportHook<"GetOpenFileNameW", decltype(GetOpenFileNameW)> choose(
        "comdlg32.dll", [&](OPENFILENAMEW*) -> BOOL {
            seen.push_back(shown_cursor());
            return FALSE;
        });
    EXPECT_EQ(onButton_LoadProfile_clicked(fixture.window, 0, nullptr, &fixture.store, &fixture.profiles), 1);
    EXPECT_EQ(seen, Names{"before"});
    EXPECT_EQ(shown_cursor(), "before");
}

// The mouse may move while the shell is asked: its calls let messages in.
TEST(WaitCursor, StaysOverTheMainWindowAndItsControlsUntilTheWorkIsDone)
{
    ScanFixture fixture;
    const MainWindowFixture main;
    const TestWindow window(L"window");
    Desktop desktop({window});
    const auto move_all_ways = [&] {
        return Names{cursor_over(main.window, HTCLIENT),
                     cursor_over(main.control(main_control::kScan), HTCLIENT),
                     cursor_over(main.window, HTLEFT)};
    };
    const Names usual = move_all_ways();
    Names seen;
    desktop.before_pass = [&](int) { seen = move_all_ways(); };
    fixture.folders.add(nullptr, L"C:\\windows");
    Names at_box;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box("user32.dll", [&](auto...) {
        at_box = move_all_ways();
        return IDOK;
    });
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_EQ(seen, (Names{"wait", "wait", usual[2]}));
    EXPECT_NE(usual[2], "wait");
    EXPECT_EQ(at_box, usual);
    EXPECT_EQ(move_all_ways(), usual);
}

namespace
{

struct WaitCursorOverOpenWindows : modify_cell_tests::ModifyCell {
};

} // namespace

// A profile may be loaded while the windows of a scan are open.
TEST_F(WaitCursorOverOpenWindows, StaysUntilALoadIsDone)
{
    open(0);
    const profile_tests::NameWindowFixture name(hwnd_ScanListView);
    const HWND list = fixture.list().window();
    const auto move_all_ways = [&] {
        Names seen;
        for (const HWND below : {GetParent(list), list, dialog, control(0), HWND{name}, name.edit()})
            seen.push_back(cursor_over(below, HTCLIENT));
        return seen;
    };
    const Names usual = move_all_ways();
    ProfileFixture profiles;
    const RecordedSleeps no_pauses;
    Names starting;
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll", [&](auto...) {
        starting = move_all_ways();
        return FALSE;
    });
    const CursorsAtBoxes boxes;
    EXPECT_EQ(profiles.load(ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\gone.exe").name(u"P").bytes()),
              1);
    EXPECT_EQ(starting, Names(6, "wait"));
    EXPECT_EQ(std::count(usual.begin(), usual.end(), "wait"), 0);
    EXPECT_EQ(move_all_ways(), usual);
}
