#include "sources/wnd_ScanListView/saving/error_sources.h"

std::uint32_t error_site_scan_list;
wchar_t message_scan_list[kMessageCapacity_units];
