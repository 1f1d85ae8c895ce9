#include "sources/funcs_layout_windows/scanning/explorer_folders.h"

#include <psapi.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/test_window.h"

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::path_of_slot;
using scan_tests::RecordCopy;
using scan_tests::ScanFixture;

namespace
{

constexpr wchar_t kLongFolder[] = L"C:\\windows\\system32\\drivers";

// Three windows of this process, scanned; the folders are asked for afterwards. Their image path leaves
// room for folder paths.
struct Scanned {
    ScanFixture fixture;
    TestWindow windows[3]{TestWindow(L"one"), TestWindow(L"two"), TestWindow(L"three")};
    Desktop desktop{{windows[0], windows[1], windows[2]}};

    Scanned() { fixture.scan(); }
};

// That something was handed out, and none of it is kept or was given back twice.
void expect_released(const FolderWindowsScript& folders)
{
    const StandInCounts counts = folders.counts();
    EXPECT_GT(counts.interfaces_given, 0);
    EXPECT_EQ(counts.interfaces_live, 0);
    EXPECT_EQ(counts.released_too_often, 0);
    EXPECT_EQ(counts.id_lists_live, 0);
}

// Without windows in the list the filling pass, too, sets the fields of the folders.
void expect_fields_zeroed_when_filling()
{
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_EQ(scan_record.counter_folders, 0u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 0u);
}

} // namespace

TEST(ExplorerFolders, AreNoneWithoutFolderWindows)
{
    Scanned scanned;
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1);
    EXPECT_EQ(scan_record.counter_folders, 0u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 0u);
    expect_fields_zeroed_when_filling();
    expect_released(scanned.fixture.folders);
}

TEST(ExplorerFolders, AreCountedAndMeasuredInBytes)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows").add(scanned.windows[1], kLongFolder);
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1);
    EXPECT_EQ(scan_record.counter_folders, 2u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 54u);
}

TEST(ExplorerFolders, GiveTwoWindowsOnTheSameFolderTheSamePath)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows").add(scanned.windows[2], L"C:\\windows");
    const std::wstring middle = path_of_slot(1);
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    for (const std::uint32_t slot : {0u, 2u}) {
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[slot], 20u);
        EXPECT_EQ(path_of_slot(slot), L"C:\\windows");
    }
    EXPECT_EQ(path_of_slot(1), middle);
}

TEST(ExplorerFolders, FillEverySlotOfAWindow)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows");
    scan_record.pcDynMem_WinHndls[2] = scanned.windows[0];
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 20u);
    EXPECT_NE(scan_record.arr1D_ui_LenPath[1], 20u);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[2], 20u);
}

TEST(ExplorerFolders, OfAWindowInNoSlotAreIgnored)
{
    Scanned scanned;
    const TestWindow late(L"late");
    scanned.fixture.folders.add(late, L"C:\\windows");
    const RecordCopy before;
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_TRUE(RecordCopy() == before);
    expect_released(scanned.fixture.folders);
}

TEST(ExplorerFolders, OfTheDesktopItselfNeverReachASlot)
{
    ScanFixture fixture;
    const TestWindow desktop_window(L"Program Manager", {0, 0, 300, 200}, L"Progman");
    const TestWindow program(L"program");
    fixture.folders.add(desktop_window, kLongFolder);
    const Desktop desktop({desktop_window, program});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.counter_folders, 1u); // the shell lists it
    ASSERT_EQ(scan_record.counter_valid, 1u);
    EXPECT_EQ(scan_record.counter_filled, 1u);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[0], static_cast<HWND>(program));
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 1);
    EXPECT_EQ(path_of_slot(0), scan_tests::own_image_path());
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 2 * scan_tests::own_image_path().size());
    const RecordCopy before;
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_TRUE(RecordCopy() == before);
}

