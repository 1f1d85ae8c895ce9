#include "sources/wnd_ModifyCell/modify_cell_rules.h"

#include <algorithm>
#include <cwchar>
#include <limits>

std::int32_t leading_number(const wchar_t* text)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const long long number = std::wcstoll(text, nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

bool is_edit_valid(std::wstring_view text, bool (*is_alphanumeric)(wchar_t), bool (*is_alphabetic)(wchar_t))
{
    return !text.empty() && is_alphanumeric(text.back()) && !is_alphabetic(text.back());
}
