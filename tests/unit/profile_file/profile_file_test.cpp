// Where the parts of a profile file stand, and what its entries are.
#include "sources/profile_file/profile_file.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/profiles/profile_encoder.h"
#include "tests/unit/exact_bytes.h"

namespace
{

using profile_file::Entry;
using profile_file::Field;
using test_support::ProfileEncoder;

// What an entry holds, its path as bytes.
struct Seen {
    std::uint32_t index;
    unsigned kind;
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height;
    Bytes path;
    bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* out)
{
    *out << "entry " << seen.index << " kind " << seen.kind << " (" << seen.x << ", " << seen.y << ") "
         << seen.width << " x " << seen.height << " path " << testing::PrintToString(seen.path);
}

// Every entry of a file, which has to be one that is taken.
std::vector<Seen> entries_of(const Bytes& bytes)
{
    const ExactBytes file(bytes);
    EXPECT_EQ(profile_file::check_extent(file.span()).field, Field::NONE);
    std::vector<Seen> all;
    for (const Entry& entry : profile_file::entries(file.data())) {
        EXPECT_EQ(profile_file::kind_of_entry(file.data(), entry.index), entry.kind);
        all.push_back({entry.index, entry.kind, entry.x, entry.y, entry.width, entry.height,
                       Bytes(entry.path, entry.path + entry.path_bytes)});
    }
    return all;
}

Bytes path_bytes(const std::u16string& path)
{
    Bytes bytes;
    for (const char16_t unit : path) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

TEST(ProfileFileLayout, CountsOffsetsFromTheNumberOfWindows)
{
    EXPECT_EQ(profile_file::offset_of_flags(), 4U);
    struct Row {
        std::uint64_t n;
        std::uint64_t x, y, width, height, length, paths;
    };
    for (const Row& row :
         {Row{1, 5, 9, 13, 17, 21, 25}, Row{3, 7, 19, 31, 43, 55, 67}, Row{4, 8, 24, 40, 56, 72, 88},
          Row{1000, 1004, 5004, 9004, 13004, 17004, 21004},
          Row{0xFFFFFFFF, 0x100000003, 0x4FFFFFFFF, 0x8FFFFFFFB, 0xCFFFFFFF7, 0x10FFFFFFF3, 0x14FFFFFFEF}}) {
        EXPECT_EQ(profile_file::offset_of_array(row.n, profile_file::Array::X), row.x) << row.n;
        EXPECT_EQ(profile_file::offset_of_array(row.n, profile_file::Array::Y), row.y) << row.n;
        EXPECT_EQ(profile_file::offset_of_array(row.n, profile_file::Array::WIDTH), row.width) << row.n;
        EXPECT_EQ(profile_file::offset_of_array(row.n, profile_file::Array::HEIGHT), row.height) << row.n;
        EXPECT_EQ(profile_file::offset_of_array(row.n, profile_file::Array::PATH_LENGTH), row.length)
            << row.n;
        EXPECT_EQ(profile_file::offset_of_paths(row.n), row.paths) << row.n;
    }
}

TEST(ProfileFileLayout, GivesThePathAreaTwoBytesForEveryByte)
{
    EXPECT_EQ(profile_file::size_of_path_area(1, 16), 34U);
    EXPECT_EQ(profile_file::size_of_path_area(3, 10), 26U);
    EXPECT_EQ(profile_file::size_of_path_area(0xFFFFFFFF, 0x100000000), 0x3FFFFFFFEU);
}

TEST(ProfileFileLayout, ReadsTheExampleOf64Bytes)
{
    const Bytes file{0x01, 0x00, 0x00, 0x00,                         // one window
                     0x01,                                           // a program
                     0xF8, 0xFF, 0xFF, 0xFF,                         // X -8
                     0x00, 0x01, 0x00, 0x00,                         // Y 256
                     0x80, 0x02, 0x00, 0x00,                         // width 640
                     0xE0, 0x01, 0x00, 0x00,                         // height 480
                     0x10, 0x00, 0x00, 0x00,                         // 16 bytes of path
                     0x43, 0x00, 0x3A, 0x00, 0x5C, 0x00, 0x61, 0x00, // C:\a
                     0x2E, 0x00, 0x65, 0x00, 0x78, 0x00, 0x65, 0x00, // .exe
                     0x00, 0x00,                                     // its terminator
                     0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // 16 zeros
                     0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, //
                     0x41, 0x00,                                     // A
                     0x00, 0x07, 0x0C};
    ASSERT_EQ(file.size(), 64U);
    EXPECT_EQ(entries_of(file), (std::vector<Seen>{{0, 1, -8, 256, 640, 480, path_bytes(u"C:\\a.exe")}}));
    const ExactBytes exact(file);
    EXPECT_EQ(profile_file::window_count(exact.span()), 1U);
    EXPECT_EQ(profile_file::find_name(exact.data(), exact.size()), 59U);
}

TEST(ProfileFileLayout, ReadsNumbersThatAreNotAligned)
{
    const Bytes file = ProfileEncoder()
                           .add_program(-8, -1080, 300, 200, u"C:\\one.exe")
                           .add_folder(1920, 0, 800, 600, u"D:\\folder")
                           .add_program(0, 0, 0, 0, u"C:\\\u0416\u4E2D.exe")
                           .name(u"work")
                           .bytes();
    EXPECT_EQ(file[7], 0xF8); // the X array begins at offset 7
    EXPECT_EQ(entries_of(file), (std::vector<Seen>{{0, 1, -8, -1080, 300, 200, path_bytes(u"C:\\one.exe")},
                                                   {1, 0, 1920, 0, 800, 600, path_bytes(u"D:\\folder")},
                                                   {2, 1, 0, 0, 0, 0, path_bytes(u"C:\\\u0416\u4E2D.exe")}}));
}

TEST(ProfileFileLayout, ReadsNumbersAsSigned)
{
    constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(entries_of(ProfileEncoder().add_program(kMin, kMax, -1, kMin, u"p").name(u"n").bytes()),
              (std::vector<Seen>{{0, 1, kMin, kMax, -1, kMin, path_bytes(u"p")}}));
}

TEST(ProfileFileLayout, KeepsOtherKindFlags)
{
    const Bytes file =
        ProfileEncoder().add({.flag = 2, .path = u"a"}).add({.flag = 255, .path = u"bc"}).name(u"n").bytes();
    EXPECT_EQ(entries_of(file), (std::vector<Seen>{{0, 2, 0, 0, 0, 0, path_bytes(u"a")},
                                                   {1, 255, 0, 0, 0, 0, path_bytes(u"bc")}}));
}

TEST(ProfileFileLayout, ReadsPathsOfOddLength)
{
    // 'abc' said to be 5 bytes long: the next path begins 7 bytes after it.
    const Bytes file = ProfileEncoder()
                           .add_program(1, 2, 3, 4, u"abc")
                           .add_program(5, 6, 7, 8, u"d")
                           .declare_path_length(0, 5)
                           .name(u"n")
                           .bytes();
    EXPECT_EQ(entries_of(file),
              (std::vector<Seen>{{0, 1, 1, 2, 3, 4, {'a', 0, 'b', 0, 'c'}}, {1, 1, 5, 6, 7, 8, {0, 'd'}}}));
}

TEST(ProfileFileLayout, DoesNotAskForTerminators)
{
    // The last unit of 'abc' stands where the terminator of a path of 4 bytes is looked for.
    const Bytes file = ProfileEncoder()
                           .add_program(1, 2, 3, 4, u"abc")
                           .add_program(5, 6, 7, 8, u"d")
                           .declare_path_length(0, 4)
                           .name(u"n")
                           .bytes();
    EXPECT_EQ(entries_of(file),
              (std::vector<Seen>{{0, 1, 1, 2, 3, 4, path_bytes(u"ab")}, {1, 1, 5, 6, 7, 8, {0, 0}}}));
}

TEST(ProfileFileLayout, ReadsEmptyPaths)
{
    const Bytes file = ProfileEncoder()
                           .add_program(1, 2, 3, 4, u"")
                           .add_folder(5, 6, 7, 8, u"")
                           .add_program(9, 10, 11, 12, u"p")
                           .name(u"n")
                           .bytes();
    EXPECT_EQ(entries_of(file),
              (std::vector<Seen>{
                  {0, 1, 1, 2, 3, 4, {}}, {1, 0, 5, 6, 7, 8, {}}, {2, 1, 9, 10, 11, 12, path_bytes(u"p")}}));
}

TEST(ProfileFileLayout, TakesSurplusBytesAndAMissingZeroTail)
{
    const ProfileEncoder good = ProfileEncoder().add_program(1, 2, 3, 4, u"path").name(u"n");
    const std::vector<Seen> wanted{{0, 1, 1, 2, 3, 4, path_bytes(u"path")}};
    EXPECT_EQ(entries_of(ProfileEncoder(good).surplus_before_name({1, 2, 3}).bytes()), wanted);
    EXPECT_EQ(entries_of(ProfileEncoder(good).without_zero_tail().bytes()), wanted);
}

TEST(ProfileFileLayout, HasNoEntriesForACountOfZero)
{
    EXPECT_TRUE(entries_of(ProfileEncoder().declare_count(0).name(u"n").bytes()).empty());
}

TEST(ProfileFileCount, IsReadFromTheFirstFourBytes)
{
    EXPECT_EQ(profile_file::window_count(ExactBytes(Bytes{0x78, 0x56, 0x34, 0x92}).span()), 0x92345678U);
    EXPECT_EQ(profile_file::window_count(ExactBytes(Bytes{1, 0, 0, 0, 0xFF}).span()), 1U);
}

TEST(ProfileFileCount, IsZeroInAFileTooShortForIt)
{
    for (std::size_t size = 0; size < 4; ++size)
        EXPECT_EQ(profile_file::window_count(ExactBytes(Bytes(size, 0xFF)).span()), 0U) << size;
}

TEST(ProfileFileSignature, IsZeroSevenTwelve)
{
    EXPECT_TRUE(profile_file::is_signature(std::array<std::uint8_t, 3>{0x00, 0x07, 0x0C}));
}

TEST(ProfileFileSignature, IsRefusedWhenAnyByteDiffers)
{
    for (std::size_t i = 0; i < 3; ++i) {
        for (unsigned difference = 1; difference < 256; ++difference) {
            std::array<std::uint8_t, 3> bytes{0x00, 0x07, 0x0C};
            bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ difference);
            EXPECT_FALSE(profile_file::is_signature(bytes)) << "byte " << i << " = " << unsigned{bytes[i]};
        }
    }
}

TEST(ProfileFileSignature, IsFoundAtTheEndAndNowhereElse)
{
    using Bytes = std::vector<std::uint8_t>;
    EXPECT_TRUE(profile_file::ends_with_signature(Bytes{0x00, 0x07, 0x0C}));
    EXPECT_TRUE(profile_file::ends_with_signature(Bytes{1, 2, 3, 4, 0x00, 0x07, 0x0C}));
    for (const Bytes& bytes : {Bytes{}, Bytes{0x0C}, Bytes{0x07, 0x0C}, Bytes{0x00, 0x07, 0x0C, 0x00},
                               Bytes{0x00, 0x07, 0x0C, 1, 2, 3}, Bytes{1, 0x00, 0x07, 0x0D}})
        EXPECT_FALSE(profile_file::ends_with_signature(bytes)) << bytes.size();
}

} // namespace

TEST(ProfileFileEntry, IsMinimisedWithoutAWidthOrWithoutAHeight)
{
    const auto is_minimised = [](std::int32_t width, std::int32_t height) {
        Entry entry{};
        entry.x = -5;
        entry.y = 5;
        entry.width = width;
        entry.height = height;
        return profile_file::is_minimised(entry);
    };
    EXPECT_TRUE(is_minimised(0, 0));
    EXPECT_TRUE(is_minimised(0, 200));
    EXPECT_TRUE(is_minimised(300, 0));
    EXPECT_FALSE(is_minimised(1, 1));
    EXPECT_FALSE(is_minimised(-300, 200));
}
