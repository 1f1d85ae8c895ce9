#include "sources/funcs_layout_windows/scanning/scan_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/test_window.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::ScanFixture;
using scan_tests::VanishingRowFixture;

namespace
{

using Row = std::vector<std::wstring>;

} // namespace

TEST(ScanCommand, ListsTheWindowsOfOtherProgramsAsTheyStand)
{
    FixturePrograms programs;
    programs.add(L"first", {.title = L"First program", .x = 40, .y = 50, .width = 300, .height = 200});
    programs.add(L"second", {.title = L"Second program", .x = -60, .y = 90, .width = 250, .height = 180});
    const HWND first = programs.start(L"first");
    const HWND second = programs.start(L"second");
    ScanFixture fixture;
    const BoxWatcher boxes;

    EXPECT_EQ(fixture.scan(), 1);

    boxes.expect_no_boxes();
    const RemoteListView list = fixture.list();
    const auto first_row = list.find_row(L"First program");
    const auto second_row = list.find_row(L"Second program");
    ASSERT_TRUE(first_row && second_row);
    EXPECT_EQ(list.row(*first_row),
              (Row{std::to_wstring(*first_row + 1), L"First program", L"40", L"50", L"300", L"200"}));
    EXPECT_EQ(list.row(*second_row),
              (Row{std::to_wstring(*second_row + 1), L"Second program", L"-60", L"90", L"250", L"180"}));
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[*first_row], first);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[*second_row], second);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[*first_row], 1);
    const auto* path =
        reinterpret_cast<const wchar_t*>(path_slot(&scan_record, static_cast<std::uint32_t>(*first_row)));
    EXPECT_EQ(std::wstring(path), programs.path_of(L"first"));
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[*first_row], 2 * std::wstring(path).size());
}

TEST(ScanCommand, OpensTheListAtThreeQuartersOfTheScreen)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    const RECT place = rectangle_of(hwnd_ScanListView);
    EXPECT_EQ(place.left, 30);
    EXPECT_EQ(place.top, 30);
    EXPECT_EQ(place.right - place.left, GetSystemMetrics(SM_CXSCREEN) * 3 / 4);
    EXPECT_EQ(place.bottom - place.top, GetSystemMetrics(SM_CYSCREEN) * 3 / 4);
    EXPECT_EQ(class_of(hwnd_ScanListView), L"List of Windows");
    EXPECT_EQ(title_of(hwnd_ScanListView), L"List of windows");
    EXPECT_EQ(GetWindowLongW(hwnd_ScanListView, GWL_STYLE) & ~(WS_CLIPSIBLINGS | WS_VISIBLE),
              WS_OVERLAPPEDWINDOW);
    EXPECT_TRUE(IsWindowVisible(hwnd_ScanListView));
    EXPECT_EQ(GetWindow(hwnd_ScanListView, GW_OWNER), nullptr);
    EXPECT_EQ(GetMenu(hwnd_ScanListView), nullptr);
}

TEST(ScanCommand, ReplacesTheListOfThePreviousScan)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    fixture.scan();
    const HWND first_list = hwnd_ScanListView;
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_FALSE(IsWindow(first_list));
    EXPECT_TRUE(IsWindow(hwnd_ScanListView));
    EXPECT_FALSE(fixture.list().find_row(L"List of windows").has_value());
}

TEST(ScanCommand, LeavesOtherWindowsAloneWhenTheStoredHandleIsStale)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    fixture.scan();
    DestroyWindow(hwnd_ScanListView);
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    // The system has given the handle to another window meanwhile.
    hwnd_ScanListView = window;
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_NE(hwnd_ScanListView, static_cast<HWND>(window));
}

TEST(ScanCommand, ListsADesktopWhereOnlyFolderWindowsQualify)
{
    FixturePrograms programs;
    programs.add(L"explorer.exe", {.title = L"Folder"});
    const HWND folder = programs.start(L"explorer.exe");
    ScanFixture fixture;
    fixture.folders.add(folder, L"C:\\windows");
    const Desktop desktop({folder});
    EXPECT_EQ(fixture.scan(), 1);
    ASSERT_NE(hwnd_ScanListView, nullptr);
    EXPECT_EQ(fixture.list().row_count(), 1);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_PrgPath, 0u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_AllPath, 20u);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 0);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 20u);
    EXPECT_EQ(scan_tests::path_of_slot(0), L"C:\\windows");
}

