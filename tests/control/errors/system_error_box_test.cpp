#include "errors/system_error_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"

using test_support::BoxWatcher;
using test_support::ImportHook;
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

TEST(SystemErrorBox, StoresTheCodeItWasShownFor)
{
    const BoxWatcher boxes;
    show_system_error(ERROR_ACCESS_DENIED);
    EXPECT_EQ(last_system_error, 5u);
}

TEST(SystemErrorBox, PassesItsTitleAsBytesWhenAskedTo)
{
    const BoxWatcher boxes;
    show_system_error(ERROR_ACCESS_DENIED, ErrorEncoding::BYTES);
    boxes.expect_boxes({{L"\x6547\x4C74\x7361\x4574\x7272\x726F", text_of_system(5), true}});
}

TEST(SystemErrorBox, ShowsTheInsertsOfATextAsTheyStandThere)
{
    // "%1 is not a valid Win32 application.": nothing is put in the place of %1.
    const BoxWatcher boxes;
    show_system_error(ERROR_BAD_EXE_FORMAT);
    ASSERT_NE(text_of_system(193).find(L"%1"), std::wstring::npos);
    boxes.expect_boxes({{L"GetLastError", text_of_system(193), true}});
}

TEST(SystemErrorBox, AsksTheSystemForTheTextAndFreesIt)
{
    wchar_t* text = nullptr;
    bool is_shown = false;
    int freed = 0;
    const ImportHook<"FormatMessageW", DWORD(DWORD, LPCVOID, DWORD, DWORD, LPWSTR, DWORD, void*)> format(
        "kernel32.dll",
        [&](DWORD flags, LPCVOID source, DWORD code, DWORD language, LPWSTR out, DWORD size, void* values) {
            EXPECT_EQ(flags, 0x1300u);
            EXPECT_EQ(source, nullptr);
            EXPECT_EQ(code, 5u);
            EXPECT_EQ(language, 0x400u);
            EXPECT_EQ(values, nullptr);
            const DWORD length = format.call_original(flags, source, code, language, out, size, values);
            text = *reinterpret_cast<wchar_t**>(out);
            return length;
        });
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
        "user32.dll", [&](HWND owner, LPCWSTR shown, LPCWSTR title, UINT type) -> int {
            EXPECT_EQ(owner, nullptr);
            EXPECT_EQ(shown, text);
            EXPECT_EQ(std::wstring(title), L"GetLastError");
            EXPECT_EQ(type, static_cast<UINT>(MB_ICONINFORMATION));
            is_shown = true;
            return IDOK;
        });
    const ImportHook<"LocalFree", decltype(LocalFree)> release("kernel32.dll", [&](HLOCAL block) {
        EXPECT_TRUE(is_shown);
        EXPECT_EQ(block, text);
        ++freed;
        return release.call_original(block);
    });
    show_system_error(ERROR_ACCESS_DENIED);
    EXPECT_NE(text, nullptr);
    EXPECT_EQ(freed, 1);
}

TEST(SystemErrorBox, IsEmptyForACodeWithoutText)
{
    const BoxWatcher boxes;
    show_system_error(0x2FFFFFFF);
    boxes.expect_boxes({{L"GetLastError", L"", true}});
}
