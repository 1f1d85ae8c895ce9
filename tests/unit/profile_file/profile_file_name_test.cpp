// The search for the profile's name, backwards from the signature.
#include "sources/profile_file/profile_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/support/profiles/profile_encoder.h"
#include "tests/unit/exact_bytes.h"

namespace
{

using test_support::ProfileEncoder;

std::uint32_t name_in(const Bytes& area)
{
    const ExactBytes exact(area);
    return profile_file::find_name(exact.data(), exact.size());
}

ProfileEncoder one_program()
{
    return ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\a.exe");
}

Bytes joined(Bytes first, const Bytes& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST(ProfileFileName, BeginsBehindTheLastZeroUnit)
{
    EXPECT_EQ(name_in(one_program().name(u"A").bytes()), 59U);
    EXPECT_EQ(name_in(one_program().name(u"work docs 01").bytes()), 59U);
    EXPECT_EQ(name_in(one_program().name(std::u16string(256, u'\u0416')).bytes()), 59U);
}

TEST(ProfileFileName, IsFoundBehindAnyNumberOfWindows)
{
    // At 4 + 23 N + 2 S, in turn odd and even.
    ProfileEncoder encoder;
    for (std::uint32_t n = 1; n <= 6; ++n) {
        encoder.add_program(1, 2, 3, 4, u"p");
        EXPECT_EQ(name_in(ProfileEncoder(encoder).name(u"name").bytes()), 4 + 23 * n + 4 * n) << n;
    }
}

TEST(ProfileFileName, IsFoundWithoutAZeroTail)
{
    // Behind the terminator of the path.
    EXPECT_EQ(name_in(one_program().name(u"A").without_zero_tail().bytes()), 43U);
}

TEST(ProfileFileName, IsNotEndedByAZeroBytePairAcrossUnits)
{
    // 41 00 | 00 41
    EXPECT_EQ(name_in(one_program().name(u"\u0041\u4100").bytes()), 59U);
}

TEST(ProfileFileName, IsEmptyWhenTheLastUnitIsZero)
{
    // It begins at the signature then.
    EXPECT_EQ(name_in(one_program().name(u"").bytes()), 59U);
}

TEST(ProfileFileName, OfTheSecondProfileIsFoundInItsOwnCopy)
{
    const Bytes first = one_program().name(u"A").bytes();
    EXPECT_EQ(name_in(joined(first, one_program().name(u"second").bytes())), 64 + 59U);
    // The end decides, not what follows it.
    const ExactBytes both(joined(first, one_program().name(u"second").bytes()));
    EXPECT_EQ(profile_file::find_name(both.data(), 64), 59U);
}

TEST(ProfileFileName, IsLookedForInTheCopiesBefore)
{
    const Bytes first{0xEE, 0xEE, 0xEE, 0, 0, 0xEE, 0x00, 0x07, 0x0C};
    const auto without_zero_unit = [](std::size_t bytes) {
        return joined(Bytes(bytes, 0x5A), {0x00, 0x07, 0x0C});
    };
    EXPECT_EQ(name_in(joined(first, without_zero_unit(10))), 5U);
    // The zeros of the first copy lie across units now.
    EXPECT_EQ(name_in(joined(first, without_zero_unit(11))), 0U);
}

TEST(ProfileFileName, IsNotFoundWithoutAZeroUnit)
{
    EXPECT_EQ(name_in(joined(Bytes(20, 0x5A), {0x00, 0x07, 0x0C})), 0U);
    EXPECT_EQ(name_in(joined(Bytes(21, 0x5A), {0x00, 0x07, 0x0C})), 0U);
}

TEST(ProfileFileName, NeverLooksAtTheUnitAtOffsetZero)
{
    EXPECT_EQ(name_in({0, 0, 'A', 0, 0x00, 0x07, 0x0C}), 0U);
    EXPECT_EQ(name_in({0, 0, 'A', 0, 'B', 0, 0x00, 0x07, 0x0C}), 0U);
    EXPECT_EQ(name_in({0, 0, 0x00, 0x07, 0x0C}), 0U);
}

TEST(ProfileFileName, IsNotLookedForBeforeTheStartAtOddOffsets)
{
    EXPECT_EQ(name_in({0xEE, 'A', 0, 0x00, 0x07, 0x0C}), 0U);
    EXPECT_EQ(name_in({0xEE, 0, 0, 0x00, 0x07, 0x0C}), 3U);
    EXPECT_EQ(name_in({0, 'A', 0, 'B', 0, 0x00, 0x07, 0x0C}), 0U);
    EXPECT_EQ(name_in({0xEE, 0, 0, 'B', 0, 0x00, 0x07, 0x0C}), 3U);
}

TEST(ProfileFileName, IsFoundAtEveryPlaceOfItsZero)
{
    for (std::size_t units = 1; units < 12; ++units) {
        for (std::size_t zero = 1; zero < units; ++zero) { // the unit at offset 0 is not looked at
            Bytes area(2 * units, 0x5A);
            area[2 * zero] = 0;
            area[2 * zero + 1] = 0;
            EXPECT_EQ(name_in(joined(area, {0x00, 0x07, 0x0C})), 2 * zero + 2) << zero << " of " << units;
        }
    }
}

TEST(ProfileFileName, IsNotFoundInLessThanAUnitAndASignature)
{
    for (std::size_t size = 0; size < 5; ++size)
        EXPECT_EQ(name_in(Bytes(size, 0)), 0U) << size;
}

} // namespace