TEST(ScanCommand, AllocatesTheBlocksInTheirOrderAndSizes)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow two(L"two");
    const Desktop desktop({one, two});
    std::vector<SIZE_T> sizes;
    ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> allocate(
        "kernel32.dll", [&](LPVOID place, SIZE_T size, DWORD type, DWORD protection) {
            EXPECT_EQ(place, nullptr);
            EXPECT_EQ(type, 0x1000u);
            EXPECT_EQ(protection, 4u);
            sizes.push_back(size);
            return allocate.call_original(place, size, type, protection);
        });
    ASSERT_EQ(fixture.scan(), 1);
    const SIZE_T longest = 2 * scan_tests::own_image_path().size();
    EXPECT_EQ(sizes, (std::vector<SIZE_T>{32768, 8, 2, 244, 16, 2 * (longest + 1) * 2}));
}

TEST(ScanCommand, FreesEveryBlockOfThePreviousScanOnce)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    fixture.scan();
    std::vector<LPVOID> freed;
    ImportHook<"VirtualFree", decltype(VirtualFree)> release(
        "kernel32.dll", [&](LPVOID block, SIZE_T size, DWORD type) {
            EXPECT_EQ(size, 0u);
            EXPECT_EQ(type, 0x8000u);
            freed.push_back(block);
            return release.call_original(block, size, type);
        });
    const std::vector<LPVOID> blocks{scan_record.arr1D_ui_LenPath,         scan_record.arr1D_uc_flag_FP,
                                     scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.pcDynMem_GeomText,
                                     scan_record.pcDynMem_WinHndls,        scan_record.pcDynMem_FullPaths};
    fixture.scan();
    EXPECT_EQ(freed, blocks);
}

TEST(ScanCommand, ShowsARowForAWindowWhoseProcessCannotBeOpened)
{
    ScanFixture fixture;
    const TestWindow shut(L"shut away", {10, 20, 210, 140});
    const TestWindow open(L"open");
    const Desktop desktop({open, shut});
    {
        int opened = 0;
        // Two processes are opened in each pass; the second of both is refused.
        ImportHook<"OpenProcess", decltype(OpenProcess)> open_process(
            "kernel32.dll", [&](DWORD access, BOOL inherit, DWORD process) -> HANDLE {
                EXPECT_EQ(access, 0x1010u);
                return ++opened % 2 == 0 ? nullptr : open_process.call_original(access, inherit, process);
            });
        ASSERT_EQ(fixture.scan(), 1);
    }
    EXPECT_EQ(scan_record.counter_valid, 2u);
    EXPECT_EQ(scan_record.counter_filled, 1u);
    const RemoteListView list = fixture.list();
    ASSERT_EQ(list.row_count(), 2);
    // It came after every filled slot, so it lends the trailing row its title and place.
    EXPECT_EQ(list.row(1), (Row{L"2", L"shut away", L"10", L"20", L"200", L"120"}));
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[1], 0u);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[1], 0);
}

TEST(ScanCommand, ShowsAnEmptyRowWhenTheWindowThatCannotBeOpenedCameFirst)
{
    ScanFixture fixture;
    const TestWindow shut(L"shut away", {10, 20, 210, 140});
    const TestWindow open(L"open", {100, 120, 420, 360});
    const Desktop desktop({shut, open});
    {
        int opened = 0;
        ImportHook<"OpenProcess", decltype(OpenProcess)> open_process(
            "kernel32.dll", [&](DWORD access, BOOL inherit, DWORD process) -> HANDLE {
                return ++opened % 2 == 1 ? nullptr : open_process.call_original(access, inherit, process);
            });
        ASSERT_EQ(fixture.scan(), 1);
    }
    const RemoteListView list = fixture.list();
    ASSERT_EQ(list.row_count(), 2);
    EXPECT_EQ(list.row(0), (Row{L"1", L"open", L"100", L"120", L"320", L"240"}));
    EXPECT_EQ(list.row(1), (Row{L"2", L"", L"0", L"0", L"0", L"0"}));
}

TEST(ScanCommand, LeavesOutWindowsThatAppearBetweenThePasses)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow late(L"late");
    Desktop desktop({one});
    desktop.before_pass = [&](int pass) {
        if (pass == 2)
            desktop.windows.push_back(late);
    };
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_EQ(fixture.list().row_count(), 1);
    EXPECT_EQ(scan_record.counter_filled, 1u);
}

