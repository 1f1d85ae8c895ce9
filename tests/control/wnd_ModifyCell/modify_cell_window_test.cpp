#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/control/fixtures/screen_of_size.h"
#include "tests/control/fixtures/windows_made.h"
#include "tests/support/basics/text.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// The window Modify Cell as it is made: its class, its controls, their font.

using namespace test_support;
using modify_cell_tests::ModifyCell;
using modify_cell_tests::Texts;
using window_tests::WindowsMade;

namespace
{

// Places of the controls, from the size of the screen.
struct Places {
    int bw;
    int bh;
    int right; // of the buttons

    Places(int screen_width, int screen_height)
        : bw(static_cast<int>(0.045F * static_cast<float>(screen_width))),
          bh(static_cast<int>(0.025F * static_cast<float>(screen_height))),
          right(static_cast<int>(30 + 0.135 * screen_width) - 5)
    {
    }
    std::wstring edit(int row) const { return place(bw + 15, 5 + row * (bh + 5)); }
    std::wstring button(int row) const { return place(right - bw, 5 + row * (bh + 5)); }

private:
    std::wstring place(int x, int y) const
    {
        return std::to_wstring(x) + L"," + std::to_wstring(y) + L" " + std::to_wstring(bw) + L"x" +
               std::to_wstring(bh);
    }
};

} // namespace

TEST_F(ModifyCell, MakesItsWindowAndSixControlsInOrder)
{
    for (const SIZE size : {SIZE{1366, 768}, SIZE{1919, 1079}}) {
        SCOPED_TRACE(size.cx);
        const screen_tests::ScreenOfSize screen(size.cx, size.cy);
        const Places at(size.cx, size.cy);
        const WindowsMade made;
        open(0);
        const auto window_size = std::to_wstring(static_cast<int>(35 + 0.135 * size.cx)) + L"x" +
                                 std::to_wstring(static_cast<int>(25 + 0.15 * size.cy));
        // Caption and system menu; the cursor is at (200, 150).
        EXPECT_EQ(made.lines,
                  (Texts{L"Modify Cell Window \"Modify Cell\" 0: 00C80000 00000000 230,180 " + window_size,
                         L"button \"Ok\" 4: 50000300 00000000 " + at.button(0),
                         L"button \"Cancel\" 5: 50000300 00000000 " + at.button(1),
                         L"EDIT \"\" 0: 50002000 00000200 " + at.edit(0),
                         L"EDIT \"\" 1: 50002000 00000200 " + at.edit(1),
                         L"EDIT \"\" 2: 50002000 00000200 " + at.edit(2),
                         L"EDIT \"\" 3: 50002000 00000200 " + at.edit(3)}));
        EXPECT_EQ(made.parents, (std::vector<HWND>{nullptr, dialog, dialog, dialog, dialog, dialog, dialog}));
        // The box of X has the focus as soon as it is there, and keeps it.
        ASSERT_EQ(made.focused.size(), 7u);
        EXPECT_EQ(made.focused[4], control(cell_control::kX));
        EXPECT_EQ(GetFocus(), control(cell_control::kX));
        DestroyWindow(dialog);
    }
}

