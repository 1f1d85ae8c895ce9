// Which folders the shell's open folder windows show, for the scan.
#pragma once

#include <cstdint>

#include "sources/funcs_layout_windows/scanning/scan_record.h"

// Results of the two passes besides 1 (done).
inline constexpr std::int32_t kFolders_no_list_counting = -1; // no box: the scan goes on without folders

// Counting pass: counter_folders = folder windows that show a file-system folder, uiMaxLen_inBytes_FolderPath
// = the longest of their paths in bytes. Returns 1; -1 for a null record (box) or when the shell gives no
// list (no box, the fields stay).
std::int32_t GetCurrentExplorerFolders_01(STR_ENUM_WNDS_DATA* pSTR_params);

// Filling pass (the two fields are set to 0 when the shell has no windows): writes each folder's path and its
// length into every slot that holds the folder window. A path longer than the slots were measured for is left
// out. Returns 1; after a box -1 for a null record or missing blocks, -4 when the shell gives no list, -5 at
// a folder window without a handle (the rest is not processed).
std::int32_t GetCurrentExplorerFolders_02(STR_ENUM_WNDS_DATA* pSTR_params);
