#include "sources/main_prg/main_errors.h"

std::uint32_t error_site_main;
wchar_t message_main[kMessageCapacity_units];
