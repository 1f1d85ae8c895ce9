#include "sources/funcs_layout_windows/drawing/fonts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/control/drawing/canvas.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"

using namespace test_support;
using drawing_tests::Canvas;

namespace
{

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

} // namespace

TEST(Fonts, MakesAFontFromItsFieldsWithAFaceNameOfUnconvertedBytes)
{
    const HFONT font = vex_CreateFont(21, 700, 1, 0, 1, 16, "Times New Roman");
    LOGFONTW seen{};
    ASSERT_NE(GetObjectW(font, sizeof seen, &seen), 0);
    EXPECT_EQ(seen.lfHeight, 21);
    EXPECT_EQ(seen.lfWidth, 0);
    EXPECT_EQ(seen.lfEscapement, 0);
    EXPECT_EQ(seen.lfOrientation, 0);
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

TEST(Fonts, SetsItalicUnderlineAndStrikeOutIndependently)
{
    for (const int set : {0, 1, 2}) {
        SCOPED_TRACE(set);
        const HFONT font = vex_CreateFont(21, 700, set == 0, set == 1, set == 2, 16, "Times New Roman");
        LOGFONTW seen{};
        ASSERT_NE(GetObjectW(font, sizeof seen, &seen), 0);
        EXPECT_EQ(seen.lfItalic, set == 0);
        EXPECT_EQ(seen.lfUnderline, set == 1);
        EXPECT_EQ(seen.lfStrikeOut, set == 2);
        EXPECT_EQ(seen.lfEscapement, 0);
        EXPECT_EQ(seen.lfOrientation, 0);
        DeleteObject(font);
    }
}

TEST(Fonts, ReportsAMissingFaceNameAndMakesAFontAllTheSame)
{
    const BoxWatcher boxes;
    const HFONT font = vex_CreateFont(10, 400, 0, 0, 0, 16, nullptr);
    boxes.expect_boxes({{L"error", inline_text({L"sources/funcs_layout_windows", L"vex_CreateFont", 2861},
                                               L"incorrect input parameters, func vex_CreateFont()\n"
                                               L"pcTypeFaceName = 0000000000000000")}});
    EXPECT_NE(font, nullptr);
    DeleteObject(font);
}

TEST(Fonts, FindsTheLargestHeightWhoseLineFits)
{
    const Canvas canvas(10, 10);
    for (const int limit : {2, 9, 16, 22, 40}) {
        const int found = FindFontSize(canvas.dc(), limit);
        if (size_of_text(canvas.dc(), 1, probe().c_str(), 6).cy > limit) {
            EXPECT_EQ(found, 0) << limit; // a face that has no line as low as that
            continue;
        }
        ASSERT_GE(found, 1) << limit;
        EXPECT_LE(size_of_text(canvas.dc(), found, probe().c_str(), 6).cy, limit);
        if (size_of_text(canvas.dc(), found, probe().c_str(), 6).cy != limit) {
            EXPECT_GT(size_of_text(canvas.dc(), found + 1, probe().c_str(), 6).cy, limit);
        }
    }
    EXPECT_GE(FindFontSize(canvas.dc(), 40), 1);
}

TEST(Fonts, FindsNoHeightBelowOnePixel)
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

TEST(Fonts, GoesDownUntilTheTextFitsTheWidth)
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

TEST(Fonts, MeasuresSixUnitsOfTheProbeAndDeletesItsFonts)
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

TEST(Fonts, MeasuresInAPlainFontOfTheUnconvertedFace)
{
    const Canvas canvas(10, 10);
    std::vector<LONG> heights;
    ImportHook<"CreateFontIndirectW", decltype(CreateFontIndirectW)> create(
        "gdi32.dll", [&](const LOGFONTW* font) {
            heights.push_back(font->lfHeight);
            EXPECT_EQ(font->lfWidth, 0);
            EXPECT_EQ(font->lfEscapement, 0);
            EXPECT_EQ(font->lfOrientation, 0);
            EXPECT_EQ(font->lfWeight, 400);
            EXPECT_EQ(font->lfItalic, 0);
            EXPECT_EQ(font->lfUnderline, 0);
            EXPECT_EQ(font->lfStrikeOut, 0);
            EXPECT_EQ(font->lfPitchAndFamily, 16);
            EXPECT_EQ(std::wstring(font->lfFaceName), L"\x6954\x656D\x2073\x654E\x2077\x6F52\x616D\x006E");
            return create.call_original(font);
        });
    // A line is as high as its font; the text is 20 times as wide.
    const ImportHook<"DrawTextW", decltype(DrawTextW)> draw("user32.dll",
                                                            [&](HDC, LPCWSTR, int, LPRECT rect, UINT) -> int {
                                                                rect->bottom = heights.back();
                                                                rect->right = 20 * heights.back();
                                                                return heights.back();
                                                            });
    EXPECT_EQ(FindFontSize(canvas.dc(), 3), 3);
    EXPECT_EQ(heights, (std::vector<LONG>{1, 2, 3}));
    heights.clear();
    EXPECT_EQ(FindFontSize_fit_H_and_W(canvas.dc(), L"text", 3, 20), 1);
    EXPECT_EQ(heights, (std::vector<LONG>{1, 2, 3, 3, 2, 1}));
}

TEST(Fonts, RefusesBadInput)
{
    const Canvas canvas(10, 10);
    const auto one = [](HDC dc, const wchar_t* limit) {
        return inline_text({L"sources/funcs_layout_windows", L"FindFontSize", 2912},
                           L"incorrect input parameters, func FindFontSize()\nhdc = " + pointer(dc) +
                               L", hREC = " + limit);
    };
    const auto two = [](HDC dc, const wchar_t* limits, const void* text) {
        return inline_text({L"sources/funcs_layout_windows", L"FindFontSize_fit_H_and_W", 3024},
                           L"incorrect input parameters, func FindFontSize_fit_H_and_W()\nhdc = " +
                               pointer(dc) + limits + pointer(text));
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
