// The columns of the list of scanned windows.
#pragma once

#include <cstddef>

enum ScanListColumn : int { COLUMN_NUMBER, COLUMN_NAME, COLUMN_X, COLUMN_Y, COLUMN_WIDTH, COLUMN_HEIGHT };
inline constexpr std::size_t kScanList_columns = 6;
