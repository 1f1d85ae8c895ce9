// Wide characters of Windows are UTF-16 units.
#pragma once

#include <string>
#include <string_view>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

inline std::u16string units_of_wide(std::wstring_view text)
{
    return {text.begin(), text.end()};
}

inline std::wstring wide_of(std::u16string_view units)
{
    return {units.begin(), units.end()};
}

// Text that is no UTF-8 becomes empty.
inline std::wstring wide_of(std::string_view utf8)
{
    return wide_of(utf16_of(utf8).value_or(std::u16string()));
}

} // namespace profile_tool
