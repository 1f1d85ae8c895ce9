// Bringing a profile to the screen: start its programs, open its folders, find the windows, report, place.
#pragma once

#include <cstdint>

#include "sources/funcs_layout_windows/launching/launch_state.h"

// The main window was closed meanwhile.
inline constexpr std::int32_t kLaunch_abandoned = 2;

// Starts the profile's programs and folders, finds their windows, reports what is missing and places what
// was found. The programs' process and thread handles stay open until this process ends. The
// thread is blocked for up to 5 s per program and 10 s for each of the two searches. The user sees an info
// box, owned by the main window, for programs and for folders that did not start or were not found. Returns
// 1; -15 after an error box when the search for folders was refused, with nothing placed; kLaunch_abandoned,
// quietly, when the main window was closed: before the reports nothing is reported or placed then; closed at
// one of them, the windows that were found are still placed.
std::int32_t launch_profile(Launch_STR* launch);
