#include "tools/wendlow_profile/contents/checking.h"
#include "tools/wendlow_profile/warnings.h"

#include <gtest/gtest.h>

#include "tests/support/profiles/profile_encoder.h"

namespace
{

using namespace profile_tool;
using test_support::ProfileEncoder;

ProfileEncoder one(std::u16string path = u"C:\\a.exe")
{
    return ProfileEncoder().add_program(1, 2, 300, 200, std::move(path)).name(u"A");
}

// "entry 2, path, offset 95"
std::string place_of(const Refusal& refusal)
{
    return (refusal.entry ? "entry " + std::to_string(*refusal.entry) + ", " : std::string()) +
           refusal.field + ", offset " + std::to_string(refusal.offset);
}

using Texts = std::vector<std::string>;

Texts places_of(const Bytes& file)
{
    Texts places;
    for (const Refusal& refusal : refusals_of(file))
        places.push_back(place_of(refusal));
    return places;
}

// "0 2 path 31: what"
Texts texts_of(const std::vector<Warning>& warnings)
{
    Texts texts;
    for (const Warning& warning : warnings) {
        std::string text;
        for (const std::uint32_t entry : warning.entries)
            text += std::to_string(entry) + " ";
        text += warning.field;
        text += " " + std::to_string(warning.offset);
        texts.push_back(text + ": " + warning.what);
    }
    return texts;
}

Texts warnings_about(const ProfileEncoder& encoder, const Surroundings& surroundings = {})
{
    const Bytes file = encoder.bytes();
    EXPECT_EQ(places_of(file), Texts());
    return texts_of(warnings_of(file, surroundings));
}

TEST(ProfileCheck, FindsNothingInAFileThatTheProgramSaves)
{
    EXPECT_EQ(warnings_about(one()), Texts());
    EXPECT_EQ(warnings_about(ProfileEncoder()
                                 .add_program(-8, 2, 300, 200, u"C:\\a.exe")
                                 .add_folder(0, 0, 0, 0, u"C:\\a")
                                 .name(std::u16string(201, u'n'))),
              Texts());
}

TEST(ProfileCheck, NamesFaultsInTheOrderInWhichTheProgramMeetsThem)
{
    EXPECT_EQ(places_of({}), Texts{"file, offset 0"});
    EXPECT_EQ(places_of({0}), Texts{"signature, offset 0"});
    EXPECT_EQ(places_of({0, 7}), Texts{"signature, offset 0"});
    EXPECT_EQ(places_of({0, 7, 12}), Texts{"number of windows, offset 0"});
    EXPECT_EQ(places_of({0, 7, 13}), (Texts{"signature, offset 2", "number of windows, offset 0"}));
    EXPECT_EQ(places_of({0, 0, 0, 0, 0, 7, 12}), Texts{"number of windows, offset 0"});
    EXPECT_EQ(places_of({0, 0, 0, 0, 0, 8, 12}),
              (Texts{"signature, offset 5", "number of windows, offset 0"}));
    EXPECT_EQ(places_of(one().signature(1, 7, 12).bytes()), Texts{"signature, offset 61"});
    EXPECT_EQ(places_of(one().signature(0, 7, 13).declare_count(2).bytes()),
              (Texts{"signature, offset 63", "entry 0, path, offset 46"}));
}

TEST(ProfileCheck, NamesTheFirstFieldPastTheEnd)
{
    const auto cut = [](std::size_t bytes) {
        return places_of(ProfileEncoder()
                             .add_program(1, 2, 3, 4, u"ab")
                             .add_folder(5, 6, 7, 8, u"cd")
                             .name(u"n")
                             .cut_before_signature(bytes)
                             .bytes());
    };
    EXPECT_EQ(cut(1), Texts{"entry 0, kind flag, offset 4"});
    EXPECT_EQ(cut(6), Texts{"entry 0, x, offset 6"});
    EXPECT_EQ(cut(7), Texts{"entry 1, x, offset 10"});
    EXPECT_EQ(cut(12), Texts{"entry 0, y, offset 14"});
    EXPECT_EQ(cut(20), Texts{"entry 0, width, offset 22"});
    EXPECT_EQ(cut(30), Texts{"entry 0, height, offset 30"});
    EXPECT_EQ(cut(40), Texts{"entry 1, path length, offset 42"});
    EXPECT_EQ(cut(45), Texts{"entry 0, path, offset 46"});
    EXPECT_EQ(cut(49), Texts{"entry 1, path, offset 52"});
    // Paths of 2, 4 and 6 bytes.
    EXPECT_EQ(places_of(ProfileEncoder()
                            .add_program(1, 2, 3, 4, u"a")
                            .add_folder(5, 6, 7, 8, u"bc")
                            .add_folder(5, 6, 7, 8, u"def")
                            .cut_before_signature(82)
                            .bytes()),
              Texts());
    EXPECT_EQ(places_of(ProfileEncoder()
                            .add_program(1, 2, 3, 4, u"a")
                            .add_folder(5, 6, 7, 8, u"bc")
                            .add_folder(5, 6, 7, 8, u"def")
                            .cut_before_signature(81)
                            .bytes()),
              Texts{"entry 2, path, offset 77"});
}

TEST(ProfileCheck, ShowsTheProgramsBoxAndWhatToDo)
{
    const Refusal fault =
        refusals_of(ProfileEncoder(one()).add_folder(1, 2, 3, 4, u"f").declare_path_length(1, 99).bytes())
            .at(0);
    EXPECT_EQ(fault.box,
              "error, file is damaged: data of profile run past end of file\nentry = 1, field = path");
    EXPECT_EQ(fault.what,
              "the path of 99 bytes with its terminator would end at byte 165 of the file of 91 bytes");
    const Bytes good = one().bytes();
    Bytes longer = good;
    longer.insert(longer.end(), {'\r', '\n'});
    EXPECT_EQ(refusals_of(longer).at(0).box, "invalid type of file, signature doesn't coincide");
    EXPECT_EQ(refusals_of(longer).at(0).advice,
              "The signature ends at byte 64 and 2 bytes follow: something was "
              "appended to the file. Cut it to its first 64 bytes.");
    EXPECT_EQ(
        refusals_of(Bytes(good.begin(), good.end() - 1)).at(0).advice,
        "All entries are there, only the end of the file is missing or changed: put the name and the bytes "
        "00 07 0C behind them, or take the file from a backup.");
    EXPECT_EQ(
        refusals_of(Bytes{'D', 'e', 'a', 'r', ' ', 'S', 'i', 'r'}).at(0).advice,
        "Either this file is no profile, or its end was lost: take it from a backup, or save the profile "
        "again.");
}

TEST(ProfileCheck, WarnsOfPaths)
{
    const std::u16string half{u'a', u'\0', u'b'};
    EXPECT_EQ(warnings_about(one(u"")), Texts{"0 path 25: empty"});
    EXPECT_EQ(warnings_about(one(half)), Texts{"0 path 27: has a zero character in it"});
    EXPECT_EQ(warnings_about(one(u"C:\\Windows\\Explorer.EXE")),
              Texts{"0 path 25: the program explorer.exe"});
    EXPECT_EQ(warnings_about(one(u"explorer.ex")), Texts());
    EXPECT_EQ(warnings_about(one(std::u16string(2047, u'p'))), Texts());
    EXPECT_EQ(warnings_about(one(std::u16string(2048, u'p'))),
              Texts{"0 path 25: longer than any path of a window that the program recognises"});
    // The path "C:\a.e" and half of "x"; the other half and "e" stand where its terminator would be.
    EXPECT_EQ(warnings_about(one().declare_path_length(0, 13)),
              (Texts{"0 path length 21: an odd number of bytes, so the path ends in half a character",
                     "0 path 38: is not followed by a zero character",
                     "surplus 53: 6 bytes too many between the paths and the name"}));
}

TEST(ProfileCheck, WarnsOfEntriesThatShareAWindow)
{
    EXPECT_EQ(warnings_about(ProfileEncoder()
                                 .add_program(1, 2, 3, 4, u"C:\\a\\\u0436.exe")
                                 .add_folder(1, 2, 3, 4, u"C:\\f")
                                 .add_program(1, 2, 3, 4, u"C:\\b.exe")
                                 .add_program(1, 2, 3, 4, u"c:\\A\\\u0416.EXE")
                                 .add_folder(1, 2, 3, 4, u"C:\\b.exe")
                                 .add_folder(1, 2, 3, 4, u"c:\\F")
                                 .name(u"n")),
              (Texts{"0 3 path 130: are one program", "1 5 path 152: are one folder"}));
}

TEST(ProfileCheck, WarnsOfRectanglesAndKinds)
{
    EXPECT_EQ(warnings_about(ProfileEncoder()
                                 .add({.flag = 2, .width = 1, .height = 1, .path = u"a"})
                                 .add({.width = 0, .height = 9, .path = u"b"})
                                 .add({.width = 9, .height = 0, .path = u"c"})
                                 .add({.width = 9, .height = -1, .path = u"d"})
                                 .name(u"n")),
              (Texts{"0 kind flag 4: neither 1, a program, nor 0, a folder",
                     "1 2 width or height 44: one of the two is zero", "3 width or height 68: negative"}));
}

TEST(ProfileCheck, WarnsOfWhatLiesBetweenPathsAndName)
{
    EXPECT_EQ(warnings_about(one().without_zero_tail()),
              Texts{"zero tail 43: has 0 of the 16 zero bytes that belong between the paths and the name"});
    EXPECT_EQ(warnings_about(one().surplus_before_name({1, 0, 0})),
              Texts{"surplus 59: 3 bytes too many between the paths and the name"});
    EXPECT_EQ(warnings_about(one().surplus_before_name({0})),
              Texts{"surplus 59: 1 byte too many between the paths and the name"});
}

TEST(ProfileCheck, WarnsOfTheName)
{
    EXPECT_EQ(warnings_about(one().name(u"")), Texts{"name 59: empty"});
    EXPECT_EQ(warnings_about(one().name(std::u16string(202, u'n'))), Texts{"name 59: has 202 characters"});
    EXPECT_EQ(warnings_about(one().name(std::u16string(257, u'n'))),
              Texts{"name 59: has 257 characters, the program saves at most 256"});
    EXPECT_EQ(warnings_about(one().name(u"\u00FF")), Texts());
    EXPECT_EQ(warnings_about(one().name(u"\u0100")), Texts{"name 59: has characters beyond U+00FF"});
    // The path reaches to the end of the file, its terminator is the last two bytes of the signature.
    EXPECT_EQ(
        warnings_about(one().declare_path_length(0, 37)),
        (Texts{"0 path length 21: an odd number of bytes, so the path ends in half a character",
               "0 path 41: has a zero character in it", "0 path 62: is not followed by a zero character",
               "name 59: begins inside what comes before it"}));
}

TEST(ProfileCheck, HoldsEntriesAgainstTheComputer)
{
    Surroundings here;
    here.is_there = [](const std::u16string& path) { return path == u"C:\\a.exe"; };
    here.monitors = {{-100, 0, 0, 100}, {0, 0, 1000, 500}};
    EXPECT_EQ(
        warnings_about(ProfileEncoder()
                           .add_program(999, 499, 9, 9, u"C:\\a.exe")
                           .add_program(1000, 0, 9, 9, u"C:\\b.exe")
                           .add_folder(-150, 0, 50, 9, u"C:\\c")
                           .add_folder(-150, 0, 51, 9, u"")
                           .add({.flag = 9, .x = 2147483647, .y = 0, .width = 2147483647, .height = 9})
                           .add_program(5000, 5000, 0, 0, u"C:\\a.exe")
                           .name(u"n"),
                       here),
        (Texts{"4 kind flag 8: neither 1, a program, nor 0, a folder", "3 4 path 176: empty",
               "1 2 path 148: leads to nothing on this computer",
               "1 2 4 rectangle 14: touches no monitor of this computer", "0 5 path 130: are one program"}));
}

TEST(ProfileCheck, WarnsOfAFileThatTheProgramCannotKeep)
{
    Bytes file = one().bytes();
    file.insert(file.begin() + 57, 0x2000000 - 63, std::uint8_t{1});
    const Texts texts = texts_of(warnings_of(file, {}));
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back(), "file 0: larger than what the program can keep of all profiles together");
    file.erase(file.begin() + 57); // the largest that it keeps
    EXPECT_NE(texts_of(warnings_of(file, {})).back(), texts.back());
}

} // namespace
