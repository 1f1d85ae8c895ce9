// Text of profile files: UTF-16 that may hold anything, and its ways into UTF-8 and back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/wendlow_profile/system/bytes.h"

namespace profile_tool
{

// The whole UTF-16LE units of the bytes; a last odd byte is left out.
std::u16string units_of(ByteView bytes);

// The units as bytes, low byte first.
Bytes bytes_of(std::u16string_view units);

// One character, or one surrogate that has lost its other half.
struct Character {
    char32_t code;
    std::size_t units; // 1 or 2
    bool is_unpaired;
};
Character character_at(std::u16string_view text, std::size_t position);

// UTF-8 of text without unpaired surrogates; such a one becomes U+FFFD.
std::string utf8_of(std::u16string_view text);

// Nothing when the bytes are no UTF-8.
std::optional<std::u16string> utf16_of(std::string_view utf8);

// UTF-8 for a person: what cannot be seen, turns the line round or is half a pair stands as <U+D800>. No path
// of Windows holds < or >.
std::string shown(std::u16string_view text);

// The same of what should be UTF-8, as the name of a file; a byte that belongs to none stands as <FF>.
std::string shown(std::string_view utf8);

// The text with U+FFFD for each byte that belongs to no UTF-8.
std::string valid_utf8(std::string_view text);

// Capital letters for small ones as the file system does it when it compares names.
std::u16string without_case(std::u16string_view text);

// Two digits for each byte, in capitals.
std::string hex_of(ByteView bytes);

// Nothing when the text is not pairs of hexadecimal digits.
std::optional<Bytes> bytes_of_hex(std::string_view hex);

} // namespace profile_tool
