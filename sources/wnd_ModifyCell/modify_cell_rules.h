// What an edited text means: decisions on values alone.
#pragma once

#include <cstdint>
#include <string_view>

// The decimal number that leads the zero-terminated `text`, after white space and one sign; 0 when no digit
// leads, the nearest 32-bit value when it is out of range.
std::int32_t leading_number(const wchar_t* text);

// True when the list row takes the edited text: its last character is a digit, that is, alphanumeric and not
// alphabetic by the two tests given. Only the last character decides, on purpose ("12a3" is taken, "123a" is
// not), so that a pasted "-8" is taken; an empty text is not.
bool is_edit_valid(std::wstring_view text, bool (*is_alphanumeric)(wchar_t), bool (*is_alphabetic)(wchar_t));
