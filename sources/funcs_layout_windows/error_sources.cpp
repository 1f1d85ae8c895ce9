#include "sources/funcs_layout_windows/error_sources.h"

std::uint32_t error_site_layout_windows;
wchar_t message_layout_windows[kMessageCapacity_units];
wchar_t message_profiles[kMessageCapacity_units];
