#include "errors/system_error_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/box_watcher.h"
#include "tests/support/text.h"

using test_support::BoxWatcher;
using test_support::text_of_system;

TEST(SystemErrorBox, ShowsTheSystemsTextWithTheInformationIcon)
{
    const BoxWatcher boxes;
    show_system_error(ERROR_FILE_NOT_FOUND);
    ASSERT_FALSE(text_of_system(2).empty());
    boxes.expect_boxes({{L"GetLastError", text_of_system(2), true}});
    EXPECT_EQ(boxes.boxes().at(0).owner, nullptr);
    EXPECT_EQ(boxes.boxes().at(0).buttons, std::vector<int>{IDOK});
}

TEST(SystemErrorBox, KeepsTheCodeItWasShownFor)
{
    const BoxWatcher boxes;
    show_system_error(ERROR_ACCESS_DENIED);
    EXPECT_EQ(last_system_error, 5u);
}

TEST(SystemErrorBox, HandsItsTitleOverAsBytesWhereItIsAsked)
{
    const BoxWatcher boxes;
    show_system_error(ERROR_ACCESS_DENIED, ErrorEncoding::BYTES);
    boxes.expect_boxes({{L"\x6547\x4C74\x7361\x4574\x7272\x726F", text_of_system(5), true}});
}

TEST(SystemErrorBox, StaysEmptyForACodeWithoutText)
{
    const BoxWatcher boxes;
    show_system_error(0x2FFFFFFF);
    boxes.expect_boxes({{L"GetLastError", L"", true}});
}
