#include "sources/funcs_layout_windows/launching/launching.h"

#include <gtest/gtest.h>

#include <utility>

#include "sources/funcs_layout_windows/profiles/apply_command.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_blocks.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/basics/text.h"
#include "tests/support/windows/windows_lookup.h"

// Loads during which memory runs out, or the main window or a window that was found is closed.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::bytes_as_wide;
using test_support::FailingImport;
using test_support::ImportHook;
using test_support::kEveryCall;
using test_support::own_image_path;
using test_support::ProfileEncoder;
using test_support::units_of;

constexpr wchar_t kFile[] = L"sources/funcs_layout_windows";

// Programs that are said to have been started, or to have failed, without being started.
class PretendedPrograms
{
public:
    int count = 0;
    BOOL answer = TRUE;

private:
    ImportHook<"CreateProcessW", decltype(CreateProcessW)> hook_{"kernel32.dll", [this](auto...) {
                                                                     ++count;
                                                                     return answer;
                                                                 }};
};

// A load in the course of which the main window is closed, as the user does it while one of the system's own
// boxes is on the screen: its windows are destroyed and its store is emptied.
struct ClosedInTheMiddle {
    void close_main_window()
    {
        DestroyWindow(fixture.window);
        finishWork_onLoadProfile(&fixture.store);
        fixture.store = {};
    }
    // Ends with the result of a load that was given up, without a box and with nothing stored.
    void load(const ProfileEncoder& profile)
    {
        const Bytes file = profile.bytes();
        BoxWatcher boxes;
        EXPECT_EQ(fixture.load(file), 1);
        boxes.expect_no_boxes();
        EXPECT_FALSE(IsWindow(fixture.window));
        EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
        EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    }

    ProfileFixture fixture;
    PretendedPrograms programs;
};

} // namespace

TEST(Launching, EndsTheLoadWhenTheFoldersCannotBeChecked)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    const std::string unmoved = place_of(folder);
    fixture.folders.add(folder, L"C:\\windows");
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"F").bytes();
    // The second block is the one for the folder windows: nobody tests it before the search does.
    const RecordedBlocks blocks(2);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), -15);
    ASSERT_EQ(blocks.taken.size(), 9u);
    const std::wstring bytes = pointer(blocks.taken[0]);
    boxes.expect_boxes(
        {{L"error", spaced_text({bytes_as_wide("sources/funcs_layout_windows"),
                                 bytes_as_wide("GetHWNDS_of_LoadedFolders"), 7698, 7976},
                                L"incorrect input parameters: pcFileData = " + bytes +
                                    L", p_arr1D_hwnd = 0000000000000000")},
         {L"error", gap_text({kFile, L"check_folders_loaded", 9337, 9460},
                             L"incorrect input parameters: pcFileData = " + bytes +
                                 L", pc_arr1D_hwnd = 0000000000000000, uiN_wnds = 1")},
         {L"error", gap_text({kFile, L"onButton_LoadProfile_clicked", 6147, 7383},
                             L"error, one of callable functions returned error, check_folders_loaded()")}});
    EXPECT_EQ(starts.starts.size(), 1u);
    EXPECT_EQ(fixture.folders.counts().passes, 0);
    EXPECT_EQ(place_of(folder), unmoved);
    EXPECT_TRUE(blocks.given_back.empty());
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(Launching, StartsNothingMoreOnceTheMainWindowIsClosed)
{
    ClosedInTheMiddle closed;
    int opened = 0;
    const ImportHook<"ShellExecuteExW", BOOL(SHELLEXECUTEINFOW*)> open("shell32.dll",
                                                                       [&](SHELLEXECUTEINFOW*) {
                                                                           ++opened;
                                                                           closed.close_main_window();
                                                                           return FALSE;
                                                                       });
    const FailingImport<"EnumWindows", decltype(EnumWindows)> enumerations("user32.dll", kEveryCall, TRUE, 0);
    const RecordedSleeps sleeps;
    closed.load(ProfileEncoder()
                    .add_folder(0, 0, 9, 9, u"C:\\gone")
                    .add_program(0, 0, 9, 9, u"C:\\a.exe")
                    .add_folder(0, 0, 9, 9, u"C:\\windows")
                    .name(u"P"));
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(closed.programs.count, 0);
    EXPECT_EQ(closed.fixture.folders.counts().passes, 0);
    EXPECT_EQ(enumerations.calls(), 0);
    EXPECT_TRUE(sleeps.pauses.empty());
}

