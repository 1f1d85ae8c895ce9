#include "tools/wendlow_profile/system/text.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "tools/wendlow_profile/system/platform.h"

namespace profile_tool
{

namespace
{

constexpr char32_t kReplacement = 0xFFFD;

bool is_high_surrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool is_low_surrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void append_utf8(std::string* out, char32_t code)
{
    const auto put = [&](char32_t byte) { out->push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

// Control characters, and those that change the direction of the line or cannot be seen.
bool is_hidden(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0xAD || code == 0x61C ||
           (code >= 0x200B && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
           (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF || (code & 0xFFFE) == 0xFFFE;
}

// The number of bytes of the character that begins with this one; 0 when none does.
std::size_t length_of_utf8(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first < 0xE0)
        return 2;
    if (first >= 0xE0 && first < 0xF0)
        return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

struct Utf8Character {
    char32_t code;
    std::size_t bytes; // 0: no UTF-8 begins here
};

Utf8Character utf8_character_at(std::string_view utf8, std::size_t position)
{
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    constexpr Utf8Character kNone{0, 0};
    const auto first = static_cast<unsigned char>(utf8[position]);
    const std::size_t length = length_of_utf8(first);
    if (length == 0 || position + length > utf8.size())
        return kNone;
    char32_t code = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t k = 1; k < length; ++k) {
        const auto next = static_cast<unsigned char>(utf8[position + k]);
        if ((next & 0xC0) != 0x80)
            return kNone;
        code = code << 6 | (next & 0x3FU);
    }
    if (code < kSmallest[length] || code > 0x10FFFF || is_high_surrogate(code) || is_low_surrogate(code))
        return kNone;
    return {code, length};
}

void append_shown(std::string* out, char32_t code, bool is_whole)
{
    if (is_whole && !is_hidden(code)) {
        append_utf8(out, code);
        return;
    }
    std::array<char, 16> escape{};
    std::snprintf(escape.data(), escape.size(), "<U+%04X>", static_cast<unsigned>(code));
    *out += escape.data();
}

int digit_of(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : -1;
}

} // namespace

std::u16string units_of(ByteView bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
    return units;
}

Bytes bytes_of(std::u16string_view units)
{
    Bytes bytes;
    bytes.reserve(units.size() * 2);
    for (const char16_t unit : units) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

Character character_at(std::u16string_view text, std::size_t position)
{
    const char32_t unit = text[position];
    if (is_high_surrogate(unit) && position + 1 < text.size() && is_low_surrogate(text[position + 1]))
        return {0x10000 + ((unit - 0xD800) << 10) + (text[position + 1] - 0xDC00U), 2, false};
    return {unit, 1, is_high_surrogate(unit) || is_low_surrogate(unit)};
}

std::string utf8_of(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Character character = character_at(text, i);
        append_utf8(&out, character.is_unpaired ? kReplacement : character.code);
        i += character.units;
    }
    return out;
}

std::optional<std::u16string> utf16_of(std::string_view utf8)
{
    std::u16string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto [code, bytes] = utf8_character_at(utf8, i);
        if (bytes == 0)
            return std::nullopt;
        if (code >= 0x10000) {
            out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        } else {
            out.push_back(static_cast<char16_t>(code));
        }
        i += bytes;
    }
    return out;
}

std::string shown(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Character character = character_at(text, i);
        append_shown(&out, character.code, !character.is_unpaired);
        i += character.units;
    }
    return out;
}

std::string shown(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto [code, bytes] = utf8_character_at(utf8, i);
        if (bytes == 0) {
            const auto byte = static_cast<std::uint8_t>(utf8[i]);
            out += "<" + hex_of({&byte, 1}) + ">";
        } else {
            append_shown(&out, code, true);
        }
        i += std::max<std::size_t>(bytes, 1);
    }
    return out;
}

std::string valid_utf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto [code, bytes] = utf8_character_at(text, i);
        append_utf8(&out, bytes == 0 ? kReplacement : code);
        i += std::max<std::size_t>(bytes, 1);
    }
    return out;
}

std::u16string without_case(std::u16string_view text)
{
    const bool is_ascii = std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
    std::u16string out(text);
    if (is_ascii) {
        for (char16_t& unit : out)
            unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    } else {
        platform::put_in_capitals(&out);
    }
    return out;
}

std::string hex_of(ByteView bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        out.push_back(kDigits[byte >> 4]);
        out.push_back(kDigits[byte & 0xF]);
    }
    return out;
}

std::optional<Bytes> bytes_of_hex(std::string_view hex)
{
    if (hex.size() % 2 != 0)
        return std::nullopt;
    Bytes bytes(hex.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int high = digit_of(hex[2 * i]);
        const int low = digit_of(hex[2 * i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return bytes;
}

} // namespace profile_tool
