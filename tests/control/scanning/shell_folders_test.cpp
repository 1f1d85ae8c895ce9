#include "sources/funcs_layout_windows/scanning/explorer_folders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/launching/window_matching.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/test_window.h"

// Whole scans and loads over lists of folder windows as the shell gives them on a busy desktop: many,
// vanishing, without a handle, of no place on the disk. Nothing obtained on the way is kept.

using namespace test_support;
using profile_tests::ProfileFixture;
using profile_tests::RecordedFolderStarts;
using profile_tests::RecordedSleeps;
using scan_tests::Desktop;
using scan_tests::path_of_slot;
using scan_tests::ScanFixture;

namespace
{

constexpr int kPathColumn = 8;
constexpr int kManyWindows = 64;

const ExpectedBox kNoHandle{
    L"error", spaced_text({L"sources/funcs_layout_windows", L"GetCurrentExplorerFolders_02", 2216, 2388},
                          L"hwnd of folder = 0000000000000000\n")};
const ExpectedBox kFoldersNotDetected{L"info", L"Not all Folders of Profile were detected after launching\n"};

// That much was handed out, and none of it is kept or was given back twice.
void expect_released(const FolderWindowsScript& folders, int passes)
{
    const StandInCounts counts = folders.counts();
    EXPECT_EQ(counts.passes, passes);
    EXPECT_GE(counts.interfaces_given, passes);
    EXPECT_EQ(counts.interfaces_live, 0);
    EXPECT_EQ(counts.released_too_often, 0);
    EXPECT_EQ(counts.id_lists_live, 0);
}

FolderWindow folder_window(HWND window, const std::wstring& path, Missing missing = Missing::kNothing)
{
    FolderWindow folder;
    folder.window = window;
    folder.path = path;
    folder.missing = missing;
    return folder;
}

Bytes one_folder(const std::u16string& path)
{
    return ProfileEncoder().add_folder(40, 50, 410, 310, path).name(u"F").bytes();
}

// A scan of this one window lists it as the program that it is of.
void expect_listed_as_program(ScanFixture* fixture, HWND window)
{
    const Desktop desktop({window});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture->scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.counter_folders, 0u);
    EXPECT_EQ(path_of_slot(0), scan_tests::own_image_path());
    expect_released(fixture->folders, 2);
}

} // namespace

TEST(ShellFolders, GiveEachOfManyWindowsItsOwnFolder)
{
    ScanFixture fixture;
    const TemporaryFolder place;
    std::vector<std::unique_ptr<TestWindow>> windows;
    std::vector<HWND> handles;
    std::vector<std::wstring> paths;
    for (int i = 0; i < kManyWindows; ++i) {
        windows.push_back(std::make_unique<TestWindow>(L"folder " + std::to_wstring(i)));
        handles.push_back(*windows.back());
        paths.push_back(place.make_folder(L"number " + std::to_wstring(i)));
        // Listed the other way round than on the desktop.
    }
    for (int i = kManyWindows - 1; i >= 0; --i)
        fixture.folders.add(handles[static_cast<std::size_t>(i)], paths[static_cast<std::size_t>(i)]);
    const Desktop desktop(handles);
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.counter_folders, 64u);
    ASSERT_EQ(scan_record.counter_valid, 64u);
    for (std::uint32_t slot = 0; slot < scan_record.counter_valid; ++slot) {
        const auto window = std::find(handles.begin(), handles.end(), scan_record.pcDynMem_WinHndls[slot]);
        ASSERT_NE(window, handles.end());
        EXPECT_EQ(path_of_slot(slot), paths[static_cast<std::size_t>(window - handles.begin())]);
    }
    expect_released(fixture.folders, 2);
    EXPECT_EQ(fixture.folders.counts().id_lists_given, 2 * kManyWindows);
}

TEST(ShellFolders, AreMissingFromAScanOfADesktopWithoutThem)
{
    ScanFixture fixture;
    const TestWindow window(L"program");
    expect_listed_as_program(&fixture, window);
}

TEST(ShellFolders, VanishingWhileTheListIsReadAreSkipped)
{
    ScanFixture fixture;
    const TestWindow staying(L"staying");
    const TestWindow passing(L"passing");
    FolderWindow closed = folder_window(passing, L"C:\\windows\\system32");
    closed.last_pass = 1;
    fixture.folders.add(closed).add(staying, L"C:\\windows").claim_more(500);
    const Desktop desktop({staying, passing});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(path_of_slot(0), L"C:\\windows");
    EXPECT_EQ(path_of_slot(1), scan_tests::own_image_path());
    expect_released(fixture.folders, 2);
}

TEST(ShellFolders, GrowingBetweenThePassesKeepToTheirSlots)
{
    ScanFixture fixture;
    const TemporaryFolder place;
    std::wstring deep = place.path();
    for (int level = 0; level < 3; ++level) {
        deep += L"\\" + std::wstring(40, L'd');
        CreateDirectoryW(deep.c_str(), nullptr);
    }
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    FolderWindow growing = folder_window(first, L"C:\\");
    growing.later_from_pass = 2;
    growing.later_path = deep;
    fixture.folders.add(growing).add(second, L"C:\\windows");
    const Desktop desktop({first, second});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    // The longest path of the first pass is this program's own; nothing longer is stored.
    const std::wstring own = scan_tests::own_image_path();
    ASSERT_LT(own.size(), deep.size());
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_AllPath, own.size() * 2);
    EXPECT_EQ(path_of_slot(0), own);
    EXPECT_EQ(path_of_slot(1), L"C:\\windows");
    expect_released(fixture.folders, 2);
}

