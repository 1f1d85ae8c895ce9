#include "sources/wnd_ScanListView/saving/create_profile.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"
#include "tests/support/windows/control_ids.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::hex;
using test_support::ImportHook;
using test_support::read_file;
using test_support::system_error_box;
using test_support::TemporaryFolder;

const ExpectedBox kNothingTicked{
    L"info", L"There are no selected items.\nTo create profile - select items you want to include\nand then "
             L"press button Create Profile."};

ExpectedBox list_box(const std::wstring& result)
{
    return save_box(L"WndProc_ScanListView", 304, 519,
                    L"iRetCode = " + result + L" <- onButton_Create_Profile()");
}

const ExpectedBox kNoMemory =
    save_box(L"DynMemAlloc_wnds_Profile", 1547, 1675, L"function VirtualAlloc() returned error\n\n");

// The blocks that are allocated while it lives, in order.
class AllocatedBlocks
{
public:
    std::vector<const void*> blocks;

private:
    const ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> hook_{
        "kernel32.dll", [this](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
            LPVOID const block = hook_.call_original(address, size, type, protection);
            blocks.push_back(block);
            return block;
        }};
};

// Keeps the list's notifications from its window, which would take the highlight off a row without a tick.
class WithoutNotifications
{
public:
    explicit WithoutNotifications(HWND window)
    {
        previous_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        return message == WM_NOTIFY ? 0 : CallWindowProcW(previous_, window, message, wide, narrow);
    }
    static inline WNDPROC previous_ = nullptr;
};

} // namespace

TEST(CreateProfile, AsksToTickSomethingAndOpensNothing)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    BoxWatcher boxes;
    list.press_create_profile();
    list.highlight(2); // highlighted is not ticked
    list.press_create_profile();
    boxes.expect_boxes({kNothingTicked, kNothingTicked});
    EXPECT_EQ(boxes.boxes().front().owner, list.window);
    STR_RW_PRFL record{};
    HWND opened = nullptr;
    EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
    boxes.expect_boxes({kNothingTicked, kNothingTicked, kNothingTicked});
    EXPECT_FALSE(has_arrays(record));
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(name_window(), nullptr);
}

TEST(CreateProfile, GathersTheTickedRowsInAscendingOrder)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    for (const int row : {4, 1, 7})
        list.tick(row);
    STR_RW_PRFL record{};
    HWND opened = nullptr;
    BoxWatcher boxes;
    EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
    boxes.expect_no_boxes();
    ASSERT_EQ(record.N_wnds_in_profile, 3u);
    const std::uint32_t rows[] = {1, 4, 7};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto row = static_cast<std::int32_t>(rows[i]);
        EXPECT_EQ(record.p_arr1D_ui_indexes_wnds_profile[i], rows[i]);
        EXPECT_EQ(record.p_arr1D_uc_flag_Prg_or_Folder[i], 1);
        EXPECT_EQ(static_cast<std::int32_t>(record.p_arr1D_ui_x[i]), -row);
        EXPECT_EQ(static_cast<std::int32_t>(record.p_arr1D_ui_y[i]), 10 * row);
        EXPECT_EQ(static_cast<std::int32_t>(record.p_arr1D_ui_w[i]), 100 + row);
        EXPECT_EQ(static_cast<std::int32_t>(record.p_arr1D_ui_h[i]), 200 + row);
        EXPECT_EQ(record.p_arr1D_ui_len_path[i], 2 * (10 + rows[i]));
    }
    EXPECT_EQ(opened, name_window());
    EXPECT_EQ(GetWindow(opened, GW_OWNER), list.window);
    EXPECT_TRUE(IsWindowVisible(opened));
    FreeDynMem_wnds_Profile(&record);
}

