#include "sources/funcs_layout_windows/scanning/scan_command.h"

#include <algorithm>
#include <cstddef>

#include "errors/system_error_box.h"
#include "sources/funcs_layout_windows/scanning/explorer_folders.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/funcs_layout_windows/scanning/scanning_errors.h"
#include "sources/funcs_layout_windows/scanning/scanning_notices.h"
#include "sources/funcs_layout_windows/scanning/window_enumeration.h"
#include "sources/win32/own_window.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/win32/pixel_rect.h"
#include "sources/win32/wait_cursor.h"

namespace
{

// Place and size of the List of Windows window.
constexpr int kScanList_left = 30;
constexpr int kScanList_top = 30;
constexpr double kScanListSize_of_screen = 0.75;

// Result of a step, besides 1 and the negative ones: the main window has gone, so the scan ends quietly.
constexpr std::int32_t kScan_abandoned = 0;

// Shows the box with which the scan ends. Returns the row's result, or kScan_abandoned.
template <const ErrorRow& row, typename... Values> std::int32_t end_with_box(Values... values)
{
    end_scan_use();
    const std::int32_t result = report<row>(values...);
    return is_scan_abandoned() ? kScan_abandoned : result;
}

// Walks over the windows. A walk that was broken off is reported as the row `failure`.
template <const ErrorRow& failure>
std::int32_t enumerate_windows(WNDENUMPROC procedure, STR_ENUM_WNDS_DATA* pSTR)
{
    const BOOL completed = EnumWindows(procedure, reinterpret_cast<LPARAM>(pSTR));
    if (is_scan_abandoned())
        return kScan_abandoned;
    return completed != FALSE ? 1 : end_with_box<failure>();
}

// Counts and measures. Returns 1, kScan_abandoned, or a negative result after its box.
std::int32_t measure_windows(STR_ENUM_WNDS_DATA* pSTR)
{
    pSTR->counter_all = 0;
    pSTR->counter_valid = 0;
    pSTR->counter_folders = 0;
    pSTR->uiMaxLen_inBytes_PrgPath = 0;
    pSTR->uiMaxLen_inBytes_FolderPath = 0;
    const std::int32_t result = enumerate_windows<kScanEnumCounting>(EnumWindowsProc_Calc, pSTR);
    if (result <= 0)
        return result;
    GetCurrentExplorerFolders_01(pSTR);
    if (is_scan_abandoned())
        return kScan_abandoned;
    pSTR->uiMaxLen_inBytes_AllPath =
        std::max(pSTR->uiMaxLen_inBytes_PrgPath, pSTR->uiMaxLen_inBytes_FolderPath);
    return 1;
}

// Allocates the slot blocks. Those obtained before a failure stay in the record until the next scan.
std::int32_t allocate_slots(STR_ENUM_WNDS_DATA* pSTR)
{
    const std::size_t n = pSTR->counter_valid;
    pSTR->arr1D_ui_LenPath = allocate_block<std::uint32_t>(n * sizeof(std::uint32_t));
    if (pSTR->arr1D_ui_LenPath == nullptr)
        return end_with_box<kScanMemoryLengths>();
    pSTR->arr1D_uc_flag_FP = allocate_block<std::uint8_t>(n);
    if (pSTR->arr1D_uc_flag_FP == nullptr)
        return end_with_box<kScanMemoryFlags>();
    pSTR->pcDynMem_GeomText = allocate_block<std::uint8_t>(n * kGeomText_slot_bytes);
    if (pSTR->pcDynMem_GeomText == nullptr)
        return end_with_box<kScanMemoryGeometry>();
    pSTR->pcDynMem_WinHndls = allocate_block<HWND>(n * sizeof(HWND));
    if (pSTR->pcDynMem_WinHndls == nullptr)
        return end_with_box<kScanMemoryHandles>();
    pSTR->pcDynMem_FullPaths = allocate_block<std::uint8_t>(n * path_slot_bytes(pSTR));
    if (pSTR->pcDynMem_FullPaths == nullptr)
        return end_with_box<kScanMemoryPaths>();
    return 1;
}

std::int32_t fill_slots(STR_ENUM_WNDS_DATA* pSTR)
{
    pSTR->counter_filled = 0;
    const std::int32_t result = enumerate_windows<kScanEnumFilling>(EnumWindowsProc_Calc_02, pSTR);
    if (result <= 0)
        return result;
    GetCurrentExplorerFolders_02(pSTR);
    return is_scan_abandoned() ? kScan_abandoned : 1;
}

// Opens the list, or shows the system's text.
void open_scan_list(HWND hwndThis, HWND* p_hwnd_ScanListView)
{
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(hwndThis, GWLP_HINSTANCE));
    const int width = truncated_product(kScanListSize_of_screen, GetSystemMetrics(SM_CXSCREEN));
    const int height = truncated_product(kScanListSize_of_screen, GetSystemMetrics(SM_CYSCREEN));
    *p_hwnd_ScanListView =
        CreateWindowExW(0, kClass_ScanListView, L"List of windows", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                        kScanList_left, kScanList_top, width, height, nullptr, nullptr, instance, nullptr);
    if (*p_hwnd_ScanListView != nullptr || is_scan_abandoned())
        return;
    const DWORD error = GetLastError();
    end_scan_use();
    show_system_error(error);
}

// The scan itself. Returns 1, kScan_abandoned, or a negative result after its box.
std::int32_t scan_windows(HWND hwndThis, HWND* p_hwnd_ScanListView, STR_ENUM_WNDS_DATA* pSTR)
{
    destroy_own_window_of_class(*p_hwnd_ScanListView, kClass_ScanListView);
    *p_hwnd_ScanListView = nullptr;
    release_scan_blocks(pSTR);

    pSTR->pcTmpBuf_Prg_Folder_Path = allocate_block<wchar_t>(pSTR->uiSize_TmpBuf_Path);
    if (pSTR->pcTmpBuf_Prg_Folder_Path == nullptr)
        return end_with_box<kScanMemoryScratch>();
    std::int32_t result = measure_windows(pSTR);
    if (result <= 0)
        return result;
    if (pSTR->counter_valid == 0 || pSTR->uiMaxLen_inBytes_AllPath == 0)
        return end_with_box<kScanNothingFound>(pSTR->counter_valid, pSTR->uiMaxLen_inBytes_AllPath);
    result = allocate_slots(pSTR);
    if (result > 0)
        result = fill_slots(pSTR);
    if (result > 0)
        open_scan_list(hwndThis, p_hwnd_ScanListView);
    return result;
}

} // namespace

std::int32_t onButton_Scan_Clicked(HWND hwndThis, HWND* p_hwnd_ScanListView, WPARAM /*wParam*/,
                                   LPARAM /*lParam*/, STR_ENUM_WNDS_DATA* pSTR)
{
    const WaitCursor wait;
    std::int32_t result = 1;
    if (hwndThis == nullptr || pSTR == nullptr || p_hwnd_ScanListView == nullptr)
        result = end_with_box<kScanInput>(hwndThis, pSTR, p_hwnd_ScanListView);
    else if (pSTR->uiSize_TmpBuf_Path == 0)
        result = end_with_box<kScanZeroSize>(pSTR->uiSize_TmpBuf_Path);
    else
        result = scan_windows(hwndThis, p_hwnd_ScanListView, pSTR);
    return result == kScan_abandoned ? 1 : result;
}
