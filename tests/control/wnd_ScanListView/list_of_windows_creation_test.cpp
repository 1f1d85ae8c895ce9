#include "sources/wnd_ScanListView/list_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/control/fixtures/screen_of_size.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/test_window.h"

// What the List of Windows window cannot make of itself, and what is there all the same.

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::ScanFixture;
using scan_tests::TwoRowsFixture;

namespace
{

HFONT font_of_button(int button)
{
    return reinterpret_cast<HFONT>(SendMessageW(GetDlgItem(hwnd_ScanListView, button), WM_GETFONT, 0, 0));
}

// A list of any window, as the window's own WM_CREATE asks for it.
std::int32_t create_list_in(HWND parent, HWND* list)
{
    return on_WM_CREATE_02_ListView(parent, 0, 0, GetModuleHandleW(nullptr), list, 4);
}

} // namespace

TEST(ListOfWindows, FitsItsButtonsFontToTheTextCreateProfile)
{
    TwoRowsFixture scan;
    // The height of the buttons is the limit first, then their width.
    for (const SIZE size : {SIZE{20000, 4000}, SIZE{10000, 20000}}) {
        SCOPED_TRACE(size.cx);
        ASSERT_EQ(scan.fixture.scan(), 1);
        const HWND of_real_screen = hwnd_ScanListView;
        const screen_tests::ScreenOfSize screen(size.cx, size.cy);
        const screen_tests::ContextsOf contexts(L"List of Windows");
        const screen_tests::FontsGiven fonts;
        // The window itself has the size of a small screen.
        hwnd_ScanListView =
            CreateWindowExW(0, L"List of Windows", L"List of windows", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300,
                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        DestroyWindow(of_real_screen);
        EXPECT_EQ(fonts.redrawn, 2);
        EXPECT_EQ(fonts.not_redrawn, 0);
        EXPECT_EQ(contexts.got, 1);
        EXPECT_EQ(contexts.released, 1);
        const int button_height = static_cast<int>(0.03F * static_cast<float>(size.cy));
        const int button_width = static_cast<int>(0.09F * static_cast<float>(size.cx));
        const int expected = screen_tests::fitting_font_height(hwnd_ScanListView, L"Create Profile",
                                                               static_cast<int>(0.85 * button_height),
                                                               static_cast<int>(0.8 * button_width));
        EXPECT_GT(expected, 50);
        EXPECT_EQ(font_of_button(1), font_of_button(2));
        LOGFONTW font{};
        ASSERT_NE(GetObjectW(font_of_button(1), sizeof font, &font), 0);
        EXPECT_EQ(font.lfHeight, expected);
        EXPECT_EQ(font.lfWeight, 700);
        EXPECT_EQ(font.lfPitchAndFamily, 16);
        EXPECT_EQ(font.lfItalic + font.lfUnderline + font.lfStrikeOut, 0);
    }
}

TEST(ListOfWindows, ReportsEachButtonThatCannotBeMadeInUnreadableWords)
{
    TwoRowsFixture scan;
    const char* const texts[] = {"err, hWndBTN01=NULL, func WndProc", "err, hWndBTN02=NULL, func WndProc"};
    for (const int button : {0, 1}) {
        // The list window itself is the first call.
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails(
            "user32.dll", button + 2, nullptr, ERROR_NOT_ENOUGH_MEMORY);
        const BoxWatcher boxes;
        EXPECT_EQ(scan.fixture.scan(), 1);
        boxes.expect_boxes({{L"i", bytes_as_wide(texts[button])}});
        EXPECT_EQ(scan.fixture.list().row_count(), 2); // it goes on
        const int missing = button + 1;
        const int other = 3 - missing;
        EXPECT_EQ(GetDlgItem(hwnd_ScanListView, missing), nullptr);
        EXPECT_NE(GetDlgItem(hwnd_ScanListView, other), nullptr);
        EXPECT_NE(font_of_button(other), nullptr);
    }
}

TEST(ListOfWindows, StaysOpenWithItsButtonsWhenThereIsNoFont)
{
    TwoRowsFixture scan;
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const BoxWatcher boxes;
    EXPECT_EQ(scan.fixture.scan(), 1);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/wnd_ScanListView", L"WndProc_ScanListView", 218, 475},
                                 L"one of callable functions returned error, vex_CreateFont()")}});
    ASSERT_NE(hwnd_ScanListView, nullptr);
    for (const int button : {1, 2}) {
        EXPECT_NE(GetDlgItem(hwnd_ScanListView, button), nullptr);
        EXPECT_EQ(font_of_button(button), nullptr);
    }
    EXPECT_EQ(GetDlgItem(hwnd_ScanListView, list_control::kList), nullptr);
}

TEST(ListOfWindows, ReportsAMissingDeviceContextAndStillShowsTheList)
{
    TwoRowsFixture scan;
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 1, nullptr, 8);
    const BoxWatcher boxes;
    EXPECT_EQ(scan.fixture.scan(), 1);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/wnd_ScanListView", L"WndProc_ScanListView", 189, 431},
                                 L"one of callable functions returned error, GetDC( )")}});
    EXPECT_EQ(scan.fixture.list().row_count(), 2);
    // The buttons have a font of the default height.
    for (const int button : {1, 2}) {
        LOGFONTW font{};
        ASSERT_NE(GetObjectW(font_of_button(button), sizeof font, &font), 0);
        EXPECT_EQ(font.lfHeight, 0);
        EXPECT_EQ(font.lfWeight, 700);
    }
}

