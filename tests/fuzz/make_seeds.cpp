// Writes the seeds of profile_file_fuzzer: small files as the program writes them, and one of each kind that
// readers take or refuse. One more, saved_by_the_program, was saved by the program itself while the demo
// was played.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/profile_encoder.h"

using test_support::ProfileEncoder;

namespace
{

ProfileEncoder three_windows()
{
    return ProfileEncoder()
        .add_program(-8, 0, 300, 200, u"C:\\a.exe")
        .add_folder(40, -50, 640, 480, u"D:\\f")
        .add_program(0, 0, 0, 0, u"C:\\b.exe")
        .name(u"work");
}

std::vector<std::pair<std::string, ProfileEncoder>> seeds()
{
    return {
        {"one_program", ProfileEncoder().add_program(-8, 2, 300, 200, u"C:\\a.exe").name(u"A")},
        {"one_folder", ProfileEncoder().add_folder(1, 2, 3, 4, u"C:\\").name(u"\u0416\u4E2D")},
        {"three_windows", three_windows()},
        {"other_kinds", ProfileEncoder().add({.flag = 2, .path = u"a"}).add({.flag = 255}).name(u"k")},
        {"long_name", ProfileEncoder().add_program(1, 2, 3, 4, u"p").name(std::u16string(256, u'n'))},
        {"empty_paths", ProfileEncoder().add({}).add({}).add({}).name(u"e")},
        {"no_name", ProfileEncoder().add_program(1, 2, 3, 4, u"p")},
        {"no_zero_tail", three_windows().without_zero_tail()},
        {"surplus_bytes", three_windows().surplus_before_name({1, 2, 3, 4, 5})},
        {"odd_path_length", three_windows().declare_path_length(1, 7)},
        {"path_past_end", three_windows().declare_path_length(2, 0xFFFFFFFE)},
        {"count_past_end", three_windows().declare_count(0xFFFFFFFF)},
        {"count_zero", ProfileEncoder().name(u"z")},
        {"cut_in_heights", three_windows().cut_before_signature(50)},
        {"signature_only", ProfileEncoder().cut_before_signature(0)},
        {"wrong_signature", three_windows().signature(0x00, 0x07, 0x0D)},
    };
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds <folder>\n");
        return 2;
    }
    for (const auto& [name, encoder] : seeds()) {
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
