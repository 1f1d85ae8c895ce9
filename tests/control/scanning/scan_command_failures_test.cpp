#include "sources/funcs_layout_windows/scanning/scan_command.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <cstring>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/test_window.h"

// Scans that come to nothing: what is shown, and what of the record stays behind.

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::ScanFixture;

namespace
{

std::wstring scan_text(int line, const std::wstring& detail, int handler)
{
    return compact_text({L"sources/funcs_layout_windows", L"onButton_Scan_Clicked", line, handler}, detail);
}

// The record's blocks in the order in which a scan obtains them; the first is the path buffer.
std::vector<LPVOID> blocks()
{
    return {scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.arr1D_ui_LenPath,
            scan_record.arr1D_uc_flag_FP,         scan_record.pcDynMem_GeomText,
            scan_record.pcDynMem_WinHndls,        scan_record.pcDynMem_FullPaths};
}

// That the first `held` blocks are there and the others are not.
void expect_blocks_held(std::size_t held)
{
    const std::vector<LPVOID> found = blocks();
    for (std::size_t block = 0; block < found.size(); ++block)
        EXPECT_EQ(found[block] != nullptr, block < held) << "block " << block;
}

} // namespace

TEST(ScanCommand, ShowsTheInfoBoxWhenNoPathCanBeRead)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow two(L"two");
    const Desktop desktop({one, two});
    const FailingImport<"OpenProcess", decltype(OpenProcess)> no_process("kernel32.dll", kEveryCall, nullptr,
                                                                         ERROR_ACCESS_DENIED);
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    boxes.expect_boxes(
        {{L"info", L"Number of found valid windows = 2\nMax length of path to valid windows = 0"}});
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    EXPECT_EQ(scan_record.counter_valid, 2u);
    expect_blocks_held(1);
}

TEST(ScanCommand, ShowsTheInfoBoxWhenThereIsNoWindow)
{
    ScanFixture fixture;
    const Desktop desktop({});
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    boxes.expect_boxes(
        {{L"info", L"Number of found valid windows = 0\nMax length of path to valid windows = 0"}});
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    expect_blocks_held(1);
}

TEST(ScanCommand, RefusesNullArguments)
{
    ScanFixture fixture;
    scan_record.uiSize_TmpBuf_Path = 32768;
    HWND list = nullptr;
    const auto text = [](const void* host, const void* record, const void* list_storage) {
        return scan_text(906,
                         L"error, incorrect input parameters\nhwndThis = " + pointer(host) + L"\npSTR = " +
                             pointer(record) + L"\np_hwnd_ScanListView = " + pointer(list_storage),
                         1301);
    };
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Scan_Clicked(nullptr, &list, 0, 0, &scan_record), -1);
    EXPECT_EQ(onButton_Scan_Clicked(fixture.host(), nullptr, 0, 0, &scan_record), -1);
    EXPECT_EQ(onButton_Scan_Clicked(fixture.host(), &list, 0, 0, nullptr), -1);
    boxes.expect_boxes({{L"error", text(nullptr, &scan_record, &list)},
                        {L"error", text(fixture.host(), &scan_record, nullptr)},
                        {L"error", text(fixture.host(), nullptr, &list)}});
    EXPECT_EQ(list, nullptr);
    expect_blocks_held(0);
}

TEST(ScanCommand, RefusesAPathBufferOfNoSizeAndKeepsTheList)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    fixture.scan();
    const HWND list = hwnd_ScanListView;
    scan_record.uiSize_TmpBuf_Path = 0;
    const STR_ENUM_WNDS_DATA before = scan_record;
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Scan_Clicked(fixture.host(), &hwnd_ScanListView, 0, 0, &scan_record), -1);
    boxes.expect_boxes(
        {{L"error",
          scan_text(921, L"error, incorrect input parameters\npSTR->uiSize_TmpBuf_Path = 0\n", 1328)}});
    EXPECT_EQ(hwnd_ScanListView, list);
    EXPECT_TRUE(IsWindow(list));
    expect_blocks_held(6);
    EXPECT_EQ(std::memcmp(&scan_record, &before, sizeof before), 0);
}

