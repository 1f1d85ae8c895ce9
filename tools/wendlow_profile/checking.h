// What is wrong with a profile file, and what its owner should know of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/wendlow_profile/platform.h"
#include "tools/wendlow_profile/text.h"

namespace profile_tool
{

// One reason why the program does not load a file.
struct Refusal {
    std::optional<std::uint32_t> entry; // counted from 0, as in the program's boxes
    std::string field;
    std::uint64_t offset; // of the field, in bytes
    std::string what;
    std::string box;  // the text of the program's box, without the places in the source around it
    int line;         // the number under "line:" in that box
    int handler_line; // the number at its end
    std::string advice;
};

// Every reason, in the order in which the program meets them: it shows the first, and after that one has been
// mended the next. None for a file that is loaded.
std::vector<Refusal> refusals_of(ByteView file);

// Something of a file that is loaded.
struct Warning {
    std::vector<std::uint32_t> entries; // those it is about; none when it is about the whole file
    std::string field;
    std::optional<std::uint64_t> offset; // of the first entry's field, in bytes
    std::string what;
    std::string advice;
};

// For a file without refusals.
std::vector<Warning> warnings_of(ByteView file, const Surroundings& surroundings);

} // namespace profile_tool
