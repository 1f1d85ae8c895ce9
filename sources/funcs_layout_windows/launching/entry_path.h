// A profile entry's path: copied as the system wants it, and compared where it lies in the file.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "sources/profile_file/profile_file.h"

// The longest path that the system takes, with its terminator, in UTF-16 units.
inline constexpr std::size_t kPath_max_units = 32768;

// Room for one path; too large for the stack.
using EntryPathBuffer = std::array<wchar_t, kPath_max_units>;

// The declared length of the entry's path in units; the last byte of an odd length is a unit of its own.
inline std::size_t declared_units(const profile_file::Entry& entry)
{
    return (std::size_t{entry.path_bytes} + 1) / sizeof(wchar_t);
}

// Copies `count` units of the entry's path from unit `first` on; that many are declared.
inline void copy_path_units(const profile_file::Entry& entry, std::size_t first, std::size_t count,
                            wchar_t* units)
{
    if (count == 0)
        return;
    units[count - 1] = L'\0'; // the upper half of a lone last byte
    const std::size_t offset_bytes = first * sizeof(wchar_t);
    std::memcpy(units, entry.path + offset_bytes,
                std::min(count * sizeof(wchar_t), entry.path_bytes - offset_bytes));
}

// Copies the entry's declared bytes and a terminator into `buffer`. The result ends at the first zero among
// them. It has null data for a path that is longer than any the system takes.
inline std::wstring_view copy_entry_path(const profile_file::Entry& entry, EntryPathBuffer* buffer)
{
    const std::size_t units = declared_units(entry);
    if (units >= buffer->size())
        return {};
    copy_path_units(entry, 0, units, buffer->data());
    (*buffer)[units] = L'\0';
    return buffer->data();
}

// True when two paths are the same, ignoring case as the file system does.
inline bool same_path(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                                        static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

// True when the entry's path up to its first zero is `path`, which holds no zero, in any case. A path that is
// longer than any the system takes is none.
inline bool entry_has_path(const profile_file::Entry& entry, std::wstring_view path)
{
    const std::size_t declared = declared_units(entry);
    if (declared < path.size() || declared >= kPath_max_units)
        return false;
    std::array<wchar_t, MAX_PATH> piece;
    for (std::size_t first = 0; first < path.size(); first += piece.size()) {
        const std::size_t count = std::min(piece.size(), path.size() - first);
        copy_path_units(entry, first, count, piece.data());
        if (!same_path({piece.data(), count}, path.substr(first, count)))
            return false;
    }
    if (declared == path.size())
        return true;
    copy_path_units(entry, path.size(), 1, piece.data());
    return piece.front() == L'\0';
}
