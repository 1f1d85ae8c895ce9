// What an edited text means: decisions on values alone.
#pragma once

#include <cstdint>
#include <string_view>

// The decimal number that leads the zero-terminated `text`, after white space and one sign; 0 when no digit
// leads, the nearest 32-bit value when it is out of range.
std::int32_t leading_number(const wchar_t* text);

// True when the list row takes the edited text: its last character is a digit, that is, alphanumeric and not
// alphabetic by the two tests given. An empty text is not taken.
// Quirk: only the last character decides ("12a3" is taken, "123a" is not); a pasted "-8" relies on it.
bool is_edit_valid(std::wstring_view text, bool (*is_alphanumeric)(wchar_t), bool (*is_alphabetic)(wchar_t));
