#include "sources/funcs_layout_windows/scanning/window_enumeration.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/imports/import_patch.h"

// What the second pass writes of a window: its title, place and size, and where they stand in their block.

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::own_image_path;
using scan_tests::path_of_slot;
using scan_tests::ScanFixture;
using scan_tests::TestWindow;
using scan_tests::title_of_slot;

namespace
{

// Letters that differ, so that a title cut in the wrong place shows.
std::wstring title_of_length(std::size_t units)
{
    std::wstring title;
    for (std::size_t i = 0; i < units; ++i)
        title.push_back(static_cast<wchar_t>(L'A' + i % 57));
    return title;
}

// Four bytes of the block, at this offset.
std::int32_t integer_at(std::size_t offset)
{
    std::int32_t value = 0;
    std::memcpy(&value, scan_record.pcDynMem_GeomText + offset, sizeof value);
    return value;
}

const std::uint8_t* pointer_at(std::size_t offset)
{
    const std::uint8_t* value = nullptr;
    std::memcpy(&value, scan_record.pcDynMem_GeomText + offset, sizeof value);
    return value;
}

} // namespace

TEST(WindowEnumeration, ListsAMinimisedWindowWithZeroPlaceAndSize)
{
    ScanFixture fixture;
    const TestWindow window(L"minimised");
    ShowWindow(window, SW_MINIMIZE);
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    const GeomEntry_STR* entry = geometry_entry(&scan_record, 0);
    EXPECT_EQ(entry->x, 0);
    EXPECT_EQ(entry->y, 0);
    EXPECT_EQ(entry->width, 0);
    EXPECT_EQ(entry->height, 0);
    EXPECT_EQ(path_of_slot(0), own_image_path());
}

TEST(WindowEnumeration, KeepsATitleOf48CharactersWholeAndShortensLongerOnes)
{
    for (const std::size_t length : {47u, 48u, 49u, 300u}) {
        const std::wstring title = title_of_length(length);
        ScanFixture fixture;
        const TestWindow window(title);
        const TestWindow after(L"after"); // its slot follows: nothing may spill over
        const Desktop desktop({window, after});
        ASSERT_EQ(fixture.scan(), 1);
        EXPECT_EQ(title_of_slot(0),
                  length <= 48 ? title : title.substr(0, 25) + L"..." + title.substr(length - 20));
        EXPECT_EQ(title_of_slot(1), L"after");
    }
}

// A window may announce another length than its title has, and none when it cannot be asked.
TEST(WindowEnumeration, ShortensATitleByTheLengthThatIsAnnouncedForIt)
{
    const std::wstring title = title_of_length(60);
    const struct {
        int announced;
        std::wstring shown;
    } cases[] = {{50, title.substr(0, 25) + L"..." + title.substr(30, 20)},
                 {48, title.substr(0, 48)},
                 {-1, title.substr(0, 48)}};
    for (const auto& given : cases) {
        SCOPED_TRACE(given.announced);
        ScanFixture fixture;
        const TestWindow window(title);
        const TestWindow hidden(L"hidden", {0, 0, 200, 100}, L"TestWindow", WS_OVERLAPPEDWINDOW);
        Desktop desktop({hidden, window});
        int pass = 0;
        desktop.before_pass = [&](int number) { pass = number; };
        std::vector<HWND> asked;
        const ImportHook<"GetWindowTextLengthW", decltype(GetWindowTextLengthW)> length(
            "user32.dll", [&](HWND target) {
                EXPECT_EQ(pass, 2);
                asked.push_back(target);
                return given.announced;
            });
        ASSERT_EQ(fixture.scan(), 1);
        EXPECT_EQ(asked, std::vector<HWND>{window});
        EXPECT_EQ(title_of_slot(0), given.shown);
    }
}

TEST(WindowEnumeration, WritesAllEntriesOfThePlacesAndThenAllTitles)
{
    ScanFixture fixture;
    const TestWindow first(L"first", {100, 120, 420, 360});
    const TestWindow second(L"second, with a longer title", {-30, 15, 270, 215});
    const TestWindow third(L"third", {7, 8, 407, 188});
    const Desktop desktop({first, second, third});
    ASSERT_EQ(fixture.scan(), 1);
    const struct {
        std::wstring title;
        std::int32_t x, y, height, width;
    } expected[] = {{L"first", 100, 120, 240, 320},
                    {L"second, with a longer title", -30, 15, 200, 300},
                    {L"third", 7, 8, 180, 400}};
    for (std::size_t slot = 0; slot < 3; ++slot) {
        SCOPED_TRACE(slot);
        const std::size_t title = 3 * 24 + slot * 98;
        EXPECT_EQ(pointer_at(slot * 24), scan_record.pcDynMem_GeomText + title);
        EXPECT_EQ(integer_at(slot * 24 + 8), expected[slot].x);
        EXPECT_EQ(integer_at(slot * 24 + 12), expected[slot].y);
        EXPECT_EQ(integer_at(slot * 24 + 16), expected[slot].height);
        EXPECT_EQ(integer_at(slot * 24 + 20), expected[slot].width);
        wchar_t units[49];
        std::memcpy(units, scan_record.pcDynMem_GeomText + title, sizeof units);
        EXPECT_EQ(std::wstring(units, 49),
                  expected[slot].title + std::wstring(49 - expected[slot].title.size(), 0));
    }
}
