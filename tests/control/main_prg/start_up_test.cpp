#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/main_prg/main_window.h"
#include "sources/wnd_ScanListView/wnd_ScanListView.h"
#include "tests/control/main_prg/start_up_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/windows/test_window.h"

// What the entry point asks of the system, and in which order.

using namespace test_support;
using main_tests::StartUpFixture;
using Steps = std::vector<std::string>;

namespace
{

SIZE size_of(HICON icon)
{
    ICONINFO info{};
    EXPECT_TRUE(GetIconInfo(icon, &info));
    BITMAP colours{};
    GetObjectW(info.hbmColor, sizeof colours, &colours);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return {colours.bmWidth, colours.bmHeight};
}

// The icon drawn so many pixels wide and high on white.
std::vector<COLORREF> picture_of(HICON icon, int size = 32)
{
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size, size);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    PatBlt(dc, 0, 0, size, size, WHITENESS);
    DrawIconEx(dc, 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            pixels.push_back(GetPixel(dc, x, y));
    }
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return pixels;
}

std::vector<COLORREF> picture_of_resource(WORD id, int size = 32)
{
    const auto icon = static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
    EXPECT_NE(icon, nullptr);
    const std::vector<COLORREF> picture = picture_of(icon, size);
    DestroyIcon(icon);
    return picture;
}

// The widths of the pictures that the icon has in the resources; each is as high as it is wide.
std::vector<int> sizes_of_icon(WORD id)
{
    const HMODULE module = GetModuleHandleW(nullptr);
    const auto bytes_of = [&](const wchar_t* type, WORD resource) {
        const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(resource), type);
        return static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
    };
    const BYTE* group = bytes_of(RT_GROUP_ICON, id);
    std::vector<int> sizes;
    // Behind six bytes, the last two of which are the count, fourteen for each picture.
    for (int i = 0; i < group[4]; ++i) {
        const BYTE* entry = group + 6 + i * 14;
        EXPECT_EQ(entry[0], entry[1]);
        sizes.push_back(entry[0] == 0 ? 256 : entry[0]);
    }
    return sizes;
}

// What both classes have alike.
void expect_class(const WNDCLASSEXW& seen, const std::wstring& name, WNDPROC procedure, int brush)
{
    EXPECT_EQ(seen.cbSize, 80u);
    EXPECT_EQ(seen.style, 3u); // redrawn when the width or the height changes
    EXPECT_EQ(seen.lpfnWndProc, procedure);
    EXPECT_EQ(seen.cbClsExtra, 0);
    EXPECT_EQ(seen.cbWndExtra, 0);
    EXPECT_EQ(seen.hInstance, GetModuleHandleW(nullptr));
    EXPECT_EQ(seen.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(seen.hbrBackground, GetStockObject(brush));
    EXPECT_EQ(std::wstring(seen.lpszClassName), name);
}

} // namespace

