// Bytes of a file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace profile_tool
{

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// The program reads 32 bits of a file's size.
inline constexpr std::uint64_t kFile_max_bytes = 0xFFFFFFFF;

} // namespace profile_tool
