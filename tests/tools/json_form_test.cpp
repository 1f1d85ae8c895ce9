#include "tools/wendlow_profile/contents/json_form.h"

#include <gtest/gtest.h>

#include "tests/support/profiles/seed_profiles.h"
#include "tools/wendlow_profile/contents/checking.h"

namespace
{

using namespace profile_tool;
using test_support::ProfileEncoder;

void expect_round_trip(const Bytes& file, const std::string& what)
{
    ASSERT_TRUE(refusals_of(file).empty()) << what;
    const std::string json = json_of_profile(file);
    Bytes back;
    std::string why;
    EXPECT_TRUE(profile_of_json(json, &back, &why)) << what << ": " << why << "\n" << json;
    EXPECT_EQ(back, file) << what << "\n" << json;
}

// The form of one good entry with the given part in place of its own.
std::string form_with(const std::string& part, const std::string& in_its_place)
{
    std::string form = R"({"format": "wendlow profile", "version": 1, "name": "N", "entries": [)"
                       R"({"kind": "program", "x": 1, "y": 2, "width": 3, "height": 4, "path": "p"}]})";
    const std::size_t at = form.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return form.replace(at, part.size(), in_its_place);
}

void expect_refused(const std::string& json, const std::string& why)
{
    Bytes file{1, 2, 3};
    std::string said;
    EXPECT_FALSE(profile_of_json(json, &file, &said)) << json;
    EXPECT_EQ(said, why) << json;
    EXPECT_EQ(file, (Bytes{1, 2, 3}));
}

TEST(ProfileToolJson, HasOneEntryToALine)
{
    EXPECT_EQ(json_of_profile(ProfileEncoder()
                                  .add_program(-8, 2, 300, 200, u"C:\\a.exe")
                                  .add_folder(1, 2, 0, 0, u"D:\\\u4E2D")
                                  .add({.flag = 7, .path = u""})
                                  .name(u"Work \"1\"")
                                  .bytes()),
              "{\n"
              "  \"format\": \"wendlow profile\",\n"
              "  \"version\": 1,\n"
              "  \"name\": \"Work \\\"1\\\"\",\n"
              "  \"entries\": [\n"
              R"(    {"kind": "program", "x": -8, "y": 2, "width": 300, "height": 200, "path": "C:\\a.exe"},)"
              "\n"
              R"(    {"kind": "folder", "x": 1, "y": 2, "width": 0, "height": 0, "path": "D:\\)"
              "\xE4\xB8\xAD\"},\n"
              R"(    {"kind": 7, "x": 0, "y": 0, "width": 0, "height": 0, "path": ""})"
              "\n  ]\n}\n");
}

TEST(ProfileToolJson, KeepsHalvesOfPairsAsNumbers)
{
    const std::u16string high{char16_t{0xD800}};
    const std::u16string low{char16_t{0xDC00}};
    EXPECT_EQ(json_of_text(u""), "\"\"");
    EXPECT_EQ(json_of_text(high + low), "\"\xF0\x90\x80\x80\"");
    EXPECT_EQ(json_of_text(high), "[55296]");
    EXPECT_EQ(json_of_text(u"a" + low + high + u"b"), R"(["a", 56320, 55296, "b"])");
    for (const std::u16string& text :
         {high, low, u"C:\\" + high + u".exe", low + high, high + high + low, u"x" + low})
        expect_round_trip(ProfileEncoder().add_program(1, 2, 3, 4, text).name(text).bytes(),
                          json_of_text(text));
}

TEST(ProfileToolJson, GivesEverySeedBackThatReadersTake)
{
    int taken = 0;
    for (const auto& [name, encoder] : test_support::seed_profiles()) {
        const Bytes bytes = encoder.bytes();
        if (!refusals_of(bytes).empty())
            continue;
        expect_round_trip(bytes, name);
        ++taken;
    }
    EXPECT_EQ(taken, 10);
    expect_round_trip(test_support::saved_by_the_program().bytes(), "saved by the program");
}