TEST(StartUp, TakesItsStepsInOrder)
{
    const BoxWatcher boxes;
    StartUpFixture start;
    start.loop.exit_code = 0x0000'0001'8000'0007;
    // Only the low 32 bits of the exit code are handed on.
    EXPECT_EQ(start.run(SW_SHOWMAXIMIZED), static_cast<int>(0x80000007));
    EXPECT_EQ(start.seen.steps,
              (Steps{"libraries from 800", "no ghosting", "find prg_wnds_layout, any title",
                     "common controls 4727 of 8 bytes", "class prg_wnds_layout", "class List of Windows",
                     "create", "drops on main: 1", "message 233 to main: 1", "message 4A to main: 1",
                     "message 49 to main: 1", "show main: 3", "update main", "loop"}));
    EXPECT_TRUE(GetWindowLongW(start.seen.window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_TRUE(IsZoomed(start.seen.window));
    boxes.expect_no_boxes();
}

TEST(StartUp, RegistersTheMainWindowsClass)
{
    StartUpFixture start;
    start.run(SW_SHOW);
    ASSERT_EQ(start.creation.classes.size(), 2u);
    const WNDCLASSEXW& seen = start.creation.classes[0];
    expect_class(seen, L"prg_wnds_layout", WndProc, BLACK_BRUSH);
    EXPECT_EQ(std::wstring(seen.lpszMenuName), L"menu_main");
    // The small icon is the large picture in its full size.
    const std::vector<COLORREF> large = picture_of_resource(200);
    EXPECT_NE(large, picture_of_resource(201));
    // The other one is as large as the system's icons are at the scale of the screen.
    const int system_size = GetSystemMetrics(SM_CXICON);
    EXPECT_EQ(picture_of(seen.hIcon, system_size), picture_of_resource(200, system_size));
    EXPECT_EQ(picture_of(seen.hIconSm), large);
    EXPECT_EQ(size_of(seen.hIconSm).cx, 32);
    EXPECT_EQ(size_of(seen.hIconSm).cy, 32);
}

TEST(StartUp, HasItsIconInEverySize)
{
    EXPECT_EQ(sizes_of_icon(200), (std::vector<int>{16, 20, 24, 32, 48, 64, 256}));
    EXPECT_EQ(sizes_of_icon(201), std::vector<int>{16});
}

TEST(StartUp, HasTheSameDrawingInEverySizeOfItsIcon)
{
    for (const int size : {16, 20, 24, 32, 48, 64, 256}) {
        SCOPED_TRACE(size);
        const auto icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(200),
                                                        IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
        ASSERT_NE(icon, nullptr);
        EXPECT_EQ(size_of(icon).cx, size);
        EXPECT_EQ(size_of(icon).cy, size);
        // A window's white in the middle of the left half, the frame's dark blue at the left edge.
        const std::vector<COLORREF> picture = picture_of(icon, size);
        const auto pixel = [&](int x, int y) {
            return picture[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                           static_cast<std::size_t>(x)];
        };
        EXPECT_EQ(pixel(size * 9 / 32, size * 14 / 32), RGB(255, 255, 255));
        EXPECT_LT(GetRValue(pixel(0, size / 2)), 64);
        EXPECT_LT(GetGValue(pixel(0, size / 2)), 160);
        EXPECT_LT(GetBValue(pixel(0, size / 2)), 160);
        // Nothing at the corner, which is round.
        EXPECT_GT(GetRValue(pixel(0, 0)), 64);
        DestroyIcon(icon);
    }
}

TEST(StartUp, RegistersTheListsClass)
{
    StartUpFixture start;
    start.run(SW_SHOW);
    ASSERT_EQ(start.creation.classes.size(), 2u);
    const WNDCLASSEXW& seen = start.creation.classes[1];
    expect_class(seen, L"List of Windows", WndProc_ScanListView, WHITE_BRUSH);
    EXPECT_EQ(seen.lpszMenuName, nullptr);
    EXPECT_EQ(seen.hIcon, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(seen.hIconSm, LoadIconW(nullptr, IDI_APPLICATION));
}

TEST(StartUp, CreatesTheMainWindow)
{
    StartUpFixture start;
    start.run(SW_SHOW);
    const main_tests::RecordedCreation::Arguments& seen = start.creation.window;
    EXPECT_EQ(seen.extended_style, 0u);
    EXPECT_EQ(seen.class_name, L"prg_wnds_layout");
    EXPECT_EQ(seen.title, L"Wendlow");
    EXPECT_EQ(seen.style, 0x02CF0000u); // overlapped, children left out when painting
    EXPECT_EQ(seen.x, static_cast<int>(0x80000000));
    EXPECT_EQ(seen.y, static_cast<int>(0x80000000));
    EXPECT_EQ(seen.width, 546);  // 0.4 x 1366
    EXPECT_EQ(seen.height, 345); // 0.45 x 768
    EXPECT_EQ(seen.parent, nullptr);
    EXPECT_EQ(seen.menu, nullptr);
    EXPECT_EQ(seen.instance, GetModuleHandleW(nullptr));
    EXPECT_EQ(seen.parameter, nullptr);
    // The menu is the class's.
    EXPECT_NE(GetMenu(start.seen.window), nullptr);
}

TEST(StartUp, GoesOnWithoutClassesAndWithoutAWindow)
{
    const BoxWatcher boxes;
    StartUpFixture start;
    start.creation.classes_fail = true;
    start.creation.window_fails = true;
    start.loop.exit_code = 4;
    EXPECT_EQ(start.run(SW_SHOWMINIMIZED), 4);
    EXPECT_EQ(start.seen.steps,
              (Steps{"libraries from 800", "no ghosting", "find prg_wnds_layout, any title",
                     "common controls 4727 of 8 bytes", "class prg_wnds_layout", "class List of Windows",
                     "create", "drops on null: 1", "message 233 to null: 1", "message 4A to null: 1",
                     "message 49 to null: 1", "show null: 2", "update null", "loop"}));
    boxes.expect_boxes({system_error_box(ERROR_NOT_ENOUGH_MEMORY)});
}

TEST(StartUp, RestoresARunningInstanceOnlyFromItsMinimisedState)
{
    const TestWindow first(L"first");
    for (const int state : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_HIDE, SW_SHOWMINIMIZED}) {
        SCOPED_TRACE(state);
        ShowWindow(first, state);
        StartUpFixture start;
        start.seen.running_instance = first;
        start.loop.exit_code = 9; // of a loop that must not be reached
        EXPECT_EQ(start.run(SW_SHOW), 0);
        Steps expected{"libraries from 800", "no ghosting", "find prg_wnds_layout, any title"};
        if (state == SW_SHOWMINIMIZED)
            expected.push_back("show the other: 9"); // SW_RESTORE
        expected.push_back("bring the other to the front");
        EXPECT_EQ(start.seen.steps, expected);
    }
}
