// Writes the seeds of the fuzzers, but for saved_by_the_program, which the program itself has saved.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#include "tests/support/profiles/seed_profiles.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds <folder>\n");
        return 2;
    }
    for (const auto& [name, encoder] : test_support::seed_profiles()) {
        const std::vector<std::uint8_t> bytes = encoder.bytes();
        std::ofstream file(std::filesystem::path(argv[1]) / name, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) {
            std::fprintf(stderr, "cannot write %s\n", name.c_str());
            return 1;
        }
    }
    return 0;
}
