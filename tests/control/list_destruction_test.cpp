#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/control/list_desk.h"
#include "tests/control/scan_desk.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"
#include "tests/support/waiting.h"
#include "tests/support/windows_lookup.h"

// The end of the List of Windows window, whoever asks for it.

using namespace test_support;
using scan_tests::TwoRows;

namespace
{

// How often the list window asks for its own end, and its menu for its.
class EndsAsked
{
public:
    EndsAsked() = default;
    EndsAsked(const EndsAsked&) = delete;
    EndsAsked& operator=(const EndsAsked&) = delete;

    int of_list = 0;
    int of_menu = 0;

private:
    HWND list_ = hwnd_ScanListView;
    ImportHook<"DestroyWindow", decltype(DestroyWindow)> window_{"user32.dll", [this](HWND window) {
                                                                     of_list += window == list_ ? 1 : 0;
                                                                     return window_.call_original(window);
                                                                 }};
    ImportHook<"DestroyMenu", decltype(DestroyMenu)> menu_{"user32.dll", [this](HMENU menu) {
                                                               ++of_menu;
                                                               return menu_.call_original(menu);
                                                           }};
};

std::vector<const void*> blocks()
{
    return {scan_record.arr1D_ui_LenPath,         scan_record.arr1D_uc_flag_FP,
            scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.pcDynMem_GeomText,
            scan_record.pcDynMem_WinHndls,        scan_record.pcDynMem_FullPaths};
}

const std::vector<const void*> kReleased(6, nullptr);

} // namespace

TEST(ListOfWindows, GoesWholeWhenSomeoneElseTellsItThatItIsDestroyed)
{
    TwoRows scan;
    for (const bool posted : {false, true}) {
        SCOPED_TRACE(posted);
        ASSERT_EQ(scan.desk.scan(), 1);
        const HWND window = hwnd_ScanListView;
        const HWND list = scan.desk.list().window();
        const EndsAsked ends;
        const BoxWatcher boxes;
        if (posted) {
            PostMessageW(window, WM_DESTROY, 0, 0);
            pump_messages();
        } else {
            EXPECT_EQ(SendMessageW(window, WM_DESTROY, 0, 0), 0);
        }
        boxes.expect_no_boxes();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_FALSE(IsWindow(list));
        EXPECT_EQ(FindWindowW(L"List of Windows", nullptr), nullptr);
        EXPECT_EQ(hwnd_ScanListView, nullptr);
        EXPECT_EQ(blocks(), kReleased);
        EXPECT_EQ(ends.of_list, 1);
        EXPECT_EQ(ends.of_menu, 1);
    }
    // The next one is whole.
    ASSERT_EQ(scan.desk.scan(), 1);
    EXPECT_EQ(scan.desk.list().row_count(), 2);
}

TEST(ListOfWindows, AsksForItsOwnEndOnceWhenItIsClosed)
{
    TwoRows scan;
    ASSERT_EQ(scan.desk.scan(), 1);
    const HWND window = hwnd_ScanListView;
    const EndsAsked ends;
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(ends.of_list, 1);
    EXPECT_EQ(ends.of_menu, 1);
}

TEST(ListOfWindows, LeavesTheScanOfTheNextListAlone)
{
    TwoRows scan;
    ASSERT_EQ(scan.desk.scan(), 1);
    const HWND older = hwnd_ScanListView;
    HMENU menu = nullptr;
    const ImportHook<"LoadMenuW", decltype(LoadMenuW)> load("user32.dll",
                                                            [&](HINSTANCE instance, LPCWSTR name) {
                                                                menu = load.call_original(instance, name);
                                                                return menu;
                                                            });
    // A second window of the class takes the state over.
    hwnd_ScanListView = CreateWindowExW(0, L"List of Windows", L"List of windows", WS_OVERLAPPEDWINDOW, 0, 0,
                                        400, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(hwnd_ScanListView, nullptr);
    const std::vector<const void*> before = blocks();
    SendMessageW(older, WM_DESTROY, 0, 0);
    EXPECT_FALSE(IsWindow(older));
    EXPECT_TRUE(IsWindow(hwnd_ScanListView));
    EXPECT_EQ(blocks(), before);
    EXPECT_TRUE(IsMenu(menu));
    EXPECT_EQ(scan.desk.list().row_count(), 2);
    SendMessageW(hwnd_ScanListView, WM_CLOSE, 0, 0);
    EXPECT_EQ(blocks(), kReleased);
}

TEST(ListOfWindows, MakesNothingMoreOfItselfWhenItIsDestroyedBelowABox)
{
    TwoRows scan;
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 1, nullptr, 8);
    int fonts = 0;
    const ImportHook<"CreateFontIndirectW", decltype(CreateFontIndirectW)> font(
        "gdi32.dll", [&](const LOGFONTW* description) {
            ++fonts;
            return font.call_original(description);
        });
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
        "user32.dll", [&](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            SendMessageW(FindWindowW(L"List of Windows", nullptr), WM_DESTROY, 0, 0);
            return box.call_original(owner, text, title, type);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(scan.desk.scan(), 1);
    EXPECT_GE(boxes.count(), 1u); // the device context; the scan tells that there is no window
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    EXPECT_EQ(FindWindowW(L"List of Windows", nullptr), nullptr);
    EXPECT_EQ(fonts, 0);
}
