#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

// What the profile name window asks of the system, call by call.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::ImportHook;

std::wstring line(const wchar_t* class_name, const wchar_t* title, UINT_PTR id, DWORD style, DWORD extended)
{
    wchar_t text[200]{};
    _snwprintf(text, 199, L"%s \"%s\" %u: %08X %08X", class_name, title, static_cast<unsigned>(id),
               static_cast<unsigned>(style), static_cast<unsigned>(extended));
    return text;
}

} // namespace

TEST(ProfileName, CreatesItsWindowAndControlsWithTheirArguments)
{
    const Owner owner;
    std::vector<std::wstring> lines;
    std::vector<HWND> parents;
    const ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> creation(
        "user32.dll",
        [&](DWORD extended, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width,
            int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) {
            lines.push_back(line(class_name, title, reinterpret_cast<UINT_PTR>(menu), style, extended));
            parents.push_back(parent);
            EXPECT_EQ(instance, GetModuleHandleW(nullptr));
            if (lines.size() == 1)
                EXPECT_EQ(*static_cast<HWND*>(parameter), owner.window());
            else
                EXPECT_EQ(parameter, nullptr);
            return creation.call_original(extended, class_name, title, style, x, y, width, height, parent,
                                          menu, instance, parameter);
        });
    const NameWindowFixture window(owner.window());
    EXPECT_EQ(lines, (std::vector<std::wstring>{
                         L"Name of Profile Window \"Name of Profile\" 0: 00C80000 00000000",
                         L"button \"Ok\" 1: 50000301 00000000", L"button \"Cancel\" 2: 50000300 00000000",
                         L"EDIT \"\" 3: 50000000 00000200"}));
    EXPECT_EQ(parents, (std::vector<HWND>{owner.window(), window, window, window}));
}

TEST(ProfileName, AsksItsEditBoxForAtMost1023Units)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    EXPECT_EQ(SendMessageW(window.edit(), EM_GETLIMITTEXT, 0, 0), 256);
    SetWindowTextW(window.edit(), L"name");
    std::vector<int> asked;
    {
        const ImportHook<"GetWindowTextW", decltype(GetWindowTextW)> text(
            "user32.dll", [&](HWND control, LPWSTR buffer, int units) {
                EXPECT_EQ(control, window.edit());
                asked.push_back(units);
                return text.call_original(control, buffer, units);
            });
        window.press(name_control::kOk);
    }
    EXPECT_EQ(asked, std::vector<int>{1023});
    ASSERT_EQ(owner.told.size(), 1u);
    EXPECT_EQ(owner.told[0].name, L"name");
}

TEST(ProfileName, TreatsANegativeLengthAsAnEmptyName)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    SetWindowTextW(window.edit(), L"name");
    const ImportHook<"GetWindowTextLengthW", decltype(GetWindowTextLengthW)> length("user32.dll",
                                                                                    [](HWND) { return -1; });
    const BoxWatcher boxes;
    EXPECT_EQ(on_Button_OK(window, owner.window(), window.edit()), 1);
    boxes.expect_boxes({{L"warning", L"Please enter Name of Profile, e.g. \"work docs 01\""}});
    EXPECT_TRUE(owner.told.empty());
}

TEST(ProfileName, SucceedsWhateverTheOwnerAnswersToOk)
{
    const Owner owner;
    const TestWindow refusing(L"answers 0");
    const NameWindowFixture window(owner.window());
    SetWindowTextW(window.edit(), L"name");
    const BoxWatcher boxes;
    for (const HWND told : {owner.window(), static_cast<HWND>(refusing)})
        EXPECT_EQ(on_Button_OK(window, told, window.edit()), 1);
    boxes.expect_no_boxes();
    EXPECT_TRUE(IsWindow(window));
    EXPECT_EQ(on_Button_CANCEL(window), 1);
    EXPECT_FALSE(IsWindow(window));
}
