#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/wnd_ProfileName/wnd_ProfileName.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// The end of the List of Windows window, whoever asks for it.

using namespace test_support;
using scan_tests::TwoRowsFixture;

namespace
{

std::vector<const void*> blocks()
{
    return {scan_record.arr1D_ui_LenPath,         scan_record.arr1D_uc_flag_FP,
            scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.pcDynMem_GeomText,
            scan_record.pcDynMem_WinHndls,        scan_record.pcDynMem_FullPaths};
}

// While it lives, keeps what is taken down by the list window, in order.
class TakenDown
{
public:
    TakenDown() = default;
    TakenDown(const TakenDown&) = delete;
    TakenDown& operator=(const TakenDown&) = delete;

    std::vector<std::wstring> steps;

private:
    std::wstring name_of(const void* block) const
    {
        const wchar_t* const names[] = {L"lengths",  L"flags",   L"path buffer",
                                        L"geometry", L"handles", L"paths"};
        const auto found = std::find(blocks_.begin(), blocks_.end(), block);
        return found != blocks_.end() ? names[found - blocks_.begin()] : L"another block";
    }

    std::vector<const void*> blocks_ = blocks();
    ImportHook<"DestroyWindow", decltype(DestroyWindow)> window_{"user32.dll", [this](HWND window) {
                                                                     steps.push_back(class_of(window));
                                                                     return window_.call_original(window);
                                                                 }};
    ImportHook<"DestroyMenu", decltype(DestroyMenu)> menu_{"user32.dll", [this](HMENU menu) {
                                                               steps.push_back(L"menu");
                                                               return menu_.call_original(menu);
                                                           }};
    ImportHook<"VirtualFree", decltype(VirtualFree)> free_{"kernel32.dll",
                                                           [this](LPVOID block, SIZE_T size, DWORD type) {
                                                               EXPECT_EQ(size, 0u);
                                                               EXPECT_EQ(type, 0x8000u);
                                                               steps.push_back(name_of(block));
                                                               return free_.call_original(block, size, type);
                                                           }};
};

const std::vector<std::wstring> kOfOneList{L"menu",     L"lengths", L"flags", L"path buffer",
                                           L"geometry", L"handles", L"paths", L"List of Windows"};

const std::vector<const void*> kReleased(6, nullptr);

// Another window of the class, which takes the state over; null when it did not outlive its creation.
HWND make_list()
{
    return CreateWindowExW(0, L"List of Windows", L"List of windows", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300,
                           nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

// One of the buttons cannot be made, of the first list that is made; something is done while its box is up.
class WhileTheBoxOfAButtonIsUp
{
public:
    WhileTheBoxOfAButtonIsUp(int button, std::function<void(HWND list)> action)
        : missing_(button), action_(std::move(action))
    {
    }
    WhileTheBoxOfAButtonIsUp(const WhileTheBoxOfAButtonIsUp&) = delete;
    WhileTheBoxOfAButtonIsUp& operator=(const WhileTheBoxOfAButtonIsUp&) = delete;

private:
    HWND list_ = nullptr;
    int missing_;
    std::function<void(HWND)> action_;
    ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create_{
        "user32.dll", [this](DWORD extended, LPCWSTR name, LPCWSTR title, DWORD style, int x, int y,
                             int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* more) {
            if (list_ == nullptr && parent != nullptr &&
                reinterpret_cast<INT_PTR>(menu) == static_cast<INT_PTR>(missing_)) {
                list_ = parent;
                return HWND{nullptr};
            }
            return create_.call_original(extended, name, title, style, x, y, width, height, parent, menu,
                                         instance, more);
        }};
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> box_{
        "user32.dll", [this](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            if (const auto action = std::exchange(action_, nullptr))
                action(list_);
            return box_.call_original(owner, text, title, type);
        }};
};

const ExpectedBox kBoxes_of_buttons[] = {{L"i", bytes_as_wide("err, hWndBTN01=NULL, func WndProc")},
                                         {L"i", bytes_as_wide("err, hWndBTN02=NULL, func WndProc")}};

} // namespace

TEST(ListOfWindows, IsDestroyedWhenAnotherProgramSendsWmDestroy)
{
    TwoRowsFixture scan;
    for (const bool posted : {false, true}) {
        SCOPED_TRACE(posted);
        ASSERT_EQ(scan.fixture.scan(), 1);
        const HWND window = hwnd_ScanListView;
        const HWND list = scan.fixture.list().window();
        const TakenDown taken;
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
        EXPECT_EQ(taken.steps, kOfOneList); // each once
    }
    // The next one is whole.
    ASSERT_EQ(scan.fixture.scan(), 1);
    EXPECT_EQ(scan.fixture.list().row_count(), 2);
}

TEST(ListOfWindows, DestroysItsDialogsAfterItsMenu)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    SendMessageW(hwnd_ScanListView, WM_COMMAND, list_control::kModifyCell, 0);
    const HWND name_window = create_wnd_ProfileName(hwnd_ScanListView);
    COPYDATASTRUCT data{.dwData = 1, .cbData = 0, .lpData = nullptr}; // tells who sent it, and nothing else
    SendMessageW(hwnd_ScanListView, WM_COPYDATA, reinterpret_cast<WPARAM>(name_window),
                 reinterpret_cast<LPARAM>(&data));
    const TakenDown taken;
    SendMessageW(hwnd_ScanListView, WM_DESTROY, 0, 0);
    std::vector<std::wstring> expected = kOfOneList;
    expected.insert(expected.begin() + 1, {L"Modify Cell Window", L"Name of Profile Window"});
    EXPECT_EQ(taken.steps, expected);
    EXPECT_FALSE(IsWindow(name_window));
}

TEST(ListOfWindows, DestroysItselfOnceWhenItIsClosed)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const HWND window = hwnd_ScanListView;
    const TakenDown taken;
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(taken.steps, kOfOneList);
}