TEST(ScanCommand, KeepsAnEmptyRowForAWindowThatVanishesBetweenThePasses)
{
    VanishingRowFixture scan;
    ScanFixture& fixture = scan.fixture;
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_EQ(fixture.list().row_count(), 2);
    EXPECT_EQ(fixture.list().row(1), (Row{L"2", L"", L"0", L"0", L"0", L"0"}));
}

TEST(ScanCommand, KeepsAnEmptyRowForAWindowThatTellsItsTitleToTheFirstPassOnly)
{
    ScanFixture fixture;
    const TestWindow silent(L"silent");
    const TestWindow one(L"one", {100, 120, 420, 360});
    const Desktop desktop({silent, one});
    int asked = 0;
    ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
        "user32.dll",
        [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
            PDWORD_PTR answer) -> LRESULT {
            if (target == silent && ++asked == 2)
                return 0;
            return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(scan_record.counter_valid, 2u);
    EXPECT_EQ(scan_record.counter_filled, 1u);
    const RemoteListView list = fixture.list();
    ASSERT_EQ(list.row_count(), 2);
    EXPECT_EQ(list.row(0), (Row{L"1", L"one", L"100", L"120", L"320", L"240"}));
    EXPECT_EQ(list.row(1), (Row{L"2", L"", L"0", L"0", L"0", L"0"}));
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[1], nullptr);
}

TEST(ScanCommand, WaitsForAHungProgramNoLongerThanTheLimit)
{
    FixturePrograms programs;
    programs.add(L"hung", {.title = L"Hung program", .hang_on_get_text = true});
    const HWND hung = programs.start(L"hung");
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({hung, window});
    EXPECT_EQ(fixture.scan(), 1);
    ASSERT_EQ(fixture.list().row_count(), 1); // it counts as untitled
    EXPECT_EQ(fixture.list().cell(0, 1), L"window");
}

TEST(ScanCommand, CreatesTheListWithItsArguments)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const auto own_instance = GetWindowLongPtrW(fixture.host(), GWLP_HINSTANCE);
    const auto marked_instance = own_instance + 0x1230000;
    SetWindowLongPtrW(fixture.host(), GWLP_HINSTANCE, marked_instance);
    const ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> metrics("user32.dll", [](int index) {
        return index == SM_CXSCREEN ? 1003 : index == SM_CYSCREEN ? 702 : 20;
    });
    int lists = 0;
    ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create(
        "user32.dll",
        [&](DWORD extended_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width,
            int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) {
            if (lists++ == 0) {
                EXPECT_EQ(extended_style, 0u);
                EXPECT_STREQ(class_name, L"List of Windows");
                EXPECT_STREQ(title, L"List of windows");
                EXPECT_EQ(style, 0x10CF0000u);
                EXPECT_EQ(x, 30);
                EXPECT_EQ(y, 30);
                EXPECT_EQ(width, 752);
                EXPECT_EQ(height, 526);
                EXPECT_EQ(parent, nullptr);
                EXPECT_EQ(menu, nullptr);
                EXPECT_EQ(reinterpret_cast<LONG_PTR>(instance), marked_instance);
                EXPECT_EQ(parameter, nullptr);
            }
            return create.call_original(extended_style, class_name, title, style, x, y, width, height, parent,
                                        menu, reinterpret_cast<HINSTANCE>(own_instance), parameter);
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_GE(lists, 1);
    SetWindowLongPtrW(fixture.host(), GWLP_HINSTANCE, own_instance);
}

TEST(ScanCommand, LeavesTheListOfAnotherThreadAlone)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    // As when the system has given the handle of a list that is gone to another program's window.
    FixturePrograms programs;
    programs.add(L"other", {.title = L"Other list", .class_name = L"List of Windows"});
    const HWND other = programs.start(L"other");
    const Desktop desktop({window});
    ASSERT_EQ(class_of(other), L"List of Windows");
    hwnd_ScanListView = other;
    std::vector<HWND> destroyed;
    ImportHook<"DestroyWindow", decltype(DestroyWindow)> destroy("user32.dll", [&](HWND target) {
        destroyed.push_back(target);
        return destroy.call_original(target);
    });
    EXPECT_EQ(fixture.scan(), 1);
    EXPECT_TRUE(destroyed.empty());
    EXPECT_TRUE(IsWindow(other));
    EXPECT_NE(hwnd_ScanListView, other);
}
