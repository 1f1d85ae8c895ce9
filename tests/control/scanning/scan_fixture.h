#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/windows/test_window.h"

// What the tests of scanning, of the list and of Modify Cell share: a desktop of chosen windows and a scan in
// this process.

namespace scan_tests
{

using test_support::pointer;
using test_support::TestWindow;

// While it lives, EnumWindows of this process gives these windows, in this order.
class Desktop
{
public:
    explicit Desktop(std::vector<HWND> windows);
    std::vector<HWND> windows;
    // Called before each pass, with its number counted from 1.
    std::function<void(int)> before_pass;
    // The pass that fails without a window, 0 = none.
    int failing_pass = 0;

private:
    int passes_ = 0;
    test_support::ImportHook<"EnumWindows", decltype(EnumWindows)> hook_;
};

// The list's class, COM, an empty list of folder windows, and a window that stands for the main window.
class ScanFixture
{
public:
    ScanFixture();
    ~ScanFixture();
    ScanFixture(const ScanFixture&) = delete;
    ScanFixture& operator=(const ScanFixture&) = delete;

    HWND host() const { return host_; }
    // Presses Scan as the main window does and returns the command's result.
    std::int32_t scan();
    // The list of the List of Windows window.
    test_support::RemoteListView list() const;
    // Presses a button of the List of Windows window: 1 Move, 2 Create Profile.
    void press(WORD button) const;

private:
    test_support::ComApartment com_;
    test_support::StandInRegistration stand_in_;

public:
    test_support::FolderWindowsScript folders;

private:
    TestWindow host_;
};

std::wstring own_image_path();

// What the scan record holds for a slot.
std::wstring title_of_slot(std::uint32_t slot);
std::wstring path_of_slot(std::uint32_t slot);

// Presses Scan on the main window's procedure, as whoever sends it the button's command.
void press_scan(HWND main_window);

// Every byte of the scan record and of its blocks as they are now.
class RecordCopy
{
public:
    RecordCopy();
    bool operator==(const RecordCopy&) const = default;

private:
    std::vector<std::vector<std::uint8_t>> parts_;
};

} // namespace scan_tests
