#include "tests/support/basics/text.h"

#include <windows.h>

namespace test_support
{

namespace
{

bool reads_well(wchar_t unit)
{
    return unit == L'\n' || (unit >= 0x20 && unit < 0x7F) || (unit >= 0xA0 && unit < 0x0530);
}

void append_utf8(std::string& out, wchar_t unit)
{
    if (unit < 0x80) {
        out.push_back(static_cast<char>(unit));
    } else {
        out.push_back(static_cast<char>(0xC0 | (unit >> 6)));
        out.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
    }
}

void append_escaped(std::string& out, wchar_t unit)
{
    constexpr char digits[] = "0123456789ABCDEF";
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(digits[(unit >> shift) & 0xF]);
}

} // namespace

std::string printable(std::wstring_view text)
{
    std::string out;
    for (const wchar_t unit : text) {
        if (reads_well(unit))
            append_utf8(out, unit);
        else
            append_escaped(out, unit);
    }
    return out;
}

std::wstring bytes_as_wide(std::string_view text)
{
    std::wstring units;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto low = static_cast<unsigned char>(text[i]);
        const auto high = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0u;
        units.push_back(static_cast<wchar_t>(low | high << 8));
    }
    return units;
}

std::string wide_as_bytes(std::wstring_view text)
{
    std::string bytes;
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    if (!bytes.empty() && bytes.back() == '\0')
        bytes.pop_back();
    return bytes;
}

std::wstring widen(std::string_view utf8)
{
    if (utf8.empty())
        return {};
    const int size = static_cast<int>(utf8.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), units);
    return text;
}

} // namespace test_support
