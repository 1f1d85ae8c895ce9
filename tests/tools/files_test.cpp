// What the commands do to files.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/profiles/seed_profiles.h"
#include "tests/tools/work_folder.h"

namespace
{

using namespace profile_tool;
using namespace tool_tests;
using test_support::ProfileEncoder;

using Names = std::vector<std::string>;

const Bytes kGood = test_support::saved_by_the_program().bytes();
const Bytes kOther{'o', 'l', 'd'};

void expect_failure(const Ran& ran, ExitCode code, const std::string& err)
{
    EXPECT_EQ(ran.code, code);
    EXPECT_EQ(ran.err, err);
    EXPECT_EQ(ran.out, "");
}

TEST(ProfileToolFiles, TheSeedSavedByTheProgramHasTheseBytes)
{
    EXPECT_EQ(text_of_tree("tests/fuzz/seeds/saved_by_the_program"), std::string(kGood.begin(), kGood.end()));
}

TEST(ProfileToolFiles, AreTheSameAfterJsonAndBack)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    EXPECT_EQ(run_tool({"to-json", "p.txt", "-o", "p.json"}).code, EXIT_FINE);
    EXPECT_EQ(run_tool({"from-json", "p.json", "-o", "q.txt"}).code, EXIT_FINE);
    EXPECT_EQ(WorkFolder::read("q.txt"), kGood);
    EXPECT_EQ(folder.files(), (Names{"p.json", "p.txt", "q.txt"}));
}

TEST(ProfileToolFiles, AreNotOverwrittenUnlessForced)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    WorkFolder::write("old", kOther);
    const std::string there = "wendlow-profile: old: is there already; --force replaces it\n";
    expect_failure(run_tool({"to-json", "p.txt", "-o", "old"}), EXIT_UNREADABLE, there);
    expect_failure(run_tool({"relink", "p.txt", "-o", "old", "--replace", "C:", "D:"}), EXIT_UNREADABLE,
                   there);
    run_tool({"to-json", "p.txt", "-o", "p.json"});
    expect_failure(run_tool({"from-json", "p.json", "-o", "old"}), EXIT_UNREADABLE, there);
    EXPECT_EQ(WorkFolder::read("old"), kOther);

    EXPECT_EQ(run_tool({"from-json", "p.json", "-o", "old", "--force"}).code, EXIT_FINE);
    EXPECT_EQ(WorkFolder::read("old"), kGood);
    // Nothing is left beside it.
    EXPECT_EQ(folder.files(), (Names{"old", "p.json", "p.txt"}));
}

TEST(ProfileToolFiles, AreReplacedInOneStepAndKeepTheirMode)
{
    namespace fs = std::filesystem;
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    WorkFolder::write("old", kOther);
    fs::permissions("old", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write);
    // Whoever has the old one open keeps it whole.
    std::ifstream open_before("old", std::ios::binary);
    EXPECT_EQ(run_tool({"relink", "p.txt", "-o", "old", "--force", "--replace", "C:", "D:"}).code, EXIT_FINE);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(open_before), {}), "old");
    EXPECT_EQ(fs::status("old").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write);

    WorkFolder::write("real", kOther);
    fs::create_symlink("real", "link");
    EXPECT_EQ(run_tool({"to-json", "p.txt", "-o", "link", "--force"}).code, EXIT_FINE);
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(WorkFolder::read("real").at(0), '{');
}

TEST(ProfileToolFiles, AreNotMadeOfAnythingWrong)
{
    const WorkFolder folder;
    WorkFolder::write("cut", Bytes(kGood.begin(), kGood.end() - 1));
    WorkFolder::write("bad.json", {'{'});
    expect_failure(
        run_tool({"to-json", "cut", "-o", "out"}), EXIT_FINDINGS,
        "wendlow-profile: cut: the program would refuse it: the last three bytes are 00 00 07 instead "
        "of 00 07 0C (wendlow-profile check tells more)\n");
    EXPECT_EQ(run_tool({"relink", "cut", "-o", "out", "--replace", "C:", "D:"}).code, EXIT_FINDINGS);
    expect_failure(
        run_tool({"from-json", "bad.json", "-o", "out"}), EXIT_UNREADABLE,
        "wendlow-profile: bad.json: parse error at line 1, column 2: syntax error while parsing object "
        "key - unexpected end of input; expected string literal\n");
    expect_failure(run_tool({"from-json", "gone", "-o", "out"}), EXIT_UNREADABLE,
                   "wendlow-profile: gone: cannot be read: No such file or directory\n");
    EXPECT_EQ(run_tool({"to-json", ".", "-o", "out"}).code, EXIT_UNREADABLE);
    EXPECT_EQ(folder.files(), (Names{"bad.json", "cut"}));
}

