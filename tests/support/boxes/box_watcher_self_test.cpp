#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"

using namespace test_support;

namespace
{

TEST(BoxWatcher, ReadsTitleTextIconOwnerAndButtonsAndPressesTheChosenOne)
{
    BoxWatcher boxes;
    boxes.answer_with(IDNO);
    const HWND owner = CreateWindowExW(0, L"Static", L"owner", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, nullptr,
                                       nullptr, nullptr, nullptr);
    EXPECT_EQ(MessageBoxW(owner, L"yes?", L"question", MB_YESNO), IDNO);
    boxes.answer_with(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"line one\nline two", L"GetLastError", MB_YESNO | MB_ICONWARNING), IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"one button", L"", MB_OK), IDOK);
    DestroyWindow(owner);

    boxes.expect_boxes(
        {{L"question", L"yes?"}, {L"GetLastError", L"line one\nline two", true}, {L"", L"one button"}});
    const std::vector<SeenBox> seen = boxes.boxes();
    EXPECT_EQ(seen[0].owner, owner);
    EXPECT_EQ(seen[0].buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(seen[1].owner, nullptr);
    EXPECT_EQ(seen[2].buttons, (std::vector<int>{IDOK}));
}

TEST(BoxWatcher, KeepsUnitsThatAreNoText)
{
    BoxWatcher boxes;
    // An odd number of bytes, and units that are no characters by themselves.
    const std::wstring text = bytes_as_wide("error, \xD8\xDC\xFF odd\n");
    MessageBoxW(nullptr, text.c_str(), bytes_as_wide("Help").c_str(), MB_OK);

    boxes.expect_boxes({{L"\x6548\x706C", text}});
    EXPECT_EQ(wide_as_bytes(boxes.boxes().at(0).text), "error, \xD8\xDC\xFF odd\n");
}

TEST(BoxWatcher, SetsBoxesOfATitleAside)
{
    BoxWatcher boxes;
    boxes.set_aside(L"Error");
    MessageBoxW(nullptr, L"of the system", L"Error", MB_OK);
    MessageBoxW(nullptr, L"of the program", L"error", MB_OK);

    boxes.expect_boxes({{L"error", L"of the program"}});
    ASSERT_EQ(boxes.boxes_set_aside().size(), 1u);
    EXPECT_EQ(boxes.boxes_set_aside()[0].text, L"of the system");
}

TEST(BoxWatcher, HoldsABoxUntilItIsAnswered)
{
    BoxWatcher boxes;
    boxes.hold();
    Background program([] { MessageBoxW(nullptr, L"held", L"info", MB_OK); });
    const SeenBox box = boxes.wait_for_box(0);
    EXPECT_TRUE(IsWindowVisible(box.window));
    EXPECT_FALSE(program.finished());

    boxes.answer_held();
    program.join();
    EXPECT_FALSE(IsWindow(box.window));
}

TEST(BoxDifference, SaysWhatDiffers)
{
    SeenBox box;
    box.title = L"error";
    box.text = L"a\x4E00";
    EXPECT_EQ(difference({box}, {{L"error", L"a\x4E00"}}), "");
    EXPECT_EQ(difference({box}, {{L"error", L"b"}}),
              "message box 1 differs; expected\n[error]\nb\nseen\n[error]\na\\u4E00\n");
    EXPECT_EQ(difference({box}, {}), "message box 1 was not expected:\n[error]\na\\u4E00\n");
    EXPECT_EQ(difference({}, {{L"info", L"b"}}), "message box 1 was not shown; expected\n[info]\nb\n");
}

} // namespace
