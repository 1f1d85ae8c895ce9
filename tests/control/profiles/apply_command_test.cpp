#include "sources/funcs_layout_windows/profiles/apply_command.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_placing.h"
#include "tests/control/fixtures/silent_windows.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/processes/fixture_programs.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;

constexpr int kMinimize = 0;
constexpr int kRestore = 1;
constexpr int kClose = 2;

std::wstring apply_text(const std::wstring& function, int site, int handler, const std::wstring& detail)
{
    return handler_first_text({L"sources/funcs_layout_windows", function, site, handler},
                              L"error, incorrect input parameters:\n" + detail);
}

// Stores a profile of these windows, without loading it, and adds its name.
void store_profile(ProfileFixture& fixture, const std::vector<HWND>& windows, const ProfileEncoder& profile,
                   const wchar_t* name)
{
    const Bytes file = profile.bytes();
    ASSERT_EQ(add_profile_data_to_DynMem(&fixture.store, windows.data(), windows.data(),
                                         static_cast<std::uint32_t>(file.size()), file.data(), 0,
                                         static_cast<std::uint32_t>(windows.size())),
              1);
    ASSERT_EQ(CB_Profile_add_string(&fixture.profiles, name, fixture.store.uiN_loaded_prfls - 1), 1);
}

std::int32_t apply(ProfileFixture& fixture, int action)
{
    fixture.select_action(action);
    return onButton_Apply_press(&fixture.profiles, &fixture.actions, &fixture.store);
}

} // namespace

TEST(Apply, AsksForAnActionBeforeAnythingElse)
{
    ProfileFixture fixture;
    BoxWatcher boxes;
    EXPECT_EQ(onButton_Apply_press(&fixture.profiles, &fixture.actions, &fixture.store), 1);
    boxes.expect_boxes({{L"info", L"There is no selected item in \"Action\" list"}});
}

TEST(Apply, AsksForAProfile)
{
    ProfileFixture fixture;
    // Filled from outside: the program's own names take the first 32 positions at most.
    for (int i = 0; i < 34; ++i)
        SendMessageW(fixture.profile_combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"not the program's"));
    for (const int position : {-1, 32, 33}) {
        for (const int action : {kMinimize, kRestore, kClose}) {
            fixture.select_profile(position);
            BoxWatcher boxes;
            EXPECT_EQ(apply(fixture, action), 1);
            boxes.expect_boxes(
                {{L"info",
                  L"There is no selected item in \"Profile\" list.\nSelect or Load at least one Profile."}});
        }
    }
    fixture.select_profile(31);
    BoxWatcher boxes;
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(combo_texts(fixture.profile_combo).size(), 34u);
}

TEST(Apply, MinimisesEveryWindowOfTheProfile)
{
    ProfileFixture fixture;
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    const TestWindow other(L"of another profile");
    store_profile(fixture, {other}, ProfileEncoder().add_program(0, 0, 9, 9, u"C:\\o.exe").name(u"other"),
                  L"other");
    store_profile(fixture, {first, second},
                  ProfileEncoder()
                      .add_program(0, 0, 9, 9, u"C:\\a.exe")
                      .add_program(0, 0, 0, 0, u"C:\\b.exe")
                      .name(u"ab"),
                  L"ab");
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    EXPECT_TRUE(becomes_iconic(first));
    EXPECT_TRUE(becomes_iconic(second));
    EXPECT_FALSE(IsIconic(other));
    EXPECT_EQ(combo_texts(fixture.profile_combo).size(), 2u);
}

