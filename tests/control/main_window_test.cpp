#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>

#include <string>

#include "tests/control/main_desk.h"
#include "tests/control/profile_desk.h"
#include "tests/control/scan_desk.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"
#include "tests/support/text.h"
#include "tests/support/windows_lookup.h"

using namespace test_support;
using main_tests::MainWindow;
using profile_tests::compact_text;
using profile_tests::handler_first_text;
using profile_tests::pointer;
using profile_tests::spaced_text;

TEST(MainWindow, BuildsItsFiveControls)
{
    const BoxWatcher boxes;
    const MainWindow main;
    boxes.expect_no_boxes();
    const struct {
        int id;
        const wchar_t* class_name;
        const wchar_t* title;
        DWORD style;
    } controls[] = {{1, L"Button", L"Scan", 0x50000300},
                    {2, L"Button", L"Load Profile", 0x50000300},
                    {4, L"ComboBox", L"", 0x50000243},
                    {5, L"ComboBox", L"", 0x50000203},
                    {6, L"Button", L"Apply", 0x50000300}};
    const LRESULT font = SendMessageW(main.control(1), WM_GETFONT, 0, 0);
    EXPECT_NE(font, 0);
    for (const auto& control : controls) {
        const HWND window = main.control(control.id);
        EXPECT_EQ(class_of(window), control.class_name);
        EXPECT_EQ(title_of(window), control.title);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & 0x5000FFFFu, control.style)
            << control.id;
        EXPECT_EQ(SendMessageW(window, WM_GETFONT, 0, 0), font) << control.id;
    }
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(font), sizeof description, &description);
    EXPECT_EQ(description.lfWeight, 700);
    EXPECT_EQ(description.lfPitchAndFamily, 16);
}

TEST(MainWindow, HasTheMenuWithAbout)
{
    const MainWindow main;
    const HMENU menu = GetMenu(main.window);
    ASSERT_NE(menu, nullptr);
    wchar_t text[20]{};
    GetMenuStringW(menu, 9, text, 20, MF_BYCOMMAND);
    EXPECT_STREQ(text, L"About");
    EXPECT_EQ(GetMenuItemCount(menu), 1);
}

TEST(MainWindow, ShowsTheAboutBox)
{
    const MainWindow main;
    const BoxWatcher boxes;
    main.menu_command(9);
    const SeenBox box = boxes.boxes().at(0);
    EXPECT_EQ(box.title, L"About");
    EXPECT_EQ(box.owner, main.window);
    EXPECT_FALSE(box.has_icon);
    const std::wstring beginning =
        L"This small software utility \"Wendlow\" is intended for keeping your folders and "
        L"programs layout organized.\n\n";
    const std::wstring end = L"\n\nrelease date: 2020-05-18";
    ASSERT_GT(box.text.size(), beginning.size() + end.size());
    EXPECT_EQ(box.text.substr(0, beginning.size()), beginning);
    EXPECT_EQ(box.text.substr(box.text.size() - end.size()), end);
}

TEST(MainWindow, ShowsReservedCommandsAsBytes)
{
    const char* const texts[] = {"menu item FILE NEW",     "menu item FILE OPEN", "menu item FILE SAVE",
                                 "menu item FILE SAVE AS", "menu item EXIT",      "menu item HELP"};
    const MainWindow main;
    for (WORD id = 3; id <= 8; ++id) {
        const BoxWatcher boxes;
        main.menu_command(id);
        boxes.expect_boxes({{bytes_as_wide(id == 8 ? "Help" : ""), bytes_as_wide(texts[id - 3])}});
        EXPECT_EQ(boxes.boxes().at(0).owner, main.window);
    }
}

TEST(MainWindow, DoesNotTouchTheProfileListOnTheReservedCommandOfItsNumber)
{
    const MainWindow main;
    SendMessageW(main.control(4), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"one"));
    SendMessageW(main.control(4), CB_SETCURSEL, 0, 0);
    main_window.CB_Profile.uiSelection = 7;
    const BoxWatcher boxes;
    main.menu_command(4);
    boxes.expect_boxes({{L"", bytes_as_wide("menu item FILE OPEN")}});
    EXPECT_EQ(main_window.CB_Profile.uiSelection, 7u);
    // The list itself does.
    SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(4, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(main.control(4)));
    EXPECT_EQ(main_window.CB_Profile.uiSelection, 0u);
    EXPECT_EQ(boxes.count(), 1u);
}

TEST(MainWindow, IgnoresUnknownCommands)
{
    const MainWindow main;
    const BoxWatcher boxes;
    for (const int id : {0, 10, 101})
        main.menu_command(static_cast<WORD>(id));
    SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(6, BN_CLICKED),
                 reinterpret_cast<LPARAM>(main.control(1)));
    boxes.expect_no_boxes();
}

