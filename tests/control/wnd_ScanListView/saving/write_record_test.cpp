#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/wnd_ScanListView/saving/profile_writing.h"
#include "tests/control/fixtures/saved_profile_fixture.h"

// The write record itself: its fields, what it holds before it is filled, and the bytes of its paths.

using namespace profile_tests;
using test_support::BoxWatcher;

namespace
{

// The list's own write record, which a refused name gives away.
STR_RW_PRFL* write_record_of(const ListOfWindowsFixture& list)
{
    const BoxWatcher boxes;
    EXPECT_EQ(send_name(list, nullptr, 0, L"x", 2), FALSE);
    return reinterpret_cast<STR_RW_PRFL*>(
        std::stoull(record_named_in(boxes.wait_for_box(0).text), nullptr, 16));
}

} // namespace

TEST(WriteRecord, HasItsFieldsInOrder)
{
    EXPECT_EQ(offsetof(STR_RW_PRFL, tc_PrfName), 0u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, ui_len_PrfName_bytes), 512u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, N_wnds_in_profile), 516u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_indexes_wnds_profile), 520u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_uc_flag_Prg_or_Folder), 528u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_x), 536u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_y), 544u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_w), 552u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_h), 560u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr1D_ui_len_path), 568u);
    EXPECT_EQ(offsetof(STR_RW_PRFL, p_arr_strz_paths), 576u);
    EXPECT_EQ(sizeof(STR_RW_PRFL), 584u);
}

TEST(WriteRecord, IsClearedBeforeAnythingIsGathered)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.ask_name_for({1, 2});
    STR_RW_PRFL* const record = write_record_of(list);
    ASSERT_TRUE(has_arrays(*record));
    EXPECT_EQ(record->ui_len_PrfName_bytes, 2u);
    record->tc_PrfName.fill(L'n');
    list.untick(1);
    list.untick(2);
    const BoxWatcher boxes; // tells that nothing is ticked
    list.press_create_profile();
    EXPECT_EQ(boxes.count(), 1u);
    const STR_RW_PRFL zeros{};
    EXPECT_EQ(std::memcmp(record, &zeros, sizeof zeros), 0);
}

TEST(WriteRecord, HoldsOneByteOfEachTerminatorAndNotTheOther)
{
    const FilledScanFixture scan(ten_windows());
    for (const std::uint32_t row : {3u, 5u}) {
        std::uint8_t* const terminator = path_slot(&scan_record, row) + scan_record.arr1D_ui_LenPath[row];
        terminator[0] = 0x5A;
        terminator[1] = 0xA5;
    }
    const PreparedRecordFixture prepared({3, 5}, L"x");
    const std::uint8_t* const first_end = prepared.record.p_arr_strz_paths + 26; // C:\p\xxx3.exe
    const std::uint8_t* const second_end = first_end + 2 + 30;                   // C:\p\xxxxx5.exe
    EXPECT_EQ(first_end[0], 0x5A);
    EXPECT_EQ(first_end[1], 0);
    EXPECT_EQ(first_end[2], 'C'); // the next path follows two bytes on
    EXPECT_EQ(second_end[0], 0x5A);
    EXPECT_EQ(second_end[1], 0);
}
