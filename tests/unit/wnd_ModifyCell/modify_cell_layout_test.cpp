#include "sources/wnd_ModifyCell/modify_cell_layout.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "tests/unit/pixels.h"

namespace
{

TEST(ModifyCellLayout, SizesTheWindowFromTheScreen)
{
    EXPECT_EQ(modify_cell_width(1366), 219); // 35 + 184.41
    EXPECT_EQ(modify_cell_height(768), 140); // 25 + 115.2
    EXPECT_EQ(modify_cell_width(1920), 294); // 35 + 259.2
    EXPECT_EQ(modify_cell_height(1080), 187);
    EXPECT_EQ(modify_cell_width(2560), 380); // 35 + 345.6
    EXPECT_EQ(modify_cell_height(1440), 241);
}

struct Row {
    std::int32_t screen_width;
    std::int32_t screen_height;
    std::array<Box, 6> controls; // X, Y, Width, Height, Ok, Cancel
    std::array<Box, 4> labels;
};

TEST(ModifyCellLayout, PlacesControlsAndLabels)
{
    const std::array<Row, 2> rows{
        // Controls 61.47 x 19.2; buttons end 5 before 30 + 184.41.
        Row{.screen_width = 1366,
            .screen_height = 768,
            .controls = {Box{76, 5, 61, 19}, Box{76, 29, 61, 19}, Box{76, 53, 61, 19}, Box{76, 77, 61, 19},
                         Box{148, 5, 61, 19}, Box{148, 29, 61, 19}},
            .labels = {Box{5, 5, 61, 19}, Box{5, 29, 61, 19}, Box{5, 53, 61, 19}, Box{5, 77, 61, 24}}},
        // Controls 86.4 x 27; buttons end 5 before 30 + 259.2.
        Row{.screen_width = 1920,
            .screen_height = 1080,
            .controls = {Box{101, 5, 86, 27}, Box{101, 37, 86, 27}, Box{101, 69, 86, 27},
                         Box{101, 101, 86, 27}, Box{198, 5, 86, 27}, Box{198, 37, 86, 27}},
            .labels = {Box{5, 5, 86, 27}, Box{5, 37, 86, 27}, Box{5, 69, 86, 27}, Box{5, 101, 86, 32}}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.screen_width);
        const ModifyCellLayout layout = compute_modify_cell_layout(row.screen_width, row.screen_height);
        EXPECT_EQ(layout.button_width, row.controls[0].width);
        EXPECT_EQ(layout.button_height, row.controls[0].height);
        for (std::size_t i = 0; i < row.controls.size(); ++i)
            EXPECT_EQ(box_of(layout.controls[i]), row.controls[i]) << "control " << i;
        for (std::size_t i = 0; i < row.labels.size(); ++i)
            EXPECT_EQ(box_of(layout.labels[i]), row.labels[i]) << "label " << i;
    }
}

} // namespace
