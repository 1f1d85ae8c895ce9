#include "tools/wendlow_profile/relinking.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/profiles/profile_encoder.h"

namespace
{

using namespace profile_tool;
using test_support::ProfileEncoder;

using Paths = std::vector<std::u16string>;

Surroundings with(const std::set<std::u16string>& there)
{
    Surroundings here;
    here.is_there = [there](const std::u16string& path) { return there.contains(path); };
    return here;
}

ProfileParts programs(const Paths& paths)
{
    ProfileEncoder encoder;
    for (const std::u16string& path : paths)
        encoder.add_program(1, 2, 3, 4, path);
    return take_apart(encoder.name(u"n").bytes());
}

Paths paths_of(const ProfileParts& parts)
{
    Paths paths;
    for (const EntryParts& entry : parts.entries)
        paths.push_back(units_of(entry.path));
    return paths;
}

std::vector<Relinked> what_of(const std::vector<RelinkedEntry>& entries)
{
    std::vector<Relinked> what;
    for (const RelinkedEntry& entry : entries)
        what.push_back(entry.what);
    return what;
}

TEST(Relink, ReplacesWholeFoldersIgnoringCase)
{
    ProfileParts parts =
        programs({u"c:\\OLD\\a.exe", u"C:\\Older\\a.exe", u"C:\\Old", u"D:\\C:\\Old\\a.exe", u"C:\\Old/b"});
    const auto result = relink({.replacements = {{u"C:\\Old", u"D:\\New"}}}, {}, {}, &parts);
    EXPECT_EQ(paths_of(parts), (Paths{u"D:\\New\\a.exe", u"C:\\Older\\a.exe", u"D:\\New",
                                      u"D:\\C:\\Old\\a.exe", u"D:\\New/b"}));
    EXPECT_EQ(what_of(result), (std::vector{Relinked::REPLACED, Relinked::LEFT, Relinked::REPLACED,
                                            Relinked::LEFT, Relinked::REPLACED}));
}

TEST(Relink, PutsOneSeparatorBetweenThePlaceAndTheRest)
{
    const auto replaced = [](const std::u16string& old_begin, const std::u16string& new_begin) {
        ProfileParts parts = programs({u"C:\\Old\\a.exe"});
        relink({.replacements = {{old_begin, new_begin}}}, {}, {}, &parts);
        return paths_of(parts).at(0);
    };
    EXPECT_EQ(replaced(u"C:\\Old", u"D:\\New"), u"D:\\New\\a.exe");
    EXPECT_EQ(replaced(u"C:\\Old\\", u"D:\\New\\"), u"D:\\New\\a.exe");
    EXPECT_EQ(replaced(u"C:\\Old", u"D:\\"), u"D:\\a.exe");
    EXPECT_EQ(replaced(u"C:\\Old\\", u"D:\\New"), u"D:\\New\\a.exe");
    EXPECT_EQ(replaced(u"C:", u"E:"), u"E:\\Old\\a.exe");
}

TEST(Relink, KeepsTheTailAndEverythingElseInOrder)
{
    ProfileParts parts = take_apart(ProfileEncoder()
                                        .add_program(-1, -2, 3, 4, u"C:\\a.exe")
                                        .add_folder(5, 6, 0, 0, u"C:\\f")
                                        .name(u"Work")
                                        .bytes());
    relink({.replacements = {{u"C:", u"D:\\longer"}}}, {}, {}, &parts);
    EXPECT_EQ(put_together(parts), ProfileEncoder()
                                       .add_program(-1, -2, 3, 4, u"D:\\longer\\a.exe")
                                       .add_folder(5, 6, 0, 0, u"D:\\longer\\f")
                                       .name(u"Work")
                                       .bytes());
}

TEST(Relink, LeavesPathsThatAreThere)
{
    const Relinking relinking{.replacements = {{u"C:", u"D:"}}};
    ProfileParts parts = programs({u"C:\\a.exe", u"C:\\b.exe"});
    EXPECT_EQ(what_of(relink(relinking, {}, with({u"C:\\a.exe"}), &parts)),
              (std::vector{Relinked::LEFT, Relinked::REPLACED}));
    EXPECT_EQ(paths_of(parts), (Paths{u"C:\\a.exe", u"D:\\b.exe"}));

    const Relinking all{.replacements = {{u"C:", u"D:"}}, .takes_all = true};
    parts = programs({u"C:\\a.exe"});
    EXPECT_EQ(what_of(relink(all, {}, with({u"C:\\a.exe"}), &parts)), std::vector{Relinked::REPLACED});
}

TEST(Relink, TakesTheReplacementThatLeadsSomewhere)
{
    const Relinking relinking{.replacements = {{u"C:", u"D:"}, {u"C:", u"E:"}, {u"C:", u"F:"}}};
    ProfileParts parts = programs({u"C:\\a.exe", u"C:\\b.exe"});
    relink(relinking, {}, with({u"E:\\a.exe", u"F:\\a.exe"}), &parts);
    EXPECT_EQ(paths_of(parts), (Paths{u"E:\\a.exe", u"D:\\b.exe"}));
}

TEST(Relink, FindsProgramsByNameAndDoesNotGuess)
{
    const FoundFiles found{{u"A.EXE", {u"D:\\x\\a.exe"}}, {u"B.EXE", {u"D:\\x\\b.exe", u"D:\\y\\B.exe"}}};
    const Relinking relinking{.finds = true};
    ProfileParts parts = programs({u"C:\\old\\A.exe", u"C:\\old\\b.exe", u"C:\\old\\c.exe"});
    parts.entries.push_back(parts.entries[0]);
    parts.entries.back().kind = 0; // a folder of that name is another thing
    EXPECT_EQ(names_to_find(parts, relinking, {}), (Paths{u"A.EXE", u"B.EXE", u"C.EXE"}));
    const auto result = relink(relinking, found, {}, &parts);
    EXPECT_EQ(what_of(result),
              (std::vector{Relinked::FOUND, Relinked::AMBIGUOUS, Relinked::NOT_FOUND, Relinked::LEFT}));
    EXPECT_EQ(result[1].places, (Paths{u"D:\\x\\b.exe", u"D:\\y\\B.exe"}));
    EXPECT_EQ(paths_of(parts),
              (Paths{u"D:\\x\\a.exe", u"C:\\old\\b.exe", u"C:\\old\\c.exe", u"C:\\old\\A.exe"}));
}

TEST(Relink, LooksForWhatAReplacementDoesNotBring)
{
    const FoundFiles found{{u"A.EXE", {u"E:\\a.exe"}}, {u"B.EXE", {u"E:\\b.exe"}}};
    const Relinking relinking{.replacements = {{u"C:", u"D:"}}, .finds = true};
    const Surroundings here = with({u"D:\\b.exe", u"E:\\a.exe", u"E:\\b.exe"});
    ProfileParts parts = programs({u"C:\\a.exe", u"C:\\b.exe"});
    EXPECT_EQ(names_to_find(parts, relinking, here), Paths{u"A.EXE"});
    relink(relinking, found, here, &parts);
    EXPECT_EQ(paths_of(parts), (Paths{u"E:\\a.exe", u"D:\\b.exe"}));
}

TEST(Relink, LeavesPathsThatAreNoText)
{
    ProfileParts parts = programs({u"C:\\a.exe", u"", std::u16string{u'C', u':', u'\0', u'x'}});
    parts.entries[0].path.push_back(7);
    const ProfileParts before = parts;
    EXPECT_EQ(what_of(relink({.replacements = {{u"C:", u"D:"}}, .finds = true}, {}, {}, &parts)),
              (std::vector{Relinked::LEFT, Relinked::LEFT, Relinked::LEFT}));
    EXPECT_EQ(parts, before);
}

} // namespace
