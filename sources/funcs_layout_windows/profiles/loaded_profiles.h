// The loaded-profiles store: every profile loaded in this run, a copy of its file and the windows found for
// it.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

inline constexpr std::size_t kLoadedProfiles_max = 1024;
inline constexpr std::uint32_t kHandleArea_bytes = 0x400000;
inline constexpr std::uint32_t kFilesArea_bytes = 0x2000000;

using PerProfile = std::array<std::uint32_t, kLoadedProfiles_max>;

// Profiles are numbered from 0 in load order and never removed; both areas are filled without gaps in that
// order. Ends of blocks and copies are inclusive. All sizes and offsets are bytes.
struct LoadedProfiles_STR {
    std::uint32_t uiN_loaded_prfls;
    PerProfile arr1D_ui_size_file; // unread: kept beside the offsets, which give it too
    std::uint32_t uiMax_num_loaded_prfls;
    PerProfile arr1D_ui_N_Folders;
    PerProfile arr1D_ui_N_Programs;
    std::uint32_t uiSize_DynMem_hwnds_wnds_prfl;
    std::uint32_t uiSize_DynMem_files;
    // The handle area: one handle per entry, in file order, 0 = not found.
    std::uint8_t* pc_hwnds_wnds_of_prfl;
    std::uint8_t* pc_raw_FilesProfile;    // the files area: the files as read
    PerProfile arr1D_ui_off_PrfName_beg;  // first unit of the name, in the files area
    PerProfile arr1D_ui_off_PrfName_last; // last unit of the name; unread: a name has an end mark
    PerProfile arr1D_ui_off_hwnds_beg;
    PerProfile arr1D_ui_off_hwnds_end;
    PerProfile arr1D_ui_off_file_beg;
    PerProfile arr1D_ui_off_file_end;
};
static_assert(std::is_trivially_copyable_v<LoadedProfiles_STR>);

// Clears the store and allocates its two areas. Returns 1; -1 for a null argument; -2 when an area cannot be
// allocated (one allocated before it stays).
std::int32_t preInitOnce_onLoadProfile(LoadedProfiles_STR* ptr_LoadedProfiles_STR);

// Releases both areas, also of a store that was never set up. Returns 1; -1 for a null argument.
std::int32_t finishWork_onLoadProfile(LoadedProfiles_STR* ptr_LoadedProfiles_STR);

// Appends a profile: the `size_FileProfile` bytes of its file and the handles of its entries.
// `pc_arr1D_hwnd_Folders_only` and `pc_arr1D_hwnd_Programs_only` have one handle per entry each; an entry's
// kind flag tells which one counts, and any other kind leaves 0. A name that cannot be found gives a warning
// box and the offset 0. Returns 1; 2 after a box when a capacity would be exceeded; -1 for bad arguments, -2
// when the store is not set up.
std::int32_t add_profile_data_to_DynMem(LoadedProfiles_STR* p_LoadedProfiles_STR,
                                        const HWND* pc_arr1D_hwnd_Programs_only,
                                        const HWND* pc_arr1D_hwnd_Folders_only,
                                        std::uint32_t size_FileProfile,
                                        const std::uint8_t* pc_raw_FileProfile, std::uint32_t uiN_Folders,
                                        std::uint32_t uiN_Programs);

// The number of windows of profile `index`.
std::uint32_t window_count_of_profile(const LoadedProfiles_STR* p_LoadedProfiles_STR, std::uint32_t index);

// The handle block of profile `index`: window_count_of_profile handles.
HWND* handles_of_profile(const LoadedProfiles_STR* p_LoadedProfiles_STR, std::uint32_t index);
