#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Builds the bytes of profile files from the layout of the format alone, without any header of the
// program. Portable: unit tests use it natively, Windows tests as Windows code.

namespace test_support
{

constexpr std::uint8_t kFolderFlag = 0;
constexpr std::uint8_t kProgramFlag = 1;

struct ProfileEntry {
    std::uint8_t flag = kProgramFlag;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::u16string path;
};

// The UTF-16 units of a wide string of Windows; a wide character of other systems is cut to a unit.
std::u16string units_of(const std::wstring& text);

class ProfileEncoder
{
public:
    ProfileEncoder() = default;
    ProfileEncoder(std::vector<ProfileEntry> entries, std::u16string name)
        : entries_(std::move(entries)), name_(std::move(name))
    {
    }

    ProfileEncoder& add(ProfileEntry entry);
    ProfileEncoder& add_program(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                                std::u16string path);
    ProfileEncoder& add_folder(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                               std::u16string path);
    ProfileEncoder& name(std::u16string name);

    // What follows makes malformed or unusual files; everything not named stays well-formed.

    // The count field says this, whatever the number of entries.
    ProfileEncoder& declare_count(std::uint32_t count);
    // The length field of one entry says this many bytes, whatever its path.
    ProfileEncoder& declare_path_length(std::size_t entry, std::uint32_t bytes);
    // The last three bytes, 00 07 0C in a good file.
    ProfileEncoder& signature(std::uint8_t first, std::uint8_t second, std::uint8_t third);
    // Leaves out the zero bytes between the last path and the name.
    ProfileEncoder& without_zero_tail();
    // Puts further bytes between the path area and the name.
    ProfileEncoder& surplus_before_name(std::vector<std::uint8_t> bytes);
    // Keeps only the first bytes of the finished file (the signature goes first).
    ProfileEncoder& cut_to(std::size_t bytes);
    // Cuts the finished file to its first bytes, then puts the signature behind them.
    ProfileEncoder& cut_before_signature(std::size_t bytes);

    std::vector<std::uint8_t> bytes() const;

    // What the file was made of, whatever it declares.
    const std::vector<ProfileEntry>& entries() const { return entries_; }
    const std::u16string& name() const { return name_; }

private:
    std::vector<ProfileEntry> entries_;
    std::u16string name_;
    std::optional<std::uint32_t> declared_count_;
    std::vector<std::pair<std::size_t, std::uint32_t>> declared_lengths_;
    std::array<std::uint8_t, 3> signature_{0x00, 0x07, 0x0C};
    bool zero_tail_ = true;
    std::vector<std::uint8_t> surplus_;
    std::optional<std::size_t> cut_;
    std::optional<std::size_t> cut_before_signature_;
};

} // namespace test_support