TEST(ProfileToolJson, GivesOddFilesBack)
{
    const ProfileEncoder two =
        ProfileEncoder().add_program(1, 2, 3, 4, u"ab").add_program(5, 6, 7, 8, u"cd").name(u"n");
    for (std::uint32_t first = 0; first <= 21; ++first) {
        for (std::uint32_t second = 0; first + second <= 21; ++second) {
            const Bytes file =
                ProfileEncoder(two).declare_path_length(0, first).declare_path_length(1, second).bytes();
            expect_round_trip(file, std::to_string(first) + " and " + std::to_string(second));
        }
    }
    for (std::size_t surplus = 0; surplus < 12; ++surplus) {
        expect_round_trip(ProfileEncoder(two).surplus_before_name(Bytes(surplus, 0)).bytes(), "zeros");
        expect_round_trip(ProfileEncoder(two).surplus_before_name(Bytes(surplus, 9)).bytes(), "nines");
        expect_round_trip(
            ProfileEncoder(two).without_zero_tail().surplus_before_name(Bytes(surplus, 0)).bytes(),
            "zeros for a tail");
    }
    expect_round_trip(ProfileEncoder(two).name(u"").without_zero_tail().bytes(), "no name, no tail");
    expect_round_trip(
        ProfileEncoder().add_program(-1, -2147483647 - 1, 2147483647, 0, u"p").name(u"n").bytes(), "limits");
}

TEST(ProfileToolJson, HasNoNameWhenTheSearchFindsNoZeroUnit)
{
    // Nothing but ones between the paths and the signature, and no zero unit at that distance before them.
    ProfileEncoder encoder;
    encoder.add({.flag = 1, .x = 0x01010101, .y = 0x01010101, .width = 0x01010101, .height = 0x01010101});
    const Bytes file = encoder.declare_path_length(0, 0x0101).surplus_before_name(Bytes(0x0101, 1)).bytes();
    expect_round_trip(file, "no zero unit");
    EXPECT_NE(json_of_profile(file).find("\"after_paths\": \""), std::string::npos);
    EXPECT_EQ(json_of_profile(file).find("\"name\""), std::string::npos);
}

TEST(ProfileToolJson, MakesAFileOfAFormWrittenByHand)
{
    Bytes file;
    std::string why;
    ASSERT_TRUE(profile_of_json(
        R"({"entries": [{"path": ["a", 98], "kind": 1, "x": 1, "y": 2, "width": 3, "height": 4}],)"
        R"("name": "\u4e2d", "version": 1, "format": "wendlow profile"})",
        &file, &why))
        << why;
    EXPECT_EQ(file, ProfileEncoder().add_program(1, 2, 3, 4, u"ab").name(u"\u4E2D").bytes());
}

TEST(ProfileToolJson, TellsWhereAFormIsWrong)
{
    expect_refused("[]", "an object is wanted");
    expect_refused(form_with(R"("format": "wendlow profile", )", ""), "/format: is missing");
    expect_refused(form_with("wendlow profile", "other"), "/format: \"wendlow profile\" is wanted");
    expect_refused(form_with(R"("version": 1)", R"("version": 2)"),
                   "/version: this program knows version 1 only");
    expect_refused(form_with(R"("name": "N", )", ""), "/name: is missing");
    expect_refused(form_with(R"("name": "N")", R"("name": null)"),
                   "/name: a string, or an array of strings and numbers of UTF-16 units, is wanted");
    expect_refused(form_with(R"("name": "N")", R"("name": "N", "Name": "N")"),
                   "/Name: nothing of this name is known here");
    expect_refused(form_with(R"("x": 1)", R"("x": 1, "z": 1)"),
                   "/entries/0/z: nothing of this name is known here");
    expect_refused(form_with(R"("x": 1)", R"("x": 1, "x": 1)"), "the name \"x\" stands twice in one object");
    for (const char* number :
         {"2147483648", "-2147483649", "1.0", "1e3", "\"1\"", "null", "18446744073709551615"})
        expect_refused(form_with(R"("x": 1)", std::string(R"("x": )") + number),
                       "/entries/0/x: a whole number from -2147483648 to 2147483647 is wanted");
    expect_refused(form_with(R"("program")", R"("Program")"),
                   "/entries/0/kind: \"program\", \"folder\" or a number from 0 to 255 is wanted");
    expect_refused(form_with(R"("program")", "256"),
                   "/entries/0/kind: a whole number from 0 to 255 is wanted");
    expect_refused(form_with(R"("path": "p")", R"("path": ["p", 65536])"),
                   "/entries/0/path/1: a whole number from 0 to 65535 is wanted");
    expect_refused(form_with(R"("path": "p")", R"("path": "p", "terminator": "00")"),
                   "/entries/0/terminator: four hexadecimal digits are wanted");
    expect_refused(form_with(R"("name": "N")", R"("name": "N", "surplus": "0x")"),
                   "/surplus: a string of pairs of hexadecimal digits is wanted");
    expect_refused(form_with(R"("name": "N")", R"("name": "N", "after_paths": "00070C")"),
                   "/name: cannot stand beside \"after_paths\"");
    expect_refused(R"({"format": "wendlow profile", "version": 1, "name": "N", "entries": []})",
                   "/entries: an array of at least one entry is wanted");
    expect_refused(form_with("{\"kind\"", "7, {\"kind\""), "/entries/0: an object is wanted");
}

