#include "sources/wnd_ScanListView/saving/create_profile.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"

// What Create Profile asks of the list and of the name window, call by call.

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::FailingImport;
using test_support::ImportHook;

TEST(CreateProfile, CountsEveryStateImageAboveTheFirstOfTheScansRows)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    scan_record.counter_valid = 6; // the list has ten rows
    const std::vector<LRESULT> states{0x0000, 0x1000, 0x2000, 0x3000, 0xF000,
                                      0x1000, 0x2000, 0x2000, 0x2000, 0x2000};
    std::vector<WPARAM> asked;
    STR_RW_PRFL record{};
    record.N_wnds_in_profile = 77;
    HWND opened = nullptr;
    {
        const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
            "user32.dll", [&](HWND target, UINT message, WPARAM row, LPARAM mask) {
                if (message != LVM_GETITEMSTATE)
                    return send.call_original(target, message, row, mask);
                EXPECT_EQ(target, list.list);
                EXPECT_EQ(mask, 0xF000);
                asked.push_back(row);
                return states.at(row);
            });
        EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
    }
    ASSERT_GE(asked.size(), 6u);
    for (std::size_t i = 0; i < asked.size(); ++i)
        EXPECT_EQ(asked[i], i % 6) << i;
    ASSERT_EQ(record.N_wnds_in_profile, 3u);
    for (const std::uint32_t row : {2u, 3u, 4u})
        EXPECT_EQ(record.p_arr1D_ui_indexes_wnds_profile[row - 2], row);
    FreeDynMem_wnds_Profile(&record);
}

// Other programs may tick a row between the two walks.
TEST(CreateProfile, StoresNoMoreRowsThanItHasCounted)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    int asked = 0;
    STR_RW_PRFL record{};
    HWND opened = nullptr;
    {
        const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
            "user32.dll", [&](HWND target, UINT message, WPARAM row, LPARAM mask) {
                if (message != LVM_GETITEMSTATE)
                    return send.call_original(target, message, row, mask);
                return LRESULT{++asked <= 10 && row != 4 ? 0x1000 : 0x2000};
            });
        EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
    }
    ASSERT_EQ(record.N_wnds_in_profile, 1u);
    EXPECT_EQ(record.p_arr1D_ui_indexes_wnds_profile[0], 0u); // the first that was ticked then
    EXPECT_EQ(record.p_arr1D_ui_indexes_wnds_profile[1], 0u);
    FreeDynMem_wnds_Profile(&record);
}

TEST(CreateProfile, ShowsAndUpdatesTheNameWindowEvenWhenItIsMissing)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    list.tick(3);
    for (const bool missing : {false, true}) {
        SCOPED_TRACE(missing);
        std::vector<std::pair<HWND, int>> shown;
        std::vector<HWND> updated;
        const ImportHook<"ShowWindow", decltype(ShowWindow)> show("user32.dll", [&](HWND window, int how) {
            EXPECT_TRUE(updated.empty());
            shown.emplace_back(window, how);
            return show.call_original(window, how);
        });
        const ImportHook<"UpdateWindow", decltype(UpdateWindow)> update("user32.dll", [&](HWND window) {
            updated.push_back(window);
            return update.call_original(window);
        });
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails(
            "user32.dll", missing ? 1 : -1, nullptr, ERROR_ACCESS_DENIED);
        const BoxWatcher boxes;
        STR_RW_PRFL record{};
        HWND opened = nullptr;
        EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), 1);
        EXPECT_EQ(boxes.count(), missing ? 2u : 0u);
        EXPECT_EQ(opened == nullptr, missing);
        EXPECT_EQ(shown, (std::vector<std::pair<HWND, int>>{{opened, SW_SHOW}}));
        EXPECT_EQ(updated, std::vector<HWND>{opened});
        FreeDynMem_wnds_Profile(&record);
    }
}

TEST(CreateProfile, LeavesTheListUsableBesideTheNameWindow)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    EXPECT_NE(list.ask_name_for({1}), nullptr);
    EXPECT_TRUE(IsWindowEnabled(list.window));
    EXPECT_TRUE(IsWindowEnabled(list.list));
}
