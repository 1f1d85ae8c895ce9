// A profile file taken apart so that nothing of it is lost, and put together again.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

// One entry, with the bytes of its path.
struct EntryParts {
    std::uint8_t kind = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    Bytes path;                               // as many bytes as the file declares, odd or even
    std::array<std::uint8_t, 2> terminator{}; // 00 00 in a file that the program wrote

    bool operator==(const EntryParts&) const = default;
};

// A whole file.
struct ProfileParts {
    std::vector<EntryParts> entries;
    // Zero bytes between the paths and the name: as many as all paths have bytes, or this many.
    std::optional<std::uint64_t> zero_tail_bytes;
    Bytes surplus; // between the zero bytes and the name
    Bytes name;
    // Everything behind the last terminator, when no name can be told from what stands before it; the three
    // above are empty then.
    std::optional<Bytes> after_paths;

    bool operator==(const ProfileParts&) const = default;
};

// Where the parts behind the entries lie in a file that readers take, in bytes.
struct Ending {
    std::uint64_t paths_end;  // behind the last terminator
    std::uint64_t all_paths;  // bytes of all paths without terminators
    std::uint64_t name_begin; // 0 when the search for the name meets no zero unit
    std::uint64_t name_end;   // the signature's first byte
    // The name begins behind the paths, so both can be told apart.
    [[nodiscard]] bool has_name_of_its_own() const { return name_begin != 0 && name_begin >= paths_end; }
};
Ending ending_of(ByteView accepted_file);

// How many zero bytes stand between the paths and a name of its own, at most as many as all paths have.
std::uint64_t zero_tail_of(ByteView accepted_file, const Ending& ending);

// The parts of a file that readers take, and the file that parts make; each undoes the other.
ProfileParts take_apart(ByteView accepted_file);
Bytes put_together(const ProfileParts& parts);

// Bytes of all paths, without their terminators.
std::uint64_t all_path_bytes(const ProfileParts& parts);

// The size of what put_together makes of it.
std::uint64_t size_of(const ProfileParts& parts);

} // namespace profile_tool
