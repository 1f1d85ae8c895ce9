// The List of Windows window: buttons 0.09 x 0.03 of the screen, margin 5, the list below them, columns 0.088
// and 0.56 of the client width.
#include "sources/wnd_ScanListView/scan_list_layout.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "tests/unit/pixels.h"

namespace
{

TEST(ScanListLayout, PutsTwoButtonsAboveTheList)
{
    // Buttons 122.94 x 23.04.
    const ScanListLayout small = compute_scan_list_layout(1016, 549, 1366, 768);
    EXPECT_EQ(box_of(small.move), (Box{5, 5, 122, 23}));
    EXPECT_EQ(box_of(small.create_profile), (Box{132, 5, 122, 23}));
    EXPECT_EQ(box_of(small.list), (Box{5, 33, 1006, 511}));
    // Buttons 172.8 x 32.4.
    const ScanListLayout large = compute_scan_list_layout(1424, 783, 1920, 1080);
    EXPECT_EQ(box_of(large.move), (Box{5, 5, 172, 32}));
    EXPECT_EQ(box_of(large.create_profile), (Box{182, 5, 172, 32}));
    EXPECT_EQ(box_of(large.list), (Box{5, 42, 1414, 736}));
}

TEST(ScanListLayout, KeepsTheButtonsWhenTheWindowIsResized)
{
    const ScanListLayout before = compute_scan_list_layout(1016, 549, 1366, 768);
    const ScanListLayout after = compute_scan_list_layout(300, 200, 1366, 768);
    EXPECT_EQ(box_of(after.move), box_of(before.move));
    EXPECT_EQ(box_of(after.create_profile), box_of(before.create_profile));
    EXPECT_EQ(box_of(after.list), (Box{5, 33, 290, 162}));
}

TEST(ScanListLayout, GivesAnEmptyClientAreaNegativeListSizes)
{
    EXPECT_EQ(box_of(compute_scan_list_layout(0, 0, 1366, 768).list), (Box{5, 33, -10, -38}));
}

TEST(ScanListLayout, SizesButtonsFromTheScreen)
{
    EXPECT_EQ(scan_list_button_width(1366), 122);
    EXPECT_EQ(scan_list_button_height(768), 23);
    EXPECT_EQ(scan_list_button_width(1920), 172);
    EXPECT_EQ(scan_list_button_height(1080), 32);
    EXPECT_EQ(scan_list_button_width(3840), 345);
    EXPECT_EQ(scan_list_button_height(2160), 64);
}

TEST(ScanListLayout, SharesTheClientWidthAmongSixColumns)
{
    struct Row {
        std::int32_t client_width;
        std::array<std::int32_t, 6> columns;
    };
    for (const Row& row : {Row{1016, {89, 568, 89, 89, 89, 89}}, Row{1424, {125, 797, 125, 125, 125, 125}},
                           Row{1000, {88, 560, 88, 88, 88, 88}}, Row{0, {0, 0, 0, 0, 0, 0}}}) {
        for (std::size_t column = 0; column < row.columns.size(); ++column)
            EXPECT_EQ(scan_list_column_width(column, row.client_width), row.columns[column])
                << "column " << column << " of " << row.client_width;
    }
}

TEST(ScanListLayout, MultipliesColumnsInDoublePrecision)
{
    // The double nearest to 0.088 lies below it; single precision gives 253, 495 and 506.
    EXPECT_EQ(scan_list_column_width(0, 2875), 252);
    EXPECT_EQ(scan_list_column_width(2, 5625), 494);
    EXPECT_EQ(scan_list_column_width(5, 5750), 505);
}

} // namespace
