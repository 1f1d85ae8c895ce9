#include "sources/funcs_layout_windows/launching/launching.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_placing.h"
#include "tests/control/fixtures/silent_windows.h"
#include "tests/support/processes/fixture_programs.h"

// The order in which a load starts, searches and places, and which window it restores.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::units_of;

} // namespace

TEST(Launching, StartsInTheOrderOfTheEntriesThenSearchesForFoldersThenForPrograms)
{
    ProfileFixture fixture;
    std::string order;
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> program("kernel32.dll", [&](auto...) {
        order += "program ";
        return FALSE;
    });
    const ImportHook<"ShellExecuteExW", decltype(ShellExecuteExW)> folder("shell32.dll", [&](auto...) {
        order += "folder ";
        return FALSE;
    });
    const ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> shell(
        "ole32.dll", [&](auto... arguments) {
            order += "shell ";
            return shell.call_original(arguments...);
        });
    const ImportHook<"EnumWindows", decltype(EnumWindows)> windows(
        "user32.dll", [&](WNDENUMPROC callback, LPARAM parameter) {
            if (callback == GetHWNDS_of_LoadedPrograms) // others ask for all windows as well
                order += "windows ";
            return windows.call_original(callback, parameter);
        });
    const BoxWatcher boxes; // tells of each kind that not all were loaded
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(0, 0, 9, 9, u"C:\\gone.exe")
                               .add_folder(0, 0, 9, 9, u"C:\\gone")
                               .add_folder(0, 0, 9, 9, u"C:\\gone too")
                               .add_program(0, 0, 9, 9, u"C:\\gone too.exe")
                               .name(u"Order")
                               .bytes()),
              1);
    EXPECT_EQ(boxes.count(), 2u);
    EXPECT_EQ(order, "program folder folder program shell windows ");
}

TEST(Launching, PlacesProgramsFirstAndRestoresTheLastOneForAMinimisedFolder)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    FixturePrograms programs;
    const TestWindow minimised(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    const TestWindow plain(L"plain folder");
    fixture.folders.add(minimised, L"C:\\windows").add(plain, L"C:\\windows\\system32");
    ASSERT_TRUE(IsIconic(minimised));
    const HWND first = [&] {
        programs.add(L"first", {.minimised = true});
        return programs.start(L"first");
    }();
    const std::u16string last_path = units_of(programs.add(L"last"));
    const HWND last = programs.start(L"last");
    ASSERT_TRUE(becomes_iconic(first));

    // The windows that are there already are found; starting more of them would only add others.
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll",
                                                                       [](auto...) { return TRUE; });
    const RecordedPlacing placing({first, last, minimised, plain});
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(1, 2, 301, 201, u"C:\\windows")
                               .add_program(3, 4, 302, 202, units_of(programs.path_of(L"first")))
                               .add_folder(5, 6, 0, 203, u"C:\\windows\\system32")
                               .add_program(7, 8, 304, 204, last_path)
                               .name(u"Order")
                               .bytes()),
              1);
    EXPECT_EQ(placing.calls,
              (std::vector<std::string>{"show 9 a", "front a", "move a 3,4 302x202", "move b 7,8 304x204",
                                        "show 9 b", "front c", "move c 1,2 301x201", "show 6 d"}));
}

TEST(Launching, PlacesAWindowThatDoesNotAnswerWithoutWaitingForIt)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    FixturePrograms programs;
    programs.add(L"minimised", {.minimised = true});
    const std::u16string minimised_path = units_of(programs.path_of(L"minimised"));
    const std::u16string small_path = units_of(programs.add(L"small"));
    const std::u16string last_path = units_of(programs.add(L"last"));
    const std::u16string folder_path = units_of(programs.folder().path());
    const HWND minimised = programs.start(L"minimised");
    const HWND small = programs.start(L"small");
    const HWND last = programs.start(L"last");
    programs.add(L"folder", {.minimised = true});
    const HWND hung_folder = programs.start(L"folder");
    const TestWindow folder(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    fixture.folders.add(hung_folder, programs.folder().path()).add(folder, L"C:\\windows");
    ASSERT_TRUE(becomes_iconic(minimised));
    ASSERT_TRUE(becomes_iconic(hung_folder));

    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll",
                                                                       [](auto...) { return TRUE; });
    const SilentWindows silent({minimised, small, last, hung_folder});
    const RecordedPlacing placing({minimised, small, last, hung_folder, folder});
    BoxWatcher boxes;
    // The last window is in the profile twice, and is restored for both minimised folders.
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(1, 2, 301, 201, minimised_path)
                               .add_program(3, 4, 0, 0, small_path)
                               .add_program(5, 6, 303, 203, last_path)
                               .add_program(7, 8, 304, 204, last_path)
                               .add_folder(9, 10, 305, 205, folder_path)
                               .add_folder(11, 12, 306, 206, u"C:\\windows")
                               .name(u"Hung")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(placing.calls, (std::vector<std::string>{
                                 "later show 9 a", "later place a 1,2 301x201 with 4014", "later show 6 b",
                                 "later place c 5,6 303x203 with 4014", "later place c 7,8 304x204 with 4014",
                                 "later show 9 c", "later place d 9,10 305x205 with 4014", "later show 9 c",
                                 "front e", "move e 11,12 306x206"}));
    EXPECT_EQ(silent.asked, (std::vector<HWND>{minimised, small, last, hung_folder}));
    EXPECT_EQ(fixture.stored_handle(0, 3), last);
}