TEST(ExplorerFolders, ThatFailAtAnyStepAreSkippedAndReleased)
{
    Scanned scanned;
    for (const Missing missing : test_support::kStepsToTheFolder) {
        scanned.fixture.folders.clear();
        FolderWindow broken;
        broken.window = scanned.windows[0];
        broken.path = kLongFolder;
        broken.missing = missing;
        scanned.fixture.folders.add(broken).add(scanned.windows[1], L"C:\\windows");
        const std::wstring first = path_of_slot(0);
        const BoxWatcher boxes;
        EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1);
        EXPECT_EQ(scan_record.counter_folders, 1u) << static_cast<int>(missing);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 20u);
        EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
        EXPECT_EQ(path_of_slot(0), first) << static_cast<int>(missing);
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[1], 20u);
        boxes.expect_no_boxes();
        SCOPED_TRACE(static_cast<int>(missing));
        EXPECT_EQ(scanned.fixture.folders.counts().passes, 2);
        expect_released(scanned.fixture.folders);
    }
}

TEST(ExplorerFolders, ThatAreVirtualKeepTheirWindowAsAFolderWithoutPath)
{
    FixturePrograms programs;
    programs.add(L"explorer.exe", {.title = L"This PC"});
    FolderWindow folder;
    folder.window = programs.start(L"explorer.exe");
    folder.path = kLongFolder;
    folder.missing = Missing::kFileSystemPath;
    ScanFixture fixture;
    fixture.folders.add(folder);
    const TestWindow program(L"program");
    const Desktop desktop({folder.window, program});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.counter_filled, 2u);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[0], folder.window);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 0);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 0u);
    EXPECT_EQ(path_of_slot(0), L"");
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[1], 1);
    EXPECT_EQ(fixture.folders.counts().passes, 2);
    expect_released(fixture.folders);
}

TEST(ExplorerFolders, StopAtAWindowWithoutHandleWhenFilling)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows")
        .add(nullptr, L"C:\\windows")
        .add(scanned.windows[1], L"C:\\windows");
    const BoxWatcher boxes;
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1); // counting does not mind
    EXPECT_EQ(scan_record.counter_folders, 3u);
    boxes.expect_no_boxes();
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), -5);
    boxes.expect_boxes({{L"error", spaced_text({L"sources/funcs_layout_windows",
                                                L"GetCurrentExplorerFolders_02", 2216, 2388},
                                               L"hwnd of folder = 0000000000000000\n")}});
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 20u);
    EXPECT_NE(scan_record.arr1D_ui_LenPath[1], 20u);
    expect_released(scanned.fixture.folders);
}

TEST(ExplorerFolders, LongerThanTheLongestMeasuredPathAreLeftOut)
{
    Scanned scanned;
    for (const std::uint32_t longest_bytes : {18u, 20u}) {
        scan_record.uiMaxLen_inBytes_AllPath = longest_bytes;
        scanned.fixture.folders.clear();
        scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows");
        scan_record.arr1D_ui_LenPath[0] = 0;
        const RecordCopy before;
        EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
        EXPECT_EQ(RecordCopy() == before, longest_bytes == 18);
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], longest_bytes == 18 ? 0u : 20u);
    }
}

TEST(ExplorerFolders, ThatGrowBeyondTheLongestMeasuredPathBetweenThePassesAreLeftOut)
{
    ScanFixture fixture;
    const TestWindow window(L"folder");
    fixture.folders.clear();
    FolderWindow changing;
    changing.window = window;
    changing.path = L"C:\\";
    changing.later_from_pass = 2;
    changing.later_path = kLongFolder;
    fixture.folders.add(changing);
    const Desktop desktop({window});
    // No program path: the longest measured path is the folder's of the first pass.
    const ImportHook<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> path(
        "kernel32.dll", [&](HANDLE, HMODULE, LPWSTR buffer, DWORD) -> DWORD {
            lstrcpyW(buffer, L"C:\\windows\\explorer.exe");
            return 23;
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_AllPath, 6u);
    EXPECT_EQ(fixture.folders.counts().passes, 2);
    // The longer path is left out altogether.
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 0u);
    EXPECT_EQ(path_of_slot(0), L"");
    expect_released(fixture.folders);
}

