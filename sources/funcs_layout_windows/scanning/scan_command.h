// The Scan command.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/funcs_layout_windows/scanning/scan_record.h"

// Size in bytes of the scan's path buffer, set before every scan.
inline constexpr std::uint32_t kScanPathBuffer_bytes = 32768;

// Replaces the scan in `pSTR` by a new one of the desktop's windows and opens the List of Windows window on
// it; the window of the scan before is closed first, even when the new one fails. `p_hwnd_ScanListView` is
// where the window's handle is kept. When nothing qualifies an info box is shown and no window opened; when
// the window cannot be created, the system's text: both return 1, and so does a scan during which the main
// window was closed, quietly. After an error box -1 for a null argument or uiSize_TmpBuf_Path 0, -2 when a
// walk over the windows broke off, -3 when memory is short. `wParam` and `lParam` are not used. The caller
// has taken the record (ScanUse), set the counters to 0 and uiSize_TmpBuf_Path to kScanPathBuffer_bytes.
// Re-entrancy: the use ends before the message box that ends the scan, as another scan may replace the record
// while it is up.
std::int32_t onButton_Scan_Clicked(HWND hwndThis, HWND* p_hwnd_ScanListView, WPARAM wParam, LPARAM lParam,
                                   STR_ENUM_WNDS_DATA* pSTR);
