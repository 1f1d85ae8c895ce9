#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_blocks.h"

// How the loaded-profiles store is set up and released.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::FailingImport;
using test_support::ProfileEncoder;

} // namespace

TEST(LoadedProfiles, HaveTheirFieldsInOrder)
{
    EXPECT_EQ(offsetof(LoadedProfiles_STR, uiN_loaded_prfls), 0u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_size_file), 4u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, uiMax_num_loaded_prfls), 4100u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_N_Folders), 4104u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_N_Programs), 8200u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, uiSize_DynMem_hwnds_wnds_prfl), 12'296u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, uiSize_DynMem_files), 12'300u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, pc_hwnds_wnds_of_prfl), 12'304u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, pc_raw_FilesProfile), 12'312u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_PrfName_beg), 12'320u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_PrfName_last), 16'416u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_hwnds_beg), 20'512u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_hwnds_end), 24'608u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_file_beg), 28'704u);
    EXPECT_EQ(offsetof(LoadedProfiles_STR, arr1D_ui_off_file_end), 32'800u);
}

TEST(LoadedProfiles, AreSetUpWithTheirCapacitiesAndZeroedAreas)
{
    LoadedProfiles_STR record{};
    EXPECT_EQ(preInitOnce_onLoadProfile(&record), 1);
    EXPECT_EQ(record.uiN_loaded_prfls, 0u);
    EXPECT_EQ(record.uiMax_num_loaded_prfls, 1024u);
    EXPECT_EQ(record.uiSize_DynMem_hwnds_wnds_prfl, 4'194'304u);
    EXPECT_EQ(record.uiSize_DynMem_files, 33'554'432u);
    EXPECT_EQ(record.pc_hwnds_wnds_of_prfl[4'194'303], 0);
    EXPECT_EQ(record.pc_raw_FilesProfile[33'554'431], 0);
    finishWork_onLoadProfile(&record);
}

TEST(LoadedProfiles, AreClearedWholeWhenTheyAreSetUp)
{
    const auto record = std::make_unique<LoadedProfiles_STR>();
    std::memset(record.get(), 0xA5, sizeof *record);
    EXPECT_EQ(preInitOnce_onLoadProfile(record.get()), 1);
    const auto expected = std::make_unique<LoadedProfiles_STR>();
    std::memset(expected.get(), 0, sizeof *expected);
    expected->uiMax_num_loaded_prfls = 1024;
    expected->uiSize_DynMem_hwnds_wnds_prfl = 4'194'304;
    expected->uiSize_DynMem_files = 33'554'432;
    expected->pc_hwnds_wnds_of_prfl = record->pc_hwnds_wnds_of_prfl;
    expected->pc_raw_FilesProfile = record->pc_raw_FilesProfile;
    EXPECT_EQ(std::memcmp(record.get(), expected.get(), sizeof *record), 0);
    MEMORY_BASIC_INFORMATION area{};
    VirtualQuery(record->pc_hwnds_wnds_of_prfl, &area, sizeof area);
    EXPECT_EQ(area.AllocationBase, record->pc_hwnds_wnds_of_prfl);
    EXPECT_EQ(area.RegionSize, 4'194'304u);
    VirtualQuery(record->pc_raw_FilesProfile, &area, sizeof area);
    EXPECT_EQ(area.AllocationBase, record->pc_raw_FilesProfile);
    EXPECT_EQ(area.RegionSize, 33'554'432u);
    finishWork_onLoadProfile(record.get());
}

TEST(LoadedProfiles, ReleaseTheHandlesBeforeTheFilesAndKeepTheirFields)
{
    LoadedProfiles_STR record{};
    ASSERT_EQ(preInitOnce_onLoadProfile(&record), 1);
    const Bytes file = ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\a.exe").name(u"A").bytes();
    const HWND handles[] = {nullptr};
    ASSERT_EQ(add_profile_data_to_DynMem(&record, handles, handles, static_cast<std::uint32_t>(file.size()),
                                         file.data(), 0, 1),
              1);
    const auto before = std::make_unique<LoadedProfiles_STR>(record);
    {
        const RecordedBlocks blocks;
        EXPECT_EQ(finishWork_onLoadProfile(&record), 1);
        EXPECT_EQ(blocks.given_back,
                  (std::vector<void*>{before->pc_hwnds_wnds_of_prfl, before->pc_raw_FilesProfile}));
    }
    for (const void* area : {before->pc_hwnds_wnds_of_prfl, before->pc_raw_FilesProfile}) {
        MEMORY_BASIC_INFORMATION region{};
        VirtualQuery(area, &region, sizeof region);
        EXPECT_EQ(region.State, DWORD{MEM_FREE});
    }
    EXPECT_EQ(std::memcmp(before.get(), &record, sizeof record), 0);
}

TEST(LoadedProfiles, RefuseANullStore)
{
    const std::wstring detail =
        L"error, incorrect input parameters:\n\nptr_LoadedProfiles_STR = " + pointer(nullptr);
    {
        BoxWatcher boxes;
        EXPECT_EQ(preInitOnce_onLoadProfile(nullptr), -1);
        boxes.expect_boxes({store_box(L"preInitOnce_onLoadProfile", 4505, 4588, detail)});
    }
    BoxWatcher boxes;
    EXPECT_EQ(finishWork_onLoadProfile(nullptr), -1);
    boxes.expect_boxes({store_box(L"finishWork_onLoadProfile", 4666, 4714, detail)});
}

TEST(LoadedProfiles, ReportAnAreaThatCannotBeAllocatedAndKeepTheOneBefore)
{
    for (const int call : {1, 2}) {
        LoadedProfiles_STR record{};
        {
            const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", call, nullptr,
                                                                              ERROR_NOT_ENOUGH_MEMORY);
            BoxWatcher boxes;
            EXPECT_EQ(preInitOnce_onLoadProfile(&record), -2);
            boxes.expect_boxes({store_box(L"preInitOnce_onLoadProfile", call == 1 ? 4539 : 4557, 4613,
                                          L"\nerror <- VirtualAlloc()")});
        }
        EXPECT_EQ(record.pc_hwnds_wnds_of_prfl != nullptr, call == 2);
        EXPECT_EQ(record.pc_raw_FilesProfile, nullptr);
        finishWork_onLoadProfile(&record);
    }
}

TEST(LoadedProfiles, MayBeReleasedWithoutHavingBeenSetUp)
{
    LoadedProfiles_STR never{};
    BoxWatcher boxes;
    EXPECT_EQ(finishWork_onLoadProfile(&never), 1);
    boxes.expect_no_boxes();
}
