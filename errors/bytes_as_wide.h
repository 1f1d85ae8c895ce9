// 8-bit text handed to wide-character calls byte for byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

// The bytes of `text` laid into wide characters, two bytes each, lower byte first. The array is filled up
// with zeros and ends with at least one zero character, so a reader never runs past it.
template <std::size_t N> constexpr std::array<wchar_t, N / 2 + 1> bytes_as_wide(const char (&text)[N])
{
    std::array<wchar_t, N / 2 + 1> wide{};
    for (std::size_t i = 0; i + 1 < N; ++i) {
        const auto value = static_cast<unsigned>(static_cast<unsigned char>(text[i]));
        wide[i / 2] = static_cast<wchar_t>(wide[i / 2] | (value << (i % 2 * 8)));
    }
    return wide;
}

// Lays the bytes of `text` into the wide characters `out`, two bytes each, and zero-fills the rest. What
// does not fit with a closing zero character is left out. Returns the number of characters before it.
inline std::size_t lay_bytes_as_wide(std::string_view text, std::span<wchar_t> out)
{
    if (out.empty())
        return 0;
    std::memset(out.data(), 0, out.size_bytes());
    const std::size_t room = (out.size() - 1) * 2;
    const std::size_t count = text.size() < room ? text.size() : room;
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = static_cast<unsigned>(static_cast<unsigned char>(text[i]));
        out[i / 2] = static_cast<wchar_t>(out[i / 2] | (value << (i % 2 * 8)));
    }
    return (count + 1) / 2;
}