TEST(CreateProfile, OpensOneNameWindowHoweverOftenItIsPressed)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const HWND first = list.ask_name_for({1});
    ASSERT_NE(first, nullptr);
    list.press_create_profile();
    EXPECT_FALSE(IsWindow(first));
    EXPECT_NE(name_window(), nullptr);
    DestroyWindow(list.window);
    EXPECT_EQ(name_window(), nullptr);
}

TEST(CreateProfile, LeavesAnOpenNameWindowWhenNothingIsTicked)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const HWND first = list.ask_name_for({1});
    SetWindowTextW(GetDlgItem(first, name_control::kName), L"typed");
    list.untick(1);
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    const BoxWatcher boxes;
    list.press_create_profile();
    boxes.expect_boxes({kNothingTicked});
    EXPECT_EQ(name_window(), first);
    wchar_t typed[8] = {};
    GetWindowTextW(GetDlgItem(first, name_control::kName), typed, 8);
    EXPECT_STREQ(typed, L"typed");
    EXPECT_EQ(releases.calls(), 8); // its profile is abandoned all the same
    EXPECT_NE(list.ask_name_for({2}), first);
    EXPECT_FALSE(IsWindow(first));
    EXPECT_EQ(boxes.count(), 1u);
}

TEST(CreateProfile, SavesNoRowThatIsOnlyHighlighted)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const WithoutNotifications quiet(list.window);
    list.highlight(2);
    ASSERT_TRUE(list.is_highlighted(2));
    const BoxWatcher boxes;
    list.press_create_profile();
    boxes.expect_boxes({kNothingTicked});
    EXPECT_EQ(name_window(), nullptr);
    const TemporaryFolder folder;
    AnsweredSaveDialog dialog(folder.file(L"ticked.txt"));
    const HWND name = list.ask_name_for({5});
    ASSERT_TRUE(list.is_highlighted(2));
    ASSERT_FALSE(list.is_highlighted(5));
    enter_name(name, L"x");
    EXPECT_EQ(hex(read_file(folder.file(L"ticked.txt"))), hex(profile_of(ten_windows(), {5}, u"x")));
    EXPECT_EQ(boxes.count(), 1u);
}

TEST(CreateProfile, ReleasesTheArraysOfAnAbandonedProfile)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const HWND first = list.ask_name_for({1});
    SendMessageW(first, WM_COMMAND, name_control::kCancel, 0);
    EXPECT_EQ(name_window(), nullptr);
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    list.press_create_profile();
    EXPECT_EQ(releases.calls(), 8);
}

TEST(CreateProfile, ReportsThatItHasNoMemoryInThreeBoxes)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.tick(3);
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", 8, nullptr,
                                                                      ERROR_NOT_ENOUGH_MEMORY);
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    list.press_create_profile();
    boxes.expect_boxes(
        {kNoMemory,
         save_box(L"onButton_Create_Profile", 1262, 1413,
                  L"one of callable functions returned error, -2 <- DynMemAlloc_wnds_Profile()"),
         list_box(L"-4")});
    EXPECT_EQ(name_window(), nullptr);
    // The seven blocks that could be had stay until the next time.
    EXPECT_EQ(releases.calls(), 0);
    list.press_create_profile();
    EXPECT_EQ(releases.calls(), 7);
    EXPECT_EQ(boxes.count(), 3u);
    EXPECT_NE(name_window(), nullptr);
}

