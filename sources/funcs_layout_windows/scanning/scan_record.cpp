#include "sources/funcs_layout_windows/scanning/scan_record.h"

#include <cstring>

#include "sources/win32/owners/memory_block.h"

STR_ENUM_WNDS_DATA scan_record;

GeomEntry_STR* geometry_entry(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot)
{
    return reinterpret_cast<GeomEntry_STR*>(pSTR->pcDynMem_GeomText) + slot;
}

std::span<wchar_t, kTitle_slot_units> title_slot(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot)
{
    auto* titles = reinterpret_cast<wchar_t*>(geometry_entry(pSTR, pSTR->counter_valid));
    return std::span<wchar_t, kTitle_slot_units>(titles + slot * kTitle_slot_units, kTitle_slot_units);
}

std::size_t path_slot_bytes(const STR_ENUM_WNDS_DATA* pSTR)
{
    return (std::size_t{pSTR->uiMaxLen_inBytes_AllPath} + 1) * sizeof(wchar_t);
}

std::uint8_t* path_slot(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot)
{
    return pSTR->pcDynMem_FullPaths + slot * path_slot_bytes(pSTR);
}

bool store_path(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot, const wchar_t* path,
                std::size_t length_units)
{
    const std::size_t length_bytes = length_units * sizeof(wchar_t);
    // A slot has room for twice the longest measured path. A longer one is refused for the sake of profiles:
    // their path area, written with its zero tail, has no room beyond the measured length.
    if (pSTR->pcDynMem_FullPaths == nullptr || pSTR->arr1D_ui_LenPath == nullptr ||
        length_bytes > pSTR->uiMaxLen_inBytes_AllPath)
        return false;
    std::uint8_t* stored = path_slot(pSTR, slot);
    std::memcpy(stored, path, length_bytes);
    // A folder window with several tabs is written once per tab: nothing of a longer path may stay behind.
    std::memset(stored + length_bytes, 0, path_slot_bytes(pSTR) - length_bytes);
    pSTR->arr1D_ui_LenPath[slot] = static_cast<std::uint32_t>(length_bytes);
    return true;
}

void release_scan_blocks(STR_ENUM_WNDS_DATA* pSTR)
{
    release_block(pSTR->arr1D_ui_LenPath);
    release_block(pSTR->arr1D_uc_flag_FP);
    release_block(pSTR->pcTmpBuf_Prg_Folder_Path);
    release_block(pSTR->pcDynMem_GeomText);
    release_block(pSTR->pcDynMem_WinHndls);
    release_block(pSTR->pcDynMem_FullPaths);
}
