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
    int handler;
};
std::wstring compact_text(const Where& where, const std::wstring& detail);
std::wstring spaced_text(const Where& where, const std::wstring& detail);
std::wstring gap_text(const Where& where, const std::wstring& detail);
std::wstring handler_first_text(const Where& where, const std::wstring& detail);

} // namespace test_support
