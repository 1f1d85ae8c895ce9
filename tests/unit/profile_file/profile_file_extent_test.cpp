// Which files run past their end, and where.
#include "sources/profile_file/profile_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <string>

#include "tests/support/profiles/profile_encoder.h"
#include "tests/unit/exact_bytes.h"

namespace
{

using profile_file::Entry;
using profile_file::ExtentFault;
using profile_file::Field;
using test_support::ProfileEncoder;

ExtentFault fault_of(const Bytes& bytes)
{
    return profile_file::check_extent(ExactBytes(bytes).span());
}

void expect_fault(const ExtentFault& fault, Field field, std::uint32_t entry)
{
    EXPECT_STREQ(profile_file::name_of_field(fault.field), profile_file::name_of_field(field));
    EXPECT_EQ(fault.entry, entry);
}

// Reads every byte of every entry.
unsigned sum_of_entries(const ExactBytes& file)
{
    unsigned sum = 0;
    for (const Entry& entry : profile_file::entries(file.data())) {
        sum = std::accumulate(entry.path, entry.path + entry.path_bytes, sum + entry.kind);
    }
    return sum;
}

// Three windows with paths of 4, 0 and 6 bytes: flags at 4, X at 7, Y at 19, width at 31, height at 43,
// lengths at 55, paths at 67, 73 and 75, the last terminator ending at 83; in all 98 bytes with the zero
// tail, the name and the signature.
Bytes three_windows()
{
    return ProfileEncoder()
        .add_program(1, 2, 3, 4, u"ab")
        .add_folder(5, 6, 7, 8, u"")
        .add_program(9, 10, 11, 12, u"cde")
        .name(u"n")
        .bytes();
}

// The fault of three_windows cut to `size` bytes.
ExtentFault expected_fault(std::uint32_t size)
{
    if (size < 4)
        return {Field::COUNT, 0};
    if (size < 7)
        return {Field::FLAG, size - 4};
    if (size < 19)
        return {Field::X, (size - 7) / 4};
    if (size < 31)
        return {Field::Y, (size - 19) / 4};
    if (size < 43)
        return {Field::WIDTH, (size - 31) / 4};
    if (size < 55)
        return {Field::HEIGHT, (size - 43) / 4};
    if (size < 67)
        return {Field::PATH_LENGTH, (size - 55) / 4};
    if (size < 83)
        return {Field::PATH, size < 73 ? 0U : size < 75 ? 1U : 2U};
    return {Field::NONE, 0};
}

TEST(ProfileFileExtent, NamesTheFirstFieldAndEntryPastTheEndOfEveryCutFile)
{
    const Bytes whole = three_windows();
    ASSERT_EQ(whole.size(), 98U);
    for (std::uint32_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE("cut to " + std::to_string(size));
        const ExactBytes cut(std::span<const std::uint8_t>(whole).first(size));
        const ExtentFault fault = profile_file::check_extent(cut.span());
        const ExtentFault expected = expected_fault(size);
        expect_fault(fault, expected.field, expected.entry);
        if (fault.field == Field::NONE) {
            EXPECT_GT(sum_of_entries(cut), 0U);
        }
    }
}

TEST(ProfileFileExtent, FindsTheSameFaultsBehindASignature)
{
    const ProfileEncoder one = ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\a.exe").name(u"A");
    const auto with_bytes_before_signature = [&](std::size_t bytes) {
        return fault_of(ProfileEncoder(one).cut_before_signature(bytes).bytes());
    };
    expect_fault(with_bytes_before_signature(0), Field::COUNT, 0); // the three bytes of the signature alone
    expect_fault(with_bytes_before_signature(5), Field::X, 0);
    expect_fault(with_bytes_before_signature(9), Field::Y, 0);
    expect_fault(with_bytes_before_signature(13), Field::WIDTH, 0);
    expect_fault(with_bytes_before_signature(17), Field::HEIGHT, 0);
    expect_fault(with_bytes_before_signature(21), Field::PATH_LENGTH, 0);
    expect_fault(with_bytes_before_signature(25), Field::PATH, 0);
    expect_fault(with_bytes_before_signature(39), Field::PATH, 0);
    // The signature stands where the terminator would be.
    expect_fault(with_bytes_before_signature(40), Field::NONE, 0);
}

TEST(ProfileFileExtent, RefusesCountsBeyondTheFile)
{
    const auto with_count = [](std::uint32_t count) {
        const Bytes file =
            ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\a.exe").name(u"A").declare_count(count).bytes();
        EXPECT_EQ(file.size(), 64U);
        return fault_of(file);
    };
    expect_fault(with_count(2), Field::PATH, 0); // the lengths are read from the path then
    expect_fault(with_count(3), Field::PATH_LENGTH, 2);
    expect_fault(with_count(59), Field::X, 0);
    expect_fault(with_count(60), Field::X, 0);
    expect_fault(with_count(61), Field::FLAG, 60);
    expect_fault(with_count(0x7FFFFFFF), Field::FLAG, 60);
    expect_fault(with_count(0xFFFFFFFF), Field::FLAG, 60);
    // 4 + 21 N is 21 in 32 bits.
    expect_fault(with_count(204522253), Field::FLAG, 60);
    // 4 N is 0 in 32 bits, N is not.
    expect_fault(with_count(0x40000000), Field::FLAG, 60);
}

TEST(ProfileFileExtent, RefusesCountsBeyondAFileOfFourBytes)
{
    expect_fault(fault_of({0xFF, 0xFF, 0xFF, 0xFF}), Field::FLAG, 0);
    expect_fault(fault_of({1, 0, 0, 0}), Field::FLAG, 0);
    expect_fault(fault_of({0, 0, 0, 0}), Field::NONE, 0);
}

TEST(ProfileFileExtent, RefusesCountsWhoseArraysDoNotEndBelow32Bits)
{
    // Nothing but the count is read of such a file, so the rest of it need not be there.
    const auto fault_of_large_file = [](std::uint32_t count, std::size_t size) {
        const ExactBytes first(ProfileEncoder().declare_count(count).cut_to(4).bytes());
        return profile_file::check_extent({first.data(), size});
    };
    // The X array ends at 4 + 5 N = 4500000004, which is 205032708 in 32 bits.
    expect_fault(fault_of_large_file(900000000, 900000104), Field::X, 25);
    expect_fault(fault_of_large_file(0xFFFFFFFB, 0xFFFFFFFF), Field::X, 0);
}

TEST(ProfileFileExtent, RefusesPathLengthsBeyondTheFile)
{
    const ProfileEncoder two =
        ProfileEncoder().add_program(1, 2, 3, 4, u"ab").add_program(5, 6, 7, 8, u"cd").name(u"n");
    // Paths at 46 and 52, the whole file 71 bytes.
    ASSERT_EQ(two.bytes().size(), 71U);
    const auto with_lengths = [&](std::uint32_t first, std::uint32_t second) {
        return fault_of(
            ProfileEncoder(two).declare_path_length(0, first).declare_path_length(1, second).bytes());
    };
    expect_fault(with_lengths(4, 4), Field::NONE, 0);
    expect_fault(with_lengths(4, 17), Field::NONE, 0); // its terminator ends with the file
    expect_fault(with_lengths(4, 18), Field::PATH, 1);
    expect_fault(with_lengths(21, 0), Field::NONE, 0);
    expect_fault(with_lengths(22, 0), Field::PATH, 1);
    expect_fault(with_lengths(23, 0), Field::PATH, 1);
    expect_fault(with_lengths(24, 0), Field::PATH, 0);
    for (const std::uint32_t length : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFDU, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
        SCOPED_TRACE(length);
        expect_fault(with_lengths(length, 4), Field::PATH, 0);
        expect_fault(with_lengths(4, length), Field::PATH, 1);
        expect_fault(with_lengths(length, length), Field::PATH, 0);
    }
}

TEST(ProfileFileExtent, AcceptsFilesThatAreUnusualButComplete)
{
    const ProfileEncoder good =
        ProfileEncoder().add_program(1, 2, 3, 4, u"ab").add_folder(5, 6, 7, 8, u"cd").name(u"n");
    expect_fault(fault_of(good.bytes()), Field::NONE, 0);
    expect_fault(fault_of(ProfileEncoder(good).without_zero_tail().bytes()), Field::NONE, 0);
    expect_fault(fault_of(ProfileEncoder(good).surplus_before_name(Bytes(1000, 0xEE)).bytes()), Field::NONE,
                 0);
    expect_fault(fault_of(ProfileEncoder(good).declare_path_length(0, 3).bytes()), Field::NONE, 0);
    expect_fault(fault_of(ProfileEncoder(good).name(u"").bytes()), Field::NONE, 0);
    // Whether it is signed is not this check's affair.
    expect_fault(fault_of(ProfileEncoder(good).signature(1, 2, 3).bytes()), Field::NONE, 0);
    expect_fault(fault_of(ProfileEncoder(good).add({.flag = 77, .path = u"e"}).bytes()), Field::NONE, 0);
}

} // namespace
