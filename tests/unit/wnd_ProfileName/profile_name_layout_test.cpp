// The profile name window: 0.1875 x 0.175 of the screen, buttons 0.045 x 0.025 at its right, the edit box
// 0.126 x 0.03 at 1.5 times its height, the label above it.
#include "sources/wnd_ProfileName/profile_name_layout.h"

#include <gtest/gtest.h>

#include "tests/unit/pixels.h"

namespace
{

TEST(ProfileNameLayout, SizesTheWindowFromTheScreen)
{
    EXPECT_EQ(profile_name_width(1366), 256); // 256.125
    EXPECT_EQ(profile_name_height(768), 134); // 134.4
    EXPECT_EQ(profile_name_width(1920), 360);
    EXPECT_EQ(profile_name_height(1080), 189);
}

TEST(ProfileNameLayout, MultipliesTheWindowsSizeInSinglePrecision)
{
    // In double precision these stay just below the whole number.
    EXPECT_EQ(profile_name_height(720), 126);
    EXPECT_EQ(profile_name_height(1440), 252);
}

TEST(ProfileNameLayout, PlacesItsControls)
{
    // Buttons 61.47 x 19.2, edit box 172.116 x 23.04 at 34.5, label 309.8088 wide.
    const ProfileNameLayout small = compute_profile_name_layout(256, 1366, 768);
    EXPECT_EQ(box_of(small.ok), (Box{185, 5, 61, 19}));
    EXPECT_EQ(box_of(small.cancel), (Box{185, 29, 61, 19}));
    EXPECT_EQ(box_of(small.edit), (Box{5, 34, 172, 23}));
    EXPECT_EQ(box_of(small.label), (Box{5, 6, 309, 23}));
    // Buttons 86.4 x 27, edit box 241.92 x 32.4 at 48, label 435.456 wide.
    const ProfileNameLayout large = compute_profile_name_layout(360, 1920, 1080);
    EXPECT_EQ(box_of(large.ok), (Box{264, 5, 86, 27}));
    EXPECT_EQ(box_of(large.cancel), (Box{264, 37, 86, 27}));
    EXPECT_EQ(box_of(large.edit), (Box{5, 48, 241, 32}));
    EXPECT_EQ(box_of(large.label), (Box{5, 11, 435, 32}));
}

TEST(ProfileNameLayout, MeasuresTheButtonsFromTheWindowsOwnWidth)
{
    const ProfileNameLayout layout = compute_profile_name_layout(400, 1366, 768);
    EXPECT_EQ(box_of(layout.ok), (Box{329, 5, 61, 19}));
    EXPECT_EQ(box_of(layout.cancel), (Box{329, 29, 61, 19}));
    EXPECT_EQ(box_of(layout.edit), (Box{5, 34, 172, 23}));
}

TEST(ProfileNameLayout, KeepsTheLabelsFactorInDoublePrecision)
{
    // The single-precision product of 1.8 and 0.126 lies below 0.2268.
    EXPECT_EQ(compute_profile_name_layout(468, 2500, 1440).label.width, 567);
    EXPECT_EQ(compute_profile_name_layout(937, 5000, 1440).label.width, 1134);
}

} // namespace
