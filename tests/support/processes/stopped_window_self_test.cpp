#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/stopped_window.h"
#include "tests/support/windows/messages.h"

using namespace test_support;

namespace
{

TEST(StoppedWindow, AnswersOnceItGoesOnAgain)
{
    FixturePrograms fixtures;
    fixtures.add(L"program");
    const HWND window = fixtures.start(L"program");
    const StoppedWindow stopped(window);
    EXPECT_FALSE(answers(window, WM_NULL));
    stopped.go_on();
    EXPECT_TRUE(becomes_true([&] { return answers(window, WM_NULL); }));
}

} // namespace
