// What the program reads from a top-level window of any process, and the rules that a window must meet.
#pragma once

#include <windows.h>

#include <span>
#include <string_view>

// How a window's image path was read.
enum class ImagePath {
    READ,        // the path is in the buffer
    UNAVAILABLE, // the process cannot be opened, or its path is empty: the window is skipped
    FAILED,      // the path could not be queried: the enumeration ends
};

// False for a null or invisible window.
bool is_visible(HWND hwnd);

// True when the window's class is one that is never listed or matched.
bool has_excluded_class(HWND hwnd);

// Asks a window for its title with WM_GETTEXT, allowing `title.size()` units with the closing zero. False for
// an empty title and a window that does not answer in time: a hung program must not freeze this one. `title`
// is cleared first. It is asked for last of all: suspended programs keep visible windows, each of which would
// cost the whole wait.
bool read_title(HWND hwnd, std::span<wchar_t> title);

// The rules in their order: visible, not of an excluded class, titled.
bool window_qualifies(HWND hwnd, std::span<wchar_t> title);

// Reads the image path of the process `process_id`, at most `limit_units` units, into `buffer`, which is
// cleared before the query. On FAILED GetLastError tells why, and the process handle stays open.
ImagePath read_image_path(DWORD process_id, std::span<wchar_t> buffer, DWORD limit_units);
