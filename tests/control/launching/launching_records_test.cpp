#include "sources/funcs_layout_windows/launching/launching.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/windows_lookup.h"

// What a load notes of the programs that it starts, and how it tells their windows from those of programs
// that ran before.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::FixtureOptions;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::units_of;

// The launch records that a search is given, as they are when it begins.
class SeenRecords
{
public:
    std::vector<STR_InfoLoadedPrg> records;

private:
    ImportHook<"EnumWindows", decltype(EnumWindows)> hook_{
        "user32.dll", [this](WNDENUMPROC callback, LPARAM parameter) {
            // Others ask for all windows as well.
            if (callback == GetHWNDS_of_LoadedPrograms) {
                const auto* matcher = reinterpret_cast<const HWNDs_loadedPrgsProfile_STR*>(parameter);
                records.assign(matcher->pc_arr_STRs_InfoLoadedPrg,
                               matcher->pc_arr_STRs_InfoLoadedPrg + matcher->N_prgs);
            }
            return hook_.call_original(callback, parameter);
        }};
};

// The record belongs to the one process of that program and its first thread, whose handles are still open.
void expect_record_of(const STR_InfoLoadedPrg& record, std::uint32_t entry, DWORD process_id, HWND window)
{
    EXPECT_EQ(record.uiIndex_wnd, entry);
    EXPECT_EQ(record.dwProcessId, process_id);
    EXPECT_EQ(record.dwThreadId, GetWindowThreadProcessId(window, nullptr));
    EXPECT_EQ(GetProcessId(record.hProcess), process_id);
    EXPECT_EQ(GetThreadId(record.hThread), record.dwThreadId);
}

void expect_no_record(const STR_InfoLoadedPrg& record, std::uint32_t entry)
{
    EXPECT_EQ(record.uiIndex_wnd, entry);
    EXPECT_EQ(record.hProcess, nullptr);
    EXPECT_EQ(record.hThread, nullptr);
    EXPECT_EQ(record.dwProcessId, 0u);
    EXPECT_EQ(record.dwThreadId, 0u);
}

// A program that runs, in front of all windows, when a load starts another copy of it.
class CopyOfARunningProgram
{
public:
    explicit CopyOfARunningProgram(const FixtureOptions& options)
        : path_(programs_.add(L"copied", options)), running(programs_.start(L"copied")),
          place_of_running(place_of(running))
    {
        SetWindowPos(running, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    // The search begins when both windows are there, the running program's first.
    void load()
    {
        const ImportHook<"WaitForInputIdle", decltype(WaitForInputIdle)> wait(
            "user32.dll", [&](HANDLE, DWORD) {
                const std::vector<HWND> windows = programs_.wait_for_windows(L"copied", 2);
                EXPECT_EQ(windows.front(), running);
                started = windows.back();
                return DWORD{0};
            });
        BoxWatcher boxes;
        EXPECT_EQ(
            fixture.load(ProfileEncoder().add_program(40, 50, 410, 310, units_of(path_)).name(u"C").bytes()),
            1);
        boxes.expect_no_boxes();
        ASSERT_NE(started, nullptr);
        ASSERT_NE(started, running);
    }

private:
    FixturePrograms programs_;
    std::wstring path_;

public:
    ProfileFixture fixture;
    HWND running;
    std::string place_of_running;
    HWND started = nullptr;
};

} // namespace

TEST(LaunchingRecords, HoldEveryProgramEntryInOrderAndTheHandlesStayOpen)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone"};
    FixturePrograms programs;
    const std::wstring first = programs.add(L"first");
    const std::wstring last = programs.add(L"last");
    SeenRecords seen;
    BoxWatcher boxes;
    // A left edge of 1: behind the kind flags stands what looks like another program's.
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(1, 0, 9, 9, u"C:\\gone")
                               .add_program(10, 20, 300, 200, units_of(first))
                               .add_program(0, 0, 9, 9, units_of(programs.path_of(L"gone")))
                               .add({.flag = 7, .path = u"C:\\other kind"})
                               .add_program(30, 40, 310, 210, units_of(last))
                               .name(u"P")
                               .bytes()),
              1);
    EXPECT_EQ(boxes.count(), 2u); // of the folder and the program that are gone
    // As many as there are entries that are no folder; of the fourth nothing was started.
    ASSERT_EQ(seen.records.size(), 4u);
    expect_record_of(seen.records[0], 1, programs.processes_of(L"first").at(0),
                     programs.wait_for_window(L"first"));
    expect_no_record(seen.records[1], 2);
    expect_record_of(seen.records[2], 4, programs.processes_of(L"last").at(0),
                     programs.wait_for_window(L"last"));
    expect_no_record(seen.records[3], 0);
    EXPECT_EQ(fixture.stored_handle(0, 1), programs.wait_for_window(L"first"));
    EXPECT_EQ(fixture.stored_handle(0, 4), programs.wait_for_window(L"last"));
}

TEST(LaunchingRecords, PreferTheProgramThatWasStartedToOneThatRanBefore)
{
    CopyOfARunningProgram copy({});
    copy.load();
    EXPECT_EQ(copy.fixture.stored_handle(0, 0), copy.started);
    EXPECT_EQ(place_once_it_is(copy.started, "40,50 410x310"), "40,50 410x310");
    EXPECT_EQ(place_of(copy.running), copy.place_of_running);
}

TEST(LaunchingRecords, HoldOnlyTheFirstThreadOfAProgram)
{
    CopyOfARunningProgram copy({.window_of_second_thread = true});
    const std::string place_of_started = "100,120 320x240"; // as it comes up
    copy.load();
    EXPECT_EQ(copy.fixture.stored_handle(0, 0), copy.running);
    EXPECT_EQ(place_once_it_is(copy.running, "40,50 410x310"), "40,50 410x310");
    EXPECT_EQ(place_of(copy.started), place_of_started);
}

TEST(LaunchingRecords, CountForAllEntriesOfOneExecutable)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::u16string path = units_of(programs.add(L"twice"));
    SeenRecords seen;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(10, 20, 300, 200, path)
                               .add_program(40, 50, 310, 210, path)
                               .name(u"P")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    ASSERT_EQ(seen.records.size(), 2u);
    EXPECT_EQ(seen.records[0].uiIndex_wnd, 0u);
    EXPECT_EQ(seen.records[1].uiIndex_wnd, 1u);
    EXPECT_NE(seen.records[0].dwProcessId, seen.records[1].dwProcessId);
    // Whichever of the two it is, both entries have it.
    const DWORD process = test_support::process_of(fixture.stored_handle(0, 0));
    EXPECT_TRUE(std::any_of(seen.records.begin(), seen.records.end(),
                            [=](const STR_InfoLoadedPrg& record) { return record.dwProcessId == process; }));
    EXPECT_EQ(fixture.stored_handle(0, 0), fixture.stored_handle(0, 1));
}
