#include "sources/wnd_ModifyCell/modify_cell_errors.h"

std::uint32_t error_site_modify_cell;
wchar_t message_modify_cell[kMessageCapacity_units];
