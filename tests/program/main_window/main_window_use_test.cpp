#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

int count_main_windows()
{
    int count = 0;
    for (const HWND window : top_level_windows())
        count += class_of(window) == L"prg_wnds_layout" ? 1 : 0;
    return count;
}

// Runs a second copy to its end and returns the greatest number of main windows meanwhile.
int most_main_windows_during_second_copy()
{
    Background second_copy([] { EXPECT_EQ(run_second_copy(), 0u); });
    int most = 0;
    wait_until(
        [&] {
            most = std::max(most, count_main_windows());
            return second_copy.finished();
        },
        2 * kShortWait, "the second copy to end");
    second_copy.join();
    return most;
}

SIZE size_of(HWND window)
{
    const RECT rectangle = rectangle_of(window);
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

// The control's rectangle within the main window.
RECT place_of(const WendlowProcess& wendlow, int id)
{
    RECT rectangle = rectangle_of(wendlow.control(id));
    MapWindowPoints(nullptr, wendlow.main_window(), reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

bool is_same(const RECT& left, const RECT& right)
{
    return EqualRect(&left, &right) != FALSE;
}

TEST(MainWindow, SecondCopyRestoresAndActivatesTheFirst)
{
    const WendlowProcess wendlow;
    ShowWindow(wendlow.main_window(), SW_MINIMIZE);
    wait_until([&] { return IsIconic(wendlow.main_window()) != FALSE; }, kShortWait, "the minimised window");
    EXPECT_EQ(most_main_windows_during_second_copy(), 1);
    EXPECT_TRUE(becomes_true([&] { return !IsIconic(wendlow.main_window()); }));
    EXPECT_TRUE(becomes_true([&] { return GetForegroundWindow() == wendlow.main_window(); }));
}

TEST(MainWindow, SecondCopyLeavesAMaximisedFirstMaximised)
{
    const WendlowProcess wendlow;
    FixturePrograms fixtures;
    fixtures.add(L"in front");
    ShowWindow(wendlow.main_window(), SW_MAXIMIZE);
    wait_until([&] { return IsZoomed(wendlow.main_window()) != FALSE; }, kShortWait, "the maximised window");
    bring_to_front(fixtures.start(L"in front"));
    EXPECT_EQ(most_main_windows_during_second_copy(), 1);
    EXPECT_TRUE(becomes_true([&] { return GetForegroundWindow() == wendlow.main_window(); }));
    // Whatever the second copy has asked for is done then.
    wendlow.wait_until_idle();
    EXPECT_TRUE(IsZoomed(wendlow.main_window()));
}

TEST(MainWindow, SecondCopyBringsAWindowBehindOthersToTheFront)
{
    const WendlowProcess wendlow;
    FixturePrograms fixtures;
    fixtures.add(L"in front");
    bring_to_front(fixtures.start(L"in front"));
    EXPECT_EQ(most_main_windows_during_second_copy(), 1);
    EXPECT_TRUE(becomes_true([&] { return GetForegroundWindow() == wendlow.main_window(); }));
}

TEST(MainWindow, OpensAtAFractionOfTheScreenAndGetsNoSmaller)
{
    const auto width = static_cast<LONG>(0.4 * GetSystemMetrics(SM_CXSCREEN));
    const auto height = static_cast<LONG>(0.45 * GetSystemMetrics(SM_CYSCREEN));
    const WendlowProcess wendlow;
    EXPECT_EQ(title_of(wendlow.main_window()), L"Wendlow");
    EXPECT_EQ(size_of(wendlow.main_window()).cx, width);
    EXPECT_EQ(size_of(wendlow.main_window()).cy, height);
    SetWindowPos(wendlow.main_window(), nullptr, 0, 0, width + 200, height + 100, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(size_of(wendlow.main_window()).cx, width + 200);
    SetWindowPos(wendlow.main_window(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(size_of(wendlow.main_window()).cx, width);
    EXPECT_EQ(size_of(wendlow.main_window()).cy, height);
}

TEST(MainWindow, ListsFollowTheWidthButButtonsDoNot)
{
    const WendlowProcess wendlow;
    const SIZE apply = size_of(wendlow.apply_button());
    const SIZE list = size_of(wendlow.profile_combo());
    const RECT before = rectangle_of(wendlow.main_window());
    SetWindowPos(wendlow.main_window(), nullptr, 0, 0, before.right - before.left + 400,
                 before.bottom - before.top + 100, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(size_of(wendlow.apply_button()).cx, apply.cx);
    EXPECT_EQ(size_of(wendlow.apply_button()).cy, apply.cy);
    // 0.3 of what was gained; the picture takes the rest.
    EXPECT_NEAR(size_of(wendlow.profile_combo()).cx, list.cx + 120, 1);
}

TEST(MainWindow, MinimisingDoesNotMoveTheControls)
{
    const WendlowProcess wendlow;
    std::vector<RECT> before;
    for (const int id : {1, 2, 4, 5, 6})
        before.push_back(place_of(wendlow, id));
    ShowWindow(wendlow.main_window(), SW_MINIMIZE);
    wait_until([&] { return IsIconic(wendlow.main_window()) != FALSE; }, kShortWait, "the minimised window");
    wendlow.wait_until_idle();
    // A layout for the bar that is left of the window would give the lists another width.
    EXPECT_EQ(size_of(wendlow.profile_combo()).cx, before[2].right - before[2].left);
    ShowWindow(wendlow.main_window(), SW_RESTORE);
    wait_until([&] { return !IsIconic(wendlow.main_window()); }, kShortWait, "the restored window");
    wendlow.wait_until_idle();
    std::size_t i = 0;
    for (const int id : {1, 2, 4, 5, 6})
        EXPECT_TRUE(is_same(place_of(wendlow, id), before[i++])) << "control " << id;
}

// 8-bit texts of the menu are shown unconverted, two bytes to a character.
TEST(MainWindow, ReservedMenuCommandsShowTheirBoxesAndLeaveTheListsAlone)
{
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    for (const int id : {3, 4, 5, 6, 7, 8}) {
        wendlow.send_command(id);
        boxes.wait_for_box(static_cast<std::size_t>(id - 3));
        wendlow.wait_until_idle();
    }
    boxes.expect_boxes({{L"", bytes_as_wide("menu item FILE NEW")},
                        {L"", bytes_as_wide("menu item FILE OPEN")},
                        {L"", bytes_as_wide("menu item FILE SAVE")},
                        {L"", bytes_as_wide("menu item FILE SAVE AS")},
                        {L"", bytes_as_wide("menu item EXIT")},
                        {bytes_as_wide("Help"), bytes_as_wide("menu item HELP")}});
    for (const SeenBox& box : boxes.boxes())
        EXPECT_EQ(box.owner, wendlow.main_window());
    EXPECT_EQ(wendlow.combo_selection(wendlow.profile_combo()), -1);
    EXPECT_EQ(wendlow.combo_selection(wendlow.action_combo()), -1);
    EXPECT_TRUE(wendlow.is_running());
}

TEST(MainWindow, AboutIsChosenFromTheMenuWithTheMouse)
{
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    bring_to_front(wendlow.main_window());
    const RECT window = rectangle_of(wendlow.main_window());
    POINT client{};
    ClientToScreen(wendlow.main_window(), &client);
    // The menu bar stands right above the client area, its one item at the left.
    click(POINT{window.left + 24, client.y - 8});
    const SeenBox about = boxes.wait_for_box(0);
    EXPECT_EQ(about.title, L"About");
    EXPECT_TRUE(about.text.starts_with(
        L"This small software utility \"Wendlow\" is intended for keeping your folders and programs layout "
        L"organized.\n\n"));
    EXPECT_TRUE(about.text.ends_with(L"\n\nrelease date: 2020-05-18"));
}

TEST(MainWindow, EndsWithExitCode0WhateverIsOpen)
{
    FixturePrograms fixtures;
    fixtures.add(L"listed");
    fixtures.start(L"listed");
    WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.scan();
    const HWND modify_cell = wendlow.open_modify_cell(0, 2);
    wendlow.tick(L"Fixture");
    wendlow.press_create_profile();
    const HWND name = wendlow.wait_for_name_window();
    EXPECT_TRUE(IsWindow(modify_cell));
    EXPECT_TRUE(IsWindow(name));
    EXPECT_EQ(wendlow.close_and_wait(), 0u);
    boxes.expect_no_boxes();
}

TEST(MainWindow, EndsWithExitCode0WhateverIsOpenAfterALoad)
{
    FixturePrograms fixtures;
    const std::wstring program = fixtures.add(L"loaded", {.title = L"Loaded"});
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"p.txt");
    write_file(path, ProfileEncoder()
                         .add_program(20, 30, 340, 250, std::u16string(program.begin(), program.end()))
                         .name(u"Loaded")
                         .bytes());
    WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.load_profile(path);
    wendlow.scan();
    const HWND modify_cell = wendlow.open_modify_cell(wendlow.row_of(L"Loaded"), 2);
    wendlow.tick(L"Loaded");
    wendlow.press_create_profile();
    const HWND name = wendlow.wait_for_name_window();
    EXPECT_TRUE(IsWindow(wendlow.list_window()));
    EXPECT_TRUE(IsWindow(modify_cell));
    EXPECT_TRUE(IsWindow(name));
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), std::vector<std::wstring>{L"Loaded"});
    EXPECT_EQ(wendlow.close_and_wait(), 0u);
    EXPECT_TRUE(fixtures.is_running(L"loaded"));
    boxes.expect_no_boxes();
}

TEST(MainWindow, EndsWithExitCode0WhenAllElseIsClosed)
{
    WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.scan();
    wendlow.close_list_window();
    wendlow.press_load_profile();
    cancel_file_dialog(wendlow.process_id());
    wendlow.wait_until_idle();
    EXPECT_EQ(wendlow.close_and_wait(), 0u);
    boxes.expect_no_boxes();
}

} // namespace
