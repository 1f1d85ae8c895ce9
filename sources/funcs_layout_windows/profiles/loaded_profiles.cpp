#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

#include <cstring>

#include "sources/funcs_layout_windows/profiles/profiles_errors.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/owners/memory_block.h"

namespace
{

bool is_set_up(const LoadedProfiles_STR* store)
{
    return store->uiMax_num_loaded_prfls != 0 && store->uiSize_DynMem_hwnds_wnds_prfl != 0 &&
           store->uiSize_DynMem_files != 0 && store->pc_hwnds_wnds_of_prfl != nullptr &&
           store->pc_raw_FilesProfile != nullptr;
}

// 1 when there is room for one more profile, otherwise the result of the report of the first limit that it
// would exceed.
std::int32_t check_limits(const LoadedProfiles_STR* store, std::uint64_t handles_bytes,
                          std::uint64_t file_bytes)
{
    const std::uint32_t n = store->uiN_loaded_prfls;
    if (n + 1 > store->uiMax_num_loaded_prfls)
        return report<kAddProfileMax>(store->uiMax_num_loaded_prfls, n);
    if (n == 0) {
        if (store->uiSize_DynMem_hwnds_wnds_prfl < handles_bytes)
            return report<kAddProfileHandlesFirst>();
        return store->uiSize_DynMem_files < file_bytes ? report<kAddProfileFilesFirst>() : 1;
    }
    if (store->uiSize_DynMem_hwnds_wnds_prfl - (store->arr1D_ui_off_hwnds_end[n - 1] + 1) < handles_bytes)
        return report<kAddProfileHandlesNext>();
    if (store->uiSize_DynMem_files - (store->arr1D_ui_off_file_end[n - 1] + 1) < file_bytes)
        return report<kAddProfileFilesNext>();
    return 1;
}

// Sets where the handle block and the file copy of the profile `k`, the last one, stand.
void set_offsets(LoadedProfiles_STR* store, std::uint32_t k, std::uint32_t handles_bytes,
                 std::uint32_t file_bytes)
{
    if (k == 0) {
        store->arr1D_ui_off_hwnds_beg = {};
        store->arr1D_ui_off_hwnds_end = {};
        store->arr1D_ui_off_file_beg = {};
        store->arr1D_ui_off_file_end = {};
    } else {
        store->arr1D_ui_off_hwnds_beg[k] = store->arr1D_ui_off_hwnds_end[k - 1] + 1;
        store->arr1D_ui_off_file_beg[k] = store->arr1D_ui_off_file_end[k - 1] + 1;
    }
    store->arr1D_ui_off_hwnds_end[k] = store->arr1D_ui_off_hwnds_beg[k] + handles_bytes - 1;
    store->arr1D_ui_off_file_end[k] = store->arr1D_ui_off_file_beg[k] + file_bytes - 1;
}

// Finds the name at the end of profile k's copy.
// Quirk: without a zero unit the search runs on into the copies before it; kept so that such a name reads the
// same in every version.
void locate_name(LoadedProfiles_STR* store, std::uint32_t k)
{
    const std::uint32_t end = store->arr1D_ui_off_file_end[k] + 1;
    const std::uint32_t last_byte = end - 1;
    if (last_byte < profile_file::kSignature.size())
        report<kAddProfileLastByte>();
    const std::uint32_t begin = profile_file::find_name(store->pc_raw_FilesProfile, end);
    if (begin == 0)
        report<kAddProfileNoName>();
    store->arr1D_ui_off_PrfName_beg[k] = begin;
    store->arr1D_ui_off_PrfName_last[k] = end - profile_file::kNameEnd_bytes;
}

} // namespace

std::int32_t preInitOnce_onLoadProfile(LoadedProfiles_STR* ptr_LoadedProfiles_STR)
{
    if (ptr_LoadedProfiles_STR == nullptr)
        return report<kStoreInitInput>(ptr_LoadedProfiles_STR);
    std::memset(ptr_LoadedProfiles_STR, 0, sizeof *ptr_LoadedProfiles_STR);
    ptr_LoadedProfiles_STR->uiMax_num_loaded_prfls = kLoadedProfiles_max;
    ptr_LoadedProfiles_STR->uiSize_DynMem_hwnds_wnds_prfl = kHandleArea_bytes;
    ptr_LoadedProfiles_STR->uiSize_DynMem_files = kFilesArea_bytes;

    ptr_LoadedProfiles_STR->pc_hwnds_wnds_of_prfl = allocate_block<std::uint8_t>(kHandleArea_bytes);
    if (ptr_LoadedProfiles_STR->pc_hwnds_wnds_of_prfl == nullptr)
        return report<kStoreInitHandles>();
    ptr_LoadedProfiles_STR->pc_raw_FilesProfile = allocate_block<std::uint8_t>(kFilesArea_bytes);
    if (ptr_LoadedProfiles_STR->pc_raw_FilesProfile == nullptr)
        return report<kStoreInitFiles>();
    return 1;
}

