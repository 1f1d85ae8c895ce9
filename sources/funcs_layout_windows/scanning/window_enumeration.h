// The two EnumWindows passes of a scan. Both get the scan record as lParam.
#pragma once

#include <windows.h>

// First pass: counts the windows that qualify and measures the longest image path of a program. The caller
// has set the counters and uiMaxLen_inBytes_PrgPath to 0 and allocated the scratch buffer. Returns TRUE to go
// on; FALSE, which makes EnumWindows fail, after the boxes for a null lParam or for an image path that could
// not be queried (the system's text first).
BOOL CALLBACK EnumWindowsProc_Calc(HWND hwnd, LPARAM lParam);

// Second pass: fills slot counter_filled of the record and advances it for every window whose image path
// could be read and is not longer than measured; explorer.exe's windows keep flag 0 and an empty path. The
// caller has set counter_filled to 0 and allocated the slot blocks. Windows beyond the slots that the first
// pass counted are skipped. Returns as the first pass, and FALSE after a box when a block is missing.
BOOL CALLBACK EnumWindowsProc_Calc_02(HWND hwnd, LPARAM lParam);
