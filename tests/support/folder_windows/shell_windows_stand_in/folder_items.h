#pragma once

#include <windows.h>

#include <exdisp.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/folder_windows/shell_windows_stand_in/missing.h"

namespace test_support::stand_in
{

// One folder window of the list, as it is in one pass.
struct Entry {
    std::int64_t window = 0;
    std::wstring path;
    Missing missing = Missing::kNothing;
    std::int64_t tab = 0; // the window that the browser tells, 0 = none
};

// The entries of the list in that pass: scripted, or those on the screen.
std::vector<Entry> entries_in_pass(int pass);

// A new object for the entry, handed out with one reference. Every interface on the way from it to
// its folder counts its references on its own.
IDispatch* hand_out_item(const Entry& entry);

} // namespace test_support::stand_in