TEST(ListOfWindows, ReportsAListThatCannotBeMadeInUnreadableWords)
{
    TwoRowsFixture scan;
    const wchar_t* class_name = nullptr;
    ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create(
        "user32.dll",
        [&](DWORD extended, const wchar_t* name, const wchar_t* title, DWORD style, int x, int y, int width,
            int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter) -> HWND {
            if (HIWORD(name) == 0 || std::wstring(name) != L"SysListView32")
                return create.call_original(extended, name, title, style, x, y, width, height, parent, menu,
                                            instance, parameter);
            class_name = name;
            return nullptr;
        });
    const auto text = [&](HWND parent) {
        RECT client{};
        GetClientRect(parent, &client);
        return shown_as_bytes(shouted_text(
            {L"sources/wnd_ScanListView", L"on_WM_CREATE_02_ListView", 641},
            L"NULL <- CreateWindowEx()\nw = " + std::to_wstring(client.right) + L"\nh = " +
                std::to_wstring(client.bottom) + L"\nuiCtlID = 4\nhwndThis = " + pointer(parent) +
                L"\nhInst = " + pointer(GetModuleHandleW(nullptr)) + L"\nWC_LISTVIEW = " +
                std::to_wstring(static_cast<int>(reinterpret_cast<INT_PTR>(class_name)))));
    };
    BoxWatcher boxes;
    EXPECT_EQ(scan.fixture.scan(), 1);
    boxes.expect_boxes({{bytes_as_wide("ERROR"), text(hwnd_ScanListView)}});
    EXPECT_EQ(GetDlgItem(hwnd_ScanListView, list_control::kList), nullptr);
    EXPECT_NE(hwnd_ScanListView, nullptr);

    // The window is kept, for the routine has done what it could.
    const TestWindow parent(L"parent");
    HWND list = parent;
    boxes.forget();
    EXPECT_EQ(create_list_in(parent, &list), 1);
    boxes.expect_boxes({{bytes_as_wide("ERROR"), text(parent)}});
    EXPECT_EQ(list, nullptr);
    EXPECT_TRUE(IsWindow(parent));
}

TEST(ListOfWindows, IsDestroyedAgainWhenThereIsNoScanToShow)
{
    const ExpectedBox box{
        L"error", bytes_as_wide("error\n\nfile:\nsources/wnd_ScanListView\n\nfunction:\n"
                                "on_WM_CREATE_02_ListView\n\nline:\n612\n\nincorrect input parameters\n"
                                "line of error handler:\n803\n")};
    {
        ScanFixture fixture; // registers the class
        const BoxWatcher boxes;
        const HWND window =
            CreateWindowExW(0, L"List of Windows", L"List of windows", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300,
                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        EXPECT_EQ(window, nullptr);
        boxes.expect_boxes({box});
    }

    // The same for each thing that can be missing, and the other ones there.
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const STR_ENUM_WNDS_DATA kept = scan_record;
    for (const auto missing : {"window", "instance", "storage", "geometry", "rows"}) {
        SCOPED_TRACE(missing);
        const auto is = [&](const char* what) { return std::string(missing) == what; };
        const TestWindow parent(L"parent");
        HWND list = scan.first;
        if (is("geometry"))
            scan_record.pcDynMem_GeomText = nullptr;
        if (is("rows"))
            scan_record.counter_valid = 0;
        const BoxWatcher boxes;
        EXPECT_EQ(on_WM_CREATE_02_ListView(is("window") ? nullptr : HWND{parent}, 0, 0,
                                           is("instance") ? nullptr : GetModuleHandleW(nullptr),
                                           is("storage") ? nullptr : &list, 4),
                  -1);
        boxes.expect_boxes({box});
        EXPECT_EQ(IsWindow(parent) != FALSE, is("window"));
        EXPECT_EQ(list, static_cast<HWND>(scan.first)); // nothing was stored
        scan_record = kept;
    }
}

TEST(ListOfWindows, ReportsEveryRowAndCellThatCannotBeInserted)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    std::vector<WPARAM> drawing; // off and on again
    ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            if (message == WM_SETREDRAW)
                drawing.push_back(wParam);
            const LRESULT result =
                message == LVM_INSERTITEMW ? -1 : send.call_original(target, message, wParam, lParam);
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return result;
        });
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    std::vector<ExpectedBox> expected{{bytes_as_wide("ERROR"), L"-1 <-- InsertItem, cycle i"}};
    for (int column = 1; column <= 5; ++column) {
        expected.push_back({bytes_as_wide("GetLastError"), text_of_system(ERROR_NOT_ENOUGH_MEMORY), true});
        expected.push_back({bytes_as_wide("ERROR"), bytes_as_wide("-1 <-- InsertItem, cycle j")});
    }
    boxes.expect_boxes(expected);
    EXPECT_EQ(fixture.list().row_count(), 0);
    EXPECT_EQ(drawing, (std::vector<WPARAM>{FALSE, TRUE}));
}

TEST(ListOfWindows, IsShownWhenTheTextOfItsButtonsDoesNotFit)
{
    TwoRowsFixture scan;
    const screen_tests::TinyScreen screen;
    const BoxWatcher boxes;
    EXPECT_EQ(scan.fixture.scan(), 1);
    screen_tests::expect_no_room_and(
        boxes, compact_text({L"sources/wnd_ScanListView", L"WndProc_ScanListView", 203, 453},
                            L"one of callable functions returned error, FindFontSize_fit_H_and_W()"));
    EXPECT_EQ(scan.fixture.list().row_count(), 2);
    for (const int button : {1, 2}) {
        LOGFONTW font{};
        ASSERT_NE(GetObjectW(font_of_button(button), sizeof font, &font), 0);
        EXPECT_EQ(font.lfHeight, -1); // as the search gave it
        EXPECT_EQ(font.lfWeight, 700);
    }
}
