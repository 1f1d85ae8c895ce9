#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// What the profile name window paints, and when; how it answers to what it only takes note of.

namespace
{

using namespace profile_tests;
using test_support::ImportHook;

// The label's rectangle: its height 0.03 of the screen's, 5 pixels left of the window's edge and above the
// edit box, its width 1.8 times 0.126 of the screen's in double precision.
RECT label_rectangle()
{
    const int cx = GetSystemMetrics(SM_CXSCREEN);
    const int height = part(0.03F, GetSystemMetrics(SM_CYSCREEN));
    const int top = part(1.5F, height) - height - 5;
    return {5, top, 5 + static_cast<int>(1.8 * 0.126 * cx), top + height};
}

// The gradient's first colour, or the middle of its first row, by the system.
bool is_first_colour(COLORREF seen)
{
    return (GetRValue(seen) == 0x16 || GetRValue(seen) == 0x17) && GetGValue(seen) == 0xFA &&
           GetBValue(seen) == 0xFA;
}

void repaint(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

// Counts the texts that are drawn and looks at each.
class DrawnTexts
{
public:
    int count = 0;

private:
    int draw(HDC dc, LPCWSTR text, int units, RECT* place, UINT flags)
    {
        ++count;
        EXPECT_EQ(units, -1);
        EXPECT_STREQ(text, L"Enter name of Profile:");
        const RECT expected = label_rectangle();
        EXPECT_TRUE(EqualRect(place, &expected))
            << place->left << "," << place->top << " to " << place->right << "," << place->bottom;
        EXPECT_EQ(flags, 0x24u); // vertically centred, single line, nothing else
        EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
        EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
        EXPECT_EQ(GetTextColor(dc), RGB(0, 0, 0));
        return hook_.call_original(dc, text, units, place, flags);
    }

    ImportHook<"DrawTextW", decltype(DrawTextW)> hook_{
        "user32.dll", [this](HDC dc, LPCWSTR text, int units, LPRECT place, UINT flags) {
            return draw(dc, text, units, place, flags);
        }};
};

} // namespace

TEST(ProfileNamePainting, PaintsTheGradientAndItsLabelAboveTheEditBox)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    repaint(window);
    const HDC dc = GetDC(window);
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_TRUE(is_first_colour(GetPixel(dc, 2, 0)));
    const COLORREF last = GetPixel(dc, 2, client.bottom - 1);
    EXPECT_NEAR(GetRValue(last), 0xBB, 4);
    EXPECT_NEAR(GetGValue(last), 0xFD, 1);
    const RECT label = label_rectangle();
    int black = 0;
    int white = 0;
    for (int y = label.top; y < label.bottom; ++y) {
        for (int x = label.left; x < 100; ++x) {
            black += GetPixel(dc, x, y) == RGB(0, 0, 0) ? 1 : 0;
            white += GetPixel(dc, x, y) == RGB(255, 255, 255) ? 1 : 0;
        }
    }
    EXPECT_GT(black, 30);
    EXPECT_EQ(white, 0) << "the gradient shows between the letters";
    ReleaseDC(window, dc);
}

TEST(ProfileNamePainting, DrawsItsLabelInTheDefaultFontOnATransparentBackground)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    const DrawnTexts texts;
    repaint(window);
    EXPECT_EQ(texts.count, 1);
}

TEST(ProfileNamePainting, DrawsNoLabelBeforeItsControlsExist)
{
    const Owner owner;
    const DrawnTexts texts;
    int controls = 0;
    const ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> creation(
        "user32.dll",
        [&](DWORD extended_style, LPCWSTR class_name, LPCWSTR text, DWORD style, int x, int y, int width,
            int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) {
            if (style & WS_CHILD) {
                ++controls;
                SendMessageW(parent, WM_PAINT, 0, 0);
            }
            return creation.call_original(extended_style, class_name, text, style, x, y, width, height,
                                          parent, menu, instance, parameter);
        });
    const HWND window = create_wnd_ProfileName(owner.window());
    EXPECT_EQ(controls, 3);
    EXPECT_EQ(texts.count, 0);
    ShowWindow(window, SW_SHOW);
    repaint(window);
    EXPECT_GE(texts.count, 1);
    DestroyWindow(window);
}

TEST(ProfileNamePainting, PaintsAWindowWithoutControlsWithoutItsLabel)
{
    const Owner owner;
    { // registers the class; the window before had its controls
        const NameWindowFixture first(owner.window());
    }
    const test_support::BoxWatcher boxes;
    const HWND bare = CreateWindowExW(0, L"Name of Profile Window", L"", WS_CAPTION, 300, 100, 300, 150,
                                      owner.window(), nullptr, GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(boxes.count(), 1u);
    const DrawnTexts texts;
    ShowWindow(bare, SW_SHOW);
    repaint(bare);
    EXPECT_EQ(texts.count, 0);
    const HDC dc = GetDC(bare);
    EXPECT_TRUE(is_first_colour(GetPixel(dc, 2, 0)));
    ReleaseDC(bare, dc);
    DestroyWindow(bare);
}

TEST(ProfileNamePainting, TakesSizesAndNotificationsWithoutDoingAnything)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    SetWindowTextW(window.edit(), L"name");
    std::string places;
    for (const int id : {1, 2, 3})
        places += place_in_parent(window.control(id)) + "; ";
    EXPECT_EQ(SendMessageW(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(50, 40)), 0);
    NMHDR notification{
        .hwndFrom = window.control(name_control::kOk), .idFrom = 1, .code = static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(SendMessageW(window, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&notification)), 0);
    EXPECT_EQ(SendMessageW(window, WM_NOTIFY, 0, 0), 0);
    std::string places_after;
    for (const int id : {1, 2, 3})
        places_after += place_in_parent(window.control(id)) + "; ";
    EXPECT_EQ(places_after, places);
    EXPECT_EQ(window.typed(), L"name");
    EXPECT_TRUE(IsWindowVisible(window));
    const DrawnTexts texts;
    repaint(window);
    EXPECT_EQ(texts.count, 1);
}

// The system gives a window with a caption a least width.
TEST(ProfileNamePainting, MeasuresItsButtonsFromItsActualWidth)
{
    const Owner owner;
    const NameWindowFixture first(owner.window()); // registers the class
    HWND list = owner.window();
    const HWND narrow = CreateWindowExW(0, L"Name of Profile Window", L"", WS_CAPTION | WS_SYSMENU, 300, 100,
                                        20, 150, owner.window(), nullptr, GetModuleHandleW(nullptr), &list);
    const RECT real = test_support::rectangle_of(narrow);
    const int width = real.right - real.left;
    ASSERT_GT(width, 20);
    const int bw = part(0.045F, GetSystemMetrics(SM_CXSCREEN));
    const int bh = part(0.025F, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_EQ(place_in_parent(GetDlgItem(narrow, name_control::kOk)), place(width - bw - 10, 5, bw, bh));
    EXPECT_EQ(place_in_parent(GetDlgItem(narrow, name_control::kCancel)),
              place(width - bw - 10, 10 + bh, bw, bh));
    DestroyWindow(narrow);
}
