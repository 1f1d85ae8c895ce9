// The profile file: its layout, its checks, and the reading of its entries.
//
// A profile file is a flat sequence of little-endian fields without padding. With N windows, len[i] the byte
// length of path i, S the sum of all len[i] and L the byte length of the name:
//
//     offset            bytes      field
//     0                 4          N
//     4                 N          kind flags
//     4 + N             4 N        X of each window
//     4 + 5N            4 N        Y
//     4 + 9N            4 N        width
//     4 + 13N           4 N        height
//     4 + 17N           4 N        len[i]
//     4 + 21N           2 (S + N)  path area: each path and a zero terminator, packed; then S zero bytes
//     4 + 23N + 2S      L          name, without terminator
//     4 + 23N + 2S + L  3          signature
//
// Everything here is portable and reads bytes only: a file may come from anywhere.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

namespace profile_file
{

// Kind flags. Entries with other values are read like these; what they mean is left to the caller.
inline constexpr std::uint8_t kKind_folder = 0;
inline constexpr std::uint8_t kKind_program = 1;

inline constexpr std::size_t kCount_bytes = 4;      // the field N
inline constexpr std::size_t kNumber_bytes = 4;     // one element of the five arrays
inline constexpr std::size_t kTerminator_bytes = 2; // the zero after a path

// The five arrays of 32-bit numbers, in file order: one element per window.
enum class Array : unsigned { X, Y, WIDTH, HEIGHT, PATH_LENGTH };

// The last bytes of every profile file.
inline constexpr std::array<std::uint8_t, 3> kSignature{0x00, 0x07, 0x0C};

// Where the parts of a file with `n_windows` windows begin, in bytes.
constexpr std::uint64_t offset_of_flags()
{
    return kCount_bytes;
}
constexpr std::uint64_t offset_of_array(std::uint64_t n_windows, Array array)
{
    return kCount_bytes + n_windows + kNumber_bytes * static_cast<unsigned>(array) * n_windows;
}
constexpr std::uint64_t offset_of_paths(std::uint64_t n_windows)
{
    return offset_of_array(n_windows, Array::PATH_LENGTH) + kNumber_bytes * n_windows;
}
// The path area's size for paths of `sum_len_bytes` bytes in all, zero tail included.
// Quirk: the lengths count as if they were characters; the zero tail is in every file already saved, and the
// search for the name ends at its last zero.
constexpr std::uint64_t size_of_path_area(std::uint64_t n_windows, std::uint64_t sum_len_bytes)
{
    return 2 * (sum_len_bytes + n_windows);
}

// One window of a profile.
struct Entry {
    std::uint32_t index; // position in the file
    std::uint8_t kind;   // kind flag
    std::int32_t x;      // left edge, screen coordinates in pixels
    std::int32_t y;      // top edge
    std::int32_t width;  // pixels; 0 = minimised
    std::int32_t height; // pixels; 0 = minimised
    // UTF-16LE bytes inside the file, at any alignment, with or without a terminator.
    const std::uint8_t* path;
    std::uint32_t path_bytes; // declared length of the path
};

// Which part of a file runs past its end.
enum class Field : std::uint8_t { NONE, COUNT, FLAG, X, Y, WIDTH, HEIGHT, PATH_LENGTH, PATH };

// The first entry whose field does not lie inside the file, or Field::NONE.
struct ExtentFault {
    Field field;
    std::uint32_t entry;
};

// The field's name as shown to the user, for example "path length".
const char* name_of_field(Field field);

// True for the three bytes of the signature.
bool is_signature(std::span<const std::uint8_t, kSignature.size()> bytes);

// True when the bytes end in the signature.
bool ends_with_signature(std::span<const std::uint8_t> bytes);

// The number of windows; 0 when the file is too short to hold it.
std::uint32_t window_count(std::span<const std::uint8_t> file);

// Checks that the count, the flags, the five arrays and every path with its terminator lie inside the file.
// Surplus bytes, a missing zero tail, odd lengths, missing terminators and other kind flags are not faults.
ExtentFault check_extent(std::span<const std::uint8_t> file);

// One entry after the other of a checked file.
class EntryIterator
{
public:
    explicit EntryIterator(const std::uint8_t* checked_file);
    [[nodiscard]] Entry operator*() const;
    EntryIterator& operator++();
    [[nodiscard]] bool operator==(std::default_sentinel_t) const { return index_ >= count_; }

private:
    [[nodiscard]] std::uint32_t number(Array array) const;

    const std::uint8_t* file_;
    std::uint32_t count_;
    std::uint32_t index_ = 0;
    std::uint64_t path_offset_;
};

// The entries of a file that check_extent has passed, for as long as the file's bytes are there:
//     for (const Entry& entry : entries(file))
class Entries
{
public:
    explicit Entries(const std::uint8_t* checked_file) : file_(checked_file) {}
    [[nodiscard]] EntryIterator begin() const { return EntryIterator(file_); }
    [[nodiscard]] static std::default_sentinel_t end() { return {}; }

private:
    const std::uint8_t* file_;
};
inline Entries entries(const std::uint8_t* checked_file)
{
    return Entries(checked_file);
}

// True for a window that was minimised when the profile was made: it has no width or no height.
constexpr bool is_minimised(const Entry& entry)
{
    return entry.width == 0 || entry.height == 0;
}

// The kind flag of entry `index` of a checked file.
std::uint8_t kind_of_entry(const std::uint8_t* checked_file, std::uint32_t index);

// Looks for the beginning of the name that ends right before the signature at `end_bytes` (one past the last
// byte) of `area`: steps back unit by unit from the name's last unit to a zero unit. Returns the offset after
// that unit, or 0 when none is met before offset 0 (the unit at offset 0 itself is never read).
std::uint32_t find_name(const std::uint8_t* area, std::uint32_t end_bytes);

// The bytes from the name's last unit to the end of the file: that unit and the signature.
inline constexpr std::uint32_t kNameEnd_bytes = 5;

} // namespace profile_file
