#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>
#include <shlobj.h>

#include <cstring>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/main_prg/main_window_fixture.h"
#include "tests/control/profiles/profile_fixture.h"
#include "tests/control/scanning/scan_fixture.h"
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

TEST(MainWindow, TakesTheSelectionOfTheActionListOver)
{
    const MainWindow main;
    const BoxWatcher boxes;
    SendMessageW(main.control(5), CB_SETCURSEL, 2, 0);
    const auto notify = [&](int id, int code, int control) {
        return SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, code),
                            reinterpret_cast<LPARAM>(main.control(control)));
    };
    main_window.CB_Action.uiSelection = 7;
    for (const int code : {CBN_SETFOCUS, CBN_DBLCLK, CBN_DROPDOWN, CBN_SELENDOK}) // any but CBN_SELCHANGE
        EXPECT_EQ(notify(5, code, 5), 0);
    EXPECT_EQ(notify(5, CBN_SELCHANGE, 4), 0); // of another list
    EXPECT_EQ(notify(4, CBN_SELCHANGE, 5), 0);
    EXPECT_EQ(main_window.CB_Action.uiSelection, 7u);
    EXPECT_EQ(notify(5, CBN_SELCHANGE, 5), 0);
    EXPECT_EQ(main_window.CB_Action.uiSelection, 2u);
    boxes.expect_no_boxes();
}

TEST(MainWindow, AnswersEveryCommandWith0)
{
    scan_tests::Desktop desktop({});
    int scans = 0;
    desktop.before_pass = [&](int) { ++scans; }; // with nothing to list there is no second pass
    const scan_tests::ScanFixture fixture;
    const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall, FALSE,
                                                                            0);
    const MainWindow main;
    const BoxWatcher boxes;
    for (WORD id = 0; id <= 10; ++id) {
        EXPECT_EQ(SendMessageW(main.window, WM_COMMAND, id, 0), 0) << id; // as the menu sends it
        for (const int code : {BN_CLICKED, CBN_SELCHANGE})
            EXPECT_EQ(SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, code),
                                   reinterpret_cast<LPARAM>(main.control(id))),
                      0)
                << id << " with " << code;
    }
    // Among them were two scans, two loads and Apply.
    EXPECT_EQ(scans, 2);
    EXPECT_EQ(cancelled.calls(), 2);
    EXPECT_EQ(boxes.boxes().at(0).title, L"info");
    // A drop of nothing, a size, a picture.
    EXPECT_EQ(SendMessageW(main.window, WM_DROPFILES, 0, 0), 0);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(600, 400)), 0);
    EXPECT_EQ(SendMessageW(main.window, WM_PAINT, 0, 0), 0);
}

TEST(MainWindow, IgnoresUnknownCommands)
{
    const MainWindow main;
    const BoxWatcher boxes;
    for (const int id : {0, 10, 101})
        main.menu_command(static_cast<WORD>(id));
    SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(6, BN_CLICKED),
                 reinterpret_cast<LPARAM>(main.control(1)));
    for (int id = 3; id <= 9; ++id) {
        // What is reserved for the menu, but comes from a control or a key.
        SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(main.control(1)));
        SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, 1), 0);
    }
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

TEST(MainWindow, PlacesEachControlWhereItBelongs)
{
    const ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen("user32.dll", [](int metric) {
        return metric == SM_CXSCREEN ? 1366 : metric == SM_CYSCREEN ? 768 : 0;
    });
    const MainWindow main;
    main_window.STR_GeomLt_MW.i_font_size = 15;
    SendMessageW(main.window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(600, 400));
    const auto place = [&](int id) {
        RECT rect = rectangle_of(main.control(id));
        MapWindowPoints(nullptr, main.window, reinterpret_cast<POINT*>(&rect), 2);
        return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
               std::to_string(rect.right - rect.left);
    };
    // Buttons are 81 by 26 pixels, lines 135 by 18.
    EXPECT_EQ(place(1), "450,5 81");
    EXPECT_EQ(place(2), "450,36 81");
    EXPECT_EQ(place(4), "450,133 135");
    EXPECT_EQ(place(5), "450,187 135");
    EXPECT_EQ(place(6), "450,218 81");
}

