// Every rectangle of the main window, worked out from the layout's rules: gap 5, picture 0.7 x 0.85 of the
// client area, buttons 0.06 x 0.035 of the screen, lines 1.2 times the font size high.
#include "sources/funcs_layout_windows/main_view/main_layout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/unit/pixels.h"

namespace
{

struct Size {
    std::int32_t width;
    std::int32_t height;
};

STR_GeomLt layout_of(Size client, Size screen, std::int32_t font_size)
{
    STR_GeomLt geometry{};
    set_layout_constants(&geometry);
    geometry.i_client_width = client.width;
    geometry.i_client_height = client.height;
    geometry.i_font_size = font_size;
    compute_main_layout(&geometry, screen.width, screen.height);
    return geometry;
}

struct Column {
    Box scan;
    Box load_profile;
    Box count_line;
    Box label_profile;
    Box list_profile;
    Box label_action;
    Box list_action;
    Box apply;
};

void expect_column(const STR_GeomLt& geometry, const Column& expected)
{
    EXPECT_EQ(box_of(geometry.rect_Scan), expected.scan);
    EXPECT_EQ(box_of(geometry.rect_LoadProfile), expected.load_profile);
    EXPECT_EQ(box_of(geometry.rect_count_line), expected.count_line);
    EXPECT_EQ(box_of(geometry.rect_label_Profile), expected.label_profile);
    EXPECT_EQ(box_of(geometry.rect_CB_Profile), expected.list_profile);
    EXPECT_EQ(box_of(geometry.rect_label_Action), expected.label_action);
    EXPECT_EQ(box_of(geometry.rect_CB_Action), expected.list_action);
    EXPECT_EQ(box_of(geometry.rect_Apply), expected.apply);
}

struct Picture {
    Box frame;
    std::int32_t x_axis_length;
    std::int32_t y_axis_length;
    Box a;
    Box b;
    Box c;
    Box d;
    Box e;
    Size label_y; // corner
    Size label_x;
};

void expect_picture(const STR_GeomLt& geometry, const Picture& expected)
{
    EXPECT_EQ(box_of(geometry.rect_frame), expected.frame);
    EXPECT_EQ(geometry.pt_axis_origin.x, 15);
    EXPECT_EQ(geometry.pt_axis_origin.y, 15);
    EXPECT_EQ(geometry.i_x_axis_length, expected.x_axis_length);
    EXPECT_EQ(geometry.i_y_axis_length, expected.y_axis_length);
    EXPECT_EQ(box_of(geometry.arr1D_rect_miniatures[0]), expected.a);
    EXPECT_EQ(box_of(geometry.arr1D_rect_miniatures[1]), expected.b);
    EXPECT_EQ(box_of(geometry.arr1D_rect_miniatures[2]), expected.c);
    EXPECT_EQ(box_of(geometry.arr1D_rect_miniatures[3]), expected.d);
    EXPECT_EQ(box_of(geometry.arr1D_rect_miniatures[4]), expected.e);
    EXPECT_EQ(geometry.pt_label_Y.x, expected.label_y.width);
    EXPECT_EQ(geometry.pt_label_Y.y, expected.label_y.height);
    EXPECT_EQ(geometry.pt_label_X.x, expected.label_x.width);
    EXPECT_EQ(geometry.pt_label_X.y, expected.label_x.height);
}

TEST(MainLayout, OpensAtFourTenthsByNineTwentiethsOfTheScreen)
{
    struct Row {
        Size screen;
        Size window;
    };
    for (const Row& row :
         {Row{{640, 480}, {256, 216}}, Row{{800, 600}, {320, 270}}, Row{{1280, 1024}, {512, 460}},
          Row{{1366, 768}, {546, 345}}, Row{{1920, 1080}, {768, 486}}, Row{{3840, 2160}, {1536, 972}}}) {
        EXPECT_EQ(initial_main_width(row.screen.width), row.window.width) << row.screen.width;
        EXPECT_EQ(initial_main_height(row.screen.height), row.window.height) << row.screen.height;
    }
}

TEST(MainLayout, StacksTheColumnAtTheRight)
{
    // Column at 5 + 376 + 25; buttons 81.96 x 26.88, lines 538 - 406 - 15 wide and 14.4 high, truncated.
    expect_column(layout_of({538, 298}, {1366, 768}, 12), {.scan = {406, 5, 81, 26},
                                                           .load_profile = {406, 36, 81, 26},
                                                           .count_line = {406, 87, 117, 14},
                                                           .label_profile = {406, 106, 117, 14},
                                                           .list_profile = {406, 125, 117, 26},
                                                           .label_action = {406, 156, 117, 14},
                                                           .list_action = {406, 175, 117, 26},
                                                           .apply = {406, 206, 81, 26}});
    // Column at 5 + 1328 + 25; buttons 115.2 x 37.8, lines 1898 - 1358 - 15 wide and 22.8 high.
    expect_column(layout_of({1898, 901}, {1920, 1080}, 19), {.scan = {1358, 5, 115, 37},
                                                             .load_profile = {1358, 47, 115, 37},
                                                             .count_line = {1358, 109, 525, 22},
                                                             .label_profile = {1358, 136, 525, 22},
                                                             .list_profile = {1358, 163, 525, 37},
                                                             .label_action = {1358, 205, 525, 22},
                                                             .list_action = {1358, 232, 525, 37},
                                                             .apply = {1358, 274, 115, 37}});
}

TEST(MainLayout, DrawsFiveMiniaturesInAGridOfNine)
{
    // Frame 376.6 x 253.3; cells 326 / 3 by 203 / 3, truncated.
    expect_picture(layout_of({538, 298}, {1366, 768}, 12), {.frame = {5, 5, 376, 253},
                                                            .x_axis_length = 356,
                                                            .y_axis_length = 233,
                                                            .a = {25, 25, 108, 67},
                                                            .b = {138, 25, 108, 139},
                                                            .c = {251, 25, 108, 139},
                                                            .d = {25, 97, 108, 67},
                                                            .e = {25, 169, 334, 67},
                                                            .label_y = {5, 248},
                                                            .label_x = {371, 0}});
    // Frame 1328.6 x 765.85; cells 1278 / 3 by 715 / 3.
    expect_picture(layout_of({1898, 901}, {1920, 1080}, 19), {.frame = {5, 5, 1328, 765},
                                                              .x_axis_length = 1308,
                                                              .y_axis_length = 745,
                                                              .a = {25, 25, 426, 238},
                                                              .b = {456, 25, 426, 481},
                                                              .c = {887, 25, 426, 481},
                                                              .d = {25, 268, 426, 238},
                                                              .e = {25, 511, 1288, 238},
                                                              .label_y = {5, 760},
                                                              .label_x = {1323, 0}});
}

TEST(MainLayout, MultipliesTheFrameInSinglePrecision)
{
    // In double precision 0.7 x 650 and 0.7 x 700 (with the single-precision factor) stay below the whole
    // number.
    EXPECT_EQ(layout_of({650, 400}, {1366, 768}, 12).rect_frame.width, 455);
    EXPECT_EQ(layout_of({700, 400}, {1366, 768}, 12).rect_frame.width, 490);
    EXPECT_EQ(layout_of({170, 400}, {1366, 768}, 12).rect_frame.width, 119);
}

TEST(MainLayout, TakesButtonsFromTheScreenAndLinesFromTheClientArea)
{
    const STR_GeomLt narrow = layout_of({538, 298}, {1366, 768}, 12);
    const STR_GeomLt wide = layout_of({1200, 700}, {1366, 768}, 12);
    const STR_GeomLt other_screen = layout_of({538, 298}, {1920, 1080}, 12);

    for (const auto rect : {&STR_GeomLt::rect_Scan, &STR_GeomLt::rect_LoadProfile, &STR_GeomLt::rect_Apply}) {
        EXPECT_EQ((narrow.*rect).width, 81);
        EXPECT_EQ((narrow.*rect).height, 26);
        EXPECT_EQ((wide.*rect).width, 81);
        EXPECT_EQ((wide.*rect).height, 26);
        EXPECT_EQ((other_screen.*rect).width, 115);
        EXPECT_EQ((other_screen.*rect).height, 37);
    }
    for (const auto rect :
         {&STR_GeomLt::rect_count_line, &STR_GeomLt::rect_label_Profile, &STR_GeomLt::rect_CB_Profile,
          &STR_GeomLt::rect_label_Action, &STR_GeomLt::rect_CB_Action}) {
        EXPECT_EQ((narrow.*rect).width, 117);
        EXPECT_EQ((wide.*rect).width, 315); // 1200 - (5 + 840 + 25) - 15
        EXPECT_EQ((other_screen.*rect).width, 117);
    }
}

TEST(MainLayout, KeepsTheColumnRightOfThePictureAtTheSmallestSize)
{
    for (const Size screen : {Size{640, 480}, Size{1024, 768}, Size{1366, 768}, Size{1920, 1080},
                              Size{1080, 1920}, Size{3840, 2160}}) {
        // What frame, caption and menu leave of the smallest window.
        const Size client{initial_main_width(screen.width) - 16, initial_main_height(screen.height) - 59};
        const STR_GeomLt geometry = layout_of(client, screen, 12);
        SCOPED_TRACE(std::to_string(screen.width) + " x " + std::to_string(screen.height));
        EXPECT_GT(geometry.rect_Scan.x, geometry.rect_frame.x + geometry.rect_frame.width);
        EXPECT_LE(geometry.rect_Scan.x + geometry.rect_Scan.width, client.width);
        EXPECT_GT(geometry.rect_CB_Profile.width, 0);
        EXPECT_GT(geometry.arr1D_rect_miniatures[0].width, 0);
        EXPECT_GT(geometry.arr1D_rect_miniatures[0].height, 0);
    }
}

TEST(MainLayout, TruncatesTowardZeroInAnEmptyClientArea)
{
    const STR_GeomLt geometry = layout_of({0, 0}, {1366, 768}, 0);
    expect_picture(geometry, {.frame = {5, 5, 0, 0},
                              .x_axis_length = -20,
                              .y_axis_length = -20,
                              .a = {25, 25, -16, -16}, // -50 / 3
                              .b = {14, 25, -16, -27},
                              .c = {3, 25, -16, -27},
                              .d = {25, 14, -16, -16},
                              .e = {25, 3, -38, -16},
                              .label_y = {5, -5},
                              .label_x = {-5, 0}});
    EXPECT_EQ(box_of(geometry.rect_count_line), (Box{30, 87, -45, 0}));
}

TEST(MainLayout, LeavesClientSizeAndFontSizesAlone)
{
    STR_GeomLt geometry{};
    set_layout_constants(&geometry);
    geometry.i_client_width = 538;
    geometry.i_client_height = 298;
    geometry.i_font_size = 12;
    geometry.i_label_font_size = 77;
    compute_main_layout(&geometry, 1366, 768);
    EXPECT_EQ(geometry.i_client_width, 538);
    EXPECT_EQ(geometry.i_client_height, 298);
    EXPECT_EQ(geometry.i_font_size, 12);
    EXPECT_EQ(geometry.i_label_font_size, 77);
}

} // namespace
