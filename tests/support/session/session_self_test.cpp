#include <windows.h>

#include <gtest/gtest.h>

#include <cwchar>

#include "tests/support/basics/platform.h"

namespace
{

// A serif face of a height, asked for by its family alone: its name is none that a system has.
class SerifFont
{
public:
    explicit SerifFont(int height)
    {
        LOGFONTW wanted{};
        wanted.lfHeight = height;
        wanted.lfWeight = FW_NORMAL;
        wanted.lfOutPrecision = OUT_TT_PRECIS;
        wanted.lfPitchAndFamily = FF_ROMAN;
        std::wcscpy(wanted.lfFaceName, L"\u6954\u656d");
        font_ = CreateFontIndirectW(&wanted);
        dc_ = CreateCompatibleDC(nullptr);
        SelectObject(dc_, font_);
    }
    SerifFont(const SerifFont&) = delete;
    SerifFont& operator=(const SerifFont&) = delete;
    ~SerifFont()
    {
        DeleteDC(dc_);
        DeleteObject(font_);
    }

    SIZE measure(const wchar_t* text) const
    {
        RECT rectangle{};
        DrawTextW(dc_, text, -1, &rectangle, DT_CALCRECT | DT_SINGLELINE);
        return {rectangle.right, rectangle.bottom};
    }

private:
    HFONT font_;
    HDC dc_;
};

} // namespace

// Windows draws characters that a face lacks from a fall-back face, East Asian ones as wide as they are high.
TEST(Session, MeasuresEastAsianCharactersFullWidth)
{
    ONLY_UNDER_WINE("this is about the fonts that scripts/wine-session sets up");
    for (const int height : {12, 20, 40}) {
        const SerifFont font(height);
        const SIZE six = font.measure(L"\u6f4c\u6461\u5020\u6f72\u6966\u656c");
        const SIZE one = font.measure(L"\u6f4c");
        EXPECT_EQ(six.cy, height);
        EXPECT_EQ(six.cx, 6 * one.cx) << "at " << height;
        // Their own height is that of the line without the room above and below them.
        EXPECT_GE(six.cx, 6 * height * 7 / 10) << "at " << height;
        EXPECT_LE(six.cx, 6 * height) << "at " << height;
    }
}
