#include "tests/support/boxes/report_texts.h"

#include <cstdint>

#include "tests/support/basics/text.h"

namespace test_support
{
namespace
{

std::wstring spaced_head(const Where& where)
{
    return L"error\n\nfile:\n" + where.file + L"\n\nfunction:\n" + where.function + L"\n\nline:\n" +
           std::to_wstring(where.site);
}

} // namespace

std::wstring pointer(const void* value)
{
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    auto rest = reinterpret_cast<std::uintptr_t>(value);
    std::wstring text(16, L'0');
    for (std::size_t i = 16; i-- > 0; rest /= 16)
        text[i] = digits[rest % 16];
    return text;
}

std::wstring compact_text(const Where& where, const std::wstring& detail)
{
    return L"error\n\nfile:\n" + where.file + L"\nfunction:\n" + where.function + L"\nline:\n" +
           std::to_wstring(where.site) + L"\n\n" + detail + L"\nline of error handler:" +
           std::to_wstring(where.handler);
}

std::wstring spaced_text(const Where& where, const std::wstring& detail)
{
    return spaced_head(where) + L"\n\n" + detail + L"\nline of error handler:\n" +
           std::to_wstring(where.handler);
}

std::wstring gap_text(const Where& where, const std::wstring& detail)
{
    return spaced_text(where, detail + L"\n");
}

std::wstring handler_first_text(const Where& where, const std::wstring& detail)
{
    return spaced_head(where) + L"\nline of error handler:\n" + std::to_wstring(where.handler) + L"\n" +
           detail;
}

std::wstring inline_text(const Where& where, const std::wstring& detail)
{
    return L"error\nfile: " + where.file + L"\nfunction: " + where.function + L"\nline: " +
           std::to_wstring(where.site) + L"\n" + detail;
}

std::wstring shouted_text(const Where& where, const std::wstring& detail)
{
    return L"\nERROR\n\nfile:\n\n" + where.file + L"\nfunction:\n\n" + where.function + L"\nline:\n\n" +
           std::to_wstring(where.site) + L"\n\n" + detail;
}

std::wstring shown_as_bytes(const std::wstring& text)
{
    std::string bytes;
    for (const wchar_t unit : text)
        bytes += static_cast<char>(unit);
    return bytes_as_wide(bytes);
}

} // namespace test_support
