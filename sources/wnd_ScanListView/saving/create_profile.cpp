#include "sources/wnd_ScanListView/saving/create_profile.h"

#include "errors/system_error_box.h"
#include "sources/win32/list_view_cells.h"
#include "sources/win32/own_window.h"
#include "sources/wnd_ScanListView/saving/saving_errors.h"
#include "sources/wnd_ScanListView/saving/saving_notices.h"

namespace
{

std::uint32_t count_ticked_rows(HWND hwndLV, std::uint32_t n_rows)
{
    std::uint32_t count = 0;
    for (std::uint32_t row = 0; row < n_rows; ++row)
        count += is_row_ticked(hwndLV, row) ? 1U : 0U;
    return count;
}

// Stores the ticked rows' indexes in ascending order.
void store_ticked_rows(HWND hwndLV, std::uint32_t n_rows, STR_RW_PRFL* record)
{
    std::uint32_t stored = 0;
    for (std::uint32_t row = 0; row < n_rows && stored < record->N_wnds_in_profile; ++row) {
        if (is_row_ticked(hwndLV, row))
            record->p_arr1D_ui_indexes_wnds_profile[stored++] = row;
    }
}

void open_name_window(HWND hwndThis, HWND* p_hwnd_ProfileName)
{
    *p_hwnd_ProfileName = create_wnd_ProfileName(hwndThis);
    if (*p_hwnd_ProfileName == nullptr) {
        const DWORD error = GetLastError();
        report_owned<kCreateProfileNameWindow>(hwndThis);
        show_system_error(error);
    }
    // Without effect on a window that is missing.
    ShowWindow(*p_hwnd_ProfileName, SW_SHOW);
    UpdateWindow(*p_hwnd_ProfileName);
}

} // namespace

std::int32_t onButton_Create_Profile(HWND hwndThis, HWND hwndLV, HWND* p_hwnd_ProfileName,
                                     STR_RW_PRFL* pSTR_RW_PRFL, const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA)
{
    const std::uint32_t n_rows = pSTR_ENUM_WNDS_DATA == nullptr ? 0 : pSTR_ENUM_WNDS_DATA->counter_valid;
    if (hwndThis == nullptr || hwndLV == nullptr || p_hwnd_ProfileName == nullptr ||
        pSTR_RW_PRFL == nullptr || n_rows == 0)
        return report<kCreateProfileInput>(hwndThis, hwndLV, p_hwnd_ProfileName, pSTR_RW_PRFL,
                                           pSTR_ENUM_WNDS_DATA, n_rows);

    pSTR_RW_PRFL->N_wnds_in_profile = count_ticked_rows(hwndLV, n_rows);
    if (pSTR_RW_PRFL->N_wnds_in_profile == 0)
        return report_owned<kCreateProfileNothingTicked>(hwndThis);
    // One that is still open asks for a profile that is abandoned now.
    destroy_own_window_of_class(*p_hwnd_ProfileName, kClass_ProfileName);
    const std::int32_t allocated = DynMemAlloc_wnds_Profile(pSTR_RW_PRFL, pSTR_ENUM_WNDS_DATA);
    if (allocated < 0)
        return report<kCreateProfileAllocation>(allocated);
    if (pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile == nullptr)
        return report<kCreateProfileNoIndexes>(pSTR_RW_PRFL, pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile);
    store_ticked_rows(hwndLV, n_rows, pSTR_RW_PRFL);
    const std::int32_t prepared = PrepareData_Write_Profile(pSTR_RW_PRFL, pSTR_ENUM_WNDS_DATA);
    if (prepared < 0)
        return report<kCreateProfilePreparation>(prepared);
    open_name_window(hwndThis, p_hwnd_ProfileName);
    return 1;
}
