#include "sources/wnd_ScanListView/scan_list_errors.h"

std::uint32_t error_site_scan_list;
wchar_t message_scan_list[kMessageCapacity_units];