TEST(CreateProfile, ReportsARowThatCannotBePrepared)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.tick(3);
    std::uint8_t* const paths = std::exchange(scan_record.pcDynMem_FullPaths, nullptr);
    const AllocatedBlocks arrays;
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    list.press_create_profile();
    scan_record.pcDynMem_FullPaths = paths;
    ASSERT_EQ(arrays.blocks.size(), 8u);
    boxes.expect_boxes(
        {save_box(L"PrepareData_Write_Profile", 1726, 1847,
                  L"error, incorrect input parameters:\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = " +
                      pointer(arrays.blocks[0]) + L"\npSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder = " +
                      pointer(arrays.blocks[1]) + L"\npSTR_RW_PRFL->p_arr1D_ui_x = " +
                      pointer(arrays.blocks[2]) + L"\npSTR_RW_PRFL->p_arr1D_ui_y = " +
                      pointer(arrays.blocks[3]) + L"\npSTR_RW_PRFL->p_arr1D_ui_w = " +
                      pointer(arrays.blocks[4]) + L"\npSTR_RW_PRFL->p_arr1D_ui_h = " +
                      pointer(arrays.blocks[5]) + L"\npSTR_RW_PRFL->p_arr1D_ui_len_path = " +
                      pointer(arrays.blocks[6]) + L"\npSTR_RW_PRFL->p_arr_strz_paths = " +
                      pointer(arrays.blocks[7]) +
                      L"\npSTR_RW_PRFL->N_wnds_in_profile = 1\npSTR_ENUM_WNDS_DATA->arr1D_uc_flag_FP = " +
                      pointer(scan_record.arr1D_uc_flag_FP) + L"\npSTR_ENUM_WNDS_DATA->arr1D_ui_LenPath = " +
                      pointer(scan_record.arr1D_ui_LenPath) + L"\npSTR_ENUM_WNDS_DATA->pcDynMem_GeomText = " +
                      pointer(scan_record.pcDynMem_GeomText) +
                      L"\npSTR_ENUM_WNDS_DATA->pcDynMem_FullPaths = 0000000000000000"),
         save_box(L"onButton_Create_Profile", 1304, 1457,
                  L"one of callable functions returned error, -1 <- PrepareData_Write_Profile()"),
         list_box(L"-4")});
    EXPECT_EQ(name_window(), nullptr);
    // All eight blocks stay until the next time.
    EXPECT_EQ(releases.calls(), 0);
    list.press_create_profile();
    EXPECT_EQ(releases.calls(), 8);
    EXPECT_EQ(boxes.count(), 3u);
    EXPECT_NE(name_window(), nullptr);
}

TEST(CreateProfile, ReportsThatTheNameWindowCannotBeCreatedAndWhy)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.tick(3);
    STR_RW_PRFL record{};
    HWND opened = list.window;
    const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", 1, nullptr,
                                                                            ERROR_ACCESS_DENIED);
    BoxWatcher boxes;
    EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
    boxes.expect_boxes(
        {{L"error", L"error while creating window Name of Profile"}, system_error_box(ERROR_ACCESS_DENIED)});
    const auto seen = boxes.boxes();
    EXPECT_EQ(seen[0].owner, list.window);
    EXPECT_EQ(seen[1].owner, nullptr);
    EXPECT_EQ(opened, nullptr);
    for (const void* array : arrays_of(record))
        EXPECT_NE(array, nullptr);
    EXPECT_EQ(record.N_wnds_in_profile, 1u);
    FreeDynMem_wnds_Profile(&record);
}

TEST(CreateProfile, RefusesMissingArgumentsNamingThem)
{
    const FilledScanFixture scan(ten_windows());
    STR_RW_PRFL write{};
    HWND opened = nullptr;
    const auto some = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
    STR_ENUM_WNDS_DATA empty{};
    for (int missing = 0; missing < 6; ++missing) {
        const HWND window = missing == 0 ? nullptr : some;
        const HWND list = missing == 1 ? nullptr : some;
        HWND* const out = missing == 2 ? nullptr : &opened;
        STR_RW_PRFL* const record = missing == 3 ? nullptr : &write;
        const STR_ENUM_WNDS_DATA* const read = missing == 4 ? nullptr : missing == 5 ? &empty : &scan_record;
        BoxWatcher boxes;
        EXPECT_EQ(onButton_Create_Profile(window, list, out, record, read), -1);
        boxes.expect_boxes(
            {save_box(L"onButton_Create_Profile", 1214, 1391,
                      L"incorrect input parameters:\nhwndThis = " + pointer(window) + L", hwndLV = " +
                          pointer(list) + L", p_hwnd_ProfileName = " + pointer(out) + L", pSTR_RW_PRFL = " +
                          pointer(record) + L", pSTR_ENUM_WNDS_DATA = " + pointer(read) +
                          L"\npSTR_ENUM_WNDS_DATA->counter_valid = " + (missing < 4 ? L"10" : L"0"))});
    }
}

