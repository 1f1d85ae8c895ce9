#include "tests/support/profiles/seed_profiles.h"

namespace test_support
{

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

} // namespace

std::vector<SeedProfile> seed_profiles()
{
    return {
        {"one_program", ProfileEncoder().add_program(-8, 2, 300, 200, u"C:\\a.exe").name(u"A")},
        {"one_folder", ProfileEncoder().add_folder(1, 2, 3, 4, u"C:\\").name(u"\u0416\u4E2D")},
        {"three_windows", three_windows()},
        {"other_kinds",
         ProfileEncoder().add({.flag = 2, .path = u"a"}).add({.flag = 255, .path = u""}).name(u"k")},
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

ProfileEncoder saved_by_the_program()
{
    return ProfileEncoder()
        .add_program(0, 0, 0, 0, u"C:\\windows\\system32\\clock.exe")
        .add_folder(470, 390, 520, 340, u"C:\\wendlow-demo\\Letters")
        .add_program(1150, 60, 170, 220, u"C:\\windows\\system32\\winemine.exe")
        .add_program(600, 20, 480, 340, u"C:\\windows\\system32\\winefile.exe")
        .add_program(-60, 30, 640, 380, u"C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe")
        .add_program(20, 440, 420, 300, u"C:\\windows\\system32\\notepad.exe")
        .name(u"Office");
}

} // namespace test_support
