#include "sources/funcs_layout_windows/main_view/main_painting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/drawing/figures.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/control/main_view/created_geometry.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/counters.h"
#include "tests/support/windows/test_window.h"

using namespace test_support;

namespace
{

// A window, a white picture, and a record laid out for a client area of 600 x 400.
struct PictureFixture {
    TestWindow window{L"picture", {0, 0, 700, 500}};
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = nullptr;
    HFONT font = CreateFontW(15, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 16, L"");
    STR_GeomLt record = main_view_tests::created_geometry();
    LoadedProfiles_STR store{};

    PictureFixture()
    {
        const HDC screen = GetDC(nullptr);
        bitmap = CreateCompatibleBitmap(screen, 600, 400);
        ReleaseDC(nullptr, screen);
        SelectObject(dc, bitmap);
        PatBlt(dc, 0, 0, 600, 400, WHITENESS);
        record.i_client_width = 600;
        record.i_client_height = 400;
        compute_main_layout(&record, 1366, 768);
    }
    ~PictureFixture()
    {
        DeleteDC(dc);
        DeleteObject(bitmap);
        DeleteObject(font);
    }
    std::int32_t draw() { return draw_MainWindow(window, dc, &record, font, &store); }
};

} // namespace

TEST(MainPainting, DrawsAxesAndMiniatures)
{
    PictureFixture picture;
    const BoxWatcher boxes;
    EXPECT_EQ(picture.draw(), 1);
    boxes.expect_no_boxes();
    // Frame 420 x 340: the y axis runs from (15,15) down 320, the x axis right 400.
    for (const int offset : {-1, 0, 1}) { // three pixels wide
        EXPECT_EQ(GetPixel(picture.dc, 15 + offset, 100), RGB(0, 0, 0)) << offset;
        EXPECT_EQ(GetPixel(picture.dc, 200, 15 + offset), RGB(0, 0, 0)) << offset;
    }
    EXPECT_EQ(GetPixel(picture.dc, 200, 15), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(picture.dc, 15, 335), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(picture.dc, 415, 15), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(picture.dc, 13, 331), RGB(0, 0, 0)); // arrow head
    // Cells are trunc(370 / 3) = 123 wide and trunc(290 / 3) = 96 high; A starts at (25,25).
    const POINT title_bars[] = {{30, 30}, {158, 30}, {286, 30}, {30, 131}, {30, 232}};
    for (const POINT& bar : title_bars)
        EXPECT_EQ(GetPixel(picture.dc, bar.x, bar.y), RGB(0x5B, 0xAF, 0xFF)) << bar.x << "," << bar.y;
    EXPECT_EQ(GetPixel(picture.dc, 160, 230), RGB(0x5B, 0xAF, 0xFF) /* E is three cells wide */);
}

TEST(MainPainting, EndsEachAxisInAnArrowHead)
{
    PictureFixture picture;
    std::vector<std::vector<POINT>> heads;
    {
        const ImportHook<"Polygon", decltype(Polygon)> head(
            "gdi32.dll", [&](HDC dc, const POINT* corners, int count) {
                heads.emplace_back(corners, corners + count);
                EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), GetStockObject(BLACK_BRUSH));
                LOGPEN pen{};
                GetObjectW(GetCurrentObject(dc, OBJ_PEN), sizeof pen, &pen);
                EXPECT_EQ(pen.lopnStyle, static_cast<UINT>(PS_SOLID));
                EXPECT_EQ(pen.lopnWidth.x, 3);
                EXPECT_EQ(pen.lopnColor, RGB(0, 0, 0));
                return head.call_original(dc, corners, count);
            });
        EXPECT_EQ(picture.draw(), 1);
    }
    ASSERT_EQ(heads.size(), 2u);
    // The Y axis ends at (15,335), the X axis at (415,15).
    const POINT expected[2][3] = {{{10, 330}, {15, 335}, {20, 330}}, {{410, 10}, {415, 15}, {410, 20}}};
    for (std::size_t i = 0; i < 2; ++i) {
        ASSERT_EQ(heads[i].size(), 3u);
        EXPECT_EQ(std::memcmp(heads[i].data(), expected[i], sizeof expected[i]), 0) << i;
    }
    // As it is seen: wide behind the tip, nothing beyond its corners.
    for (const POINT& black : {POINT{410, 10}, {410, 20}, {411, 12}, {411, 18}, {412, 17}, {415, 15}})
        EXPECT_EQ(GetPixel(picture.dc, black.x, black.y), RGB(0, 0, 0)) << black.x << "," << black.y;
    for (const POINT& white : {POINT{407, 12}, {407, 18}, {410, 7}, {410, 23}, {414, 8}, {414, 22}})
        EXPECT_EQ(GetPixel(picture.dc, white.x, white.y), RGB(255, 255, 255)) << white.x << "," << white.y;
}

