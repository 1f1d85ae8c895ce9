#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/funcs_layout_windows/drawing/fonts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/control/scanning/scan_fixture.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"
#include "tests/support/text.h"

using namespace test_support;
using scan_tests::pointer;

namespace
{

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kBlue = RGB(0x5B, 0xAF, 0xFF);
constexpr COLORREF kRed = RGB(255, 0, 0);

// A white picture in memory to draw on.
class Canvas
{
public:
    Canvas(int width, int height) : dc_(CreateCompatibleDC(nullptr))
    {
        const HDC screen = GetDC(nullptr);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, width, height, WHITENESS);
    }
    ~Canvas()
    {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return dc_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

private:
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
};

// What vex_CreateFont's measure would be, asked for independently.
SIZE size_of_text(HDC dc, int height, const wchar_t* text, int units)
{
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = 400;
    font.lfOutPrecision = 4;
    font.lfClipPrecision = 1;
    font.lfPitchAndFamily = 16;
    const std::wstring face = bytes_as_wide("Times New Roman");
    face.copy(font.lfFaceName, 31);
    const HFONT handle = CreateFontIndirectW(&font);
    const HGDIOBJ before = SelectObject(dc, handle);
    RECT rect{};
    DrawTextW(dc, text, units, &rect, 0x420);
    SelectObject(dc, before);
    DeleteObject(handle);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

const std::wstring& probe()
{
    static const std::wstring text = bytes_as_wide(std::string("Hello!\0\0\0\0\0\0", 12));
    return text;
}

HWND some_window()
{
    return GetDesktopWindow();
}

} // namespace

TEST(FontFitting, MakesAFontFromItsFieldsWithAFaceNameOfUnconvertedBytes)
{
    const HFONT font = vex_CreateFont(21, 700, 1, 0, 1, 16, "Times New Roman");
    LOGFONTW seen{};
    ASSERT_NE(GetObjectW(font, sizeof seen, &seen), 0);
    EXPECT_EQ(seen.lfHeight, 21);
    EXPECT_EQ(seen.lfWidth, 0);
    EXPECT_EQ(seen.lfWeight, 700);
    EXPECT_EQ(seen.lfItalic, 1);
    EXPECT_EQ(seen.lfUnderline, 0);
    EXPECT_EQ(seen.lfStrikeOut, 1);
    EXPECT_EQ(seen.lfCharSet, 0);
    EXPECT_EQ(seen.lfOutPrecision, 4);
    EXPECT_EQ(seen.lfClipPrecision, 1);
    EXPECT_EQ(seen.lfQuality, 0);
    EXPECT_EQ(seen.lfPitchAndFamily, 16);
    EXPECT_EQ(std::wstring(seen.lfFaceName), L"\x6954\x656D\x2073\x654E\x2077\x6F52\x616D\x006E");
    DeleteObject(font);
}

TEST(FontFitting, ReportsAMissingFaceNameAndMakesAFontAllTheSame)
{
    const BoxWatcher boxes;
    const HFONT font = vex_CreateFont(10, 400, 0, 0, 0, 16, nullptr);
    boxes.expect_boxes(
        {{L"error", L"error\nfile: sources/funcs_layout_windows\nfunction: vex_CreateFont\nline: 2861\n"
                    L"incorrect input parameters, func vex_CreateFont()\n"
                    L"pcTypeFaceName = 0000000000000000"}});
    EXPECT_NE(font, nullptr);
    DeleteObject(font);
}

TEST(FontFitting, FindsTheLargestHeightWhoseLineFits)
{
    const Canvas canvas(10, 10);
    for (const int limit : {2, 9, 16, 22, 40}) {
        const int found = FindFontSize(canvas.dc(), limit);
        ASSERT_GE(found, 1) << limit;
        EXPECT_LE(size_of_text(canvas.dc(), found, probe().c_str(), 6).cy, limit);
        if (size_of_text(canvas.dc(), found, probe().c_str(), 6).cy != limit) {
            EXPECT_GT(size_of_text(canvas.dc(), found + 1, probe().c_str(), 6).cy, limit);
        }
    }
}

TEST(FontFitting, FindsNothingBelowAFontOfOnePixel)
{
    const Canvas canvas(10, 10);
    // Lines of every font are 5 pixels high.
    const ImportHook<"DrawTextW", decltype(DrawTextW)> draw("user32.dll",
                                                            [](HDC, LPCWSTR, int, LPRECT rect, UINT) -> int {
                                                                rect->bottom = 5;
                                                                rect->right = 100;
                                                                return 5;
                                                            });
    EXPECT_EQ(FindFontSize(canvas.dc(), 4), 0);
    EXPECT_EQ(FindFontSize(canvas.dc(), 5), 1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), L"text", 4, 100), 0); // a font of default height
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), L"text", 4, 99), 1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), L"text", 5, 99), 1); // the floor, though nothing fits
}