TEST(Launching, PlacesTheOthersWhenAWindowDiesWhileItIsAsked)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::u16string frail_path = units_of(programs.add(L"frail", {.end_when_asked = true}));
    const std::u16string rest_path = units_of(programs.add(L"rest"));
    programs.start(L"frail");
    const HWND rest = programs.start(L"rest");
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll",
                                                                       [](auto...) { return TRUE; });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(1, 2, 301, 201, frail_path)
                               .add_program(3, 4, 302, 202, rest_path)
                               .name(u"Frail")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    programs.wait_for_end(L"frail");
    EXPECT_EQ(place_once_it_is(rest, "3,4 302x202"), "3,4 302x202");
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"Frail"});
}

TEST(Launching, RestoresNoWindowForAMinimisedFolderOfAProfileWithoutPrograms)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow minimised(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    fixture.folders.add(minimised, L"C:\\windows");
    const RecordedPlacing placing({minimised});
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(1, 2, 301, 201, u"C:\\windows").name(u"F").bytes()),
              1);
    EXPECT_EQ(placing.calls, (std::vector<std::string>{"show 9 0", "front a", "move a 1,2 301x201"}));
}

TEST(Launching, MinimisesAFolderSavedWithoutAWidthOrAHeight)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow no_width(L"no width");
    const TestWindow no_height(L"no height");
    const TestWindow neither(L"neither");
    const std::string unmoved = place_of(neither);
    fixture.folders.add(no_width, L"C:\\windows")
        .add(no_height, L"C:\\windows\\system32")
        .add(neither, L"C:\\");
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(1, 2, 0, 201, u"C:\\windows")
                               .add_folder(3, 4, 302, 0, u"C:\\windows\\system32")
                               .add_folder(5, 6, 0, 0, u"C:\\")
                               .name(u"F")
                               .bytes()),
              1);
    const HWND windows[] = {no_width, no_height, neither};
    for (std::uint32_t entry = 0; entry < 3; ++entry) {
        const HWND window = windows[entry];
        EXPECT_EQ(fixture.stored_handle(0, entry), window);
        EXPECT_TRUE(IsIconic(window));
        ShowWindow(window, SW_RESTORE);
        EXPECT_EQ(place_of(window), unmoved);
    }
}

// The calls are made without a window; the system refuses them.
TEST(Launching, CallsForWindowsThatWereNotFoundWithANullHandle)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone", L"C:\\gone too"};
    FixturePrograms programs;
    const TestWindow minimised(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    fixture.folders.add(minimised, L"C:\\windows");
    const std::u16string there_path = units_of(programs.add(L"there"));
    const HWND there = programs.start(L"there");
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start(
        "kernel32.dll", [](LPCWSTR path, auto...) { return wcsstr(path, L"there") != nullptr; });
    const RecordedPlacing placing({there, minimised});
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(1, 2, 301, 201, u"C:\\gone")
                               .add_program(3, 4, 302, 202, there_path)
                               .add_program(5, 6, 303, 0, u"C:\\gone.exe")
                               .add_folder(7, 8, 304, 204, u"C:\\windows")
                               .add_folder(9, 10, 0, 205, u"C:\\gone too")
                               .add_program(11, 12, 306, 206, u"C:\\gone too.exe")
                               .name(u"Some")
                               .bytes()),
              1);
    EXPECT_EQ(boxes.count(), 2u);
    // The last program has no window, so none is restored for the folder.
    EXPECT_EQ(placing.calls,
              (std::vector<std::string>{"move a 3,4 302x202", "show 6 0", "move 0 11,12 306x206",
                                        "move 0 1,2 301x201", "show 9 0", "front b", "move b 7,8 304x204",
                                        "show 6 0"}));
    for (const std::uint32_t entry : {0u, 2u, 4u, 5u})
        EXPECT_EQ(fixture.stored_handle(0, entry), nullptr);
}
