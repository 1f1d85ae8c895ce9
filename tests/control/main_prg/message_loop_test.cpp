#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/quit_message.h"

using namespace test_support;

TEST(MessageLoop, ReportsAFailedGetMessageAndGoesOn)
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
    boxes.expect_boxes({{L"error", L"-1 <- GetMessage()", true}, {L"error", L"-1 <- GetMessage()", true}});
    EXPECT_EQ(boxes.boxes().at(0).owner, nullptr);
    EXPECT_EQ(calls, 3);
    EXPECT_NE(FindWindowW(L"prg_wnds_layout", nullptr), nullptr);
    DestroyWindow(FindWindowW(L"prg_wnds_layout", nullptr));
    // The end of the window asks the thread to end, which would close the boxes of later tests.
    test_support::take_quit_message();
}

TEST(MessageLoop, TranslatesAndDispatchesEveryMessage)
{
    std::vector<std::string> steps;
    int calls = 0;
    const ImportHook<"GetMessageW", decltype(GetMessageW)> messages(
        "user32.dll", [&](MSG* message, HWND, UINT, UINT) -> BOOL {
            *message = {};
            message->message = ++calls == 1 ? WM_KEYDOWN : calls == 2 ? WM_APP + 1 : WM_QUIT;
            return calls == 1 ? 1 : calls == 2 ? 7 : 0;
        });
    const auto step = [&](const char* what, const MSG* message) {
        steps.push_back(what + std::to_string(message->message));
    };
    const ImportHook<"TranslateMessage", decltype(TranslateMessage)> translate(
        "user32.dll", [&](const MSG* message) -> BOOL {
            step("translate ", message);
            return FALSE;
        });
    const ImportHook<"DispatchMessageW", decltype(DispatchMessageW)> dispatch(
        "user32.dll", [&](const MSG* message) -> LRESULT {
            step("dispatch ", message);
            return 0;
        });
    const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> no_window("user32.dll", 1, nullptr, 8);
    const BoxWatcher boxes; // answers the one about the window
    EXPECT_EQ(wWinMain(GetModuleHandleW(nullptr), nullptr, nullptr, SW_SHOW), 0);
    EXPECT_EQ(steps, (std::vector<std::string>{"translate 256", "dispatch 256", "translate 32769",
                                               "dispatch 32769"}));
}

TEST(MessageLoop, RunsWhenTheMainWindowCannotBeCreated)
{
    const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> no_window("user32.dll", 1, nullptr,
                                                                                ERROR_NOT_ENOUGH_MEMORY);
    std::vector<UINT> types;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> type(
        "user32.dll", [&](HWND owner, LPCWSTR message, LPCWSTR title, UINT box_type) {
            types.push_back(box_type);
            return type.call_original(owner, message, title, box_type);
        });
    int waits = 0;
    const ImportHook<"GetMessageW", decltype(GetMessageW)> messages(
        "user32.dll", [&](MSG* message, HWND, UINT, UINT) -> BOOL {
            ++waits;
            *message = {};
            message->message = WM_QUIT;
            message->wParam = 7;
            return 0;
        });
    const BoxWatcher boxes;
    EXPECT_EQ(wWinMain(GetModuleHandleW(nullptr), nullptr, nullptr, SW_SHOW), 7);
    boxes.expect_boxes({system_error_box(ERROR_NOT_ENOUGH_MEMORY)});
    EXPECT_EQ(types, std::vector<UINT>{MB_ICONINFORMATION});
    EXPECT_EQ(no_window.calls(), 1);
    EXPECT_EQ(waits, 1);
}
