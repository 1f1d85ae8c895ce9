#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test_support::stand_in
{

struct FolderOnScreen {
    HWND window = nullptr;
    std::wstring path;
};

// The folder windows that are really open, in z-order. The system does not tell which folder such a
// window shows, so it is taken from the command line of the window's process.
std::vector<FolderOnScreen> folder_windows_on_screen();

} // namespace test_support::stand_in
