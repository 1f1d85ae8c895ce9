#include "sources/funcs_layout_windows/launching/launching.h"

#include <gtest/gtest.h>

#include "sources/funcs_layout_windows/profiles/profile_loading.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/windows_lookup.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::ExpectedBox;
using test_support::FixtureOptions;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::SeenBox;
using test_support::StartupRecord;
using test_support::units_of;

const std::vector<DWORD> kTenPauses(10, 1000);

ExpectedBox programs_failed(const std::wstring& failed, const std::wstring& all)
{
    return {L"info", L"Not all Programs were loaded\n\nNumber of Programs failed to load = " + failed +
                         L"\nNumber of Programs in Profile = " + all +
                         L"\nPossible reasons:\nSome Programs were deleted, renamed or check your access "
                         L"permissions"};
}

ExpectedBox folders_failed(const std::wstring& failed, const std::wstring& all)
{
    return {L"info", L"Not all Directories were loaded\n\nNumber of Directories failed to load = " + failed +
                         L"\nNumber of Directories in Profile = " + all +
                         L"\nPossible reasons:\nSome Directories were deleted, renamed or check your access "
                         L"permissions"};
}

const ExpectedBox kProgramsNotDetected{L"info",
                                       L"Not all Programs of Profile were detected after launching\n"};
const ExpectedBox kFoldersNotDetected{L"info", L"Not all Folders of Profile were detected after launching\n"};

} // namespace

TEST(Launching, StartsAProgramWithItsPlaceAndMovesItThere)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::wstring path = programs.add(L"placed");
    BoxWatcher boxes;
    EXPECT_EQ(
        fixture.load(ProfileEncoder().add_program(-8, 150, 500, 300, units_of(path)).name(u"P").bytes()), 1);
    boxes.expect_no_boxes();

    const HWND window = programs.wait_for_window(L"placed");
    EXPECT_EQ(place_once_it_is(window, "-8,150 500x300"), "-8,150 500x300");
    EXPECT_EQ(fixture.stored_handle(0, 0), window);
    const StartupRecord startup = programs.startup_of(L"placed");
    EXPECT_EQ(startup.flags, 7u);
    EXPECT_EQ(startup.show_window, 5);
    EXPECT_EQ(startup.x, 0xFFFFFFF8u);
    EXPECT_EQ(startup.y, 150u);
    EXPECT_EQ(startup.width, 500u);
    EXPECT_EQ(startup.height, 300u);
}

TEST(Launching, StartsAProgramSavedWithoutASizeMinimised)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    ProfileEncoder profile;
    const std::pair<std::int32_t, std::int32_t> sizes[] = {{0, 0}, {0, 300}, {300, 0}};
    for (std::size_t i = 0; i < 3; ++i)
        profile.add_program(40, 50, sizes[i].first, sizes[i].second,
                            units_of(programs.add(L"minimised" + std::to_wstring(i))));
    EXPECT_EQ(fixture.load(profile.name(u"M").bytes()), 1);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::wstring name = L"minimised" + std::to_wstring(i);
        const StartupRecord startup = programs.startup_of(name);
        EXPECT_EQ(startup.flags, 1u);
        EXPECT_EQ(startup.show_window, 6);
        // The fixture shows itself at its usual place; the load minimises it after it was found.
        EXPECT_TRUE(becomes_iconic(programs.wait_for_window(name)));
    }
}

TEST(Launching, PassesCreateProcessThePathAloneAndWaitsFiveSecondsForEachProgram)
{
    ProfileFixture fixture;
    const RecordedSleeps sleeps;
    std::vector<std::wstring> started;
    std::vector<std::pair<HANDLE, DWORD>> waits;
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start(
        "kernel32.dll",
        [&](LPCWSTR path, LPWSTR line, LPSECURITY_ATTRIBUTES process_security,
            LPSECURITY_ATTRIBUTES thread_security, BOOL inherit, DWORD flags, LPVOID environment,
            LPCWSTR folder, LPSTARTUPINFOW startup, LPPROCESS_INFORMATION process) -> BOOL {
            started.emplace_back(path);
            EXPECT_EQ(line, nullptr);
            EXPECT_EQ(process_security, nullptr);
            EXPECT_EQ(thread_security, nullptr);
            EXPECT_EQ(inherit, FALSE);
            EXPECT_EQ(flags, 0u);
            EXPECT_EQ(environment, nullptr);
            EXPECT_EQ(folder, nullptr);
            EXPECT_EQ(startup->cb, 104u);
            EXPECT_EQ(startup->lpTitle, nullptr);
            *process = {reinterpret_cast<HANDLE>(std::uintptr_t{0x7770}), nullptr, 1, 1};
            return started.size() == 1;
        });
    const ImportHook<"WaitForInputIdle", decltype(WaitForInputIdle)> wait(
        "user32.dll", [&](HANDLE process, DWORD time) {
            waits.emplace_back(process, time);
            return DWORD{WAIT_TIMEOUT};
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(0, 0, 9, 9, u"C:\\first program.exe")
                               .add({.flag = 2, .path = u"C:\\other kind.exe"})
                               .add_program(0, 0, 9, 9, u"C:\\second.exe")
                               .name(u"P")
                               .bytes()),
              1);
    EXPECT_EQ(started, (std::vector<std::wstring>{L"C:\\first program.exe", L"C:\\second.exe"}));
    // A failed start is waited for with a null handle, whatever the call left behind.
    ASSERT_EQ(waits.size(), 2u);
    EXPECT_EQ(waits[0], std::make_pair(reinterpret_cast<HANDLE>(std::uintptr_t{0x7770}), DWORD{5000}));
    EXPECT_EQ(waits[1], std::make_pair(HANDLE{nullptr}, DWORD{5000}));
    boxes.expect_boxes({programs_failed(L"1", L"3"), kProgramsNotDetected});
    EXPECT_EQ(sleeps.pauses, kTenPauses);
}

