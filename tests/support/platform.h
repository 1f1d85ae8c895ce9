#pragma once

#include <windows.h>

namespace test_support
{

// Whether the tests run under Wine, for what only one of the two systems can show.
inline bool under_wine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace test_support
