// Writes what the seeds were made of as JSON, for other readers of the format to be held against:
//     write_seed_fields FILE
#include <cstdio>
#include <fstream>
#include <string>

#include "tests/support/profiles/seed_profiles.h"

namespace
{

// Every unit as an escape, so that nothing depends on how text is written.
std::string json_of(const std::u16string& text)
{
    std::string out = "\"";
    for (const char16_t unit : text) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
        out += escape;
    }
    return out + "\"";
}

std::string json_of(const test_support::SeedProfile& seed)
{
    std::string out =
        "{\"file\": \"" + seed.name + "\", \"name\": " + json_of(seed.encoder.name()) + ", \"entries\": [";
    bool is_first = true;
    for (const auto& entry : seed.encoder.entries()) {
        out += is_first ? "" : ", ";
        is_first = false;
        out += "{\"kind\": " + std::to_string(entry.flag) + ", \"x\": " + std::to_string(entry.x) +
               ", \"y\": " + std::to_string(entry.y) + ", \"width\": " + std::to_string(entry.width) +
               ", \"height\": " + std::to_string(entry.height) + ", \"path\": " + json_of(entry.path) + "}";
    }
    return out + "]}";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_seed_fields FILE\n");
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << "[\n"
         << json_of(test_support::SeedProfile{"saved_by_the_program", test_support::saved_by_the_program()});
    for (const auto& seed : test_support::seed_profiles())
        file << ",\n" << json_of(seed);
    file << "\n]\n";
    return file.flush() ? 0 : 1;
}
