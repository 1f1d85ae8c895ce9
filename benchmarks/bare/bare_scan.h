// The calls of a scan and nothing around them.
#pragma once

#include <windows.h>

namespace bare
{

inline constexpr wchar_t kList_class[] = L"Bare list";

void register_list_class(HINSTANCE instance);

// Two passes over the windows, then a window with a plain list of them, filled with drawing off.
void scan(HINSTANCE instance);

} // namespace bare
