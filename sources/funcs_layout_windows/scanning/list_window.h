// The identity of the List of Windows window: its class, its handle, its columns.
#pragma once

#include <cstddef>

// What HWND points to; the columns are used where there is no Windows header.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the system's.
struct HWND__;

inline constexpr wchar_t kClass_ScanListView[] = L"List of Windows";

// The window that shows the last scan; null while there is none. The Scan command opens it.
extern HWND__* hwnd_ScanListView;

enum ScanListColumn : int { COLUMN_NUMBER, COLUMN_NAME, COLUMN_X, COLUMN_Y, COLUMN_WIDTH, COLUMN_HEIGHT };
inline constexpr std::size_t kScanList_columns = 6;
