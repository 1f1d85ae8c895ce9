#pragma once

#include <string>
#include <string_view>

namespace test_support
{

// Readable form for failure messages: UTF-8, with control characters other than a line feed, and
// units outside the printable range, as \uXXXX.
std::string printable(std::wstring_view text);

// 8-bit text as it appears where it is handed unconverted to a wide-character call: two bytes to a
// unit, low byte first, the high byte of a last odd one zero.
std::wstring bytes_as_wide(std::string_view text);

// The way back: the bytes of the units, without the zero byte that fills up an odd number.
std::string wide_as_bytes(std::wstring_view text);

std::wstring widen(std::string_view utf8);

} // namespace test_support
