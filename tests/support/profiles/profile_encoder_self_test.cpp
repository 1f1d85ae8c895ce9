#include <gtest/gtest.h>

#include "tests/support/profiles/profile_encoder.h"

using test_support::ProfileEncoder;

namespace
{

using Bytes = std::vector<std::uint8_t>;

const Bytes kOneProgram = {
    0x01, 0x00, 0x00, 0x00, // count
    0x01,                   // flag
    0xF8, 0xFF, 0xFF, 0xFF, // x = -8
    0x02, 0x00, 0x00, 0x00, // y
    0x2C, 0x01, 0x00, 0x00, // width 300
    0xC8, 0x00, 0x00, 0x00, // height 200
    0x10, 0x00, 0x00, 0x00, // path bytes
    'C',  0x00, ':',  0x00, '\\', 0x00, 'a',  0x00, '.',  0x00, 'e',  0x00,
    'x',  0x00, 'e',  0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // tail
    'A',  0x00,                                                 // name
    0x00, 0x07, 0x0C,
};

ProfileEncoder one_program()
{
    return ProfileEncoder().add_program(-8, 2, 300, 200, u"C:\\a.exe").name(u"A");
}

TEST(ProfileEncoder, WritesOneProgramIn64Bytes)
{
    EXPECT_EQ(one_program().bytes().size(), 64u);
    EXPECT_EQ(one_program().bytes(), kOneProgram);
}

TEST(ProfileEncoder, KeepsEveryArrayInEntryOrder)
{
    const Bytes bytes =
        ProfileEncoder().add_folder(1, 2, 3, 4, u"p").add_program(5, 6, 7, 8, u"qr").name(u"N").bytes();
    const Bytes expected = {
        2,   0, 0, 0, 0,   1,                                 // count, flags
        1,   0, 0, 0, 5,   0, 0,   0, 2, 0, 0, 0, 6, 0, 0, 0, // x, y
        3,   0, 0, 0, 7,   0, 0,   0, 4, 0, 0, 0, 8, 0, 0, 0, // width, height
        2,   0, 0, 0, 4,   0, 0,   0,                         // path bytes
        'p', 0, 0, 0, 'q', 0, 'r', 0, 0, 0,                   // paths
        0,   0, 0, 0, 0,   0,                                 // tail
        'N', 0, 0, 7, 12,
    };
    EXPECT_EQ(bytes, expected);
}

TEST(ProfileEncoder, DeclaresTheCountsAndLengthsItIsGiven)
{
    Bytes expected = kOneProgram;
    expected[0] = 0xFF;
    expected[3] = 0x80;
    expected[21] = 0x04;
    expected[22] = 0x03;
    expected[23] = 0x02;
    expected[24] = 0x01;
    expected[61] = 0x01;
    expected[62] = 0x02;
    expected[63] = 0x03;
    EXPECT_EQ(
        one_program().declare_count(0x800000FF).declare_path_length(0, 0x01020304).signature(1, 2, 3).bytes(),
        expected);
}

TEST(ProfileEncoder, CutsAndFillsAsAskedFor)
{
    EXPECT_EQ(one_program().cut_to(2).bytes(), (Bytes{0x01, 0x00}));
    EXPECT_EQ(one_program().cut_before_signature(2).bytes(), (Bytes{0x01, 0x00, 0x00, 0x07, 0x0C}));
    EXPECT_EQ(one_program().without_zero_tail().bytes().size(), 48u);

    Bytes expected = kOneProgram;
    expected.insert(expected.begin() + 59, {0xAA, 0xBB, 0xCC});
    EXPECT_EQ(one_program().surplus_before_name({0xAA, 0xBB, 0xCC}).bytes(), expected);
}

} // namespace
