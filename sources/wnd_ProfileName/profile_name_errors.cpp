#include "sources/wnd_ProfileName/profile_name_errors.h"

std::uint32_t error_site_profile_name;
wchar_t message_profile_name[kMessageCapacity_units];
