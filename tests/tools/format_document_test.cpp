// The examples in docs/profile-format.md.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/profiles/seed_profiles.h"
#include "tests/tools/work_folder.h"

namespace
{

using profile_tool::Bytes;
using test_support::ProfileEncoder;

// The blocks of lines such as "    0010  00 07 0C", each as its bytes. Every line has to begin where the one
// before it ends.
std::vector<Bytes> dumps_in(const std::string& text)
{
    std::vector<Bytes> dumps;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string offset;
        words >> offset;
        if (!line.starts_with("    ") || offset.size() != 4 ||
            offset.find_first_not_of("0123456789ABCDEF") != std::string::npos)
            continue;
        if (offset == "0000")
            dumps.emplace_back();
        EXPECT_FALSE(dumps.empty());
        EXPECT_EQ(std::stoul(offset, nullptr, 16), dumps.back().size()) << line;
        for (std::string byte; words >> byte;)
            dumps.back().push_back(static_cast<std::uint8_t>(std::stoul(byte, nullptr, 16)));
    }
    return dumps;
}

TEST(ProfileFormatDocument, ShowsTheBytesOfItsExamples)
{
    const std::vector<Bytes> dumps = dumps_in(tool_tests::text_of_tree("docs/profile-format.md"));
    ASSERT_EQ(dumps.size(), 2U);
    // The first one the program itself has saved.
    const std::string office = tool_tests::text_of_tree("docs/examples/Office.txt");
    EXPECT_EQ(dumps[0], Bytes(office.begin(), office.end()));
    EXPECT_EQ(dumps[0], test_support::saved_by_the_program().bytes());
    EXPECT_EQ(dumps[1], ProfileEncoder().add_program(-8, 2, 300, 200, u"C:\\a.exe").name(u"A").bytes());
}

TEST(ProfileFormatDocument, NamesEveryTextOfTheProgramsBoxes)
{
    const std::string text = tool_tests::text_of_tree("docs/profile-format.md");
    for (const char* box : {"zero_file_size <- GetFileSizeEx( )", "error <- SetFilePointer( )",
                            "invalid type of file, signature doesn't coincide",
                            "error, 0 == number of windows in profile (data read from file)",
                            "error, file is damaged: data of profile run past end of file"})
        EXPECT_NE(text.find(box), std::string::npos) << box;
}

} // namespace
