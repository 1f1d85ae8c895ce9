#include "sources/win32/real_pixels.h"

#include <gtest/gtest.h>

#include <psapi.h>
#include <shellscalingapi.h>

#include <string>
#include <vector>

#include "sources/win32/foreign_window.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/thread_scale.h"

// In which scale the commands measure and place, and in which the program's own windows are made. The thread
// of these tests has the scale of a program that knows of none.

namespace
{

using namespace test_support;
using scan_tests::TwoRowsFixture;

using ScaleHook = ImportHook<"SetThreadDpiAwarenessContext", decltype(SetThreadDpiAwarenessContext)>;

// Notes the thread's scale at every box, and answers it.
class ScalesOfBoxes
{
public:
    std::vector<DPI_AWARENESS> seen;

private:
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> hook_{"user32.dll",
                                                           [this](HWND, LPCWSTR, LPCWSTR, UINT) {
                                                               seen.push_back(scale_of_thread());
                                                               return IDOK;
                                                           }};
};

std::vector<DPI_AWARENESS> times(std::size_t count, DPI_AWARENESS scale)
{
    return std::vector<DPI_AWARENESS>(count, scale);
}

struct RealPixelsTest : testing::Test {
    const ThreadScale own{DPI_AWARENESS_CONTEXT_UNAWARE};
};

} // namespace

TEST_F(RealPixelsTest, EndWithTheScope)
{
    {
        const RealPixels real;
        EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_PER_MONITOR_AWARE);
    }
    EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_UNAWARE);
}

TEST_F(RealPixelsTest, UseTheNewerKindOrElseTheOlder)
{
    for (const bool newer_is_known : {true, false}) {
        std::vector<DPI_AWARENESS_CONTEXT> asked;
        const ScaleHook hook("user32.dll", [&](DPI_AWARENESS_CONTEXT scale) {
            asked.push_back(scale);
            const bool known = newer_is_known || scale != DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2;
            return known ? DPI_AWARENESS_CONTEXT_SYSTEM_AWARE : nullptr;
        });
        {
            const RealPixels real;
        }
        std::vector<DPI_AWARENESS_CONTEXT> expected{DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2};
        if (!newer_is_known)
            expected.push_back(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
        expected.push_back(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE); // back to what the thread had
        EXPECT_EQ(asked, expected) << newer_is_known;
    }
}

TEST_F(RealPixelsTest, RestoreNothingWhenTheSystemRefusesThem)
{
    int asked = 0;
    const ScaleHook hook("user32.dll", [&](DPI_AWARENESS_CONTEXT) -> DPI_AWARENESS_CONTEXT {
        ++asked;
        return nullptr;
    });
    {
        const RealPixels real;
    }
    EXPECT_EQ(asked, 2) << "there is nothing to go back to";
}

TEST_F(RealPixelsTest, KeepTheLastErrorWhenTheyEnd)
{
    const ScaleHook hook("user32.dll", [](DPI_AWARENESS_CONTEXT) {
        SetLastError(ERROR_GEN_FAILURE);
        return DPI_AWARENESS_CONTEXT_UNAWARE;
    });
    {
        const RealPixels real;
        SetLastError(ERROR_FILE_NOT_FOUND);
    }
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(RealPixelsTest, AreUsedByAScanButNotByItsList)
{
    TwoRowsFixture two;
    std::vector<DPI_AWARENESS> measured;
    const ImportHook<"GetWindowRect", decltype(GetWindowRect)> measure(
        "user32.dll", [&](HWND window, LPRECT rect) {
            if (window == two.first || window == two.second)
                measured.push_back(scale_of_thread());
            return measure.call_original(window, rect);
        });
    EXPECT_EQ(two.fixture.scan(), 1);
    EXPECT_EQ(measured, times(2, DPI_AWARENESS_PER_MONITOR_AWARE));
    EXPECT_EQ(scale_of_window(GetParent(two.fixture.list().window())), DPI_AWARENESS_UNAWARE);
    EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_UNAWARE);
}

TEST_F(RealPixelsTest, AreLeftBeforeABoxOfAScan)
{
    TwoRowsFixture two;
    const ScalesOfBoxes boxes;
    const FailingImport<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> paths(
        "kernel32.dll", 3, 0, ERROR_ACCESS_DENIED); // the first window's, in the second pass
    EXPECT_LT(two.fixture.scan(), 0);
    EXPECT_EQ(boxes.seen, times(3, DPI_AWARENESS_UNAWARE));
}

TEST_F(RealPixelsTest, AreUsedByMoveAndLeftBeforeItsBox)
{
    TwoRowsFixture two;
    two.fixture.scan();
    two.fixture.list().set_ticked(0, true);
    two.fixture.list().set_ticked(1, true);
    std::vector<DPI_AWARENESS> placed;
    const ScalesOfBoxes boxes;
    const ImportHook<"SetWindowPos", decltype(SetWindowPos)> place(
        "user32.dll", [&](HWND, HWND, int, int, int, int, UINT) {
            placed.push_back(scale_of_thread());
            return placed.size() == 2; // the first is refused
        });
    two.fixture.press(list_control::kMove);
    EXPECT_EQ(placed, times(2, DPI_AWARENESS_PER_MONITOR_AWARE));
    EXPECT_EQ(boxes.seen, times(1, DPI_AWARENESS_UNAWARE));
}

// Which scale the monitor of a window has is told as 96 until the window has been placed, then as 144.
class OtherMonitor
{
public:
    OtherMonitor(HWND window, bool resizes_itself, UINT scale_there)
        : window_(window), resizes_itself_(resizes_itself), scale_there_(scale_there)
    {
    }
    std::vector<std::string> placed;

private:
    BOOL place(HWND window, int x, int y, int width, int height, BOOL repaint)
    {
        EXPECT_EQ(window, window_);
        EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_PER_MONITOR_AWARE);
        EXPECT_TRUE(repaint);
        placed.push_back(std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
                         std::to_string(height));
        const bool resizes = resizes_itself_ && placed.size() == 1;
        return move_.call_original(window, x, y, resizes ? width * 3 / 2 : width, height, repaint);
    }

    HWND window_;
    bool resizes_itself_;
    UINT scale_there_;
    ImportHook<"MoveWindow", decltype(MoveWindow)> move_{
        "user32.dll", [this](HWND window, int x, int y, int width, int height, BOOL repaint) {
            return place(window, x, y, width, height, repaint);
        }};
    ImportHook<"GetDpiForMonitor", decltype(GetDpiForMonitor)> scale_{
        kScaleLibrary, [this](HMONITOR, MONITOR_DPI_TYPE, UINT* across, UINT* down) {
            EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_PER_MONITOR_AWARE);
            *across = *down = placed.empty() ? 96 : scale_there_;
            return S_OK;
        }};
};

