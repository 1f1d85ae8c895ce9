#include "sources/funcs_layout_windows/drawing/figures.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/control/drawing/canvas.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"

using namespace test_support;
using drawing_tests::Canvas;

namespace
{

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kBlue = RGB(0x5B, 0xAF, 0xFF);
constexpr COLORREF kRed = RGB(255, 0, 0);

HWND some_window()
{
    return GetDesktopWindow();
}

} // namespace

TEST(Figures, DrawsALineWithTheSelectedPen)
{
    const Canvas canvas(20, 20);
    EXPECT_EQ(vex_DrawLine(canvas.dc(), 3, 5, 15, 5), 1);
    EXPECT_EQ(canvas.at(3, 5), kBlack);
    EXPECT_EQ(canvas.at(14, 5), kBlack);
    EXPECT_EQ(canvas.at(15, 5), kWhite); // the end itself is not drawn
    EXPECT_EQ(canvas.at(3, 6), kWhite);
}

TEST(Figures, ReportsALineWithoutLength)
{
    const Canvas canvas(20, 20);
    const auto text = [](HDC dc, const wchar_t* points) {
        return gap_text({L"sources/funcs_layout_windows", L"vex_DrawLine", 3151, 3179},
                        L"incorrect input:\nhdc = " + pointer(dc) + points);
    };
    const BoxWatcher boxes;
    EXPECT_EQ(vex_DrawLine(canvas.dc(), 4, 5, 4, 5), -1);
    EXPECT_EQ(vex_DrawLine(nullptr, 1, 2, 3, -4), -1);
    boxes.expect_boxes({{L"error", text(canvas.dc(), L", x0 = 4, y0 = 5, x1 = 4, y1 = 5")},
                        {L"error", text(nullptr, L", x0 = 1, y0 = 2, x1 = 3, y1 = -4")}});
    EXPECT_EQ(canvas.at(4, 5), kWhite);
}

TEST(Figures, DrawsAMiniatureWindow)
{
    const Canvas canvas(120, 100);
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 10, 10, 80, 100), 1);
    EXPECT_EQ(canvas.at(10, 10), kBlack);
    EXPECT_EQ(canvas.at(109, 89), kBlack); // the outline ends before x + w, y + h
    EXPECT_EQ(canvas.at(110, 90), kWhite);
    EXPECT_EQ(canvas.at(15, 15), kBlue);
    EXPECT_EQ(canvas.at(15, 28), kBlue);
    EXPECT_EQ(canvas.at(15, 29), kBlack); // lower edge of the title bar
    EXPECT_EQ(canvas.at(15, 31), kWhite);
    EXPECT_EQ(canvas.at(100, 20), kRed);
    EXPECT_EQ(canvas.at(95, 15), kBlack); // the close box's corner
    EXPECT_EQ(canvas.at(80, 15), kBlack);
    EXPECT_EQ(canvas.at(65, 15), kBlack);
    EXPECT_EQ(canvas.at(85, 20), kBlue); // the other two are hollow
    EXPECT_EQ(canvas.at(70, 20), kBlue);
}

TEST(Figures, DrawsAMiniatureAsFiveRectangles)
{
    const Canvas canvas(120, 100);
    std::vector<std::string> drawn;
    const ImportHook<"Rectangle", decltype(Rectangle)> rectangle(
        "gdi32.dll", [&](HDC dc, int left, int top, int right, int bottom) {
            LOGPEN pen{};
            GetObjectW(GetCurrentObject(dc, OBJ_PEN), sizeof pen, &pen);
            EXPECT_EQ(pen.lopnStyle, static_cast<UINT>(PS_SOLID));
            EXPECT_EQ(pen.lopnWidth.x, 1);
            EXPECT_EQ(pen.lopnColor, kBlack);
            EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
            LOGBRUSH brush{};
            GetObjectW(GetCurrentObject(dc, OBJ_BRUSH), sizeof brush, &brush);
            char text[80];
            snprintf(text, sizeof text, "%d,%d to %d,%d %06lX", left, top, right, bottom,
                     brush.lbStyle == BS_HOLLOW ? 0xFFFFFF : brush.lbColor);
            drawn.emplace_back(text);
            return TRUE;
        });
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 10, 20, 80, 100), 1);
    EXPECT_EQ(drawn, (std::vector<std::string>{"10,20 to 110,100 FFFFFF", // hollow
                                               "10,20 to 110,40 FFAF5B",  // the title bar, blue
                                               "95,25 to 105,35 0000FF",  // the close box, red
                                               "80,25 to 90,35 FFFFFF", "65,25 to 75,35 FFFFFF"}));
}

