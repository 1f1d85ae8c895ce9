#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"

// Profile files that nobody saved: every field at its limits, the file cut at every boundary, and random
// damage. How the program refuses each is worked out from the layout of the format alone.

namespace hostile
{

// How the Load Profile command refuses a file.
struct Refusal {
    std::int32_t result;
    test_support::ExpectedBox box;
    bool keeps_handle; // the file stays open in the program
    bool keeps_buffer; // the copy of the file stays in the program's memory
};

// Nothing for a file that is taken, however odd it is.
std::optional<Refusal> refusal_of(const test_support::Bytes& file);

struct HostileFile {
    std::string what;
    test_support::Bytes bytes;
    Refusal refusal;
};

// All of them are refused; were one taken, it would start `program`. The same ones each time.
std::vector<HostileFile> hostile_files(const std::u16string& program);

} // namespace hostile
