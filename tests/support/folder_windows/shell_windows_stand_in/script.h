#pragma once

#include <windows.h>

#include <cstdint>

// What the tests and the stand-in for the shell's list of folder windows share: one block of memory
// with a name, made by the test, filled in before the stand-in is asked.

namespace test_support::stand_in
{

constexpr wchar_t kScriptName[] = L"Local\\WendlowTestsShellWindows";

// Posted to a window of the program that is to get the stand-in; what came of it is a property of that
// window.
constexpr wchar_t kLendMessage[] = L"WendlowTestsLendShellWindows";
constexpr wchar_t kLentProperty[] = L"WendlowTestsLentShellWindows";
constexpr INT_PTR kLent = 1; // anything else is the result that COM gave

constexpr int kMaxWindows = 64;
constexpr int kMaxPath = 1024;

struct ScriptedWindow {
    std::int64_t window;
    std::int64_t tab;
    std::int32_t missing; // a Missing
    std::int32_t later_from_pass;
    std::int32_t first_pass;
    std::int32_t last_pass;
    wchar_t path[kMaxPath];
    wchar_t later_path[kMaxPath];
};

struct Counters {
    volatile LONG passes;
    volatile LONG interfaces_given;
    volatile LONG interfaces_live;
    volatile LONG released_too_often;
    volatile LONG id_lists_given;
    volatile LONG id_lists_live;
};

struct Script {
    std::int32_t active; // 0: as if there were no script
    std::int32_t real_windows;
    HRESULT creation_result;
    HRESULT count_result;
    std::int32_t claimed_more;
    std::int32_t window_count;
    ScriptedWindow windows[kMaxWindows];
    Counters counters;
};

// The script in force, null when there is none.
Script* current_script();

// The counters of the script in force, or some that nobody reads.
Counters& counters();

} // namespace test_support::stand_in
