#include "sources/funcs_layout_windows/launching/launch_state.h"

#include "sources/funcs_layout_windows/launching/launching_errors.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/owners/memory_block.h"

namespace
{

std::uint32_t count_folders(const std::uint8_t* file, std::uint32_t n_windows)
{
    std::uint32_t count = 0;
    for (std::uint32_t i = 0; i < n_windows; ++i)
        count += profile_file::kind_of_entry(file, i) == profile_file::kKind_folder ? 1U : 0U;
    return count;
}

std::int32_t allocate_arrays(Launch_STR* launch, std::uint32_t handle_area_bytes)
{
    const std::size_t n = launch->uiN_wnds;
    // Quirk: this block is not tested; the search that needs it refuses a null one and ends the load.
    launch->p_arr1D_hwnd_Folders = allocate_block<HWND>(n * sizeof(HWND));
    launch->ptcBuf = allocate_block<wchar_t>(kImagePath_units * sizeof(wchar_t));
    if (launch->ptcBuf == nullptr)
        return report<kLaunchMemoryImagePath>();
    launch->max_launch_records = handle_area_bytes;
    launch->pc_arr_STRs_InfoLoadedPrg =
        allocate_block<STR_InfoLoadedPrg>(launch->max_launch_records * sizeof(STR_InfoLoadedPrg));
    if (launch->pc_arr_STRs_InfoLoadedPrg == nullptr)
        return report<kLaunchMemoryRecords>();
    launch->p_arr1D_hwnd_Programs = allocate_block<HWND>(n * sizeof(HWND));
    if (launch->p_arr1D_hwnd_Programs == nullptr)
        return report<kLaunchMemoryPrograms>();
    launch->pc_arr1D_hwnd_Programs_only = allocate_block<HWND>(n * sizeof(HWND));
    if (launch->pc_arr1D_hwnd_Programs_only == nullptr)
        return report<kLaunchMemoryProgramsResult>();
    launch->pc_arr1D_hwnd_Folders_only = allocate_block<HWND>(n * sizeof(HWND));
    if (launch->pc_arr1D_hwnd_Folders_only == nullptr)
        return report<kLaunchMemoryFoldersResult>();
    launch->p_arr1D_ui_failed = allocate_block<std::uint32_t>(n * sizeof(std::uint32_t));
    if (launch->p_arr1D_ui_failed == nullptr)
        return report<kLaunchMemoryFailed>();
    // Opening a folder lets messages in, so another load may run meanwhile: each has a copy of its own.
    launch->p_EntryPath = allocate_block<EntryPathBuffer>(sizeof(EntryPathBuffer));
    if (launch->p_EntryPath == nullptr)
        return report<kLaunchMemoryEntryPath>();
    return 1;
}

} // namespace

std::int32_t prepare_launch(Launch_STR* launch, HWND hwnd_MW, std::span<const std::uint8_t> file,
                            std::uint32_t handle_area_bytes)
{
    launch->hwnd_MW = hwnd_MW;
    launch->pcFileData = file.data();
    launch->uiN_wnds = profile_file::window_count(file);
    launch->uiN_Folders = count_folders(launch->pcFileData, launch->uiN_wnds);
    launch->uiN_Programs = launch->uiN_wnds - launch->uiN_Folders;
    return allocate_arrays(launch, handle_area_bytes);
}

void release_launch(Launch_STR* launch)
{
    release_block(launch->p_arr1D_hwnd_Folders);
    release_block(launch->ptcBuf);
    release_block(launch->pc_arr_STRs_InfoLoadedPrg);
    release_block(launch->p_arr1D_hwnd_Programs);
    release_block(launch->pc_arr1D_hwnd_Programs_only);
    release_block(launch->pc_arr1D_hwnd_Folders_only);
    release_block(launch->p_arr1D_ui_failed);
    release_block(launch->p_EntryPath);
}
