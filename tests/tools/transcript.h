// What was typed at a prompt and what came of it, as a document shows it:
//
//     $ wendlow-profile show work.txt
//     work.txt: "work", 1 entry, 70 bytes
//     $ echo $?
//     0
//
// Lines of other kinds between such blocks are passed over when the block is indented.
#pragma once

#include <string>
#include <vector>

namespace tool_tests
{

struct Step {
    std::string command; // without the prompt
    std::string output;  // all lines up to the next prompt, each with its end
};

// The steps of a text whose lines begin with `indent`; a line that does not ends the output before it.
std::vector<Step> steps_of(const std::string& text, const std::string& indent,
                           const std::string& prompt = "$ ");

// Carries the steps out in the working directory, one after the other, and fails the test where another
// output comes. The working directory stands in outputs as C:\Users\Me.
void expect_transcript(const std::vector<Step>& steps);

} // namespace tool_tests
