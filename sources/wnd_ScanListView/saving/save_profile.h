// The second half of Create Profile: the name has arrived, the file is chosen and written.
#pragma once

#include <windows.h>

#include <cstdint>

#include "sources/wnd_ScanListView/saving/profile_writing.h"

// Results besides 1 (saved, or told that it was not).
inline constexpr std::int32_t kSave_callee_failed = -2; // after an error box; see below
inline constexpr std::int32_t kSave_cancelled = -3;     // no box; the arrays stay allocated

// Destroys the window the name came from when it is a name window, asks for a file with the save dialog,
// creates the file, writes the record's profile into it and releases the record's arrays. A file that exists
// is never touched: a notice says so, and an error box when the file cannot be created for another reason;
// the writer runs after it all the same. When the file cannot be written an error box at the end says that
// the profile is not saved; what was written is deleted, and the box says so when that fails as well. When
// the writer refuses (kSave_callee_failed) the new file stays open and the arrays stay allocated. The
// caller sees to it that nothing changes the record before the return.
std::int32_t on_WM_COPYDATA_on_wnd_NameOfProfile(HWND hwnd_wnd_ListOfWnds, HWND hwnd_wnd_NameProfile,
                                                 const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA,
                                                 STR_RW_PRFL* pSTR_RW_PRFL);
