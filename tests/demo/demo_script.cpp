#include "tests/demo/demo_script.h"

#include <iostream>

#include "tests/support/basics/waiting.h"

namespace demo
{

namespace
{

int failure_count = 0;

void say(const std::string& line)
{
    std::cout << line << std::endl;
}

void ask_for_picture(const std::string& name, const std::string& part)
{
    say("PICTURE " + name + part);
    std::string answer;
    if (!std::getline(std::cin, answer) || !answer.starts_with("done"))
        throw test_support::Failure("no picture " + name + " was taken");
}

} // namespace

void step(const std::string& text)
{
    say("STEP " + text);
}

void picture(const std::string& name)
{
    ask_for_picture(name, "");
}

void picture(const std::string& name, const RECT& part)
{
    ask_for_picture(name, " " + std::to_string(part.right - part.left) + "x" +
                              std::to_string(part.bottom - part.top) + "+" + std::to_string(part.left) + "+" +
                              std::to_string(part.top));
}

void row(const std::string& window, const std::string& saved, const std::string& found)
{
    const bool same = saved == found;
    say("ROW " + window + "|" + saved + "|" + found + "|" + (same ? "ok" : "DIFFERS"));
    expect(same, window + " is not where the profile says");
}

void fail(const std::string& text)
{
    ++failure_count;
    say("FAIL " + text);
}

void expect(bool condition, const std::string& text)
{
    if (!condition)
        fail(text);
}

int failures()
{
    return failure_count;
}

} // namespace demo
