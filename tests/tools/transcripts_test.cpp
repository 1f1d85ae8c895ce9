// What each command says to the files in tests/fuzz/seeds.
#include <gtest/gtest.h>

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

TEST(ProfileToolTranscripts, Show)
{
    expect_as_written("show.txt");
}

TEST(ProfileToolTranscripts, Check)
{
    expect_as_written("check.txt");
}

TEST(ProfileToolTranscripts, Json)
{
    expect_as_written("json.txt");
}

TEST(ProfileToolTranscripts, Relink)
{
    expect_as_written("relink.txt");
}

TEST(ProfileToolTranscripts, Usage)
{
    expect_as_written("usage.txt");
}

TEST(ProfileToolTranscripts, ReadMe)
{
    const WorkFolder folder;
    folder.add_files_of("docs/examples");
    const std::vector<Step> steps = steps_of(text_of_tree("README.md"), "    ");
    EXPECT_GE(steps.size(), 6U);
    expect_transcript(steps);
}

} // namespace