TEST(ScanCommand, ReportsAFailedEnumerationAndLeavesNoListOpen)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    fixture.scan();
    const HWND list_before = hwnd_ScanListView;
    for (const int pass : {1, 2}) {
        scan_record.counter_folders = 7;
        scan_record.uiMaxLen_inBytes_PrgPath = 7;
        scan_record.uiMaxLen_inBytes_FolderPath = 7;
        const FailingImport<"EnumWindows", decltype(EnumWindows)> fails("user32.dll", pass, FALSE,
                                                                        ERROR_INVALID_PARAMETER);
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), -2);
        boxes.expect_boxes({{L"error", scan_text(pass == 1 ? 1017 : 1168, L"ERROR <- EnumWindows()", 1382)}});
        EXPECT_EQ(hwnd_ScanListView, nullptr);
        EXPECT_EQ(fails.calls(), pass);
        // After the first pass the path buffer is there; the second has its slots, none of them filled.
        expect_blocks_held(pass == 1 ? 1 : 6);
        EXPECT_EQ(scan_record.counter_all > 0, pass == 2);
        EXPECT_EQ(scan_record.counter_valid > 0, pass == 2);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_PrgPath > 0, pass == 2);
        EXPECT_EQ(scan_record.counter_filled, 0u);
        EXPECT_EQ(scan_record.counter_folders, 0u);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 0u);
    }
    EXPECT_FALSE(IsWindow(list_before));
}

TEST(ScanCommand, ReportsEachBlockThatCannotBeAllocated)
{
    const int lines[] = {988, 1072, 1089, 1106, 1123, 1140};
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    std::vector<LPVOID> left_over; // by the scan before
    std::vector<LPVOID> freed;
    ImportHook<"VirtualFree", decltype(VirtualFree)> release(
        "kernel32.dll", [&](LPVOID block, SIZE_T size, DWORD type) {
            freed.push_back(block);
            return release.call_original(block, size, type);
        });
    // A scan frees what the one before it has left over, in the order of the record's fields.
    const auto expect_left_over_freed = [&] {
        ASSERT_EQ(left_over.size(), 6u);
        std::vector<LPVOID> expected;
        for (const std::size_t block : {1u, 2u, 0u, 3u, 4u, 5u}) {
            if (left_over[block] != nullptr)
                expected.push_back(left_over[block]);
        }
        EXPECT_EQ(freed, expected);
        freed.clear();
    };
    for (int block = 0; block < 6; ++block) {
        SCOPED_TRACE(block);
        const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", block + 1, nullptr,
                                                                          ERROR_NOT_ENOUGH_MEMORY);
        left_over = blocks();
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), -3);
        boxes.expect_boxes({{L"error", scan_text(lines[block], L"ERROR <- VirtualAlloc()", 1355)}});
        EXPECT_EQ(hwnd_ScanListView, nullptr);
        EXPECT_EQ(fails.calls(), block + 1);
        expect_blocks_held(static_cast<std::size_t>(block));
        expect_left_over_freed();
    }
    left_over = blocks();
    EXPECT_EQ(fixture.scan(), 1);
    expect_left_over_freed();
}

TEST(ScanCommand, ShowsTheSystemsTextWhenTheListCannotBeOpened)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", kEveryCall, nullptr,
                                                                            ERROR_ACCESS_DENIED);
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    boxes.expect_boxes({system_error_box(ERROR_ACCESS_DENIED)});
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    expect_blocks_held(6);
}

// The folders come after the programs: a scan without them still shows its list.
TEST(ScanCommand, OpensItsListWhenTheShellGivesNoList)
{
    ScanFixture fixture;
    const TestWindow window(L"window", {100, 120, 420, 360});
    const Desktop desktop({window});
    const ExpectedBox no_list{
        L"error", spaced_text({L"sources/funcs_layout_windows", L"GetCurrentExplorerFolders_02", 2095, 2361},
                              L"one of callable functions returned error\n\nfunction : "
                              L"CoCreateInstance()\n\nret code hResult = -2147024882\n")};
    for (const int failing : {kEveryCall, 1, 2}) {
        SCOPED_TRACE(failing);
        fixture.folders.clear();
        fixture.folders.add(window, L"C:\\");
        scan_record.counter_folders = 7;
        scan_record.uiMaxLen_inBytes_FolderPath = 7;
        const FailingImport<"CoCreateInstance", decltype(CoCreateInstance)> create("ole32.dll", failing,
                                                                                   E_OUTOFMEMORY, 0);
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), 1);
        // Counting goes on without a box.
        if (failing == 1)
            boxes.expect_no_boxes();
        else
            boxes.expect_boxes({no_list});
        EXPECT_EQ(create.calls(), 2);
        EXPECT_EQ(scan_record.counter_folders, failing == 2 ? 1u : 0u);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, failing == 2 ? 6u : 0u);
        EXPECT_EQ(scan_record.counter_filled, 1u);
        ASSERT_NE(hwnd_ScanListView, nullptr);
        EXPECT_EQ(fixture.list().row(0),
                  (std::vector<std::wstring>{L"1", L"window", L"100", L"120", L"320", L"240"}));
        EXPECT_EQ(scan_tests::path_of_slot(0), failing == 1 ? L"C:\\" : scan_tests::own_image_path());
    }
}
