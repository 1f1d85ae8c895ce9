#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>
#include <shlobj.h>

#include <cstring>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using main_tests::MainWindowFixture;

TEST(MainWindow, BuildsItsFiveControls)
{
    const BoxWatcher boxes;
    const MainWindowFixture main;
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
    const LRESULT font = SendMessageW(main.control(main_control::kScan), WM_GETFONT, 0, 0);
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
    const MainWindowFixture main;
    const HMENU menu = GetMenu(main.window);
    ASSERT_NE(menu, nullptr);
    wchar_t text[20]{};
    GetMenuStringW(menu, 9, text, 20, MF_BYCOMMAND);
    EXPECT_STREQ(text, L"About");
    EXPECT_EQ(GetMenuItemCount(menu), 1);
}

TEST(MainWindow, CannotBeMadeSmallerThanItOpens)
{
    const MainWindowFixture main;
    MINMAXINFO info{};
    EXPECT_EQ(SendMessageW(main.window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)), 0);
    EXPECT_EQ(info.ptMinTrackSize.x,
              static_cast<int>(0.4F * static_cast<float>(GetSystemMetrics(SM_CXSCREEN))));
    EXPECT_EQ(info.ptMinTrackSize.y,
              static_cast<int>(0.45F * static_cast<float>(GetSystemMetrics(SM_CYSCREEN))));
}

TEST(MainWindow, DoesNotLayOutAgainWhenItIsMinimised)
{
    const MainWindowFixture main;
    MoveWindow(main.window, 50, 60, 800, 560, FALSE);
    const RECT before = rectangle_of(main.control(main_control::kApply));
    EXPECT_GT(before.left, 500);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(0, 0)), 0);
    EXPECT_EQ(rectangle_of(main.control(main_control::kApply)).left, before.left);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(0, 0)), 0);
    EXPECT_NE(rectangle_of(main.control(main_control::kApply)).left, before.left);
}

TEST(MainWindow, PlacesEachControlWhereItBelongs)
{
    const ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen("user32.dll", [](int metric) {
        return metric == SM_CXSCREEN ? 1366 : metric == SM_CYSCREEN ? 768 : 0;
    });
    const MainWindowFixture main;
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
    const MainWindowFixture main;
    ShowWindow(main.window, SW_SHOWNA);
    UpdateWindow(main.window);
    RECT client{};
    GetClientRect(main.window, &client);
    std::vector<std::wstring> drawn;
    const ImportHook<"GdiGradientFill", decltype(GdiGradientFill)> gradient(
        "gdi32.dll",
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
    const MainWindowFixture main;
    EXPECT_EQ(SendMessageW(main.window, WM_ERASEBKGND, 0, 0), 1);
}

TEST(MainWindow, SetsUpTheStoreOnceEvenWhenThatFails)
{
    const MainWindowFixture main;
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
    main.press(main_control::kLoadProfile);
    EXPECT_EQ(cancelled.calls(), 1);
    EXPECT_EQ(fails.calls(), 1);
    boxes.expect_no_boxes();
}

TEST(MainWindow, KeepsTheHandleOfTheLastDrop)
{
    const MainWindowFixture main;
    const BoxWatcher boxes; // answers what a drop without files shows
    const HGLOBAL drop = GlobalAlloc(GHND, sizeof(DROPFILES) + 4);
    SendMessageW(main.window, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
    EXPECT_EQ(main_window.hDrop, static_cast<HDROP>(drop));
    GlobalFree(drop);
}