TEST(ShellFolders, WithoutAHandleEndTheFillingOfTheList)
{
    ScanFixture fixture;
    const TestWindow before(L"before");
    const TestWindow after(L"after");
    const Desktop desktop({before, after});
    for (const Missing missing : {Missing::kNothing, Missing::kWindowHandle}) {
        SCOPED_TRACE(static_cast<int>(missing));
        fixture.folders.clear();
        fixture.folders.add(before, L"C:\\windows")
            .add(folder_window(missing == Missing::kNothing ? nullptr : HWND{after}, L"C:\\windows", missing))
            .add(after, L"C:\\windows");
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), 1); // the list opens all the same
        boxes.expect_boxes({kNoHandle});
        EXPECT_EQ(path_of_slot(0), L"C:\\windows");
        EXPECT_EQ(path_of_slot(1), scan_tests::own_image_path());
        EXPECT_EQ(fixture.list().row_count(), 2);
        expect_released(fixture.folders, 2);
    }
}

TEST(ShellFolders, OfTheShellsOwnAreListedAsPrograms)
{
    ScanFixture fixture;
    const TestWindow window(L"This PC");
    fixture.folders.add(folder_window(window, L"", Missing::kFileSystemPath));
    expect_listed_as_program(&fixture, window);
}

TEST(ShellFolders, AreFoundAmongManyOthersByALoad)
{
    ProfileFixture fixture;
    const RecordedFolderStarts starts;
    const TemporaryFolder place;
    std::vector<std::unique_ptr<TestWindow>> others;
    const TestWindow wanted(L"wanted");
    for (int i = 0; i < kManyWindows - 1; ++i) {
        if (i == 40)
            fixture.folders.add(wanted, L"C:\\windows");
        others.push_back(std::make_unique<TestWindow>(L"other", WS_OVERLAPPEDWINDOW));
        fixture.folders.add(*others.back(), place.make_folder(std::to_wstring(i)));
    }
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.load(one_folder(u"C:\\windows")), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(fixture.stored_handle(0, 0), wanted.get());
    EXPECT_EQ(profile_tests::place_of(wanted), "40,50 410x310");
    expect_released(fixture.folders, 1);
}

TEST(ShellFolders, ThatNeverTellTheirFolderAreSearchedForTenTimes)
{
    ProfileFixture fixture;
    const RecordedFolderStarts starts;
    const TestWindow window(L"folder");
    const std::string place = profile_tests::place_of(window);
    std::vector<Missing> steps{Missing::kNothing, Missing::kWindowHandle};
    steps.insert(steps.end(), std::begin(test_support::kStepsToTheFolder),
                 std::end(test_support::kStepsToTheFolder));
    for (const Missing missing : steps) {
        SCOPED_TRACE(static_cast<int>(missing));
        const RecordedSleeps sleeps;
        fixture.folders.clear();
        fixture.folders.add(
            folder_window(missing == Missing::kNothing ? nullptr : window.get(), L"C:\\windows", missing));
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.load(one_folder(u"C:\\windows")), 1);
        boxes.expect_boxes({kFoldersNotDetected});
        EXPECT_EQ(fixture.stored_handle(fixture.store.uiN_loaded_prfls - 1, 0), nullptr);
        EXPECT_EQ(profile_tests::place_of(window), place);
        EXPECT_EQ(sleeps.pauses, std::vector<DWORD>(10, 1000));
        expect_released(fixture.folders, 10);
    }
}

TEST(ShellFolders, ThatComeAndGoWhileALoadSearchesAreStillPlaced)
{
    ProfileFixture fixture;
    const RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    const TestWindow window(L"folder");
    FolderWindow late = folder_window(window, L"C:\\windows");
    late.first_pass = 3;
    fixture.folders.add(late).claim_more(3);
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.load(one_folder(u"C:\\windows")), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(profile_tests::place_of(window), "40,50 410x310");
    EXPECT_EQ(sleeps.pauses, std::vector<DWORD>(2, 1000));
    expect_released(fixture.folders, 3);
}

TEST(ShellFolders, OpenedByALoadAreFoundAndPlacedEachAtItsOwnRectangle)
{
    ProfileFixture fixture;
    fixture.folders.show_real_windows();
    const std::wstring first = fixture.files.make_folder(L"first of two");
    const std::wstring second = fixture.files.make_folder(L"second of two");
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(60, 70, 420, 320, units_of(first))
                               .add_folder(160, 170, 430, 330, units_of(second))
                               .name(u"F")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    const HWND windows[] = {fixture.stored_handle(0, 0), fixture.stored_handle(0, 1)};
    EXPECT_EQ(profile_tests::place_once_it_is(windows[0], "60,70 420x320"), "60,70 420x320");
    EXPECT_EQ(profile_tests::place_once_it_is(windows[1], "160,170 430x330"), "160,170 430x330");
    const StandInCounts counts = fixture.folders.counts();
    EXPECT_EQ(counts.interfaces_live, 0);
    EXPECT_EQ(counts.released_too_often, 0);
    EXPECT_EQ(counts.id_lists_live, 0);
    for (const HWND window : windows) {
        PostMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(becomes_true([&] { return !IsWindow(window); }));
    }
}