TEST(MainPainting, DrawsItsPartsInOrder)
{
    PictureFixture picture;
    std::vector<std::string> parts;
    const ImportHook<"LineTo", decltype(LineTo)> line("gdi32.dll", [&](HDC dc, int x, int y) {
        parts.push_back("line to " + std::to_string(x) + "," + std::to_string(y));
        return line.call_original(dc, x, y);
    });
    const ImportHook<"Polygon", decltype(Polygon)> head("gdi32.dll", [&](HDC, const POINT*, int) {
        parts.push_back("head");
        return TRUE;
    });
    const ImportHook<"DrawTextW", decltype(DrawTextW)> text(
        "user32.dll", [&](HDC, LPCWSTR words, int, LPRECT, UINT) {
            parts.push_back(words[1] == L'\0' ? "axis label" : "list label");
            return 1;
        });
    int rectangles = 0; // of a miniature: the outline, the title bar and three boxes
    const ImportHook<"Rectangle", decltype(Rectangle)> rectangle(
        "gdi32.dll", [&](HDC, int left, int top, int right, int bottom) {
            if (rectangles++ % 5 == 0)
                parts.push_back("miniature " + std::to_string(left) + "," + std::to_string(top) + " " +
                                std::to_string(right - left) + "x" + std::to_string(bottom - top));
            return TRUE;
        });
    EXPECT_EQ(picture.draw(), 1);
    // Cells are 123 wide and 96 high.
    EXPECT_EQ(parts, (std::vector<std::string>{
                         "line to 15,335", "head", "line to 415,15", "head", "axis label", "axis label",
                         "miniature 25,25 123x96", "miniature 153,25 123x197", "miniature 281,25 123x197",
                         "miniature 25,126 123x96", "miniature 25,227 379x96", "list label", "list label"}));
    EXPECT_EQ(rectangles, 25);
}

TEST(MainPainting, WritesTheFourLabelsAndNotTheCount)
{
    PictureFixture picture;
    picture.store.uiN_loaded_prfls = 3;
    struct Text {
        std::wstring text;
        RECT rect;
        UINT flags;
    };
    std::vector<Text> texts;
    ImportHook<"DrawTextW", decltype(DrawTextW)> draw(
        "user32.dll", [&](HDC dc, LPCWSTR text, int units, LPRECT rect, UINT flags) {
            EXPECT_EQ(units, -1);
            EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
            LOGFONTW font{};
            GetObjectW(GetCurrentObject(dc, OBJ_FONT), sizeof font, &font);
            EXPECT_EQ(font.lfHeight, text[1] == L'\0' ? 30 : 15);
            EXPECT_EQ(font.lfWeight, 700);
            // The lists' labels are in the very font that was handed over.
            EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT) == picture.font, text[1] != L'\0');
            texts.push_back({text, *rect, flags});
            return draw.call_original(dc, text, units, rect, flags);
        });
    EXPECT_EQ(picture.draw(), 1);
    EXPECT_EQ(picture.record.i_label_font_size, 30);
    ASSERT_EQ(texts.size(), 4u);
    const struct {
        const wchar_t* text;
        RECT rect;
        UINT flags;
    } expected[] = {{L"Y", {5, 335, 65, 395}, DT_SINGLELINE | DT_VCENTER},
                    {L"X", {415, 0, 475, 60}, DT_SINGLELINE | DT_VCENTER},
                    {L"Profile:", {450, 110, 585, 128}, DT_WORDBREAK | DT_VCENTER},
                    {L"Action:", {450, 164, 585, 182}, DT_WORDBREAK | DT_VCENTER}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(texts[i].text, expected[i].text);
        EXPECT_TRUE(EqualRect(&texts[i].rect, &expected[i].rect)) << i;
        EXPECT_EQ(texts[i].flags, expected[i].flags);
    }
}

