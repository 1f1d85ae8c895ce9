#include "tools/wendlow_profile/system/console.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "tools/wendlow_profile/system/text.h"
#include "tools/wendlow_profile/system/wide_text.h"

namespace profile_tool
{

namespace
{

constexpr std::size_t kConsole_max_units = 8192; // in one call; an old console takes no more than 64 KiB

bool put_characters(HANDLE console, const std::wstring& text)
{
    std::wstring_view rest = text;
    while (!rest.empty()) {
        const auto units = static_cast<DWORD>(std::min(rest.size(), kConsole_max_units));
        DWORD written = 0;
        if (WriteConsoleW(console, rest.data(), units, &written, nullptr) == FALSE || written == 0)
            return false;
        rest.remove_prefix(written);
    }
    return true;
}

bool put_bytes(HANDLE stream, std::string_view text)
{
    while (!text.empty()) {
        const auto bytes = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1U << 20));
        DWORD written = 0;
        if (WriteFile(stream, text.data(), bytes, &written, nullptr) == FALSE || written == 0)
            return false;
        text.remove_prefix(written);
    }
    return true;
}

} // namespace

std::vector<std::string> utf8_arguments(const wchar_t* const* argv)
{
    std::vector<std::string> arguments;
    for (std::size_t i = 1; argv[i] != nullptr; ++i)
        arguments.push_back(utf8_of(units_of_wide(argv[i])));
    return arguments;
}

bool put_on_console(bool is_error, const std::string& text)
{
    if (text.empty())
        return true;
    const HANDLE stream = GetStdHandle(is_error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(stream, &mode) != FALSE ? put_characters(stream, wide_of(valid_utf8(text)))
                                                  : put_bytes(stream, text);
}

} // namespace profile_tool
