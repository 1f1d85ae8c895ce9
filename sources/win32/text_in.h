// Texts in buffers of a fixed size.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

// The text in `buffer` up to its first zero, or all of it.
inline std::wstring_view text_in(std::span<const wchar_t> buffer)
{
    const auto end = std::find(buffer.begin(), buffer.end(), L'\0');
    return {buffer.data(), static_cast<std::size_t>(end - buffer.begin())};
}
