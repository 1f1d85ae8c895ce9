#include "tests/tools/transcript.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/tools/work_folder.h"

namespace tool_tests
{

namespace
{

constexpr const char* kPrompt = "$ ";

// Words between spaces; single quotes keep spaces together.
std::vector<std::string> words_of(const std::string& command)
{
    std::vector<std::string> words(1);
    bool quoted = false;
    for (const char character : command) {
        if (character == '\'')
            quoted = !quoted;
        else if (character == ' ' && !quoted)
            words.emplace_back();
        else
            words.back() += character;
    }
    return words;
}

} // namespace

std::vector<Step> steps_of(const std::string& text, const std::string& indent)
{
    std::vector<Step> steps;
    bool in_block = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        // Editors take the spaces of an empty line away.
        const bool is_indented = line.starts_with(indent);
        if (is_indented && line.substr(indent.size()).starts_with(kPrompt)) {
            steps.push_back({line.substr(indent.size() + 2), ""});
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
            output = ran.err + ran.out;
            code = ran.code;
        } else if (program == "cat") {
            const profile_tool::Bytes bytes = WorkFolder::read(words.at(0));
            output.assign(bytes.begin(), bytes.end());
        } else if (step.command == "echo $?") {
            output = std::to_string(code) + "\n";
        } else {
            ADD_FAILURE() << "no such command: " << step.command;
        }
        EXPECT_EQ(output, step.output) << "$ " << step.command;
    }
}

} // namespace tool_tests