TEST(ProfileToolFiles, ThatCannotBeWrittenAreReported)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    expect_failure(run_tool({"to-json", "p.txt", "-o", "no/folder"}), EXIT_UNREADABLE,
                   "wendlow-profile: no/folder: cannot be written: No such file or directory\n");
    std::filesystem::create_directory("folder");
    expect_failure(run_tool({"to-json", "p.txt", "-o", "folder", "--force"}), EXIT_UNREADABLE,
                   "wendlow-profile: folder: cannot be written: it is no ordinary file\n");
    EXPECT_EQ(folder.files(), (Names{"folder", "p.txt"}));
}

TEST(ProfileToolFiles, AreFoundBelowAFolder)
{
    namespace fs = std::filesystem;
    const WorkFolder folder;
    WorkFolder::write("p.txt", ProfileEncoder()
                                   .add_program(1, 2, 3, 4, u"C:\\gone\\One.exe")
                                   .add_program(1, 2, 3, 4, u"C:\\gone\\two.exe")
                                   .name(u"n")
                                   .bytes());
    fs::create_directories("apps/x/y");
    fs::create_directories("apps/one.exe"); // a folder of that name is none
    WorkFolder::write("apps/x/y/oNE.exe", {});
    WorkFolder::write("apps/two.exe", {});
    WorkFolder::write("apps/x/two.exe", {});
    fs::create_directory_symlink("..", "apps/x/round");
    const Ran ran = run_tool({"relink", "p.txt", "-o", "q.txt", "--find", "apps", "--find", "apps/x"});
    std::string here = "Z:" + fs::canonical("apps").string();
    std::replace(here.begin(), here.end(), '/', '\\');
    EXPECT_EQ(ran.code, EXIT_FINDINGS);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(ran.out,
              "entry 0: C:\\gone\\One.exe\n  -> " + here +
                  "\\x\\y\\oNE.exe\n"
                  "entry 1: C:\\gone\\two.exe\n  left as it is, there are several of that name:\n     " +
                  here + "\\two.exe\n     " + here +
                  "\\x\\two.exe\n"
                  "1 of 2 entries relinked, 1 still to be mended\n");
    EXPECT_EQ(WorkFolder::read("q.txt"), ProfileEncoder()
                                             .add_program(1, 2, 3, 4, *utf16_of(here + "\\x\\y\\oNE.exe"))
                                             .add_program(1, 2, 3, 4, u"C:\\gone\\two.exe")
                                             .name(u"n")
                                             .bytes());
    EXPECT_EQ(run_tool({"relink", "p.txt", "-o", "r.txt", "--find", "nowhere"}).err,
              "wendlow-profile: nowhere: cannot be searched: No such file or directory\n");
    EXPECT_FALSE(fs::exists("r.txt"));
}

TEST(ProfileToolFiles, AreFoundWhenAFolderVanishesMeanwhile)
{
    namespace fs = std::filesystem;
    const WorkFolder folder;
    fs::create_directories("apps/a");
    fs::create_directories("apps/b");
    WorkFolder::write("apps/a/x.exe", {});
    WorkFolder::write("apps/b/x.exe", {});
    int found = 0;
    std::string why;
    // Whichever comes first, the other one is gone before it is looked into.
    EXPECT_TRUE(platform::find_files(
        "apps", [](const std::u16string& name) { return name == u"X.EXE"; },
        [&](const std::u16string&, const std::u16string& path) {
            ++found;
            fs::remove_all(path.ends_with(u"\\a\\x.exe") ? "apps/b" : "apps/a");
        },
        &why))
        << why;
    EXPECT_EQ(found, 1);
    // What is to be searched has to be a folder.
    WorkFolder::write("file", {});
    EXPECT_FALSE(platform::find_files(
        "file", [](const std::u16string&) { return true; },
        [](const std::u16string&, const std::u16string&) {}, &why));
    EXPECT_EQ(why, "Not a directory");
}

