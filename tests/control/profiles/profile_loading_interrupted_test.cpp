#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/profiles/profile_encoder.h"

// A profile that is loaded while the box of another load is shown.

using namespace profile_tests;
using namespace test_support;

namespace
{

// A whole file in which the search for the name comes upon no zero unit: 257 windows of a kind that is passed
// over, with long paths, every byte 1 but for what must be otherwise.
Bytes file_without_a_zero_unit()
{
    constexpr std::size_t kWindows = 257;
    constexpr std::size_t kPath_bytes = 0x10001;
    constexpr std::size_t kLengths = 4 + 17 * kWindows;
    Bytes file(kLengths + 4 * kWindows + (kPath_bytes + 2) * kWindows + 1, 1);
    file[2] = file[3] = 0; // the count 01 01 00 00
    std::fill_n(file.begin() + 4, kWindows, std::uint8_t{7});
    for (std::size_t i = 0; i < kWindows; ++i)
        file[kLengths + 4 * i + 1] = file[kLengths + 4 * i + 3] = 0; // each length 01 00 01 00
    file.insert(file.end(), {'F', 0, 0x00, 0x07, 0x0C});
    return file;
}

} // namespace

TEST(ProfileLoading, WithinAnotherLoadGivesEachProfileItsPlaceInTheList)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const ProfileEncoder second = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"Second");
    const Bytes first = file_without_a_zero_unit();
    bool nested = false;
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
        "user32.dll", [&](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            if (!nested) {
                nested = true;
                EXPECT_EQ(fixture.load(second.bytes()), 1);
            }
            return box.call_original(owner, text, title, type);
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(first), 1);
    boxes.expect_boxes({{L"warning,error", L"0 == flag_offset_PrfName_beg_found"}});
    ASSERT_EQ(fixture.profiles.uiN_strs, 2u);
    EXPECT_EQ(combo_texts(fixture.profile_combo).front(), L"Second");
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[0], 1u);
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[1], 0u);
    EXPECT_TRUE(fixture.stored_file(0) == first);
    EXPECT_EQ(fixture.stored_file(1), second.bytes());
}
