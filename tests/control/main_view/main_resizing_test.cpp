#include "sources/funcs_layout_windows/main_view/main_resizing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/main_prg/main_window.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/control/main_view/created_geometry.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/test_window.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

// A parent with five children to be laid out, and a record as WM_CREATE leaves it.
struct LayoutFixture {
    TestWindow parent{L"parent"};
    HWND scan = child(L"Button");
    HWND load = child(L"Button");
    HWND apply = child(L"Button");
    HWND profile = child(L"ComboBox");
    HWND action = child(L"ComboBox");
    STR_GeomLt record = main_view_tests::created_geometry();

    HWND child(const wchar_t* class_name) const
    {
        return CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 0, 0, 10, 10,
                               parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    std::int32_t size(int width, int height)
    {
        return on_WM_SIZE(parent, SIZE_RESTORED, MAKELPARAM(width, height), &record, scan, load, apply,
                          profile, action);
    }
};

struct Move {
    HWND window;
    int x, y, width, height;
    bool operator==(const Move&) const = default;
};

void PrintTo(const Move& move, std::ostream* out)
{
    *out << move.window << " at " << move.x << "," << move.y << " " << move.width << "x" << move.height;
}

} // namespace

TEST(MainResizing, MovesTheFiveControlsInTheirOrderToTheirRectangles)
{
    LayoutFixture layout;
    std::vector<Move> moves;
    const ImportHook<"MoveWindow", decltype(MoveWindow)> move(
        "user32.dll", [&](HWND window, int x, int y, int width, int height, BOOL repaint) -> BOOL {
            EXPECT_TRUE(repaint);
            moves.push_back({window, x, y, width, height});
            return TRUE;
        });
    const ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen(
        "user32.dll", [](int metric) -> int {
            return metric == SM_CXSCREEN ? 1366 : metric == SM_CYSCREEN ? 768 : 0;
        });
    EXPECT_EQ(layout.size(600, 400), 1);
    // Frame 420 wide, so the column starts at 5 + 420 + 25 = 450 and is 600 - 450 - 15 = 135 wide; buttons
    // are trunc(1366 * 0.06) = 81 by trunc(768 * 0.035) = 26, lines trunc(1.2 * 15) = 18 high.
    EXPECT_EQ(moves, (std::vector<Move>{{layout.scan, 450, 5, 81, 26},
                                        {layout.load, 450, 36, 81, 26},
                                        // below: count line 87, label 110, list 133, label 164, list 187
                                        {layout.apply, 450, 218, 81, 26},
                                        {layout.profile, 450, 133, 135, 26},
                                        {layout.action, 450, 187, 135, 26}}));
}

TEST(MainResizing, MovesRealControls)
{
    LayoutFixture layout;
    EXPECT_EQ(layout.size(800, 500), 1);
    RECT place = rectangle_of(layout.scan);
    MapWindowPoints(nullptr, layout.parent, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 5 + 560 + 25);
    EXPECT_EQ(place.top, 5);
}

TEST(MainResizing, GoesOnWithoutTheListsAndApply)
{
    LayoutFixture layout;
    layout.apply = layout.profile = layout.action = nullptr;
    const BoxWatcher boxes;
    EXPECT_EQ(layout.size(800, 500), 1);
    boxes.expect_no_boxes();
    RECT place = rectangle_of(layout.load);
    MapWindowPoints(nullptr, layout.parent, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 5 + 560 + 25);
}

TEST(MainResizing, RefusesNullArgumentsInUnreadableWords)
{
    LayoutFixture layout;
    const auto box = [&](HWND window, const void* record, HWND scan, HWND load) {
        return ExpectedBox{
            bytes_as_wide("error"),
            shown_as_bytes(spaced_text({L"sources/funcs_layout_windows", L"on_WM_SIZE", 1491, 1713},
                                       L"incorrect input:\nhwnd_MW = " + pointer(window) +
                                           L", pSTR_GeomLt = " + pointer(record) + L", hWndBTN00 = " +
                                           pointer(scan) + L", hWndBTN02 = " + pointer(load)))};
    };
    const auto size = [&](HWND window, STR_GeomLt* record, HWND scan, HWND load) {
        return on_WM_SIZE(window, 0, MAKELPARAM(600, 400), record, scan, load, layout.apply, layout.profile,
                          layout.action);
    };
    const FailingImport<"MoveWindow", decltype(MoveWindow)> moves("user32.dll", kEveryCall, FALSE, 0);
    const BoxWatcher boxes;
    EXPECT_EQ(size(nullptr, &layout.record, layout.scan, layout.load), -1);
    EXPECT_EQ(size(layout.parent, nullptr, layout.scan, layout.load), -1);
    EXPECT_EQ(size(layout.parent, &layout.record, nullptr, layout.load), -1);
    EXPECT_EQ(size(layout.parent, &layout.record, layout.scan, nullptr), -1);
    boxes.expect_boxes({box(nullptr, &layout.record, layout.scan, layout.load),
                        box(layout.parent, nullptr, layout.scan, layout.load),
                        box(layout.parent, &layout.record, nullptr, layout.load),
                        box(layout.parent, &layout.record, layout.scan, nullptr)});
    EXPECT_EQ(layout.record.i_client_width, 0);
    EXPECT_EQ(moves.calls(), 0);
}