TEST(ListOfWindows, LeavesTheScanOfTheNextListAlone)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
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
    EXPECT_EQ(scan.fixture.list().row_count(), 2);
    SendMessageW(hwnd_ScanListView, WM_CLOSE, 0, 0);
    EXPECT_EQ(blocks(), kReleased);
}

TEST(ListOfWindows, StopsItsCreationWhenItIsDestroyedWhileABoxIsUp)
{
    TwoRowsFixture scan;
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
    EXPECT_EQ(scan.fixture.scan(), 1);
    EXPECT_GE(boxes.count(), 1u); // the device context; the scan tells that there is no window
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    EXPECT_EQ(FindWindowW(L"List of Windows", nullptr), nullptr);
    EXPECT_EQ(fonts, 0);
}

TEST(ListOfWindows, StopsItsCreationWhenItIsDestroyedWhileTheBoxOfAButtonIsUp)
{
    TwoRowsFixture scan;
    for (const int button : {1, 2}) {
        SCOPED_TRACE(button);
        ASSERT_EQ(scan.fixture.scan(), 1);
        const HWND older = hwnd_ScanListView;
        const WhileTheBoxOfAButtonIsUp meanwhile(button, [](HWND list) { DestroyWindow(list); });
        const BoxWatcher boxes;
        EXPECT_EQ(make_list(), nullptr);
        boxes.expect_boxes({kBoxes_of_buttons[button - 1]});
        DestroyWindow(older);
    }
}

TEST(ListOfWindows, LeavesTheButtonsOfTheNextListAlone)
{
    TwoRowsFixture scan;
    for (const int button : {1, 2}) {
        SCOPED_TRACE(button);
        ASSERT_EQ(scan.fixture.scan(), 1);
        const HWND older = hwnd_ScanListView;
        HWND next = nullptr;
        HWND unfinished = nullptr;
        {
            const WhileTheBoxOfAButtonIsUp meanwhile(button, [&](HWND) { next = make_list(); });
            const BoxWatcher boxes;
            unfinished = make_list();
            boxes.expect_boxes({kBoxes_of_buttons[button - 1]});
        }
        ASSERT_NE(next, nullptr);
        std::vector<HWND> placed;
        const ImportHook<"MoveWindow", decltype(MoveWindow)> move("user32.dll", [&](HWND window, auto... to) {
            placed.push_back(window);
            return move.call_original(window, to...);
        });
        SendMessageW(next, WM_SIZE, SIZE_RESTORED, MAKELPARAM(500, 300));
        EXPECT_EQ(placed, (std::vector<HWND>{GetDlgItem(next, list_control::kMove),
                                             GetDlgItem(next, list_control::kCreateProfile),
                                             GetDlgItem(next, list_control::kList)}));
        for (const HWND window : {unfinished, older, next})
            DestroyWindow(window);
    }
}

TEST(ListOfWindows, LeavesNoDialogBehindWhenItIsDestroyedWhileTheDialogIsMade)
{
    TwoRowsFixture scan;
    for (const bool scanned_again : {false, true}) {
        SCOPED_TRACE(scanned_again);
        ASSERT_EQ(scan.fixture.scan(), 1);
        const HWND window = hwnd_ScanListView;
        // The dialog itself and both buttons are the first calls, then comes the box of X.
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", 4, nullptr, 8);
        bool told = false;
        const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box("user32.dll", [&](auto... arguments) {
            if (!std::exchange(told, true)) {
                DestroyWindow(window);
                if (scanned_again)
                    scan.fixture.scan();
            }
            return box.call_original(arguments...);
        });
        const BoxWatcher boxes;
        SendMessageW(window, WM_COMMAND, list_control::kModifyCell, 0);
        boxes.expect_boxes({{L"error", L"err, hEdit = NULL, func WndProc"},
                            {L"error", L"error, SetWindowLongPtr, GWL_WNDPROC, TAB focus changing"}});
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(FindWindowW(L"Modify Cell Window", nullptr), nullptr);
        EXPECT_EQ(hwnd_ScanListView != nullptr, scanned_again);
    }
    // The next list has a dialog of its own, which goes with it.
    SendMessageW(hwnd_ScanListView, WM_COMMAND, list_control::kModifyCell, 0);
    EXPECT_NE(FindWindowW(L"Modify Cell Window", nullptr), nullptr);
    DestroyWindow(hwnd_ScanListView);
    EXPECT_EQ(FindWindowW(L"Modify Cell Window", nullptr), nullptr);
}