TEST(FontFitting, GoesDownUntilTheTextFitsTheWidth)
{
    const Canvas canvas(10, 10);
    const wchar_t text[] = L"Load Profile";
    const int highest = FindFontSize(canvas.dc(), 30);
    const int width = size_of_text(canvas.dc(), highest, text, -1).cx;
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), text, 30, width), highest);
    const int found = FindFontSize_fit_H_and_W(canvas.dc(), text, 30, width / 2);
    EXPECT_LT(found, highest);
    EXPECT_LE(size_of_text(canvas.dc(), found, text, -1).cx, width / 2);
    EXPECT_GT(size_of_text(canvas.dc(), found + 1, text, -1).cx, width / 2);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), text, 30, -1), 1);
}

TEST(FontFitting, MeasuresSixUnitsOfTheProbeAndLeavesNoFontBehind)
{
    const Canvas canvas(10, 10);
    int made = 0;
    int deleted = 0;
    ImportHook<"CreateFontIndirectW", decltype(CreateFontIndirectW)> create(
        "gdi32.dll", [&](const LOGFONTW* font) {
            ++made;
            EXPECT_EQ(font->lfHeight, made);
            return create.call_original(font);
        });
    ImportHook<"DeleteObject", decltype(DeleteObject)> remove("gdi32.dll", [&](HGDIOBJ object) {
        ++deleted;
        EXPECT_NE(GetCurrentObject(canvas.dc(), OBJ_FONT), object); // it is selected no more
        const BOOL done = remove.call_original(object);
        EXPECT_TRUE(done);
        return done;
    });
    int height = 0; // of the line measured last
    const ImportHook<"DrawTextW", decltype(DrawTextW)> draw(
        "user32.dll", [&](HDC, LPCWSTR text, int units, LPRECT rect, UINT flags) -> int {
            EXPECT_EQ(std::wstring(text), bytes_as_wide("Hello!"));
            EXPECT_EQ(units, 6);
            EXPECT_EQ(flags, 0x420u);
            EXPECT_EQ(rect->bottom, 0);
            rect->bottom = ++height;
            return height;
        });
    EXPECT_EQ(FindFontSize(canvas.dc(), 9), 9);
    EXPECT_EQ(made, 9);
    EXPECT_EQ(deleted, 9);
}

