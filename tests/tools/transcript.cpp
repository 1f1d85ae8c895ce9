#include "tests/tools/transcript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "tests/tools/work_folder.h"

namespace tool_tests
{

namespace
{

// Words between spaces; quotes of either kind keep spaces together.
std::vector<std::string> words_of(const std::string& command)
{
    std::vector<std::string> words(1);
    char quote = 0;
    for (const char character : command) {
        if (character == quote)
            quote = 0;
        else if (quote == 0 && (character == '\'' || character == '"'))
            quote = character;
        else if (character == ' ' && quote == 0)
            words.emplace_back();
        else
            words.back() += character;
    }
    return words;
}

// A document cannot name the folder that a test happens to run in.
std::string with_folder_of_guide(std::string output)
{
    std::string here = "Z:" + std::filesystem::current_path().string();
    std::replace(here.begin(), here.end(), '/', '\\');
    for (std::size_t at = output.find(here); at != std::string::npos; at = output.find(here))
        output.replace(at, here.size(), "C:\\Users\\Me");
    return output;
}

} // namespace

std::vector<Step> steps_of(const std::string& text, const std::string& indent, const std::string& prompt)
{
    std::vector<Step> steps;
    bool in_block = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        // Editors take the spaces of an empty line away.
        const bool is_indented = line.starts_with(indent);
        if (is_indented && line.substr(indent.size()).starts_with(prompt)) {
            steps.push_back({line.substr(indent.size() + prompt.size()), ""});
            in_block = true;
        } else if (in_block && (is_indented || line.empty())) {
            steps.back().output += line.substr(std::min(line.size(), indent.size())) + "\n";
        } else {
            in_block = false;
        }
    }
    // The empty lines between a block and the text behind it belong to neither.
    if (!indent.empty()) {
        for (Step& step : steps)
            while (step.output.ends_with("\n\n") || step.output == "\n")
                step.output.pop_back();
    }
    return steps;
}

void expect_transcript(const std::vector<Step>& steps)
{
    EXPECT_FALSE(steps.empty());
    int code = 0;
    for (const Step& step : steps) {
        std::vector<std::string> words = words_of(step.command);
        const std::string program = words.front();
        words.erase(words.begin());
        std::string output;
        if (program == "wendlow-profile") {
            const Ran ran = run_tool(words);
            output = with_folder_of_guide(ran.err + ran.out);
            code = ran.code;
        } else if (program == "cat") {
            const profile_tool::Bytes bytes = WorkFolder::read(words.at(0));
            output.assign(bytes.begin(), bytes.end());
        } else if (program == "cmp") {
            output = WorkFolder::read(words.at(0)) == WorkFolder::read(words.at(1)) ? "" : "they differ\n";
        } else if (step.command == "echo $?") {
            output = std::to_string(code) + "\n";
        } else {
            ADD_FAILURE() << "no such command: " << step.command;
        }
        EXPECT_EQ(output, step.output) << "$ " << step.command;
    }
}

} // namespace tool_tests
