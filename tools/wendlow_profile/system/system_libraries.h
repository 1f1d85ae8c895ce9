// Where a program on Windows takes its libraries from.
#pragma once

#include <windows.h>

namespace profile_tool
{

// From Windows' own folder, and neither from beside the program nor from the current folder. To be called
// before anything that may load one.
inline void take_libraries_from_windows_only()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

} // namespace profile_tool