TEST(ExplorerFolders, ClearTheRestOfASlotWhenAShorterPathFollows)
{
    Scanned scanned;
    // One window with two folders in it, as tabs are listed.
    scanned.fixture.folders.add(scanned.windows[0], kLongFolder).add(scanned.windows[0], L"C:\\windows");
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 20u);
    EXPECT_EQ(path_of_slot(0), L"C:\\windows");
}

TEST(ExplorerFolders, GoOnWithoutTheShellsListWhenCounting)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows").fail_creation(E_OUTOFMEMORY);
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    const RecordCopy before;
    const BoxWatcher boxes;
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), -1);
    boxes.expect_no_boxes();
    EXPECT_TRUE(RecordCopy() == before);
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), -4);
    boxes.expect_boxes({{L"error", spaced_text({L"sources/funcs_layout_windows",
                                                L"GetCurrentExplorerFolders_02", 2095, 2361},
                                               L"one of callable functions returned error\n\nfunction : "
                                               L"CoCreateInstance()\n\nret code hResult = -2147024882\n")}});
    EXPECT_TRUE(RecordCopy() == before);
}

TEST(ExplorerFolders, AreNoneWhenTheyCannotBeCounted)
{
    Scanned scanned;
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows").fail_count(E_FAIL);
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1);
    EXPECT_EQ(scan_record.counter_folders, 0u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 0u);
    expect_fields_zeroed_when_filling();
    expect_released(scanned.fixture.folders);
}

TEST(ExplorerFolders, RefuseANullRecord)
{
    const auto text = [](const wchar_t* function, int site, int handler) {
        return gap_text({L"sources/funcs_layout_windows", function, site, handler},
                        L"incorrect input parameters:pSTR_params = 0000000000000000");
    };
    const BoxWatcher boxes;
    EXPECT_EQ(GetCurrentExplorerFolders_01(nullptr), -1);
    EXPECT_EQ(GetCurrentExplorerFolders_02(nullptr), -1);
    boxes.expect_boxes({{L"error", text(L"GetCurrentExplorerFolders_01", 1802, 1996)},
                        {L"error", text(L"GetCurrentExplorerFolders_02", 2038, 2307)}});
}

TEST(ExplorerFolders, RefuseARecordWithAMissingBlock)
{
    Scanned scanned;
    scanned.fixture.folders.clear();
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows");
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    const RecordCopy before;
    const STR_ENUM_WNDS_DATA kept = scan_record;
    for (int block = 0; block < 3; ++block) {
        scan_record = kept;
        if (block == 0)
            scan_record.pcDynMem_WinHndls = nullptr;
        if (block == 1)
            scan_record.pcDynMem_FullPaths = nullptr;
        if (block == 2)
            scan_record.arr1D_uc_flag_FP = nullptr;
        const BoxWatcher boxes;
        EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), -1);
        boxes.expect_boxes(
            {{L"error",
              spaced_text(
                  {L"sources/funcs_layout_windows", L"GetCurrentExplorerFolders_02", 2053, 2334},
                  L"incorrect input parameters:pSTR_params->pcDynMem_WinHndls = " +
                      pointer(scan_record.pcDynMem_WinHndls) + L"\npSTR_params->pcDynMem_FullPaths = " +
                      pointer(scan_record.pcDynMem_FullPaths) + L"\npSTR_params->arr1D_uc_flag_FP = " +
                      pointer(scan_record.arr1D_uc_flag_FP))}});
        EXPECT_EQ(scan_record.counter_folders, 7u);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 7u);
    }
    scan_record = kept;
    EXPECT_TRUE(RecordCopy() == before);
    EXPECT_EQ(scanned.fixture.folders.counts().passes, 0); // the shell was not asked
}

TEST(ExplorerFolders, StoreNothingWithoutRoomForTheLengths)
{
    Scanned scanned;
    scanned.fixture.folders.clear();
    scanned.fixture.folders.add(scanned.windows[0], L"C:\\windows");
    const RecordCopy before;
    std::uint32_t* const lengths = std::exchange(scan_record.arr1D_ui_LenPath, nullptr);
    const BoxWatcher boxes;
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    scan_record.arr1D_ui_LenPath = lengths;
    boxes.expect_no_boxes();
    EXPECT_TRUE(RecordCopy() == before);
}
