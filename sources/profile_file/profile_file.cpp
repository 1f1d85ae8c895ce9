#include "sources/profile_file/profile_file.h"

#include <algorithm>

namespace profile_file
{

namespace
{

// Every number of the file is read byte by byte: nothing in it is aligned.
std::uint32_t read_u32(const std::uint8_t* bytes)
{
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

struct ArrayField {
    Array array;
    Field field;
};
constexpr std::array<ArrayField, 5> kArrays{{{Array::X, Field::X},
                                             {Array::Y, Field::Y},
                                             {Array::WIDTH, Field::WIDTH},
                                             {Array::HEIGHT, Field::HEIGHT},
                                             {Array::PATH_LENGTH, Field::PATH_LENGTH}}};

// The index of the first element of `element_bytes` bytes, counted from `offset`, that does not lie wholly
// inside `size_bytes`.
std::uint32_t first_outside(std::uint64_t size_bytes, std::uint64_t offset, std::uint64_t element_bytes)
{
    return offset >= size_bytes ? 0 : static_cast<std::uint32_t>((size_bytes - offset) / element_bytes);
}

} // namespace

const char* name_of_field(Field field)
{
    switch (field) {
    case Field::NONE:
        break;
    case Field::COUNT:
        return "number of windows";
    case Field::FLAG:
        return "kind flag";
    case Field::X:
        return "x";
    case Field::Y:
        return "y";
    case Field::WIDTH:
        return "width";
    case Field::HEIGHT:
        return "height";
    case Field::PATH_LENGTH:
        return "path length";
    case Field::PATH:
        return "path";
    }
    return "";
}

bool is_signature(std::span<const std::uint8_t, kSignature.size()> bytes)
{
    return std::equal(bytes.begin(), bytes.end(), kSignature.begin());
}

bool ends_with_signature(std::span<const std::uint8_t> bytes)
{
    return bytes.size() >= kSignature.size() && is_signature(bytes.last<kSignature.size()>());
}

std::uint32_t window_count(std::span<const std::uint8_t> file)
{
    return file.size() < kCount_bytes ? 0 : read_u32(file.data());
}

ExtentFault check_extent(std::span<const std::uint8_t> file)
{
    const std::uint64_t size = file.size();
    if (size < kCount_bytes)
        return {Field::COUNT, 0};

    const std::uint64_t n = read_u32(file.data());
    if (size < offset_of_flags() + n)
        return {Field::FLAG, first_outside(size, offset_of_flags(), 1)};
    for (const auto& [array, field] : kArrays) {
        const std::uint64_t offset = offset_of_array(n, array);
        if (size < offset + kNumber_bytes * n)
            return {field, first_outside(size, offset, kNumber_bytes)};
    }

    // Below 2^32 paths of below 2^32 bytes each: the offset cannot overflow 64 bits.
    const std::uint8_t* lengths = file.data() + offset_of_array(n, Array::PATH_LENGTH);
    std::uint64_t offset = offset_of_paths(n);
    for (std::uint32_t i = 0; i < n; ++i) {
        offset += std::uint64_t{read_u32(lengths + std::uint64_t{kNumber_bytes} * i)} + kTerminator_bytes;
        if (size < offset)
            return {Field::PATH, i};
    }
    return {Field::NONE, 0};
}

EntryIterator::EntryIterator(const std::uint8_t* checked_file)
    : file_(checked_file), count_(read_u32(checked_file)), path_offset_(offset_of_paths(count_))
{
}

std::uint32_t EntryIterator::number(Array array) const
{
    return read_u32(file_ + offset_of_array(count_, array) + std::uint64_t{kNumber_bytes} * index_);
}

EntryIterator& EntryIterator::operator++()
{
    path_offset_ += std::uint64_t{number(Array::PATH_LENGTH)} + kTerminator_bytes;
    ++index_;
    return *this;
}

Entry EntryIterator::operator*() const
{
    return {.index = index_,
            .kind = kind_of_entry(file_, index_),
            .x = static_cast<std::int32_t>(number(Array::X)),
            .y = static_cast<std::int32_t>(number(Array::Y)),
            .width = static_cast<std::int32_t>(number(Array::WIDTH)),
            .height = static_cast<std::int32_t>(number(Array::HEIGHT)),
            .path = file_ + path_offset_,
            .path_bytes = number(Array::PATH_LENGTH)};
}

std::uint8_t kind_of_entry(const std::uint8_t* checked_file, std::uint32_t index)
{
    return checked_file[offset_of_flags() + index];
}

std::uint32_t find_name(const std::uint8_t* area, std::uint32_t end_bytes)
{
    if (end_bytes < kNameEnd_bytes)
        return 0;
    std::uint32_t position = end_bytes - kNameEnd_bytes;
    while (position != 0) {
        if (area[position] == 0 && area[position + 1] == 0)
            return position + 2;
        // From an odd offset the last step would lead before the area.
        position = position < 2 ? 0 : position - 2;
    }
    return 0;
}

} // namespace profile_file