TEST(ProfileToolFiles, MayHaveNamesAsLongAsNamesCanBe)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    const std::string name(255, 'n');
    WorkFolder::write(name, kOther);
    EXPECT_EQ(run_tool({"relink", "p.txt", "-o", name, "--force", "--replace", "Q:", "D:"}).err, "");
    EXPECT_EQ(WorkFolder::read(name), kGood);
    EXPECT_EQ(folder.files(), (Names{name, "p.txt"}));
}

TEST(ProfileToolFiles, MayHaveNamesThatAreNoText)
{
    const WorkFolder folder;
    const std::string name = "\xFF\x1B[1m";
    WorkFolder::write(name, kGood);
    EXPECT_EQ(run_tool({"check", name}).out, "<FF><U+001B>[1m: fine\n");
    EXPECT_TRUE(run_tool({"show", name}).out.starts_with("<FF><U+001B>[1m: \"Office\""));
    EXPECT_EQ(run_tool({"show", name + "0"}).err,
              "wendlow-profile: <FF><U+001B>[1m0: cannot be read: No such file or directory\n");
    const Ran ran = run_tool({"show", "--json", name});
    EXPECT_EQ(ran.code, EXIT_FINE);
    EXPECT_TRUE(ran.out.starts_with("[\n{\"file\": \"\xEF\xBF\xBD\\u001b[1m\", \"bytes\": 949, ")) << ran.out;
}

TEST(ProfileToolFiles, NeedAName)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    expect_failure(run_tool({"to-json", "p.txt", "-o", ""}), EXIT_USAGE,
                   "wendlow-profile: --output: must not be empty\nRun with --help for more information.\n");
    expect_failure(run_tool({"relink", "p.txt", "-o", "q.txt", "--find", ""}), EXIT_USAGE,
                   "wendlow-profile: --find: must not be empty\nRun with --help for more information.\n");
    EXPECT_EQ(folder.files(), Names{"p.txt"});
}

TEST(ProfileToolFiles, MayFollowAReplacementOnTheCommandLine)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    const Ran ran = run_tool(
        {"relink", "--replace", "C:\\windows", "D:", "--replace", "C:", "E:", "p.txt", "-o", "q.txt"});
    EXPECT_EQ(ran.err, "");
    EXPECT_TRUE(ran.out.ends_with("6 of 6 entries relinked, 0 still to be mended\n")) << ran.out;
    EXPECT_EQ(run_tool({"relink", "--find", ".", "--find", ".", "p.txt", "-o", "r.txt"}).err, "");
    EXPECT_EQ(folder.files(), (Names{"p.txt", "q.txt", "r.txt"}));
}

// What a shell sees of the program.
int run_in_shell(const std::string& arguments)
{
    const int status = std::system((std::string("'" WENDLOW_PROFILE "' ") + arguments).c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string text_in(const std::string& name)
{
    const Bytes bytes = WorkFolder::read(name);
    return {bytes.begin(), bytes.end()};
}

TEST(ProfileToolFiles, OfOutputThatCannotBeWrittenAreReported)
{
    const WorkFolder folder;
    WorkFolder::write("p.txt", kGood);
    for (const char* output : {">&-", ">/dev/full"}) {
        EXPECT_EQ(run_in_shell("show p.txt 2>err " + std::string(output)), EXIT_UNREADABLE) << output;
        EXPECT_EQ(text_in("err"), "wendlow-profile: the output cannot be written\n") << output;
    }
    // The results come also where nobody hears of what went wrong.
    EXPECT_EQ(run_in_shell("check gone p.txt >out 2>&-"), EXIT_UNREADABLE);
    EXPECT_EQ(text_in("out"), "p.txt: fine\n");
}

TEST(ProfileToolFiles, GiveTheExitCodeOfTheWorst)
{
    const WorkFolder folder;
    WorkFolder::write("good", kGood);
    WorkFolder::write("bad", kOther);
    EXPECT_EQ(run_tool({"check", "good", "good"}).code, EXIT_FINE);
    EXPECT_EQ(run_tool({"check", "bad", "good"}).code, EXIT_FINDINGS);
    EXPECT_EQ(run_tool({"check", "gone", "bad", "good"}).code, EXIT_UNREADABLE);
    EXPECT_EQ(run_tool({"show", "good", "bad"}).code, EXIT_FINDINGS);
    EXPECT_EQ(run_tool({"show", "gone", "bad"}).code, EXIT_UNREADABLE);
}

} // namespace