TEST(MainPainting, GoesOnAfterAnAxisWithoutLength)
{
    PictureFixture picture;
    picture.record.i_client_width = 29; // the frame is 20 wide, which leaves nothing for the X axis
    compute_main_layout(&picture.record, 1366, 768);
    const BoxWatcher boxes;
    EXPECT_EQ(picture.draw(), 1);
    boxes.expect_boxes({{L"error", gap_text({L"sources/funcs_layout_windows", L"vex_DrawLine", 3151, 3179},
                                            L"incorrect input:\nhdc = " + pointer(picture.dc) +
                                                L", x0 = 15, y0 = 15, x1 = 15, y1 = 15")}});
    EXPECT_EQ(GetPixel(picture.dc, 15, 100), RGB(0, 0, 0));
    EXPECT_EQ(picture.record.i_label_font_size, 30);
}

TEST(MainPainting, LeavesTheContextAsItWas)
{
    PictureFixture picture;
    const HGDIOBJ pen = GetCurrentObject(picture.dc, OBJ_PEN);
    const HGDIOBJ font = GetCurrentObject(picture.dc, OBJ_FONT);
    const std::size_t objects = holdings_of(GetCurrentProcess()).gdi_objects;
    for (int i = 0; i < 20; ++i)
        picture.draw();
    EXPECT_EQ(GetCurrentObject(picture.dc, OBJ_PEN), pen);
    EXPECT_EQ(GetCurrentObject(picture.dc, OBJ_FONT), font);
    EXPECT_EQ(GetBkMode(picture.dc), OPAQUE);
    EXPECT_GT(objects, 0u);
    EXPECT_LE(holdings_of(GetCurrentProcess()).gdi_objects, objects + 5);
}

TEST(MainPainting, RefusesNullArguments)
{
    PictureFixture p;
    const auto text = [](const void* window, const void* dc, const void* record, const void* font,
                         const void* store) {
        return inline_text({L"sources/funcs_layout_windows", L"draw_MainWindow", 3552},
                           L"incorrect input parameters, func draw_arrows()\nINPUT PARAMETERS:\nhwnd_MW = " +
                               pointer(window) + L", hdc_MW = " + pointer(dc) + L", pSTR_GeomLt = " +
                               pointer(record) + L", hFont_buttons = " + pointer(font) +
                               L"\npLoadedProfiles_STR = " + pointer(store));
    };
    const BoxWatcher boxes;
    EXPECT_EQ(draw_MainWindow(nullptr, p.dc, &p.record, p.font, &p.store), -1);
    EXPECT_EQ(draw_MainWindow(p.window, nullptr, &p.record, p.font, &p.store), -1);
    EXPECT_EQ(draw_MainWindow(p.window, p.dc, nullptr, p.font, &p.store), -1);
    EXPECT_EQ(draw_MainWindow(p.window, p.dc, &p.record, nullptr, &p.store), -1);
    EXPECT_EQ(draw_MainWindow(p.window, p.dc, &p.record, p.font, nullptr), -1);
    boxes.expect_boxes({{L"error", text(nullptr, p.dc, &p.record, p.font, &p.store)},
                        {L"error", text(p.window, nullptr, &p.record, p.font, &p.store)},
                        {L"error", text(p.window, p.dc, nullptr, p.font, &p.store)},
                        {L"error", text(p.window, p.dc, &p.record, nullptr, &p.store)},
                        {L"error", text(p.window, p.dc, &p.record, p.font, nullptr)}});
    EXPECT_EQ(GetPixel(p.dc, 15, 100), RGB(255, 255, 255));
}

TEST(MainPainting, FillsTheBackgroundWithTheGradient)
{
    PictureFixture picture;
    fill_background(picture.window, picture.dc);
    RECT client{};
    GetClientRect(picture.window, &client);
    const int last = std::min<int>(client.bottom, 400) - 1;
    // The colour may have gone a part of a step already in the middle of the first row.
    const COLORREF first = GetPixel(picture.dc, 300, 0);
    EXPECT_NEAR(GetRValue(first), 0x16, 1);
    EXPECT_NEAR(GetGValue(first), 0xFA, 1);
    EXPECT_NEAR(GetBValue(first), 0xFA, 1);
    EXPECT_GT(GetRValue(GetPixel(picture.dc, 300, last)), 0x80);
    EXPECT_EQ(GetPixel(picture.dc, 0, 200), GetPixel(picture.dc, 599, 200)); // vertical
}
