#include "sources/wnd_ScanListView/saving/scan_list_error_source.h"

std::uint32_t error_site_scan_list;
wchar_t message_scan_list[kMessageCapacity_units];
