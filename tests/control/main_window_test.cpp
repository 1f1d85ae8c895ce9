#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>
#include <objbase.h>

#include <string>
#include <vector>

#include "tests/control/main_desk.h"
#include "tests/control/scan_desk.h"
#include "tests/support/box_watcher.h"
#include "tests/support/folder_windows_script.h"
#include "tests/support/import_patch.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"
#include "tests/support/windows_lookup.h"

using namespace test_support;
using main_tests::MainWindow;

namespace
{

std::wstring compact(const std::wstring& line, const std::wstring& detail, const std::wstring& handler)
{
    return L"error\n\nfile:\nsources/main_prg\nfunction:\nWndProc\nline:\n" + line + L"\n\n" + detail +
           L"\nline of error handler:" + handler;
}

} // namespace

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

TEST(MainWindow, ReportsEveryControlThatCannotBeMade)
{
    const wchar_t* const combos =
        L"error while creating ComboBox Profile | ComboBox Action | Button Apply, main window "
        L"WndProc()";
    const wchar_t* const texts[] = {L"err, hWndBTN00=NULL, func WndProc",
                                    L"error, hWndBTN_LoadProfile==NULL, func WndProc", combos, combos,
                                    combos};
    for (int i = 0; i < 5; ++i) {
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", i + 2, nullptr,
                                                                                8);
        const BoxWatcher boxes;
        const MainWindow main;
        std::vector<SeenBox> seen = boxes.boxes();
        // An Action list that is not there cannot be filled either.
        ASSERT_EQ(seen.size(), i == 3 ? 2u : 1u);
        seen.resize(1);
        EXPECT_EQ(difference(seen, {{L"error", texts[i]}}), "");
        EXPECT_EQ(seen[0].owner, i < 2 ? main.window : nullptr);
        EXPECT_NE(main.window, nullptr);
    }
}

TEST(MainWindow, GoesOnWithoutAFontWhenThereIsNoDeviceContext)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 1, nullptr, 8);
    const BoxWatcher boxes;
    const MainWindow main;
    boxes.expect_boxes({{L"error", compact(L"563", L"ERROR <- GetDC() of Main Window", L"1228")}});
    EXPECT_NE(main.window, nullptr);
    EXPECT_EQ(SendMessageW(main.control(1), WM_GETFONT, 0, 0), 0);
}

TEST(MainWindow, GoesOnWithoutAFontWhenItCannotBeMade)
{
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const BoxWatcher boxes;
    const MainWindow main;
    boxes.expect_boxes({{L"error", L"error <- vex_CreateFont while WM_CREATE"}});
    EXPECT_EQ(boxes.boxes()[0].owner, nullptr);
    EXPECT_NE(main.window, nullptr);
}

TEST(MainWindow, ReportsTheThreeResultsOfComThatMeanNoCom)
{
    for (const HRESULT result : {E_INVALIDARG, E_OUTOFMEMORY, E_UNEXPECTED, RPC_E_CHANGED_MODE, S_FALSE}) {
        const ImportHook<"CoInitializeEx", decltype(CoInitializeEx)> com(
            "ole32.dll", [&](void* reserved, DWORD model) -> HRESULT {
                EXPECT_EQ(reserved, nullptr);
                EXPECT_EQ(model, 2u);
                return result;
            });
        const BoxWatcher boxes;
        const MainWindow main;
        if (result == RPC_E_CHANGED_MODE || result == S_FALSE)
            boxes.expect_no_boxes();
        else
            boxes.expect_boxes({{L"error", L"error <- CoInitializeEx(), impossible init COM"}});
    }
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
         {L"error", compact(L"888", L"ERROR <- onButton_Scan_Click()\nret code = -2", L"1187")}});
}

TEST(MainWindow, SetsTheStoreUpOnceEvenWhenThatFails)
{
    const MainWindow main;
    FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr, 8);
    BoxWatcher boxes;
    SendMessageW(main.window, WM_DROPFILES, 0, 0);
    const ExpectedBox not_set_up{L"error", L"WndProc, WM_DROPFILES, error <- preInitOnce_onLoadProfile()"};
    int set_ups = 0;
    for (const SeenBox& box : boxes.boxes()) {
        if (difference({box}, {not_set_up}).empty()) {
            ++set_ups;
            EXPECT_EQ(box.owner, main.window);
        }
    }
    EXPECT_EQ(set_ups, 1);
    const int attempts = fails.calls();
    boxes.forget();
    SendMessageW(main.window, WM_DROPFILES, 0, 0);
    for (const SeenBox& box : boxes.boxes())
        EXPECT_EQ(box.text.find(L"preInitOnce"), std::wstring::npos);
    EXPECT_EQ(fails.calls(), attempts);
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
