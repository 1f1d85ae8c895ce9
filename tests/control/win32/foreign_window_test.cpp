#include "sources/win32/foreign_window.h"

#include <gtest/gtest.h>

#include "tests/control/fixtures/silent_windows.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/stopped_window.h"
#include "tests/support/windows/test_window.h"

using namespace test_support;

TEST(AskedWindows, AreAskedWithATimeLimitAndSkippedWhenTheyHang)
{
    FixturePrograms programs;
    programs.add(L"program");
    const HWND window = programs.start(L"program");
    int asked = 0;
    const ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> ask(
        "user32.dll",
        [&](HWND target, UINT message, WPARAM wide, LPARAM narrow, UINT flags, UINT time, PDWORD_PTR answer) {
            ++asked;
            EXPECT_EQ(target, window);
            EXPECT_EQ(message, 0u); // WM_NULL
            EXPECT_EQ(wide, 0u);
            EXPECT_EQ(narrow, 0);
            EXPECT_EQ(flags, 0x22u); // given up when it hangs, and when it ends
            EXPECT_EQ(time, 5000u);
            return ask.call_original(target, message, wide, narrow, flags, time, answer);
        });
    EXPECT_TRUE(AskedWindows().answers(window));
    EXPECT_EQ(asked, 1);
}

TEST(AskedWindows, AreAskedOnceEach)
{
    FixturePrograms programs;
    programs.add(L"many", {.window_count = 270});
    programs.start(L"many");
    const std::vector<HWND> windows = programs.wait_for_windows(L"many", 270);
    const SilentWindows silent({windows[0], windows[17], windows[269]});
    AskedWindows asked;
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = 0; i < windows.size(); ++i)
            EXPECT_EQ(asked.answers(windows[i]), i != 0 && i != 17 && i != 269) << i;
    }
    EXPECT_EQ(silent.asked, windows);
    // The next command asks anew.
    EXPECT_FALSE(AskedWindows().answers(windows[0]));
    EXPECT_EQ(silent.asked.size(), 271u);
}

TEST(AskedWindows, NeedNoAskingWhenTheyAreOfThisThreadOrNone)
{
    const TestWindow own(L"own");
    const SilentWindows silent({own, nullptr});
    AskedWindows asked;
    EXPECT_TRUE(asked.answers(own));
    EXPECT_TRUE(asked.answers(nullptr));
    EXPECT_TRUE(silent.asked.empty());
}

TEST(AskedWindows, AreWaitedForNoLongerThanTheTimeLimit)
{
    FixturePrograms programs;
    programs.add(L"hung");
    const HWND window = programs.start(L"hung");
    const StoppedWindow stopped(window);
    AskedWindows asked;
    EXPECT_FALSE(asked.answers(window));
    stopped.go_on();
    EXPECT_FALSE(asked.answers(window)) << "it is asked once";
    EXPECT_TRUE(becomes_true([&] { return AskedWindows().answers(window); }));
}

TEST(AskedWindows, AreWaitedForWhileTheyAreBusy)
{
    FixturePrograms programs;
    programs.add(L"busy");
    const HWND window = programs.start(L"busy");
    const StoppedWindow stopped(window);
    const Background let_go([&] {
        // It handles messages again only after it has left another question without an answer.
        DWORD_PTR unused = 0;
        SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 1000, &unused);
        stopped.go_on();
    });
    EXPECT_TRUE(AskedWindows().answers(window));
}

// Nobody waits for a window that is gone: the calls on it fail at once.
TEST(AskedWindows, CountAsAnsweringWhenTheyDie)
{
    FixturePrograms programs;
    programs.add(L"frail", {.end_when_asked = true});
    const HWND dying = programs.start(L"frail");
    AskedWindows asked;
    EXPECT_TRUE(asked.answers(dying));
    programs.wait_for_end(L"frail");
    EXPECT_TRUE(AskedWindows().answers(dying));
}

TEST(AskedWindows, AreAskedAgainWhenThereIsNoMemoryToRememberThem)
{
    FixturePrograms programs;
    programs.add(L"program");
    const HWND window = programs.start(L"program");
    const SilentWindows silent({window});
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr, 0);
    AskedWindows asked;
    EXPECT_FALSE(asked.answers(window));
    EXPECT_FALSE(asked.answers(window));
    EXPECT_EQ(silent.asked.size(), 2u);
}
