// Feeds any bytes to everything that reads a profile file, and checks what is read against a second, slower
// reading of the same rules. libFuzzer hands the bytes over in a block of exactly their size, so the
// sanitizers see every read beside them.
#include "sources/profile_file/profile_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <span>

namespace
{

using profile_file::Entry;
using profile_file::ExtentFault;
using profile_file::Field;

using File = std::span<const std::uint8_t>;

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Where what was read goes, so that it has to be read.
volatile unsigned sum_of_bytes_read;

std::uint64_t number_at(File file, std::uint64_t offset)
{
    std::uint64_t number = 0;
    for (std::uint64_t i = 4; i > 0; --i)
        number = number * 256 + file[offset + i - 1];
    return number;
}

// The first field in file order that does not lie inside the file.
ExtentFault expected_fault(File file)
{
    if (file.size() < 4)
        return {Field::COUNT, 0};
    const std::uint64_t n = number_at(file, 0);
    std::uint64_t offset = 4;
    const auto first_outside = [&](Field field, std::uint64_t element_bytes) -> ExtentFault {
        for (std::uint64_t i = 0; i < n; ++i) {
            offset += element_bytes;
            if (offset > file.size())
                return {field, static_cast<std::uint32_t>(i)};
        }
        return {Field::NONE, 0};
    };
    ExtentFault fault = first_outside(Field::FLAG, 1);
    for (const Field field : {Field::X, Field::Y, Field::WIDTH, Field::HEIGHT, Field::PATH_LENGTH}) {
        if (fault.field == Field::NONE)
            fault = first_outside(field, 4);
    }
    if (fault.field != Field::NONE)
        return fault;
    const std::uint64_t lengths = offset - 4 * n;
    for (std::uint64_t i = 0; i < n; ++i) {
        offset += number_at(file, lengths + 4 * i) + 2;
        if (offset > file.size())
            return {Field::PATH, static_cast<std::uint32_t>(i)};
    }
    return {Field::NONE, 0};
}

// Walks every entry of a file that passed, reads each byte of each path, and follows the paths from one to
// the next.
void walk_entries(File file)
{
    const std::uint64_t n = number_at(file, 0);
    std::uint64_t path_offset = 4 + 21 * n;
    std::uint64_t count = 0;
    unsigned sum = 0;
    for (const Entry& entry : profile_file::entries(file.data())) {
        require(entry.index == count, "entries come in file order");
        require(entry.kind == file[4 + count], "the kind flag is the entry's own");
        require(entry.kind == profile_file::kind_of_entry(file.data(), entry.index),
                "both ways give one kind");
        const auto number = [&](std::uint64_t array) {
            return static_cast<std::uint32_t>(number_at(file, 4 + n + 4 * (array * n + count)));
        };
        require(static_cast<std::uint32_t>(entry.x) == number(0), "x");
        require(static_cast<std::uint32_t>(entry.y) == number(1), "y");
        require(static_cast<std::uint32_t>(entry.width) == number(2), "width");
        require(static_cast<std::uint32_t>(entry.height) == number(3), "height");
        require(entry.path_bytes == number(4), "path length");
        require(entry.path == file.data() + path_offset, "each path begins behind the one before");
        path_offset += std::uint64_t{entry.path_bytes} + 2;
        require(path_offset <= file.size(), "path and terminator lie inside the file");
        sum = std::accumulate(entry.path, entry.path + entry.path_bytes + 2, sum);
        ++count;
    }
    require(count == n, "there are as many entries as windows");
    sum_of_bytes_read = sum;
}

// The offset behind the last zero unit that is counted back from the signature, the unit at offset 0 left
// out.
std::uint32_t expected_name(File area)
{
    for (std::size_t back = 5; back < area.size(); back += 2) {
        const std::size_t position = area.size() - back;
        if (area[position] == 0 && area[position + 1] == 0)
            return static_cast<std::uint32_t>(position + 2);
    }
    return 0;
}

void find_names(File file)
{
    const std::uint32_t begin = profile_file::find_name(file.data(), static_cast<std::uint32_t>(file.size()));
    require(begin == expected_name(file), "the name begins behind the last zero unit");
    require(begin == 0 || begin + 3U <= file.size(), "the name lies before the signature");
    // The same in an area that goes on behind this file.
    const auto half = static_cast<std::uint32_t>(file.size() / 2);
    require(profile_file::find_name(file.data(), half) == expected_name(file.first(half)),
            "the name is looked for before its end only");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const File file(data, size);

    const std::uint32_t n = profile_file::window_count(file);
    require(size < 4 ? n == 0 : n == number_at(file, 0), "the count is the first number");
    if (size >= 3) {
        const auto last = file.last<3>();
        require(profile_file::is_signature(last) == (last[0] == 0x00 && last[1] == 0x07 && last[2] == 0x0C),
                "a signature is 00 07 0C");
    }
    require(profile_file::ends_with_signature(file) ==
                (size >= 3 && profile_file::is_signature(file.last<3>())),
            "a file ends in the signature or does not");

    const ExtentFault fault = profile_file::check_extent(file);
    const ExtentFault expected = expected_fault(file);
    require(fault.field == expected.field && fault.entry == expected.entry, "the first fault is named");
    require((fault.field == Field::NONE) == (std::strlen(profile_file::name_of_field(fault.field)) == 0),
            "every fault has a name");
    if (fault.field == Field::NONE)
        walk_entries(file);
    find_names(file);
    return 0;
}