TEST(Figures, CreatesAMiniaturesBlackPenBeforeItsWhiteOne)
{
    const Canvas canvas(120, 100);
    std::vector<std::string> pens;
    ImportHook<"CreatePen", decltype(CreatePen)> create(
        "gdi32.dll", [&](int style, int width, COLORREF colour) {
            char text[40];
            snprintf(text, sizeof text, "%d %d %06lX", style, width, colour);
            pens.emplace_back(text);
            return create.call_original(style, width, colour);
        });
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 10, 10, 80, 100), 1);
    EXPECT_EQ(pens, (std::vector<std::string>{"0 1 000000", "0 2 FFFFFF"})); // both solid
}

TEST(Figures, DrawsTheBoxesOfANarrowMiniatureOutsideItsFrame)
{
    const Canvas canvas(120, 100);
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 60, 10, 50, 30), 1);
    EXPECT_EQ(canvas.at(60 + 30 - 45, 15), kBlack); // left of the frame
    EXPECT_EQ(canvas.at(60 + 30 - 40, 20), kWhite);
}

TEST(Figures, DeletesAMiniaturesPensAndBrushes)
{
    const Canvas canvas(120, 100);
    const HGDIOBJ pen = GetCurrentObject(canvas.dc(), OBJ_PEN);
    const HGDIOBJ brush = GetCurrentObject(canvas.dc(), OBJ_BRUSH);
    int deleted = 0;
    ImportHook<"DeleteObject", decltype(DeleteObject)> remove("gdi32.dll", [&](HGDIOBJ object) {
        ++deleted;
        EXPECT_NE(GetCurrentObject(canvas.dc(), OBJ_PEN), object);
        EXPECT_NE(GetCurrentObject(canvas.dc(), OBJ_BRUSH), object);
        return remove.call_original(object);
    });
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 10, 10, 80, 100), 1);
    EXPECT_EQ(deleted, 4);
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_PEN), pen);
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_BRUSH), brush);
}

TEST(Figures, RefusesAMiniatureWithoutWindowContextOrSize)
{
    const Canvas canvas(20, 20);
    const auto text = [](HWND window, HDC dc, const wchar_t* size) {
        return gap_text({L"sources/funcs_layout_windows", L"draw_wnd_frame", 3214, 3338},
                        L"incorrect input:\nhwnd_MW = " + pointer(window) + L", hdc_MW = " + pointer(dc) +
                            size + L"\nreturn code : -1");
    };
    const BoxWatcher boxes;
    EXPECT_EQ(draw_wnd_frame(nullptr, canvas.dc(), 0, 0, 5, 6), -1);
    EXPECT_EQ(draw_wnd_frame(some_window(), nullptr, 0, 0, 5, 6), -1);
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 0, 0, 0, 6), -1);
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 0, 0, 5, 0), -1);
    boxes.expect_boxes({{L"error", text(nullptr, canvas.dc(), L", h = 5, w = 6")},
                        {L"error", text(some_window(), nullptr, L", h = 5, w = 6")},
                        {L"error", text(some_window(), canvas.dc(), L", h = 0, w = 6")},
                        {L"error", text(some_window(), canvas.dc(), L", h = 5, w = 0")}});
    EXPECT_EQ(canvas.at(0, 0), kWhite);
}
