#pragma once

#include <string>

// The texts of the program's reports, each written as it is shown around its detail.

namespace test_support
{

// A pointer or handle as %p prints it.
std::wstring pointer(const void* value);

// Where a report comes from, as it says itself.
struct Where {
    std::wstring file;
    std::wstring function;
    int site;
    int handler = 0;
};
std::wstring compact_text(const Where& where, const std::wstring& detail);
std::wstring spaced_text(const Where& where, const std::wstring& detail);
std::wstring gap_text(const Where& where, const std::wstring& detail);
std::wstring handler_first_text(const Where& where, const std::wstring& detail);
// These two do not tell the line of the handler.
std::wstring inline_text(const Where& where, const std::wstring& detail);
std::wstring shouted_text(const Where& where, const std::wstring& detail);

// A text of characters below U+0100 whose bytes are handed over as wide characters, two in each.
std::wstring shown_as_bytes(const std::wstring& text);

} // namespace test_support
