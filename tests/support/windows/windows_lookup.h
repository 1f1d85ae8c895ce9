#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Finding windows and processes from outside. None of these sends a message to another program, so
// a program that hangs cannot stop a test.

namespace test_support
{

DWORD process_of(HWND window);
std::wstring class_of(HWND window);
// The title as the system keeps it, without asking the window.
std::wstring title_of(HWND window);
RECT rectangle_of(HWND window);
// The full image path of a process, empty when it cannot be had.
std::wstring image_path_of(DWORD process_id);
// That of this process.
std::wstring own_image_path();

// Top-level windows in z-order.
std::vector<HWND> top_level_windows();
std::vector<HWND> top_level_windows_of(DWORD process_id);

// The first visible top-level window of the process with that class, null when there is none.
HWND find_window(DWORD process_id, const std::wstring& class_name);

// Ids of all running processes whose image path begins with the prefix, ignoring case.
std::vector<DWORD> processes_below(const std::wstring& path_prefix);

bool is_process_running(DWORD process_id);

// Ends a process at once and waits for its end.
void terminate_process(DWORD process_id);

} // namespace test_support
