// The profile write record and the writing of a profile file.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <type_traits>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/wnd_ProfileName/wnd_ProfileName.h"

// The ticked windows and the name on their way into a profile file. The arrays are zero-filled blocks of
// their own with N_wnds_in_profile elements each.
struct STR_RW_PRFL {
    std::array<wchar_t, kProfileName_max_units> tc_PrfName; // not terminated
    std::uint32_t ui_len_PrfName_bytes;
    std::uint32_t N_wnds_in_profile;
    std::uint32_t* p_arr1D_ui_indexes_wnds_profile; // list row = slot of the scan record, ascending
    std::uint8_t* p_arr1D_uc_flag_Prg_or_Folder;    // kind flags
    std::uint32_t* p_arr1D_ui_x;                    // bit patterns of signed coordinates and sizes
    std::uint32_t* p_arr1D_ui_y;
    std::uint32_t* p_arr1D_ui_w;
    std::uint32_t* p_arr1D_ui_h;
    std::uint32_t* p_arr1D_ui_len_path; // bytes, terminator not counted
    std::uint8_t* p_arr_strz_paths;     // the path area as in the file
};
static_assert(std::is_trivially_copyable_v<STR_RW_PRFL>);

// Allocates the record's eight arrays for N_wnds_in_profile windows with paths as long as the scan's longest.
// Returns 1; -1 for a null argument or when one of those is 0; -2 when a block cannot be allocated (those
// obtained before stay).
std::int32_t DynMemAlloc_wnds_Profile(STR_RW_PRFL* pSTR_RW_PRFL,
                                      const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA);

// Copies the windows named by the index array from the scan record into the other arrays. Returns 1; -1 for a
// null argument, a missing array or block, or no windows.
std::int32_t PrepareData_Write_Profile(STR_RW_PRFL* pSTR_RW_PRFL,
                                       const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA);

// Writes a profile file in one pass, one WriteFile call per part, and flushes it. Returns 1, whether or not
// the writes succeeded: `p_error` takes 0 then, or the system's code of the first write or flush that failed
// or came up short. -1 for a null argument or N_wnds 0; an invalid handle is taken, its writes fail.
std::int32_t WriteData_Profile(HANDLE hFile_wnds_profile, const STR_RW_PRFL* pSTR_RW_PRFL,
                               std::uint32_t N_wnds, const std::uint8_t* p_arr1D_uc_flag_Prg_or_Folder,
                               const std::uint32_t* p_arr1D_ui_x, const std::uint32_t* p_arr1D_ui_y,
                               const std::uint32_t* p_arr1D_ui_w, const std::uint32_t* p_arr1D_ui_h,
                               const std::uint32_t* p_arr1D_ui_len_path, const std::uint8_t* p_arr_strz_paths,
                               DWORD* p_error = nullptr);

// Releases the record's arrays that are there and sets their pointers to null; name, length and count stay.
// Returns 1; -1 for a null record.
std::int32_t FreeDynMem_wnds_Profile(STR_RW_PRFL* pSTR_RW_PRFL);
