// The source of the reports of the List of Windows window and of saving.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_scan_list;
extern wchar_t message_scan_list[kMessageCapacity_units];
inline constexpr char kFile_scan_list[] = "sources/wnd_ScanListView";
inline constexpr ErrorSource kSource_scan_list{
    .file = kFile_scan_list, .error_site = &error_site_scan_list, .message = message_scan_list};
