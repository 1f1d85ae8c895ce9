// Which windows the program deals with, and how their titles are shortened: decisions on values alone.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

// A list row's title: at most this many UTF-16 units, and its slot with the closing zero.
inline constexpr std::size_t kTitle_max_units = 48;
inline constexpr std::size_t kTitle_slot_units = kTitle_max_units + 1;

// A longer title keeps its beginning and its end around three full stops.
inline constexpr std::size_t kTitle_head_units = 25;
inline constexpr std::size_t kTitle_tail_units = 20;

// Changes the ASCII letters A to Z to lower case in place; every other unit is left as it is.
void lower_case_ascii(std::span<wchar_t> text);

// True for the window classes that are never listed or matched. The name is compared as lower_case_ascii
// leaves it.
bool is_excluded_class(std::wstring_view lower_case_name);

// True when the last 12 units of an image path are "explorer.exe" in any case. A shorter path never is.
bool is_explorer_image(std::wstring_view path);

// Writes `title`, shortened to at most kTitle_max_units units, and zeros up to the end of `slot`.
// `announced_units` is the length that the system tells for the title: above kTitle_max_units the first 25
// units, "..." and the last 20 units are kept. A length beyond the text that was read
// counts as the text's.
void shorten_title(std::wstring_view title, std::size_t announced_units,
                   std::span<wchar_t, kTitle_slot_units> slot);