TEST(MainWindow, CannotBeMadeSmallerThanItOpens)
{
    const MainWindow main;
    MINMAXINFO info{};
    EXPECT_EQ(SendMessageW(main.window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)), 0);
    EXPECT_EQ(info.ptMinTrackSize.x,
              static_cast<int>(0.4F * static_cast<float>(GetSystemMetrics(SM_CXSCREEN))));
    EXPECT_EQ(info.ptMinTrackSize.y,
              static_cast<int>(0.45F * static_cast<float>(GetSystemMetrics(SM_CYSCREEN))));
}

TEST(MainWindow, DoesNotLayOutAgainWhenItIsMinimised)
{
    const MainWindow main;
    MoveWindow(main.window, 50, 60, 800, 560, FALSE);
    const RECT before = rectangle_of(main.control(6));
    EXPECT_GT(before.left, 500);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(0, 0)), 0);
    EXPECT_EQ(rectangle_of(main.control(6)).left, before.left);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(0, 0)), 0);
    EXPECT_NE(rectangle_of(main.control(6)).left, before.left);
}

TEST(MainWindow, DoesNotEraseItsBackground)
{
    const MainWindow main;
    EXPECT_EQ(SendMessageW(main.window, WM_ERASEBKGND, 0, 0), 1);
}

TEST(MainWindow, ReportsAFailedScan)
{
    const MainWindow main;
    const FailingImport<"EnumWindows", decltype(EnumWindows)> fails("user32.dll", kEveryCall, FALSE, 87);
    const BoxWatcher boxes;
    main.press(1);
    boxes.expect_boxes(
        {{L"error",
          L"error\n\nfile:\nsources/funcs_layout_windows\nfunction:\nonButton_Scan_Clicked\nline:\n1017"
          L"\n\nERROR <- EnumWindows()\nline of error handler:1382"},
         {L"error", compact_text({L"sources/main_prg", L"WndProc", 888, 1187},
                                 L"ERROR <- onButton_Scan_Click()\nret code = -2")}});
}

TEST(MainWindow, SetsTheStoreUpOnceEvenWhenThatFails)
{
    const MainWindow main;
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr, 8);
    const auto bytes_of = [](const std::wstring& text) {
        return bytes_as_wide(std::string(text.begin(), text.end()));
    };
    // The drop goes on without the store, to find that it has no handle.
    const ExpectedBox no_drop{
        bytes_of(L"error"),
        bytes_of(spaced_text({L"sources/funcs_layout_windows", L"on_wm_dropfiles", 9102, 9207},
                             L"incorrect input:\nhwnd_MW = " + pointer(main.window) +
                                 L", hDrop = 0000000000000000"))};
    BoxWatcher boxes;
    SendMessageW(main.window, WM_DROPFILES, 0, 0);
    boxes.expect_boxes({{L"error", handler_first_text({L"sources/funcs_layout_windows",
                                                       L"preInitOnce_onLoadProfile", 4539, 4613},
                                                      L"\nerror <- VirtualAlloc()")},
                        {L"error", L"WndProc, WM_DROPFILES, error <- preInitOnce_onLoadProfile()"},
                        no_drop});
    EXPECT_EQ(boxes.boxes().at(1).owner, main.window);
    EXPECT_EQ(fails.calls(), 1);
    boxes.forget();
    SendMessageW(main.window, WM_DROPFILES, 0, 0);
    boxes.expect_boxes({no_drop});
    EXPECT_EQ(fails.calls(), 1);
    EXPECT_EQ(main_window.LoadedProfiles.pc_hwnds_wnds_of_prfl, nullptr);
    EXPECT_EQ(main_window.LoadedProfiles.pc_raw_FilesProfile, nullptr);
}

TEST(MainWindow, TakesEverythingDownWhenItCloses)
{
    scan_tests::ScanDesk desk; // registers the list's class
    const scan_tests::DeskWindow other(L"other");
    const MainWindow main;
    {
        // Sets the two areas of the store up; the dialog is cancelled.
        const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall,
                                                                                FALSE, 0);
        main.press(2);
        ASSERT_EQ(cancelled.calls(), 1);
    }
    main.press(1);
    const HWND list = hwnd_ScanListView;
    ASSERT_NE(list, nullptr);
    int released = 0;
    ImportHook<"VirtualFree", decltype(VirtualFree)> release(
        "kernel32.dll", [&](LPVOID block, SIZE_T size, DWORD type) {
            const BOOL done = release.call_original(block, size, type);
            ++released;
            EXPECT_TRUE(done);
            return done;
        });
    const BoxWatcher boxes;
    DestroyWindow(main.window);
    boxes.expect_no_boxes();
    EXPECT_FALSE(IsWindow(list));
    EXPECT_EQ(released, 6 + 2); // of the scan and of the store, each block once
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 0u);
}
