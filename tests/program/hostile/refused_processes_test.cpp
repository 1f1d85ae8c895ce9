#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/imports/remote_imports.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"

// Processes that the program may not open, as those of an administrator or another user.

using namespace test_support;

namespace
{

// From now on no process can be opened. The function in the place of OpenProcess answers null: these tests'
// programs have no console.
void refuse_processes(const WendlowProcess& program)
{
    RemoteImports(program.process())
        .replace({L"kernel32.dll", "OpenProcess"}, {L"kernel32.dll", "GetConsoleWindow"});
}

TEST(RefusedProcesses, LeaveAScanWithoutPaths)
{
    FixturePrograms fixtures;
    fixtures.add(L"listed", {.title = L"Listed"});
    fixtures.start(L"listed");
    const WendlowProcess wendlow;
    const int windows = wendlow.scan().row_count();
    wendlow.close_list_window();
    refuse_processes(wendlow);
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.press_scan();
    boxes.expect_boxes({{L"info", L"Number of found valid windows = " + std::to_wstring(windows) +
                                      L"\nMax length of path to valid windows = 0"}});
    EXPECT_EQ(wendlow.list_window(), nullptr);
}

TEST(RefusedProcesses, LeaveTheWindowsOfALoadUndetected)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring program = fixtures.add(L"refused", {.title = L"Refused", .x = 200, .y = 210});
    write_file(folder.file(L"p.txt"),
               ProfileEncoder().add_program(60, 70, 333, 222, units_of(program)).name(u"P").bytes());
    const WendlowProcess wendlow;
    refuse_processes(wendlow);
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.load_profile(folder.file(L"p.txt"));
    boxes.expect_boxes({{L"info", L"Not all Programs of Profile were detected after launching\n"}});
    EXPECT_EQ(fixtures.processes_of(L"refused").size(), 1u);
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), std::vector<std::wstring>{L"P"});
    // Without its window there is nothing to act on.
    wendlow.select_profile(0);
    wendlow.apply(L"Minimize");
    wendlow.apply(L"Close");
    EXPECT_TRUE(fixtures.is_running(L"refused"));
}

} // namespace
