// The second half of Create Profile: the name has arrived, the file is chosen and written.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/wnd_ScanListView/saving/profile_writing.h"

// The user cancelled: no box; the arrays stay allocated.
inline constexpr std::int32_t kSave_cancelled = -3;

// Destroys the window the name came from when it is a name window, asks for a file with the save dialog,
// creates the file, writes the record's profile into it and releases the record's arrays. A file that exists
// is never touched: a notice says so, and an error box when the file cannot be created for another reason;
// the writer runs after it all the same. When the file cannot be written an error box at the end says that
// the profile is not saved; what was written is deleted, and the box says so when that fails as well. Returns
// 1, whether the profile was saved or the user was told that it was not; kSave_cancelled; after an error box
// -1 for a null argument, -2 when the writer refuses, with the new file left open and the arrays allocated,
// or when the arrays cannot be released. The caller sees to it that nothing changes the record before the
// return.
std::int32_t on_WM_COPYDATA_on_wnd_NameOfProfile(HWND hwnd_wnd_ListOfWnds, HWND hwnd_wnd_NameProfile,
                                                 const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA,
                                                 STR_RW_PRFL* pSTR_RW_PRFL);
