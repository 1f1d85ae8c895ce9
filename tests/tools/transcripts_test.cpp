// What each command says to the files in tests/fuzz/seeds.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "tests/tools/transcript.h"
#include "tests/tools/work_folder.h"

namespace
{

using namespace tool_tests;

void expect_as_written(const std::string& transcript)
{
    const WorkFolder folder;
    folder.add_files_of("tests/fuzz/seeds");
    expect_transcript(steps_of(text_of_tree("tests/tools/transcripts/" + transcript), ""));
}

TEST(ProfileToolTranscripts, OfShowAreAsWritten)
{
    expect_as_written("show.txt");
}

TEST(ProfileToolTranscripts, OfCheckAreAsWritten)
{
    expect_as_written("check.txt");
}

TEST(ProfileToolTranscripts, OfJsonAreAsWritten)
{
    expect_as_written("json.txt");
}

TEST(ProfileToolTranscripts, OfRelinkAreAsWritten)
{
    expect_as_written("relink.txt");
}

TEST(ProfileToolTranscripts, OfWrongUseAreAsWritten)
{
    expect_as_written("usage.txt");
}

// The commands that a document gives to its reader, with what they answer. Opening is for Windows, where it
// is tested; it says nothing when it goes well.
void expect_document(const std::string& document, const std::string& prompt)
{
    const WorkFolder folder;
    folder.add_files_of("docs/examples");
    for (const char* program : {"clock.exe", "new/notepad.exe", "old/notepad.exe"}) {
        const std::filesystem::path path = std::filesystem::path("Programs") / program;
        std::filesystem::create_directories(path.parent_path());
        WorkFolder::write(path.string(), {});
    }
    std::set<std::string> shown;
    std::vector<Step> steps;
    for (const Step& step : steps_of(text_of_tree(document), "    ", prompt)) {
        std::istringstream words(step.command);
        std::string program;
        std::string command;
        words >> program >> command;
        if (program == "wendlow-profile")
            shown.insert(command);
        if (command == "open")
            EXPECT_EQ(step.output, "") << step.command;
        else
            steps.push_back(step);
    }
    EXPECT_EQ(shown, (std::set<std::string>{"show", "check", "to-json", "from-json", "relink", "open"}));
    expect_transcript(steps);
}

TEST(ProfileToolTranscripts, OfTheReadMeAreAsWritten)
{
    expect_document("README.md", "$ ");
}

TEST(ProfileToolTranscripts, OfTheGuideAreAsWritten)
{
    expect_document("docs/guide.md", "> ");
}

} // namespace
