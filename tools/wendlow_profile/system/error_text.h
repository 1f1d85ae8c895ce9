// The system's text for an error.
#pragma once

#include <windows.h>

#include <iterator>
#include <string>

namespace profile_tool
{

// The system's text for `error`, a value of GetLastError, on one line; "error 5" when it has none.
inline std::wstring text_of_error(DWORD error)
{
    wchar_t text[512] = L"";
    const DWORD units = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                           FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                       nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    return units == 0 ? L"error " + std::to_wstring(error) : std::wstring(text, units);
}

} // namespace profile_tool