TEST(Apply, RestoresToTheSavedRectangleAndLeavesWindowsSavedWithoutASizeAlone)
{
    ProfileFixture fixture;
    const TestWindow minimised(L"minimised", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    const TestWindow moved(L"moved");
    const TestWindow maximised(L"maximised", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MAXIMIZE);
    const TestWindow no_width(L"no width", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    const TestWindow no_height(L"no height");
    const std::string unmoved = place_of(no_height);
    // Five windows: every number of the file is unaligned.
    store_profile(fixture, {minimised, moved, maximised, no_width, no_height},
                  ProfileEncoder()
                      .add_program(-20, 30, 340, 250, u"C:\\a.exe")
                      .add_program(40, 50, 360, 270, u"C:\\b.exe")
                      .add_program(60, 70, 380, 290, u"C:\\c.exe")
                      .add_program(1, 2, 0, 300, u"C:\\d.exe")
                      .add_program(3, 4, 300, 0, u"C:\\e.exe")
                      .name(u"five"),
                  L"five");
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(place_once_it_is(minimised, "-20,30 340x250"), "-20,30 340x250");
    EXPECT_EQ(place_once_it_is(moved, "40,50 360x270"), "40,50 360x270");
    EXPECT_EQ(place_once_it_is(maximised, "60,70 380x290"), "60,70 380x290");
    EXPECT_FALSE(IsIconic(minimised));
    EXPECT_TRUE(IsIconic(no_width));
    EXPECT_EQ(place_of(no_height), unmoved);
}

TEST(Apply, AsksWindowsToCloseWithoutWaitingAndTakesTheNameOffTheList)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    programs.add(L"willing");
    programs.add(L"unwilling", {.refuse_close = true});
    const HWND willing = programs.start(L"willing");
    const HWND unwilling = programs.start(L"unwilling");
    const TestWindow later(L"of the next profile");
    store_profile(fixture, {willing, unwilling},
                  ProfileEncoder()
                      .add_program(0, 0, 9, 9, u"C:\\a.exe")
                      .add_program(0, 0, 9, 9, u"C:\\b.exe")
                      .name(u"ab"),
                  L"ab");
    store_profile(fixture, {later},
                  ProfileEncoder().add_program(70, 80, 300, 200, u"C:\\c.exe").name(u"next"), L"next");
    fixture.select_profile(0);
    BoxWatcher boxes;
    EXPECT_EQ(apply(fixture, kClose), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"next"});
    EXPECT_EQ(SendMessageW(fixture.profile_combo, CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 2u);
    programs.wait_for_end(L"willing");
    EXPECT_TRUE(test_support::becomes_true([&] { return FixturePrograms::close_requests(unwilling) == 1; }));
    EXPECT_EQ(FixturePrograms::awaited_close_requests(unwilling), 0);
    EXPECT_TRUE(IsWindow(unwilling));

    // The other profile's windows are still found, by the index that was raised.
    fixture.select_profile(0);
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(place_once_it_is(later, "70,80 300x200"), "70,80 300x200");
}

TEST(Apply, ActsOnTheWindowsInTheOrderOfTheirEntries)
{
    ProfileFixture fixture;
    const TestWindow a(L"a");
    const TestWindow b(L"b");
    const TestWindow c(L"c");
    const auto profile = [](const std::u16string& name) {
        return ProfileEncoder()
            .add_program(1, 2, 301, 201, u"C:\\a.exe")
            .add_program(3, 4, 302, 202, u"C:\\b.exe")
            .add_program(5, 6, 0, 203, u"C:\\none.exe")
            .add_program(7, 8, 304, 204, u"C:\\c.exe")
            .name(name);
    };
    // Neither the order of their creation nor that on the screen.
    store_profile(fixture, {c, a, nullptr, b}, profile(u"first"), L"first");
    store_profile(fixture, {b, c, a, nullptr}, profile(u"second"), L"second");
    fixture.select_profile(0);
    RecordedPlacing placing({a, b, c});
    using Calls = std::vector<std::string>;
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    EXPECT_EQ(std::exchange(placing.calls, {}), (Calls{"show 6 c", "show 6 a", "show 6 0", "show 6 b"}));
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(std::exchange(placing.calls, {}),
              (Calls{"show 9 c", "move c 1,2 301x201", "show 9 a", "move a 3,4 302x202", "show 9 b",
                     "move b 7,8 304x204"}));
    fixture.select_profile(1);
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(std::exchange(placing.calls, {}),
              (Calls{"show 9 b", "move b 1,2 301x201", "show 9 c", "move c 3,4 302x202", "show 9 0",
                     "move 0 7,8 304x204"}));
    fixture.select_profile(0);
    EXPECT_EQ(apply(fixture, kClose), 1);
    EXPECT_EQ(placing.calls, (Calls{"post 16 c", "post 16 a", "post 16 b"}));
}

TEST(Apply, TakesTheNameOffTheListAfterTheWindowsWereAsked)
{
    ProfileFixture fixture;
    const TestWindow window(L"window");
    store_profile(fixture, {window}, ProfileEncoder().add_program(0, 0, 9, 9, u"C:\\a.exe").name(u"a"), L"a");
    std::size_t names_when_asked = 0;
    const ImportHook<"PostMessageW", decltype(PostMessageW)> post("user32.dll", [&](auto...) {
        names_when_asked = combo_texts(fixture.profile_combo).size();
        return TRUE;
    });
    EXPECT_EQ(apply(fixture, kClose), 1);
    EXPECT_EQ(names_when_asked, 1u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(Apply, SucceedsWhenRestoringIsRefused)
{
    ProfileFixture fixture;
    const TestWindow window(L"window");
    store_profile(fixture, {window}, ProfileEncoder().add_program(1, 2, 301, 201, u"C:\\a.exe").name(u"a"),
                  L"a");
    std::uint8_t* const files = std::exchange(fixture.store.pc_raw_FilesProfile, nullptr);
    BoxWatcher boxes;
    EXPECT_EQ(apply(fixture, kRestore), 1);
    fixture.store.pc_raw_FilesProfile = files;
    boxes.expect_boxes({{L"error", apply_text(L"Restore_Move_Size_wnds_Profile", 10480, 10587,
                                              L"\np_LoadedProfiles_STR->pc_raw_FilesProfile")}});
}

TEST(Apply, ReachesAFolderWindowOfTheProfile)
{
    ProfileFixture fixture;
    const TestWindow folder(L"windows");
    fixture.folders.add(folder, L"C:\\windows");
    const RecordedSleeps no_pauses;
    const NothingStarts nothing;
    ASSERT_EQ(fixture.load(ProfileEncoder().add_folder(70, 80, 300, 200, u"C:\\windows").name(u"f").bytes()),
              1);
    ASSERT_EQ(fixture.stored_handle(0, 0), folder.get());
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    EXPECT_TRUE(becomes_iconic(folder));
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(place_once_it_is(folder, "70,80 300x200"), "70,80 300x200");
    EXPECT_FALSE(IsIconic(folder));
    EXPECT_EQ(apply(fixture, kClose), 1);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE));
    EXPECT_EQ(message.hwnd, folder.get());
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(Apply, PostsNoCloseToAWindowThatWasNeverFound)
{
    ProfileFixture fixture;
    const TestWindow found(L"found");
    store_profile(fixture, {nullptr, found},
                  ProfileEncoder()
                      .add_program(0, 0, 9, 9, u"C:\\a.exe")
                      .add_program(0, 0, 9, 9, u"C:\\b.exe")
                      .name(u"ab"),
                  L"ab");
    EXPECT_EQ(apply(fixture, kClose), 1);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE));
    EXPECT_EQ(message.hwnd, found.get());
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(message.lParam, 0);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE));
}

