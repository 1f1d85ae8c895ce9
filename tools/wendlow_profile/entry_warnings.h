// What the owner of a file that is loaded should know of its entries.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/wendlow_profile/system/platform.h"
#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

// Something of a file that is loaded.
struct Warning {
    std::vector<std::uint32_t> entries; // those it is about; none when it is about the whole file
    std::string field;
    std::uint64_t offset; // of the first entry's field, in bytes
    std::string what;
    std::string advice;
};

// The warnings about entries, each kind once with the entries that it is about, and about entries that share
// one window.
std::vector<Warning> entry_warnings_of(ByteView file, const Surroundings& surroundings);

} // namespace profile_tool
