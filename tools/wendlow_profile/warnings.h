// What the owner of a file that is loaded should know of it.
#pragma once

#include <vector>

#include "tools/wendlow_profile/entry_warnings.h"

namespace profile_tool
{

// For a file without refusals.
std::vector<Warning> warnings_of(ByteView file, const Surroundings& surroundings);

} // namespace profile_tool