// The main window uninitialises COM when it is closed, and opening a folder lets that in.
TEST(Launching, HoldsComWhileAFolderIsOpened)
{
    ProfileFixture fixture;
    const RecordedSleeps no_pauses;
    std::vector<bool> held;
    const ImportHook<"ShellExecuteExW", BOOL(SHELLEXECUTEINFOW*)> open(
        "shell32.dll", [&](SHELLEXECUTEINFOW*) {
            held.push_back(test_support::com_outlives_its_owner());
            return FALSE;
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\gone").name(u"F").bytes()), 1);
    EXPECT_EQ(held, std::vector<bool>{true});
}

TEST(Launching, SearchesNoMoreOnceTheMainWindowIsClosed)
{
    struct {
        const char* what;
        ProfileEncoder profile;
        int folder_passes;
        int program_passes;
    } const rows[] = {
        {"among the searches for folders",
         ProfileEncoder()
             .add_folder(0, 0, 9, 9, u"C:\\never shown")
             .add_program(0, 0, 9, 9, u"C:\\a.exe")
             .name(u"F"),
         1, 0},
        {"among the searches for programs", ProfileEncoder().add_program(0, 0, 9, 9, u"C:\\a.exe").name(u"P"),
         0, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ClosedInTheMiddle closed;
        RecordedFolderStarts starts;
        const FailingImport<"EnumWindows", decltype(EnumWindows)> enumerations("user32.dll", kEveryCall, TRUE,
                                                                               0);
        int pauses = 0;
        const ImportHook<"Sleep", decltype(Sleep)> pause("kernel32.dll", [&](DWORD) {
            if (++pauses == 1)
                closed.close_main_window();
        });
        closed.load(row.profile);
        EXPECT_EQ(pauses, 1);
        EXPECT_EQ(closed.fixture.folders.counts().passes, row.folder_passes);
        EXPECT_EQ(enumerations.calls(), row.program_passes);
    }
}

TEST(Launching, ReportsAndPlacesNothingOnceTheMainWindowIsClosed)
{
    ClosedInTheMiddle closed;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone"}; // of which a box would tell
    const TestWindow program(L"program");
    const std::string unmoved = place_of(program);
    const ImportHook<"EnumWindows", decltype(EnumWindows)> enumerate(
        "user32.dll", [&](WNDENUMPROC callback, LPARAM parameter) {
            callback(program, parameter);
            closed.close_main_window();
            return TRUE;
        });
    closed.load(ProfileEncoder()
                    .add_folder(0, 0, 9, 9, u"C:\\gone")
                    .add_program(5, 6, 310, 210, units_of(own_image_path()))
                    .name(u"P"));
    EXPECT_EQ(place_of(program), unmoved);
}

TEST(Launching, ShowsNoFurtherBoxAndStoresNothingWhenTheMainWindowIsClosedAtABox)
{
    ClosedInTheMiddle closed;
    closed.programs.answer = FALSE;
    RecordedFolderStarts starts;
    starts.failing = {L"C:\\gone"};
    const TestWindow folder(L"folder");
    closed.fixture.folders.add(folder, L"C:\\windows");
    // The first box goes with the main window. Others come up if the system lets them.
    bool told = false;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> tell(
        "user32.dll", [&](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            EXPECT_EQ(owner, closed.fixture.window.get());
            if (std::exchange(told, true))
                return tell.call_original(owner, text, title, type);
            closed.close_main_window();
            return 0;
        });
    closed.load(ProfileEncoder()
                    .add_program(0, 0, 9, 9, u"C:\\a.exe")
                    .add_folder(0, 0, 9, 9, u"C:\\gone")
                    .add_folder(5, 6, 310, 210, u"C:\\windows")
                    .name(u"F"));
    EXPECT_TRUE(told);
    EXPECT_EQ(place_of(folder), "5,6 310x210");
}

TEST(Launching, StoresNothingWhenTheMainWindowIsClosedWhileTheWindowsArePlaced)
{
    ClosedInTheMiddle closed;
    RecordedFolderStarts starts;
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    closed.fixture.folders.add(first, L"C:\\windows").add(second, L"C:\\windows\\system32");
    const ImportHook<"MoveWindow", decltype(MoveWindow)> move(
        "user32.dll", [&](HWND window, int x, int y, int width, int height, BOOL repaint) {
            if (IsWindow(closed.fixture.window))
                closed.close_main_window();
            return move.call_original(window, x, y, width, height, repaint);
        });
    closed.load(ProfileEncoder()
                    .add_folder(5, 6, 310, 210, u"C:\\windows")
                    .add_folder(7, 8, 320, 220, u"C:\\windows\\system32")
                    .name(u"F"));
    EXPECT_EQ(place_of(first), "5,6 310x210");
    EXPECT_EQ(place_of(second), "7,8 320x220");
}

TEST(Launching, PlacesTheOthersWhenAWindowIsGoneBeforeItsTurn)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow first(L"first");
    const TestWindow gone(L"gone");
    const TestWindow last(L"last");
    fixture.folders.add(first, L"C:\\windows").add(gone, L"C:\\windows\\system32").add(last, L"C:\\");
    const ImportHook<"MoveWindow", decltype(MoveWindow)> move(
        "user32.dll", [&](HWND window, int x, int y, int width, int height, BOOL repaint) {
            DestroyWindow(gone);
            return move.call_original(window, x, y, width, height, repaint);
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(10, 20, 310, 210, u"C:\\windows")
                               .add_folder(30, 40, 320, 220, u"C:\\windows\\system32")
                               .add_folder(50, 60, 330, 230, u"C:\\")
                               .name(u"F")
                               .bytes()),
              1);
    EXPECT_EQ(place_of(first), "10,20 310x210");
    EXPECT_EQ(place_of(last), "50,60 330x230");
    EXPECT_EQ(fixture.stored_handle(0, 1), gone.get());
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"F"});

    // Minimize, Restore, Close.
    for (const int action : {0, 1, 2}) {
        fixture.select_action(action);
        EXPECT_EQ(onButton_Apply_press(&fixture.profiles, &fixture.actions, &fixture.store), 1);
        EXPECT_EQ(IsIconic(first), action == 0);
        EXPECT_EQ(IsIconic(last), action == 0);
    }
    boxes.expect_no_boxes();
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(Launching, SearchesAgainWhenAnImagePathCouldNotBeQueried)
{
    ProfileFixture fixture;
    const PretendedPrograms programs;
    const RecordedSleeps sleeps;
    const TestWindow program(L"program");
    const Bytes file =
        ProfileEncoder().add_program(5, 6, 310, 210, units_of(own_image_path())).name(u"P").bytes();
    const FailingImport<"K32GetModuleFileNameExW", DWORD WINAPI(HANDLE, HMODULE, LPWSTR, DWORD)> fails(
        "kernel32.dll", 1, 0, ERROR_PARTIAL_COPY);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), 1);
    boxes.expect_boxes({{L"error", compact_text({kFile, L"GetHWNDS_of_LoadedPrograms", 8405, 8713},
                                                L"ERROR <- GetModuleFileNameEx()")}});
    EXPECT_EQ(sleeps.pauses, std::vector<DWORD>{1000});
    EXPECT_EQ(fixture.stored_handle(0, 0), program.get());
    EXPECT_EQ(place_of(program), "5,6 310x210");
}
