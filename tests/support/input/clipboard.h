#pragma once

#include <string>

namespace test_support
{

// Puts the text on the clipboard, in place of what is there; throws a Failure when it is not taken.
void put_on_clipboard(const std::wstring& text);

} // namespace test_support
