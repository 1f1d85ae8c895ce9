// The start of the program is no part of its library, so it is compiled into this test.
#include "sources/main_prg/main_prg.cpp"

#include <gtest/gtest.h>

#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"

using namespace test_support;

TEST(MessageLoop, TellsThatThereAreNoMessagesAndGoesOnUntilItIsEnded)
{
    int calls = 0;
    const ImportHook<"GetMessageW", decltype(GetMessageW)> messages(
        "user32.dll", [&](MSG* message, HWND window, UINT first, UINT last) -> BOOL {
            EXPECT_EQ(window, nullptr);
            EXPECT_EQ(first, 0u);
            EXPECT_EQ(last, 0u);
            *message = {};
            if (++calls <= 2)
                return -1;
            message->message = WM_QUIT;
            message->wParam = 5;
            return 0;
        });
    const BoxWatcher boxes;
    EXPECT_EQ(wWinMain(GetModuleHandleW(nullptr), nullptr, nullptr, SW_SHOW), 5);
    boxes.expect_boxes({{L"error", L"-1 <- GetMessage()"}, {L"error", L"-1 <- GetMessage()"}});
    EXPECT_TRUE(boxes.boxes().at(0).has_icon);
    EXPECT_EQ(boxes.boxes().at(0).owner, nullptr);
    EXPECT_EQ(calls, 3);
    EXPECT_NE(FindWindowW(L"prg_wnds_layout", nullptr), nullptr);
    DestroyWindow(FindWindowW(L"prg_wnds_layout", nullptr));
}