TEST(Launching, ReportsProgramsThatAreGoneOnceAndDoesNotWaitForThem)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const RecordedSleeps sleeps;
    const std::wstring there = programs.add(L"there");
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(0, 0, 300, 200, units_of(programs.path_of(L"gone")))
                               .add_program(30, 40, 300, 200, units_of(there))
                               .name(u"P")
                               .bytes()),
              1);
    boxes.expect_boxes({programs_failed(L"1", L"2")});
    const auto seen = boxes.boxes();
    EXPECT_EQ(seen.front().owner, fixture.window.get());
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
    EXPECT_EQ(fixture.stored_handle(0, 1), programs.wait_for_window(L"there"));
    EXPECT_EQ(fixture.store.arr1D_ui_N_Programs[0], 2u);
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"P"});
}

TEST(Launching, GivesUpOnAProgramWithoutAWindowAfterTenPassesAndTenPauses)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::wstring path = programs.add(L"silent", {.no_window = true});
    const RecordedSleeps sleeps;
    int passes = 0;
    ImportHook<"EnumWindows", decltype(EnumWindows)>* original = nullptr;
    ImportHook<"EnumWindows", decltype(EnumWindows)> enumerate(
        "user32.dll", [&](WNDENUMPROC callback, LPARAM parameter) {
            ++passes;
            return original->call_original(callback, parameter);
        });
    original = &enumerate;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_program(0, 0, 9, 9, units_of(path)).name(u"S").bytes()), 1);
    boxes.expect_boxes({kProgramsNotDetected});
    EXPECT_EQ(passes, 10);
    EXPECT_EQ(sleeps.pauses, kTenPauses);
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 1u);
}

TEST(Launching, FindsAProgramWhoseWindowComesLate)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::wstring path = programs.add(L"late", {.idle_delay_milliseconds = 1500});
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_program(60, 70, 310, 210, units_of(path)).name(u"L").bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(place_once_it_is(programs.wait_for_window(L"late"), "60,70 310x210"), "60,70 310x210");
}

TEST(Launching, GivesTwoEntriesOfOneExecutableTheSameWindow)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::u16string path = units_of(programs.add(L"twice"));
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(10, 20, 300, 200, path)
                               .add_program(200, 220, 340, 240, path)
                               .name(u"T")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_NE(fixture.stored_handle(0, 0), nullptr);
    EXPECT_EQ(fixture.stored_handle(0, 0), fixture.stored_handle(0, 1));
    // Placed twice, so the later entry's rectangle stays.
    EXPECT_EQ(place_once_it_is(fixture.stored_handle(0, 1), "200,220 340x240"), "200,220 340x240");
}

TEST(Launching, OpensFoldersWithTheShell)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    fixture.folders.add(folder, L"C:\\windows");
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(11, 22, 333, 222, u"C:\\Windows").name(u"F").bytes()),
              1);
    ASSERT_EQ(starts.starts.size(), 1u);
    const auto& start = starts.starts.front();
    EXPECT_EQ(start.verb, L"open");
    EXPECT_EQ(start.path, L"C:\\Windows");
    EXPECT_EQ(start.size, 112u);
    EXPECT_EQ(start.mask, 0u);
    EXPECT_EQ(start.owner, nullptr);
    EXPECT_TRUE(start.bare);
    EXPECT_EQ(start.show, 1);
    EXPECT_EQ(fixture.stored_handle(0, 0), folder.get());
    EXPECT_EQ(place_of(folder), "11,22 333x222");
    EXPECT_EQ(fixture.store.arr1D_ui_N_Folders[0], 1u);
    EXPECT_EQ(fixture.store.arr1D_ui_N_Programs[0], 0u);
}

