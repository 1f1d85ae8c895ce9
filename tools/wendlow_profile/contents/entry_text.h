// An entry's path as the program hands it to the system.
#pragma once

#include <string>

#include "sources/profile_file/profile_file.h"

namespace profile_tool
{

// The declared bytes up to the first zero unit; the last byte of an odd length is a unit of its own.
inline std::u16string path_for_system(const profile_file::Entry& entry)
{
    const auto byte_at = [&](std::size_t i) -> unsigned { return i < entry.path_bytes ? entry.path[i] : 0U; };
    std::u16string path;
    path.reserve(entry.path_bytes / 2 + 1);
    for (std::size_t i = 0; i < entry.path_bytes; i += 2) {
        const auto unit = static_cast<char16_t>(byte_at(i) | byte_at(i + 1) << 8);
        if (unit == 0)
            break;
        path.push_back(unit);
    }
    return path;
}

} // namespace profile_tool