TEST_F(ModifyCell, HasItsControlsAtTheirPlaces)
{
    open(0);
    const Places at(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    const auto place_of = [this](int id) {
        RECT rect = rectangle_of(control(id));
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return std::to_wstring(rect.left) + L"," + std::to_wstring(rect.top) + L" " +
               std::to_wstring(rect.right - rect.left) + L"x" + std::to_wstring(rect.bottom - rect.top);
    };
    for (int id = 0; id < 4; ++id)
        EXPECT_EQ(place_of(id), at.edit(id)) << id;
    EXPECT_EQ(place_of(cell_control::kOk), at.button(0));
    EXPECT_EQ(place_of(cell_control::kCancel), at.button(1));
}

TEST_F(ModifyCell, RegistersItsClassOnce)
{
    open(0);
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    ASSERT_NE(GetClassInfoExW(GetModuleHandleW(nullptr), L"Modify Cell Window", &found), FALSE);
    EXPECT_EQ(found.style, 3u); // redrawn as a whole when its width or height changes
    EXPECT_EQ(found.lpfnWndProc, &WndProc_ModifyCell);
    EXPECT_EQ(found.cbClsExtra, 0);
    EXPECT_EQ(found.cbWndExtra, 0);
    EXPECT_EQ(found.hIcon, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(found.hIconSm, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(found.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(found.hbrBackground, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(found.lpszMenuName, nullptr);
    DestroyWindow(dialog);

    int registered = 0;
    const ImportHook<"RegisterClassExW", decltype(RegisterClassExW)> hook(
        "user32.dll", [&](const WNDCLASSEXW* record) {
            ++registered;
            return hook.call_original(record);
        });
    open(0);
    EXPECT_EQ(registered, 0);
}

TEST_F(ModifyCell, IsShownAndThenSentTheCell)
{
    Texts steps;
    const auto step_of = [&](HWND window, const std::wstring& what) {
        if (class_of(window) == L"Modify Cell Window")
            steps.push_back(what);
    };
    const ImportHook<"ShowWindow", decltype(ShowWindow)> show("user32.dll", [&](HWND window, int command) {
        step_of(window, L"show " + std::to_wstring(command));
        return show.call_original(window, command);
    });
    const ImportHook<"UpdateWindow", decltype(UpdateWindow)> update("user32.dll", [&](HWND window) {
        step_of(window, L"update");
        return update.call_original(window);
    });
    const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_COPYDATA) {
                const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
                const auto* words = static_cast<const std::uint32_t*>(data.lpData);
                step_of(window, L"data of " + std::to_wstring(data.cbData) + L" bytes: row " +
                                    std::to_wstring(words[0]) + L", column " + std::to_wstring(words[1]));
                EXPECT_EQ(wParam, reinterpret_cast<WPARAM>(hwnd_ScanListView));
                EXPECT_EQ(*reinterpret_cast<const HWND*>(words + 2), fixture.list().window());
            }
            return send.call_original(window, message, wParam, lParam);
        });
    open(1, 4);
    EXPECT_EQ(steps, (Texts{L"show 5", L"update", L"data of 16 bytes: row 1, column 4"}));
}

TEST_F(ModifyCell, FitsItsControlsFontToTheTextCancel)
{
    // The height of the buttons is the limit first, then their width.
    for (const SIZE size : {SIZE{20000, 4000}, SIZE{10000, 20000}}) {
        SCOPED_TRACE(size.cx);
        const screen_tests::ScreenOfSize screen(size.cx, size.cy);
        const screen_tests::ContextsOf contexts(L"Modify Cell Window");
        const screen_tests::FontsGiven fonts;
        open(0);
        EXPECT_EQ(fonts.redrawn, 6);
        EXPECT_EQ(fonts.not_redrawn, 0);
        EXPECT_EQ(contexts.got, 1);
        EXPECT_EQ(contexts.released, 1);
        const Places at(size.cx, size.cy);
        const int expected = screen_tests::fitting_font_height(
            dialog, L"Cancel", static_cast<int>(0.85 * at.bh), static_cast<int>(0.8 * at.bw));
        EXPECT_GT(expected, 50);
        const auto font_of = [this](int id) {
            return reinterpret_cast<HFONT>(SendMessageW(control(id), WM_GETFONT, 0, 0));
        };
        LOGFONTW font{};
        ASSERT_NE(GetObjectW(font_of(0), sizeof font, &font), 0);
        EXPECT_EQ(font.lfHeight, expected);
        EXPECT_EQ(font.lfWeight, 700);
        EXPECT_EQ(font.lfPitchAndFamily, 16);
        EXPECT_EQ(font.lfItalic + font.lfUnderline + font.lfStrikeOut, 0);
        for (int id = 1; id < 6; ++id)
            EXPECT_EQ(font_of(id), font_of(0)) << id;
        DestroyWindow(dialog);
    }
}
