// A profile entry's path as the system wants it: aligned and with a terminator of its own.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "sources/profile_file/profile_file.h"

// The longest path that the system takes, with its terminator, in UTF-16 units.
inline constexpr std::size_t kPath_max_units = 32768;

// Room for one path; too large for the stack.
using EntryPathBuffer = std::array<wchar_t, kPath_max_units>;

// Copies the entry's declared bytes and a terminator into `buffer`; the last byte of an odd length is a unit
// of its own. The result ends at the first zero among them. It has null data for a path that is longer than
// any the system takes.
inline std::wstring_view copy_entry_path(const profile_file::Entry& entry, EntryPathBuffer* buffer)
{
    const std::size_t units = (std::size_t{entry.path_bytes} + 1) / sizeof(wchar_t);
    if (units >= buffer->size())
        return {};
    (*buffer)[units] = L'\0';
    if (units != 0)
        (*buffer)[units - 1] = L'\0';
    std::memcpy(buffer->data(), entry.path, entry.path_bytes);
    return buffer->data();
}

// True when two paths are the same, ignoring case as the file system does.
inline bool same_path(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                                        static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}
