#include "sources/funcs_layout_windows/scanning/window_enumeration.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "errors/system_error_box.h"
#include "sources/funcs_layout_windows/open_windows/window_filter.h"
#include "sources/funcs_layout_windows/open_windows/window_inspection.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/funcs_layout_windows/scanning/scanning_errors.h"
#include "sources/win32/real_pixels.h"
#include "sources/win32/text_in.h"

namespace
{

// Units asked for with WM_GETTEXT. The first pass only wants to know whether there is a title.
constexpr std::size_t kTitleLimit_counting_units = 512;
constexpr std::size_t kTitleLimit_filling_units = 1000;

std::span<wchar_t> scratch_buffer(const STR_ENUM_WNDS_DATA* pSTR)
{
    return {pSTR->pcTmpBuf_Prg_Folder_Path, pSTR->uiSize_TmpBuf_Path / sizeof(wchar_t)};
}

// Reads the path of the window's process into the scratch buffer; a failure, with which the scan ends, is
// reported as row `failure`.
ImagePath read_image_path_of(HWND hwnd, const STR_ENUM_WNDS_DATA* pSTR, FixedRow failure)
{
    DWORD process_id = 0;
    GetWindowThreadProcessId(hwnd, &process_id);
    const std::span<wchar_t> buffer = scratch_buffer(pSTR);
    const ImagePath result = read_image_path(process_id, buffer, static_cast<DWORD>(buffer.size() - 1));
    if (result == ImagePath::FAILED) {
        const DWORD error = GetLastError();
        end_scan_use();
        show_system_error(error);
        if (!is_scan_abandoned())
            report(failure);
    }
    return result;
}

bool slot_blocks_present(const STR_ENUM_WNDS_DATA* pSTR)
{
    return pSTR->arr1D_ui_LenPath != nullptr && pSTR->arr1D_uc_flag_FP != nullptr &&
           pSTR->pcTmpBuf_Prg_Folder_Path != nullptr && pSTR->uiSize_TmpBuf_Path != 0 &&
           pSTR->pcDynMem_WinHndls != nullptr && pSTR->pcDynMem_GeomText != nullptr;
}

std::size_t announced_title_units(HWND hwnd)
{
    return static_cast<std::size_t>(std::max(GetWindowTextLengthW(hwnd), 0));
}

// Writes handle, geometry and title of slot `slot`. A minimised window gets a zero geometry.
void write_window(HWND hwnd, const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot, std::wstring_view title,
                  std::size_t announced_units)
{
    pSTR->pcDynMem_WinHndls[slot] = hwnd;
    RECT rect = real_window_rect(hwnd);
    if (IsIconic(hwnd) != FALSE)
        rect = {};

    const std::span<wchar_t, kTitle_slot_units> shortened = title_slot(pSTR, slot);
    shorten_title(title, announced_units, shortened);
    *geometry_entry(pSTR, slot) = {.title = shortened.data(),
                                   .x = rect.left,
                                   .y = rect.top,
                                   .height = rect.bottom - rect.top,
                                   .width = rect.right - rect.left};
}

// Completes slot `slot` from the image path in the scratch buffer. False when the path is longer than the
// longest measured one (see store_path): its program has appeared since.
bool write_path(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot)
{
    const std::wstring_view path = text_in(scratch_buffer(pSTR));
    if (is_explorer_image(path))
        return true; // The shell's folder windows get their paths afterwards.
    if (!store_path(pSTR, slot, path.data(), path.size()))
        return false;
    pSTR->arr1D_uc_flag_FP[slot] = 1;
    return true;
}

} // namespace

BOOL CALLBACK EnumWindowsProc_Calc(HWND hwnd, LPARAM lParam)
{
    auto* pSTR = reinterpret_cast<STR_ENUM_WNDS_DATA*>(lParam);
    if (pSTR == nullptr) {
        report<kCalcNullLParam>(pSTR);
        return FALSE;
    }
    ++pSTR->counter_all;
    std::array<wchar_t, kTitleLimit_counting_units> title;
    const bool qualifies = window_qualifies(hwnd, title);
    if (is_scan_abandoned()) // Re-entrancy: reading a title lets messages in.
        return FALSE;
    if (!qualifies)
        return TRUE;
    ++pSTR->counter_valid;

    const ImagePath image = read_image_path_of(hwnd, pSTR, kCalcModuleName);
    if (image != ImagePath::READ)
        return image == ImagePath::UNAVAILABLE ? TRUE : FALSE;
    const std::wstring_view path = text_in(scratch_buffer(pSTR));
    if (!is_explorer_image(path)) {
        const auto path_bytes = static_cast<std::uint32_t>(path.size() * sizeof(wchar_t));
        pSTR->uiMaxLen_inBytes_PrgPath = std::max(pSTR->uiMaxLen_inBytes_PrgPath, path_bytes);
    }
    return TRUE;
}

BOOL CALLBACK EnumWindowsProc_Calc_02(HWND hwnd, LPARAM lParam)
{
    auto* pSTR = reinterpret_cast<STR_ENUM_WNDS_DATA*>(lParam);
    if (pSTR == nullptr) {
        report<kCalc02NullLParam>(pSTR);
        return FALSE;
    }
    if (!slot_blocks_present(pSTR)) {
        end_scan_use();
        report<kCalc02MissingBlock>(pSTR->arr1D_ui_LenPath, pSTR->arr1D_uc_flag_FP,
                                    pSTR->pcTmpBuf_Prg_Folder_Path, pSTR->uiSize_TmpBuf_Path,
                                    pSTR->pcDynMem_WinHndls, pSTR->pcDynMem_GeomText);
        return FALSE;
    }
    std::array<wchar_t, kTitleLimit_filling_units> title;
    const bool qualifies = window_qualifies(hwnd, title);
    const std::size_t announced_units = qualifies ? announced_title_units(hwnd) : 0;
    if (is_scan_abandoned()) // Re-entrancy: reading a title lets messages in.
        return FALSE;
    if (!qualifies)
        return TRUE;
    const std::uint32_t slot = pSTR->counter_filled;
    if (slot >= pSTR->counter_valid)
        return TRUE;

    write_window(hwnd, pSTR, slot, text_in(title), announced_units);
    const ImagePath image = read_image_path_of(hwnd, pSTR, kCalc02ModuleName);
    if (image != ImagePath::READ)
        return image == ImagePath::UNAVAILABLE ? TRUE : FALSE;
    if (write_path(pSTR, slot))
        ++pSTR->counter_filled;
    return TRUE;
}
