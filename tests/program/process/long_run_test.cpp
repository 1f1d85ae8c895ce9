#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/processes/counters.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/started_process.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// Hundreds of commands on one process: it holds afterwards what it held before, and the handles that loads
// keep, to the number.

using namespace test_support;

namespace
{

// What the system itself keeps in a process that starts a program, waits until it is ready for input and
// closes both its handles: nothing, or the event that is waited for.
std::size_t handles_kept_by_a_start(const FixturePrograms& fixtures, const std::wstring& name)
{
    std::size_t before = 0;
    for (int round = 0; round < 2; ++round) { // the first may load something that stays
        before = holdings_of(GetCurrentProcess()).handles;
        WaitForInputIdle(StartedProcess(fixtures.path_of(name)).handle(), kShortWait);
        fixtures.stop(name);
    }
    return holdings_of(GetCurrentProcess()).handles - before;
}

class LongRun : public testing::Test
{
protected:
    LongRun()
    {
        fixtures_.add(L"Neighbour", {.title = L"Neighbour"});
        fixtures_.start(L"Neighbour");
    }

    void scan_and_close() const
    {
        wendlow_.press_scan();
        wendlow_.wait_for_list_window();
        wendlow_.wait_until_idle();
        wendlow_.close_list_window();
    }

    void scan_and_tick() const
    {
        wendlow_.scan();
        wendlow_.tick(L"Neighbour");
    }

    // Opens the window for the cell that was clicked last and cancels it.
    void modify_and_cancel() const
    {
        PostMessageW(wendlow_.list_window(), WM_COMMAND, list_control::kModifyCell, 0);
        const HWND window =
            wait_for([&] { return wendlow_.modify_cell_window(); }, kShortWait, "Modify Cell");
        wendlow_.press(GetDlgItem(window, cell_control::kCancel));
        wait_until([&] { return !IsWindow(window); }, kShortWait, "Modify Cell to close");
    }

    void name_and_cancel() const
    {
        wendlow_.press_create_profile();
        const HWND window = wendlow_.wait_for_name_window();
        wendlow_.press_name_cancel();
        wait_until([&] { return !IsWindow(window); }, kShortWait, "the name window to close");
    }

    // Loads the profile by dropping it, applies all actions to it, and waits for the end of its program.
    void load_and_apply(const std::wstring& path) const
    {
        wendlow_.drop_files({path});
        wait_until([&] { return wendlow_.combo_texts(wendlow_.profile_combo()).size() == 1; }, kLongWait,
                   "the profile");
        wendlow_.wait_until_idle();
        wendlow_.select_profile(0);
        wendlow_.apply(L"Minimize");
        wendlow_.apply(L"Restore");
        wendlow_.apply(L"Close");
        fixtures_.wait_for_end(L"Loaded");
    }

    Holdings holdings() const
    {
        wendlow_.wait_until_idle();
        return holdings_of(wendlow_.process());
    }

    static void expect_flat(const Holdings& before, const Holdings& after, std::size_t handles_kept = 0,
                            std::size_t bytes_kept = 0)
    {
        SCOPED_TRACE("before: " + testing::PrintToString(before) +
                     "; after: " + testing::PrintToString(after));
        EXPECT_EQ(after.gdi_objects, before.gdi_objects);
        EXPECT_EQ(after.user_objects, before.user_objects);
        EXPECT_LE(after.handles, before.handles + handles_kept + kHandlesOfSystem);
        EXPECT_GE(after.handles + kHandlesOfSystem, before.handles + handles_kept);
        EXPECT_LE(after.private_bytes, before.private_bytes + bytes_kept + kHeapPieces_bytes);
        EXPECT_GE(after.private_bytes + kHeapPieces_bytes, before.private_bytes + bytes_kept);
    }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
};

TEST_F(LongRun, LeavesNothingBehindOnOneProcess)
{
    const std::wstring program = fixtures_.add(L"Loaded", {.title = L"Loaded"});
    const std::wstring path = folder_.file(L"profile.txt");
    write_file(path,
               ProfileEncoder().add_program(50, 60, 320, 240, units_of(program)).name(u"Office").bytes());
    const std::size_t kept_by_system = handles_kept_by_a_start(fixtures_, L"Loaded");
    const BoxWatcher boxes = wendlow_.watch_boxes();

    // What the system and its libraries set up at the first use of each.
    for (int i = 0; i < 3; ++i)
        load_and_apply(path);
    wendlow_.scan();
    wendlow_.tick(L"Neighbour");
    wendlow_.press(
        GetDlgItem(wendlow_.open_modify_cell(wendlow_.row_of(L"Neighbour"), 3), cell_control::kCancel));
    wait_until([&] { return !wendlow_.modify_cell_window(); }, kShortWait, "Modify Cell to close");
    for (int i = 0; i < 5; ++i) {
        modify_and_cancel();
        name_and_cancel();
        scan_and_close();
        scan_and_tick();
    }

    const Holdings before = holdings();
    for (int i = 0; i < 100; ++i) {
        modify_and_cancel();
        name_and_cancel();
    }
    {
        SCOPED_TRACE("a hundred dialogs of each kind");
        expect_flat(before, holdings());
    }
    for (int i = 0; i < 300; ++i)
        scan_and_close();
    scan_and_tick();
    {
        SCOPED_TRACE("and three hundred scans");
        expect_flat(before, holdings());
    }
    for (int i = 0; i < 30; ++i)
        load_and_apply(path);
    SCOPED_TRACE("and thirty loads");
    // The process and the thread of every program started stay open. The list of each drop, one page, stays
    // too under Wine: this test allocated it there.
    expect_flat(before, holdings(), (2 + kept_by_system) * 30, under_wine() ? 30 * 4096 : 0);
    boxes.expect_no_boxes();
}

} // namespace
