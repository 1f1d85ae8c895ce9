#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/program/hostile/hostile_windows.h"
#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/processes/wendlow_process.h"

namespace hostile
{

using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::TemporaryFolder;
using test_support::WendlowProcess;

using Texts = std::vector<std::wstring>;

inline HWND made_up(std::uintptr_t value)
{
    return reinterpret_cast<HWND>(value);
}

// All of the program's windows are open, each holding something of the user's.
class AllWindowsOpenFixture : public testing::Test
{
protected:
    AllWindowsOpenFixture();

    // The bytes of a profile of a kind that is neither started nor opened.
    static Bytes good_profile();

    // Everything that the program shows.
    std::string state() const;

    // The answer to a WM_COPYDATA with `size` bytes at `bytes`, as if it came from `sender`.
    LRESULT send_data(HWND window, HWND sender, ULONG_PTR kind, void* bytes, DWORD size);

    // Waits until the program is idle; then it shows what it showed at first.
    void expect_all_as_before();

    // Whether this is what a control or a menu of the window sends.
    bool is_command_of(HWND window, unsigned id, unsigned code, HWND control) const;

    Neighbours neighbours_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
    BoxWatcher boxes_;
    HWND list_window_ = nullptr;
    HWND name_window_ = nullptr;
    HWND modify_cell_window_ = nullptr;
    std::vector<HWND> windows_; // all five that take messages
    std::string before_;
};

} // namespace hostile