std::int32_t finishWork_onLoadProfile(LoadedProfiles_STR* ptr_LoadedProfiles_STR)
{
    if (ptr_LoadedProfiles_STR == nullptr)
        return report<kStoreFinishInput>(ptr_LoadedProfiles_STR);
    // The fields keep their values: the store is not used any more. A null area is refused without harm.
    VirtualFree(ptr_LoadedProfiles_STR->pc_hwnds_wnds_of_prfl, 0, MEM_RELEASE);
    VirtualFree(ptr_LoadedProfiles_STR->pc_raw_FilesProfile, 0, MEM_RELEASE);
    return 1;
}

std::int32_t add_profile_data_to_DynMem(LoadedProfiles_STR* p_LoadedProfiles_STR,
                                        const HWND* pc_arr1D_hwnd_Programs_only,
                                        const HWND* pc_arr1D_hwnd_Folders_only,
                                        std::uint32_t size_FileProfile,
                                        const std::uint8_t* pc_raw_FileProfile, std::uint32_t uiN_Folders,
                                        std::uint32_t uiN_Programs)
{
    LoadedProfiles_STR* store = p_LoadedProfiles_STR;
    if (store == nullptr || pc_arr1D_hwnd_Programs_only == nullptr || pc_arr1D_hwnd_Folders_only == nullptr ||
        pc_raw_FileProfile == nullptr || size_FileProfile == 0 || (uiN_Folders == 0 && uiN_Programs == 0))
        return report<kAddProfileInput>(store, pc_arr1D_hwnd_Programs_only, pc_arr1D_hwnd_Folders_only,
                                        pc_raw_FileProfile, size_FileProfile, uiN_Folders, uiN_Programs);
    if (!is_set_up(store))
        return report<kAddProfileNotSetUp>(store->uiMax_num_loaded_prfls,
                                           store->uiSize_DynMem_hwnds_wnds_prfl, store->uiSize_DynMem_files,
                                           store->pc_hwnds_wnds_of_prfl, store->pc_raw_FilesProfile);

    const std::uint64_t n_windows = std::uint64_t{uiN_Folders} + uiN_Programs;
    const std::uint64_t handles_bytes = n_windows * sizeof(HWND);
    const std::int32_t room = check_limits(store, handles_bytes, size_FileProfile);
    if (room != 1)
        return room;

    const std::uint32_t k = store->uiN_loaded_prfls++;
    store->arr1D_ui_size_file[k] = size_FileProfile;
    store->arr1D_ui_N_Folders[k] = uiN_Folders;
    store->arr1D_ui_N_Programs[k] = uiN_Programs;
    set_offsets(store, k, static_cast<std::uint32_t>(handles_bytes), size_FileProfile);

    HWND* handles = handles_of_profile(store, k);
    for (std::uint32_t i = 0; i < n_windows && profile_file::offset_of_flags() + i < size_FileProfile; ++i) {
        const std::uint8_t kind = profile_file::kind_of_entry(pc_raw_FileProfile, i);
        if (kind == profile_file::kKind_folder)
            handles[i] = pc_arr1D_hwnd_Folders_only[i];
        else if (kind == profile_file::kKind_program)
            handles[i] = pc_arr1D_hwnd_Programs_only[i];
    }
    std::memcpy(store->pc_raw_FilesProfile + store->arr1D_ui_off_file_beg[k], pc_raw_FileProfile,
                size_FileProfile);
    locate_name(store, k);
    return 1;
}

std::uint32_t window_count_of_profile(const LoadedProfiles_STR* p_LoadedProfiles_STR, std::uint32_t index)
{
    return p_LoadedProfiles_STR->arr1D_ui_N_Folders[index] + p_LoadedProfiles_STR->arr1D_ui_N_Programs[index];
}

HWND* handles_of_profile(const LoadedProfiles_STR* p_LoadedProfiles_STR, std::uint32_t index)
{
    return reinterpret_cast<HWND*>(p_LoadedProfiles_STR->pc_hwnds_wnds_of_prfl +
                                   p_LoadedProfiles_STR->arr1D_ui_off_hwnds_beg[index]);
}
