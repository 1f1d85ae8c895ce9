#include "tests/control/drawing/screen_of_size.h"
#include "tests/support/boxes/report_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

using test_support::BoxWatcher;
using test_support::ExpectedBox;
using test_support::SeenBox;

namespace screen_tests
{
namespace
{

SIZE size_in_font(HDC dc, int font_height, const wchar_t* text, int units)
{
    LOGFONTW face{};
    face.lfHeight = font_height;
    face.lfWeight = 400;
    face.lfOutPrecision = OUT_TT_PRECIS;
    face.lfClipPrecision = CLIP_CHARACTER_PRECIS;
    face.lfPitchAndFamily = 16;
    std::memcpy(face.lfFaceName, "Times New Roman", 15); // two bytes to a unit
    const HFONT font = CreateFontIndirectW(&face);
    const HGDIOBJ before = SelectObject(dc, font);
    RECT rect{};
    DrawTextW(dc, text, units, &rect, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    DeleteObject(font);
    return {rect.right, rect.bottom};
}

// The first box of a control without room for its text.
ExpectedBox no_room_box(const SeenBox& seen)
{
    const std::wstring beginning =
        test_support::inline_text({L"sources/funcs_layout_windows", L"FindFontSize_fit_H_and_W", 3024},
                                  L"incorrect input parameters, func FindFontSize_fit_H_and_W()\nhdc = ");
    // The device context is known to the program only.
    return {L"error", beginning + seen.text.substr(std::min(beginning.size(), seen.text.size()))};
}

} // namespace

void expect_no_room_and(const BoxWatcher& boxes, const std::wstring& text)
{
    const std::vector<SeenBox> seen = boxes.boxes();
    ASSERT_GE(seen.size(), 1u);
    boxes.expect_boxes({no_room_box(seen[0]), {L"error", text}});
}

int fitting_font_height(HWND window, const wchar_t* text, int height_limit, int width_limit)
{
    const wchar_t probe[] = L"\x6548\x6C6C\x216F\0\0\0";
    const HDC dc = GetDC(window);
    int size = 1;
    for (;; ++size) {
        const LONG line = size_in_font(dc, size, probe, 6).cy;
        if (line >= height_limit) {
            size -= line > height_limit ? 1 : 0;
            break;
        }
    }
    while (size > 1 && size_in_font(dc, size, text, -1).cx > width_limit)
        --size;
    ReleaseDC(window, dc);
    return size;
}

} // namespace screen_tests