TEST(Apply, PassesOnTheHandlesOfWindowsThatAreGone)
{
    ProfileFixture fixture;
    HWND gone = nullptr;
    {
        const TestWindow window(L"soon gone");
        gone = window;
    }
    store_profile(fixture, {gone}, ProfileEncoder().add_program(0, 0, 9, 9, u"C:\\a.exe").name(u"a"), L"a");
    BoxWatcher boxes;
    for (const int action : {kMinimize, kRestore, kClose})
        EXPECT_EQ(apply(fixture, action), 1);
    boxes.expect_no_boxes();
}

TEST(Apply, TouchesNoFurtherWindowOnceTheStoreIsEmptied)
{
    for (const int action : {kMinimize, kRestore}) {
        SCOPED_TRACE(action);
        ProfileFixture fixture;
        const TestWindow first(L"first");
        const TestWindow second(L"second");
        store_profile(fixture, {first, second},
                      ProfileEncoder()
                          .add_program(10, 20, 300, 200, u"C:\\a.exe")
                          .add_program(30, 40, 310, 210, u"C:\\b.exe")
                          .name(u"ab"),
                      L"ab");
        // The main window is closed while another program's window is shown.
        std::vector<HWND> shown;
        const ImportHook<"ShowWindow", decltype(ShowWindow)> show("user32.dll", [&](HWND window, int) {
            shown.push_back(window);
            finishWork_onLoadProfile(&fixture.store);
            fixture.store = {};
            return TRUE;
        });
        BoxWatcher boxes;
        EXPECT_EQ(apply(fixture, action), 1);
        boxes.expect_no_boxes();
        EXPECT_EQ(shown, std::vector<HWND>{first});
    }
}

