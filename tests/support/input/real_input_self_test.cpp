#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"
#include "tests/support/input/controls_window.h"
#include "tests/support/input/real_input.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

TEST(RealInput, ClicksAndTypesAsAUser)
{
    const ControlsWindow window;
    click(window.button());
    pump_until([] { return ControlsWindow::clicks == 1; }, kShortWait, "the click");
    click(window.edit());
    pump_until([&] { return GetFocus() == window.edit(); }, kShortWait, "the focus");
    type_text(L"Aß7-8x");
    press_key(VK_BACK);
    pump_until([&] { return text_of(window.edit()) == L"Aß7-8"; }, kShortWait, "the typed text");
    press_key_with(VK_CONTROL, 'A');
    right_click({rectangle_of(window.frame()).left + 480, rectangle_of(window.frame()).top + 60});
    pump_until([] { return ControlsWindow::right_clicks == 1; }, kShortWait, "the right click");
}

TEST(RealInput, SaysThatAControlIsCovered)
{
    const ControlsWindow window;
    const HWND cover = CreateWindowExW(WS_EX_TOPMOST, L"InputSelfTest", L"cover", WS_POPUP | WS_VISIBLE, 60,
                                       50, 500, 400, nullptr, nullptr, nullptr, nullptr);
    pump_messages();
    EXPECT_THROW(click(window.button()), Failure);
    DestroyWindow(cover);
}

} // namespace
