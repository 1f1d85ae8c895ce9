// Bytes of a file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace profile_tool
{

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

} // namespace profile_tool
