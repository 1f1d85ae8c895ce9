// Bytes in a heap block of exactly their size, so that the sanitizer sees every read beside them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

class ExactBytes
{
public:
    explicit ExactBytes(std::span<const std::uint8_t> bytes)
        : block_(std::make_unique<std::uint8_t[]>(bytes.size())), size_(bytes.size())
    {
        std::copy(bytes.begin(), bytes.end(), block_.get());
    }

    [[nodiscard]] const std::uint8_t* data() const { return block_.get(); }
    [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(size_); }
    [[nodiscard]] std::span<const std::uint8_t> span() const { return {block_.get(), size_}; }

private:
    std::unique_ptr<std::uint8_t[]> block_;
    std::size_t size_;
};