TEST(FontFitting, RefusesBadInput)
{
    const Canvas canvas(10, 10);
    const auto one = [](HDC dc, const wchar_t* limit) {
        return L"error\nfile: sources/funcs_layout_windows\nfunction: FindFontSize\nline: 2912\n"
               L"incorrect input parameters, func FindFontSize()\nhdc = " +
               pointer(dc) + L", hREC = " + limit;
    };
    const auto two = [](HDC dc, const wchar_t* limits, const void* text) {
        return L"error\nfile: sources/funcs_layout_windows\nfunction: FindFontSize_fit_H_and_W\nline: 3024\n"
               L"incorrect input parameters, func FindFontSize_fit_H_and_W()\nhdc = " +
               pointer(dc) + limits + pointer(text);
    };
    const wchar_t text[] = L"x";
    const BoxWatcher boxes;
    EXPECT_EQ(FindFontSize(nullptr, 10), -1);
    EXPECT_EQ(FindFontSize(canvas.dc(), 0), -1);
    EXPECT_EQ(FindFontSize(canvas.dc(), -3), -1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(nullptr, text, 10, 10), -1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), text, 0, 10), -1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), text, 10, 0), -1);
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), nullptr, 10, 10), -1);
    boxes.expect_boxes({{L"error", one(nullptr, L"10")},
                        {L"error", one(canvas.dc(), L"0")},
                        {L"error", one(canvas.dc(), L"-3")},
                        {L"error", two(nullptr, L",hREC = 10,wREC = 10,ptc_Text = ", text)},
                        {L"error", two(canvas.dc(), L",hREC = 0,wREC = 10,ptc_Text = ", text)},
                        {L"error", two(canvas.dc(), L",hREC = 10,wREC = 0,ptc_Text = ", text)},
                        {L"error", two(canvas.dc(), L",hREC = 10,wREC = 10,ptc_Text = ", nullptr)}});
}

TEST(Drawing, DrawsALineWithTheSelectedPen)
{
    const Canvas canvas(20, 20);
    EXPECT_EQ(vex_DrawLine(canvas.dc(), 3, 5, 15, 5), 1);
    EXPECT_EQ(canvas.at(3, 5), kBlack);
    EXPECT_EQ(canvas.at(14, 5), kBlack);
    EXPECT_EQ(canvas.at(15, 5), kWhite); // the end itself is not drawn
    EXPECT_EQ(canvas.at(3, 6), kWhite);
}

TEST(Drawing, TakesALineWithoutLengthForAnError)
{
    const Canvas canvas(20, 20);
    const auto text = [](HDC dc, const wchar_t* points) {
        return L"error\n\nfile:\nsources/funcs_layout_windows\n\nfunction:\nvex_DrawLine\n\nline:\n3151\n\n"
               L"incorrect input:\nhdc = " +
               pointer(dc) + points + L"\n\nline of error handler:\n3179";
    };
    const BoxWatcher boxes;
    EXPECT_EQ(vex_DrawLine(canvas.dc(), 4, 5, 4, 5), -1);
    EXPECT_EQ(vex_DrawLine(nullptr, 1, 2, 3, -4), -1);
    boxes.expect_boxes({{L"error", text(canvas.dc(), L", x0 = 4, y0 = 5, x1 = 4, y1 = 5")},
                        {L"error", text(nullptr, L", x0 = 1, y0 = 2, x1 = 3, y1 = -4")}});
    EXPECT_EQ(canvas.at(4, 5), kWhite);
}

TEST(Drawing, DrawsAMiniatureWindow)
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

TEST(Drawing, MakesAMiniatureOfFiveRectangles)
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

TEST(Drawing, DrawsTheBoxesOfANarrowMiniatureOutsideItsFrame)
{
    const Canvas canvas(120, 100);
    EXPECT_EQ(draw_wnd_frame(some_window(), canvas.dc(), 60, 10, 50, 30), 1);
    EXPECT_EQ(canvas.at(60 + 30 - 45, 15), kBlack); // left of the frame
    EXPECT_EQ(canvas.at(60 + 30 - 40, 20), kWhite);
}

TEST(Drawing, LeavesNoMiniaturesPensAndBrushesBehind)
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

TEST(Drawing, RefusesAMiniatureWithoutWindowContextOrSize)
{
    const Canvas canvas(20, 20);
    const auto text = [](HWND window, HDC dc, const wchar_t* size) {
        return L"error\n\nfile:\nsources/funcs_layout_windows\n\nfunction:\ndraw_wnd_frame\n\nline:\n3214\n\n"
               L"incorrect input:\nhwnd_MW = " +
               pointer(window) + L", hdc_MW = " + pointer(dc) + size +
               L"\nreturn code : -1\n\nline of error handler:\n3338";
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
