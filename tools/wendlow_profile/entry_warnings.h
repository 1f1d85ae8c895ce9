// What the owner of a file that is loaded should know of its entries.
#pragma once

#include <vector>

#include "tools/wendlow_profile/checking.h"

namespace profile_tool
{

// The warnings about entries, each kind once with the entries that it is about, and about entries that share
// one window.
std::vector<Warning> entry_warnings_of(ByteView file, const Surroundings& surroundings);

} // namespace profile_tool
