// The Create Profile command: gathers the ticked rows and asks for the profile's name.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/wnd_ScanListView/saving/profile_writing.h"

// Copies the ticked rows of the list from the scan record into the write record, which the caller has
// cleared, and opens the profile name window in the place of one that `p_hwnd_ProfileName` names; its handle
// is stored there. When nothing is ticked an info box is shown, nothing opened and nothing closed; boxes are
// shown when the window cannot be created. Both return 1. After an error box -1 for a null argument or a scan
// without rows, -3 when the index array is missing, -4 when the arrays cannot be allocated or filled.
std::int32_t onButton_Create_Profile(HWND hwndThis, HWND hwndLV, HWND* p_hwnd_ProfileName,
                                     STR_RW_PRFL* pSTR_RW_PRFL,
                                     const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA);
