#pragma once

#include <string>
#include <vector>

#include "tests/support/profiles/profile_encoder.h"

// The profile files in tests/fuzz/seeds, as what they were made of. Portable.

namespace test_support
{

struct SeedProfile {
    std::string name; // of the file
    ProfileEncoder encoder;
};

// Small files as the program writes them, and one of each kind that readers take or refuse.
std::vector<SeedProfile> seed_profiles();

// What saved_by_the_program holds: the program itself saved it while the demo was played.
ProfileEncoder saved_by_the_program();

} // namespace test_support
