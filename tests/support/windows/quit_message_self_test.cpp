#include "tests/support/windows/quit_message.h"

#include <gtest/gtest.h>

#include "tests/support/windows/test_window.h"

using test_support::take_quit_message;

TEST(QuitMessage, IsTakenFromBehindTheOthersWhichAreHandled)
{
    const test_support::TestWindow window(L"before");
    WPARAM exit_code = 0;
    EXPECT_FALSE(take_quit_message(&exit_code));
    PostQuitMessage(5);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(take_quit_message(&exit_code));
    EXPECT_EQ(exit_code, 5u);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(take_quit_message(&exit_code));
}