TEST(Apply, ShowsAndPlacesAWindowThatDoesNotAnswerWithoutWaitingForIt)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    programs.add(L"hung");
    programs.add(L"well");
    const HWND hung = programs.start(L"hung");
    const HWND well = programs.start(L"well");
    // The first window is in the profile twice.
    store_profile(fixture, {hung, well, hung},
                  ProfileEncoder()
                      .add_program(1, 2, 301, 201, u"C:\\a.exe")
                      .add_program(3, 4, 302, 202, u"C:\\b.exe")
                      .add_program(-5, 6, 303, 203, u"C:\\a.exe")
                      .name(u"aba"),
                  L"aba");
    RecordedPlacing placing({hung, well});
    SilentWindows silent({hung});
    using Calls = std::vector<std::string>;
    using Asked = std::vector<HWND>;
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    EXPECT_EQ(std::exchange(placing.calls, {}), (Calls{"later show 6 a", "show 6 b", "later show 6 a"}));
    EXPECT_EQ(std::exchange(silent.asked, {}), (Asked{hung, well}));
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(std::exchange(placing.calls, {}),
              (Calls{"later show 9 a", "later place a 1,2 301x201 with 4014", "show 9 b",
                     "move b 3,4 302x202", "later show 9 a", "later place a -5,6 303x203 with 4014"}));
    EXPECT_EQ(std::exchange(silent.asked, {}), (Asked{hung, well}));
    // Nothing waits when windows are closed.
    EXPECT_EQ(apply(fixture, kClose), 1);
    EXPECT_EQ(placing.calls, (Calls{"post 16 a", "post 16 b", "post 16 a"}));
    EXPECT_TRUE(silent.asked.empty());
}

TEST(Apply, GoesOnWhenAWindowDiesWhileItIsAsked)
{
    for (const int action : {kMinimize, kRestore}) {
        SCOPED_TRACE(action);
        ProfileFixture fixture;
        FixturePrograms programs;
        programs.add(L"frail", {.end_when_asked = true});
        const HWND frail = programs.start(L"frail");
        const TestWindow rest(L"rest");
        store_profile(fixture, {frail, rest},
                      ProfileEncoder()
                          .add_program(10, 20, 300, 200, u"C:\\a.exe")
                          .add_program(30, 40, 310, 210, u"C:\\b.exe")
                          .name(u"ab"),
                      L"ab");
        BoxWatcher boxes;
        EXPECT_EQ(apply(fixture, action), 1);
        boxes.expect_no_boxes();
        programs.wait_for_end(L"frail");
        if (action == kMinimize)
            EXPECT_TRUE(becomes_iconic(rest));
        else
            EXPECT_EQ(place_once_it_is(rest, "30,40 310x210"), "30,40 310x210");
    }
}