TEST(ProfileToolJson, TellsWhereItIsNoJson)
{
    expect_refused("",
                   "parse error at line 1, column 1: syntax error while parsing value - unexpected end of "
                   "input; expected '[', '{', or a literal");
    expect_refused(
        "{\n\"a\": \x01}",
        "parse error at line 2, column 6: syntax error while parsing value - invalid literal; last "
        "read: '\"a\": <U+0001>'");
    Bytes file;
    std::string why;
    EXPECT_FALSE(profile_of_json("{\"format\": \"\xFF\"}", &file, &why));
    EXPECT_FALSE(profile_of_json(form_with("\"p\"", R"("\uD800")"), &file, &why));
    EXPECT_FALSE(profile_of_json(std::string(100000, '['), &file, &why));
    EXPECT_TRUE(file.empty());
}

TEST(ProfileToolJson, ReportsHostileTextWithoutRepeatingIt)
{
    expect_refused(form_with(R"("name": "N")", R"("name": "N", "\u001b[31m\u202e": 1)"),
                   "/<U+001B>[31m<U+202E>: nothing of this name is known here");
    expect_refused(
        "\xFF{", "parse error at line 1, column 1: syntax error while parsing value - invalid literal; last "
                 "read: '<FF>'");
    // What stands between the two ends is left out, and no character is cut.
    Bytes file;
    std::string why;
    std::string endless = "{\"";
    for (int i = 0; i < 100000; ++i)
        endless += "\xD0\x96";
    EXPECT_FALSE(profile_of_json(endless, &file, &why));
    EXPECT_LT(why.size(), 500U);
    EXPECT_TRUE(
        why.starts_with("parse error at line 1, column 200003: syntax error while parsing object key"))
        << why;
    EXPECT_TRUE(why.ends_with("\xD0\x96'; expected string literal")) << why;
    EXPECT_NE(why.find("\xD0\x96 ... \xD0\x96"), std::string::npos) << why;
}

TEST(ProfileToolJson, IsRefusedInUtf16)
{
    using namespace std::string_literals;
    const char* why = "it is UTF-16, as some shells write what they redirect; UTF-8 is wanted";
    expect_refused("\xFF\xFE{\0"s, why);
    expect_refused("\xFE\xFF\0{"s, why);
    // The mark of UTF-8 itself does no harm.
    Bytes file;
    std::string said;
    EXPECT_TRUE(profile_of_json("\xEF\xBB\xBF" + form_with("", ""), &file, &said)) << said;
}

TEST(ProfileToolJson, IsRefusedWithoutACrashAtAnyDepth)
{
    constexpr std::size_t kDepth = 100000;
    expect_refused(std::string(kDepth, '[') + std::string(kDepth, ']'), "an object is wanted");
    expect_refused(form_with(R"("p")", std::string(kDepth, '[') + std::string(kDepth, ']')),
                   "/entries/0/path/0: a whole number from 0 to 65535 is wanted");
}

TEST(ProfileToolJson, MakesNoFileThatTheProgramWouldReadDifferently)
{
    const char* other_name =
        "/name: the program would find another name: the character right before it must be "
        "zero, and none in it";
    expect_refused(form_with(R"("N")", R"("a\u0000b")"), other_name);
    expect_refused(form_with(R"("name": "N")", R"("name": "N", "surplus": "0101")"), other_name);
    expect_refused(
        form_with(R"("name": "N")", R"("after_paths": "000000")"),
        "the program would refuse the file: the last three bytes are 00 00 00 instead of 00 07 0C");
}

TEST(ProfileToolJson, LimitsTheZeroTail)
{
    for (const char* bytes : {"3", "4294967295", "4294967296"})
        expect_refused(form_with(R"("name": "N")", std::string(R"("name": "N", "zero_tail": )") + bytes),
                       "/zero_tail: a whole number from 0 to 2 is wanted");
    Bytes file;
    std::string why;
    EXPECT_TRUE(profile_of_json(form_with(R"("name": "N")", R"("name": "N", "zero_tail": 2)"), &file, &why));
    EXPECT_EQ(file, ProfileEncoder().add_program(1, 2, 3, 4, u"p").name(u"N").bytes());
}

} // namespace
