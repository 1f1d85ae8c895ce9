// What is wrong with a profile file: why the program does not load it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

// One reason why the program does not load a file.
struct Refusal {
    std::optional<std::uint32_t> entry; // counted from 0, as in the program's boxes
    std::string field;                  // its name in the file's layout
    std::uint64_t offset;               // of the field, in bytes
    std::string what;
    std::string box;  // the text of the program's box, without the places in the source around it
    int line;         // the number under "line:" in that box
    int handler_line; // the number at its end
    std::string advice;
};

// Every reason, in the order in which the program meets them: it shows the first, and after that one has been
// mended the next. None for a file that is loaded.
std::vector<Refusal> refusals_of(ByteView file);

} // namespace profile_tool