TEST(CreateProfile, StopsWhenItsRowNumbersAreGone)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.tick(3);
    STR_RW_PRFL record{};
    HWND opened = nullptr;
    int allocations = 0;
    ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> memory(
        "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
            // Of the eight blocks of the record the first, the row numbers, is lost again.
            if (++allocations == 8)
                VirtualFree(std::exchange(record.p_arr1D_ui_indexes_wnds_profile, nullptr), 0, MEM_RELEASE);
            return memory.call_original(address, size, type, protection);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), -3);
    boxes.expect_boxes({save_box(L"onButton_Create_Profile", 1277, 1435,
                                 L"incorrect result after DynMemAlloc:\npSTR_RW_PRFL = " + pointer(&record) +
                                     L"\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = "
                                     L"0000000000000000")});
    EXPECT_EQ(opened, nullptr);
    FreeDynMem_wnds_Profile(&record);
}

// Nothing ticked abandons the profile for which the name window that stays open had asked.
TEST(CreateProfile, LeavesAnOpenNameWindowNothingToSaveWhenNothingIsTicked)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    list.untick(1);
    BoxWatcher boxes;
    list.press_create_profile();
    boxes.expect_boxes({kNothingTicked});
    ASSERT_EQ(name_window(), name);
    boxes.forget();

    HANDLE file = nullptr;
    {
        const ImportHook<"CreateFileW", decltype(CreateFileW)> creation(
            "kernel32.dll", [&](auto... arguments) { return file = creation.call_original(arguments...); });
        AnsweredSaveDialog dialog(folder.file(L"nothing.txt"));
        enter_name(name, L"Late");
        EXPECT_EQ(dialog.asked, 1);
    }
    const std::wstring record = record_named_in(boxes.wait_for_box(0).text);
    const std::wstring none = pointer(nullptr);
    boxes.expect_boxes(
        {save_box(L"WriteData_Profile", 2204, 2318,
                  L"error, incorrect INPUT parameters:\nhFile_wnds_profile = " + pointer(file) +
                      L"\npSTR_RW_PRFL = " + record + L"\nN_wnds = 0\np_arr1D_uc_flag_Prg_or_Folder = " +
                      none + L"\np_arr1D_ui_x = " + none + L"\np_arr1D_ui_y = " + none +
                      L"\np_arr1D_ui_w = " + none + L"\np_arr1D_ui_h = " + none +
                      L"\np_arr1D_ui_len_path = " + none + L"\np_arr_strz_paths = " + none),
         save_box(L"on_WM_COPYDATA_on_wnd_NameOfProfile", 1997, 2109,
                  L"error, one of callable functions returned error, -1 <- WriteData_Profile()"),
         save_box(L"WndProc_ScanListView", 358, 541,
                  L"iRetCode = -2 <- on_WM_COPYDATA_on_wnd_NameOfProfile()")});
    CloseHandle(file); // stays open otherwise, and empty
    EXPECT_EQ(read_file(folder.file(L"nothing.txt")), Bytes{});
    EXPECT_FALSE(IsWindow(name));

    // The list is as it was, and so is its scan.
    ASSERT_TRUE(IsWindow(list.window));
    boxes.forget();
    AnsweredSaveDialog dialog(folder.file(L"next.txt"));
    enter_name(list.ask_name_for({1, 4}), L"Next");
    boxes.expect_no_boxes();
    EXPECT_EQ(read_file(folder.file(L"next.txt")), profile_of(ten_windows(), {1, 4}, u"Next"));
}
