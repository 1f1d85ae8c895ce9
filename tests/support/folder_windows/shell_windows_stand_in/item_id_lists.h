#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>

namespace test_support::stand_in
{

// Item id lists for handing out; the counters follow each until it is freed as COM memory. Null
// when the shell makes none.
PIDLIST_ABSOLUTE item_id_list_of(const std::wstring& path);

// One that names no path: a folder of the shell's own.
PIDLIST_ABSOLUTE item_id_list_of_no_path();

} // namespace test_support::stand_in
