// The two sources of this module's reports: one error-site variable, two message buffers.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_layout_windows;
inline constexpr char kFile_layout_windows[] = "sources/funcs_layout_windows";

// Scanning, drawing and the main window's look.
extern wchar_t message_layout_windows[kMessageCapacity_units];
inline constexpr ErrorSource kSource_layout_windows{.file = kFile_layout_windows,
                                                    .error_site = &error_site_layout_windows,
                                                    .message = message_layout_windows};

// The Profile and Action lists, loading, dropped files, launching and Apply.
extern wchar_t message_profiles[kMessageCapacity_units];
inline constexpr ErrorSource kSource_profiles{
    .file = kFile_layout_windows, .error_site = &error_site_layout_windows, .message = message_profiles};