TEST(MainWindow, PaintsItsGradientAndThenItsLabelsInTheControlsFont)
{
    const MainWindow main;
    ShowWindow(main.window, SW_SHOWNA);
    UpdateWindow(main.window);
    RECT client{};
    GetClientRect(main.window, &client);
    std::vector<std::wstring> drawn;
    const ImportHook<"GradientFill", decltype(GradientFill)> gradient(
        "msimg32.dll",
        [&](HDC dc, PTRIVERTEX corners, ULONG n_corners, PVOID mesh, ULONG n_mesh, ULONG mode) -> BOOL {
            drawn.push_back(L"gradient");
            EXPECT_EQ(WindowFromDC(dc), main.window);
            EXPECT_EQ(n_corners, 2u);
            EXPECT_EQ(n_mesh, 1u);
            EXPECT_EQ(static_cast<GRADIENT_RECT*>(mesh)->UpperLeft, 0u);
            EXPECT_EQ(static_cast<GRADIENT_RECT*>(mesh)->LowerRight, 1u);
            EXPECT_EQ(mode, 1u); // from top to bottom
            const TRIVERTEX top{0, 0, 0x1600, 0xFA00, 0xFA00, 0};
            const TRIVERTEX bottom{client.right, client.bottom, 0xBB00, 0xFD00, 0xFD00, 0};
            EXPECT_EQ(memcmp(&corners[0], &top, sizeof top), 0);
            EXPECT_EQ(memcmp(&corners[1], &bottom, sizeof bottom), 0);
            return TRUE;
        });
    const ImportHook<"DrawTextW", decltype(DrawTextW)> text(
        "user32.dll", [&](HDC dc, LPCWSTR words, int, LPRECT, UINT) -> int {
            EXPECT_EQ(WindowFromDC(dc), main.window);
            EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT) == main_window.hFont_controls,
                      std::wstring(words).size() > 1); // "Y" and "X" have a larger one
            drawn.push_back(words);
            return 1;
        });
    RedrawWindow(main.window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(drawn, (std::vector<std::wstring>{L"gradient", L"Y", L"X", L"Profile:", L"Action:"}));
    EXPECT_FALSE(GetUpdateRect(main.window, nullptr, FALSE)); // all of it is painted
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

TEST(MainWindow, ResetsTheScanRecordBeforeAScan)
{
    const MainWindow main;
    scan_record = {};
    scan_record.counter_all = scan_record.counter_valid = scan_record.counter_filled = 7;
    scan_record.uiSize_TmpBuf_Path = 1;
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr, 8);
    const BoxWatcher boxes;
    main.press(1);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/funcs_layout_windows", L"onButton_Scan_Clicked", 988, 1355},
                                 L"ERROR <- VirtualAlloc()")},
         {L"error", compact_text({L"sources/main_prg", L"WndProc", 888, 1187},
                                 L"ERROR <- onButton_Scan_Click()\nret code = -3")}});
    EXPECT_EQ(scan_record.counter_all, 0u);
    EXPECT_EQ(scan_record.counter_valid, 0u);
    EXPECT_EQ(scan_record.counter_filled, 0u);
    EXPECT_EQ(scan_record.uiSize_TmpBuf_Path, 32768u);
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
    // Nor does a load after the drops.
    const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall, FALSE,
                                                                            0);
    boxes.forget();
    main.press(2);
    EXPECT_EQ(cancelled.calls(), 1);
    EXPECT_EQ(fails.calls(), 1);
    boxes.expect_no_boxes();
}

TEST(MainWindow, KeepsTheHandleOfTheLastDrop)
{
    const MainWindow main;
    const BoxWatcher boxes; // answers what a drop without files shows
    const HGLOBAL drop = GlobalAlloc(GHND, sizeof(DROPFILES) + 4);
    SendMessageW(main.window, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
    EXPECT_EQ(main_window.hDrop, static_cast<HDROP>(drop));
    GlobalFree(drop);
}

TEST(MainWindow, TakesEverythingDownWhenItCloses)
{
    scan_tests::ScanFixture fixture; // registers the list's class
    const scan_tests::TestWindow other(L"other");
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
