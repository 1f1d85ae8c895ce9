#include "tests/support/profiles/profile_encoder.h"

#include <algorithm>
#include <string_view>

namespace test_support
{

namespace
{

void put_byte(std::vector<std::uint8_t>& out, std::uint32_t value)
{
    out.push_back(static_cast<std::uint8_t>(value & 0xFF));
}

void put_32(std::vector<std::uint8_t>& out, std::uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        put_byte(out, value >> shift);
}

void put_units(std::vector<std::uint8_t>& out, std::u16string_view units)
{
    for (const char16_t unit : units) {
        put_byte(out, unit);
        put_byte(out, static_cast<std::uint32_t>(unit) >> 8);
    }
}

} // namespace

std::u16string units_of(const std::wstring& text)
{
    std::u16string units;
    for (const wchar_t character : text)
        units.push_back(static_cast<char16_t>(character));
    return units;
}

ProfileEncoder& ProfileEncoder::add(ProfileEntry entry)
{
    entries_.push_back(std::move(entry));
    return *this;
}

ProfileEncoder& ProfileEncoder::add_program(std::int32_t x, std::int32_t y, std::int32_t width,
                                            std::int32_t height, std::u16string path)
{
    return add({kProgramFlag, x, y, width, height, std::move(path)});
}

ProfileEncoder& ProfileEncoder::add_folder(std::int32_t x, std::int32_t y, std::int32_t width,
                                           std::int32_t height, std::u16string path)
{
    return add({kFolderFlag, x, y, width, height, std::move(path)});
}

ProfileEncoder& ProfileEncoder::name(std::u16string name)
{
    name_ = std::move(name);
    return *this;
}

ProfileEncoder& ProfileEncoder::declare_count(std::uint32_t count)
{
    declared_count_ = count;
    return *this;
}

ProfileEncoder& ProfileEncoder::declare_path_length(std::size_t entry, std::uint32_t bytes)
{
    declared_lengths_.emplace_back(entry, bytes);
    return *this;
}

ProfileEncoder& ProfileEncoder::signature(std::uint8_t first, std::uint8_t second, std::uint8_t third)
{
    signature_ = {first, second, third};
    return *this;
}

ProfileEncoder& ProfileEncoder::without_zero_tail()
{
    zero_tail_ = false;
    return *this;
}

ProfileEncoder& ProfileEncoder::surplus_before_name(std::vector<std::uint8_t> bytes)
{
    surplus_ = std::move(bytes);
    return *this;
}

ProfileEncoder& ProfileEncoder::cut_to(std::size_t bytes)
{
    cut_ = bytes;
    return *this;
}

ProfileEncoder& ProfileEncoder::cut_before_signature(std::size_t bytes)
{
    cut_before_signature_ = bytes;
    return *this;
}

std::vector<std::uint8_t> ProfileEncoder::bytes() const
{
    std::vector<std::uint8_t> out;

    put_32(out, declared_count_.value_or(static_cast<std::uint32_t>(entries_.size())));
    for (const ProfileEntry& entry : entries_)
        put_byte(out, entry.flag);
    for (const ProfileEntry& entry : entries_)
        put_32(out, static_cast<std::uint32_t>(entry.x));
    for (const ProfileEntry& entry : entries_)
        put_32(out, static_cast<std::uint32_t>(entry.y));
    for (const ProfileEntry& entry : entries_)
        put_32(out, static_cast<std::uint32_t>(entry.width));
    for (const ProfileEntry& entry : entries_)
        put_32(out, static_cast<std::uint32_t>(entry.height));

    std::size_t all_path_bytes = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const std::size_t length = entries_[i].path.size() * 2;
        all_path_bytes += length;
        std::uint32_t declared = static_cast<std::uint32_t>(length);
        for (const auto& [entry, bytes] : declared_lengths_)
            if (entry == i)
                declared = bytes;
        put_32(out, declared);
    }

    for (const ProfileEntry& entry : entries_) {
        put_units(out, entry.path);
        put_byte(out, 0);
        put_byte(out, 0);
    }
    if (zero_tail_)
        out.insert(out.end(), all_path_bytes, std::uint8_t{0});
    out.insert(out.end(), surplus_.begin(), surplus_.end());
    put_units(out, name_);

    if (cut_before_signature_)
        out.resize(std::min(*cut_before_signature_, out.size()));
    out.insert(out.end(), signature_.begin(), signature_.end());
    if (cut_)
        out.resize(std::min(*cut_, out.size()));
    return out;
}

} // namespace test_support
