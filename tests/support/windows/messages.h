#pragma once

#include <windows.h>

#include <string>

// Messages to windows of other programs, which may hang: each has a time in which it is answered.

namespace test_support
{

// What the window answers; throws a Failure when it does not.
LRESULT answer_of(HWND window, UINT message, WPARAM wide = 0, LPARAM narrow = 0,
                  unsigned milliseconds = 10'000);

// Whether the window answers the message, which may ask for its title, within a moment.
bool answers(HWND window, UINT message);

// The window's text as it tells it itself, empty when it does not answer.
std::wstring text_of(HWND window);

} // namespace test_support