TEST(Apply, TouchesNoWindowOnceTheStoreIsEmptiedWhileOneIsAsked)
{
    for (const int action : {kMinimize, kRestore}) {
        SCOPED_TRACE(action);
        ProfileFixture fixture;
        FixturePrograms programs;
        programs.add(L"program", {.window_count = 3});
        programs.start(L"program");
        const std::vector<HWND> windows = programs.wait_for_windows(L"program", 3);
        store_profile(fixture, windows,
                      ProfileEncoder()
                          .add_program(10, 20, 300, 200, u"C:\\a.exe")
                          .add_program(30, 40, 310, 210, u"C:\\b.exe")
                          .add_program(50, 60, 320, 220, u"C:\\c.exe")
                          .name(u"abc"),
                      L"abc");
        const RecordedPlacing placing(windows);
        SilentWindows silent({});
        silent.while_asked = [&](HWND window) {
            if (window != windows[1])
                return;
            finishWork_onLoadProfile(&fixture.store);
            fixture.store = {};
        };
        BoxWatcher boxes;
        EXPECT_EQ(apply(fixture, action), 1);
        boxes.expect_no_boxes();
        EXPECT_EQ(silent.asked, (std::vector<HWND>{windows[0], windows[1]}));
        EXPECT_EQ(placing.calls, action == kMinimize
                                     ? std::vector<std::string>{"show 6 a"}
                                     : (std::vector<std::string>{"show 9 a", "move a 10,20 300x200"}));
    }
}

TEST(Apply, DoesNothingForAListPositionBeyondTheStore)
{
    ProfileFixture fixture;
    CB_Profile_add_string(&fixture.profiles, L"beyond", 5);
    BoxWatcher boxes;
    EXPECT_EQ(apply(fixture, kMinimize), 1);
    EXPECT_EQ(apply(fixture, kRestore), 1);
    EXPECT_EQ(combo_texts(fixture.profile_combo).size(), 1u);
    EXPECT_EQ(apply(fixture, kClose), 1);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
    boxes.expect_no_boxes();
}

TEST(Apply, RefusesMissingArgumentsNamingThem)
{
    ProfileFixture fixture;
    for (int missing = 0; missing < 3; ++missing) {
        CB_mng_STR* const profiles = missing == 0 ? nullptr : &fixture.profiles;
        const CB_Action_mng_STR* const actions = missing == 1 ? nullptr : &fixture.actions;
        const LoadedProfiles_STR* const store = missing == 2 ? nullptr : &fixture.store;
        BoxWatcher boxes;
        EXPECT_EQ(onButton_Apply_press(profiles, actions, store), -1);
        boxes.expect_boxes({{L"error", apply_text(L"onButton_Apply_press", 10278, 10402,
                                                  L"p_CB_Profile_manage_STR = " + pointer(profiles) +
                                                      L", p_CB_Action_manage_STR = " + pointer(actions) +
                                                      L", p_LoadedProfiles_STR = " + pointer(store))}});
    }
}

TEST(Apply, RestoresNothingFromAMissingStoreOrOneWithoutFiles)
{
    LoadedProfiles_STR empty{};
    {
        BoxWatcher boxes;
        EXPECT_EQ(Restore_Move_Size_wnds_Profile(nullptr, 0), -1);
        boxes.expect_boxes({{L"error", apply_text(L"Restore_Move_Size_wnds_Profile", 10472, 10560,
                                                  L"p_LoadedProfiles_STR = 0000000000000000")}});
    }
    BoxWatcher boxes;
    EXPECT_EQ(Restore_Move_Size_wnds_Profile(&empty, 0), -1);
    boxes.expect_boxes({{L"error", apply_text(L"Restore_Move_Size_wnds_Profile", 10480, 10587,
                                              L"\np_LoadedProfiles_STR->pc_raw_FilesProfile")}});
}
