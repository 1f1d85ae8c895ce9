#pragma once

#include <windows.h>

#include <string>

// Mouse and keyboard as the user has them: the input goes to whatever is on the screen at the point,
// or has the focus. Points are screen coordinates.

namespace test_support
{

// Lets the programs that this one starts come to the front, as those do that a user starts: Windows gives
// that right to the program alone that had the last input.
void let_started_programs_come_to_front();

// Brings the window to the front so that it gets the input; throws a Failure when it does not come.
void bring_to_front(HWND window);

void move_mouse(POINT point);
// Never makes a double click of two clicks.
void click(POINT point);
void double_click(POINT point);
void right_click(POINT point);
// Clicks the middle of a control.
void click(HWND control);
POINT centre_of(HWND window);

// Presses and releases a key (VK_...).
void press_key(WORD key);
// With one or two keys held: press_key_with(VK_CONTROL, 'V').
void press_key_with(WORD held, WORD key);
void type_text(const std::wstring& text);

} // namespace test_support