TEST_F(RealPixelsTest, PlaceAWindowAgainThatResizesItselfOnAMonitorOfAnotherScale)
{
    const PixelRect rect{.x = 40, .y = 50, .height = 200, .width = 300};
    const std::string once = "40,50 300x200";
    // A window of the thread's own scale could not have every size on a scaled screen.
    const TestWindow window = [] {
        const ThreadScale real(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
        return TestWindow(L"window");
    }();
    for (const bool resizes_itself : {true, false}) {
        for (const UINT scale : {96U, 144U}) {
            const OtherMonitor monitor(window, resizes_itself, scale);
            place_foreign_window(window, rect, true);
            const bool again = resizes_itself && scale == 144;
            EXPECT_EQ(monitor.placed, std::vector<std::string>(again ? 2 : 1, once))
                << resizes_itself << scale;
        }
    }
    EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_UNAWARE);
}

// It resizes itself there, and a move that is not waited for cannot be looked at.
TEST_F(RealPixelsTest, PlaceAWindowTwiceOnAMoveToAMonitorOfAnotherScale)
{
    TwoRowsFixture two;
    two.fixture.scan();
    two.fixture.list().set_ticked(0, true);
    unsigned told = 0;
    const ImportHook<"GetDpiForMonitor", decltype(GetDpiForMonitor)> scales(
        kScaleLibrary, [&](HMONITOR, MONITOR_DPI_TYPE kind, UINT* across, UINT* down) {
            EXPECT_EQ(kind, MDT_EFFECTIVE_DPI);
            EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_PER_MONITOR_AWARE);
            *across = *down = ++told == 1 ? 96 : 144;
            return S_OK;
        });
    std::vector<std::string> placed;
    const ImportHook<"SetWindowPos", decltype(SetWindowPos)> place(
        "user32.dll", [&](HWND window, HWND after, int x, int y, int width, int height, UINT flags) {
            EXPECT_EQ(window, static_cast<HWND>(two.first));
            EXPECT_EQ(after, HWND_TOP);
            EXPECT_EQ(flags, 0x4040u);
            placed.push_back(std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
                             std::to_string(height));
            return TRUE;
        });
    two.fixture.press(list_control::kMove);
    EXPECT_EQ(placed, (std::vector<std::string>{"40,50 300x200", "40,50 300x200"}));
}

TEST_F(RealPixelsTest, PlaceAHungWindowTwiceOnAMonitorOfAnotherScale)
{
    const TestWindow window(L"window");
    for (const UINT scale_there : {96U, 144U}) {
        unsigned told = 0;
        const ImportHook<"GetDpiForMonitor", decltype(GetDpiForMonitor)> scales(
            kScaleLibrary, [&](HMONITOR, MONITOR_DPI_TYPE, UINT* across, UINT* down) {
                *across = *down = ++told == 1 ? 96 : scale_there;
                return S_OK;
            });
        std::vector<UINT> left;
        const ImportHook<"SetWindowPos", decltype(SetWindowPos)> place(
            "user32.dll", [&](HWND, HWND, int, int, int, int, UINT flags) {
                EXPECT_EQ(scale_of_thread(), DPI_AWARENESS_PER_MONITOR_AWARE);
                left.push_back(flags);
                return TRUE;
            });
        place_foreign_window(window, {.x = 40, .y = 50, .height = 200, .width = 300}, false);
        EXPECT_EQ(left, std::vector<UINT>(scale_there == 96 ? 1 : 2, 0x4014u)) << scale_there;
    }
}