TEST(Launching, OpensAndPlacesARealFolderWindow)
{
    ProfileFixture fixture;
    fixture.folders.show_real_windows();
    const std::wstring folder = fixture.files.make_folder(L"real folder");
    BoxWatcher boxes;
    EXPECT_EQ(
        fixture.load(ProfileEncoder().add_folder(90, 80, 420, 320, units_of(folder)).name(u"F").bytes()), 1);
    boxes.expect_no_boxes();
    const HWND window = fixture.stored_handle(0, 0);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(place_once_it_is(window, "90,80 420x320"), "90,80 420x320");
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(test_support::becomes_true([&] { return !IsWindow(window); }));
}

TEST(Launching, SearchesTenTimesForAFolderThatNeverAppears)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    fixture.folders.claim_more(1);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"F").bytes()), 1);
    boxes.expect_boxes({kFoldersNotDetected});
    EXPECT_EQ(boxes.boxes().front().owner, fixture.window.get());
    EXPECT_EQ(fixture.folders.counts().passes, 10);
    EXPECT_EQ(sleeps.pauses, kTenPauses);
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
}

TEST(Launching, FindsAFolderThatAppearsInTheThirdPass)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    const TestWindow folder(L"folder");
    test_support::FolderWindow late;
    late.window = folder;
    late.path = L"C:\\windows";
    late.first_pass = 3;
    fixture.folders.add(late);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(5, 6, 300, 200, u"C:\\windows").name(u"F").bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(sleeps.pauses, (std::vector<DWORD>{1000, 1000}));
    EXPECT_EQ(fixture.folders.counts().interfaces_live, 0);
}

TEST(Launching, ReportsFoldersThatDoNotOpenAndDoesNotWaitForThem)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone", L"C:\\gone too"};
    const RecordedSleeps sleeps;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(0, 0, 9, 9, u"C:\\gone")
                               .add_folder(0, 0, 9, 9, u"C:\\gone too")
                               .name(u"F")
                               .bytes()),
              1);
    boxes.expect_boxes({folders_failed(L"2", L"2")});
    EXPECT_TRUE(sleeps.pauses.empty());
}

TEST(Launching, ReportsInOrderWhateverIsMissing)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone"};
    FixturePrograms programs;
    const std::wstring silent = programs.add(L"silent", {.no_window = true});
    const RecordedSleeps sleeps;
    std::vector<UINT> types;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> type(
        "user32.dll", [&](HWND owner, LPCWSTR message, LPCWSTR title, UINT box_type) {
            types.push_back(box_type);
            return type.call_original(owner, message, title, box_type);
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(0, 0, 9, 9, u"C:\\gone")
                               .add_program(0, 0, 9, 9, units_of(programs.path_of(L"gone")))
                               .add_folder(0, 0, 9, 9, u"C:\\never shown")
                               .add_program(0, 0, 9, 9, units_of(silent))
                               .name(u"All")
                               .bytes()),
              1);
    boxes.expect_boxes(
        {programs_failed(L"1", L"2"), folders_failed(L"1", L"2"), kProgramsNotDetected, kFoldersNotDetected});
    for (const SeenBox& box : boxes.boxes())
        EXPECT_EQ(box.owner, fixture.window.get()) << ::testing::PrintToString(box);
    // What was started meanwhile must not lie above them.
    EXPECT_EQ(types, std::vector<UINT>(4, MB_SETFOREGROUND));
    EXPECT_EQ(sleeps.pauses.size(), 20u);
}

TEST(Launching, RunsOnlyTheSearchesThatTheProfileNeeds)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    fixture.folders.add(folder, L"C:\\windows");
    {
        const test_support::FailingImport<"EnumWindows", decltype(EnumWindows)> enumerations(
            "user32.dll", test_support::kEveryCall, TRUE, 0);
        EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"F").bytes()),
                  1);
        EXPECT_EQ(enumerations.calls(), 0);
    }
    fixture.folders.clear();
    FixturePrograms programs;
    const std::wstring path = programs.add(L"alone");
    EXPECT_EQ(fixture.load(ProfileEncoder().add_program(0, 0, 300, 200, units_of(path)).name(u"P").bytes()),
              1);
    EXPECT_EQ(fixture.folders.counts().passes, 0);
}

TEST(Launching, FindsAWindowBesideAProgramThatDoesNotTellItsTitle)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    programs.add(L"hung", {.hang_on_get_text = true});
    programs.start(L"hung");
    const std::wstring path = programs.add(L"well");
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_program(20, 30, 300, 200, units_of(path)).name(u"W").bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(fixture.stored_handle(0, 0), programs.wait_for_window(L"well"));
}

TEST(Launching, RefusesAFolderPathThatNoSystemCallTakesWithoutOpeningAnything)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(
                  ProfileEncoder().add_folder(0, 0, 9, 9, std::u16string(40'000, u'x')).name(u"F").bytes()),
              1);
    boxes.expect_boxes({folders_failed(L"1", L"1")});
    // An empty path would open some folder of the shell's choice.
    EXPECT_TRUE(starts.starts.empty());
    EXPECT_TRUE(sleeps.pauses.empty());
    ASSERT_EQ(fixture.store.uiN_loaded_prfls, 1u);
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
}
