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

// The first step of a test, or of a fixture's SetUp, that only Wine can run: on Windows it is skipped, and
// says why. docs/windows.md lists every such test.
//     ONLY_UNDER_WINE("the save dialog of Windows refuses such a folder");
#define ONLY_UNDER_WINE(reason)                                                                              \
    if (::test_support::under_wine())                                                                        \
        SUCCEED();                                                                                           \
    else                                                                                                     \
        GTEST_SKIP() << "only under Wine: " << (reason)
