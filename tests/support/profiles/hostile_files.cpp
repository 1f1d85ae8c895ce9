#include "tests/support/profiles/hostile_files.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>

#include "tests/support/profiles/loading_boxes.h"
#include "tests/support/profiles/profile_encoder.h"

namespace hostile
{

using loading_boxes::empty_file_box;
using loading_boxes::no_windows_box;
using loading_boxes::past_end_box;
using loading_boxes::signature_box;
using loading_boxes::too_short_box;
using test_support::Bytes;

namespace
{

constexpr std::array<std::uint8_t, 3> kSignature{0x00, 0x07, 0x0C};

Refusal past_end(std::uint64_t entry, const std::wstring& field)
{
    return {-11, past_end_box(entry, field), false, true};
}

std::uint32_t number_at(const Bytes& file, std::size_t offset)
{
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
        number = number << 8 | file[offset + i];
    return number;
}

void put_number(Bytes* file, std::size_t offset, std::uint32_t number)
{
    for (std::size_t i = 0; i < 4; ++i, number >>= 8)
        (*file)[offset + i] = static_cast<std::uint8_t>(number);
}

// The first part of the entries that does not lie inside the file.
std::optional<Refusal> extent_refusal_of(const Bytes& file)
{
    struct Part {
        const wchar_t* name;
        std::uint64_t bytes;
    };
    constexpr std::array<Part, 6> parts{
        {{L"kind flag", 1}, {L"x", 4}, {L"y", 4}, {L"width", 4}, {L"height", 4}, {L"path length", 4}}};
    const std::uint64_t size = file.size();
    const std::uint64_t count = number_at(file, 0);
    std::uint64_t begin = 4;
    for (const Part& part : parts) {
        const std::uint64_t end = begin + count * part.bytes;
        if (end > size)
            return past_end(begin < size ? (size - begin) / part.bytes : 0, part.name);
        begin = end;
    }
    const std::size_t lengths = static_cast<std::size_t>(begin - 4 * count);
    for (std::size_t entry = 0; entry < count; ++entry) {
        begin += std::uint64_t{number_at(file, lengths + 4 * entry)} + 2;
        if (begin > size)
            return past_end(entry, L"path");
    }
    return std::nullopt;
}

// Collects what is refused, each content once.
class Collection
{
public:
    bool add(const std::string& what, const Bytes& bytes)
    {
        const std::optional<Refusal> refusal = refusal_of(bytes);
        if (!refusal || !contents_.insert(bytes).second)
            return false;
        files.push_back({what, bytes, *refusal});
        return true;
    }

    std::vector<HostileFile> files;

private:
    std::set<Bytes> contents_;
};

// Three entries, two of them programs, so that every array has a middle.
constexpr std::size_t kEntries = 3;
constexpr std::size_t kLengths = 4 + kEntries + 4 * 4 * kEntries;
constexpr std::size_t kPaths = kLengths + 4 * kEntries;

Bytes good_file(const std::u16string& program)
{
    return test_support::ProfileEncoder()
        .add_program(10, 20, 300, 200, program)
        .add({.flag = 7, .x = -1, .y = -2, .width = 3, .height = 4, .path = u"C:\\neither\\one"})
        .add_program(30, 40, 400, 300, program)
        .name(u"Hostile")
        .bytes();
}

Bytes with_number(Bytes file, std::size_t offset, std::uint32_t number)
{
    put_number(&file, offset, number);
    return file;
}

void add_counts(Collection* all, const Bytes& good)
{
    std::vector<std::uint32_t> counts{0,      1,       2,          4,          0x7F,       0xFF,      0x100,
                                      0xFFFF, 0x10000, 0x0CCCCCCD, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    // One past the end of each array.
    for (std::uint32_t bytes_per_entry = 1; bytes_per_entry <= 21; bytes_per_entry += 4) {
        const auto fitting = static_cast<std::uint32_t>(good.size() - 4) / bytes_per_entry;
        counts.push_back(fitting);
        counts.push_back(fitting + 1);
    }
    for (const std::uint32_t count : counts)
        all->add("count " + std::to_string(count), with_number(good, 0, count));
}

// No windows, whatever follows.
void add_empty_profiles(Collection* all, const Bytes& good)
{
    const Bytes none = with_number(good, 0, 0);
    for (const std::size_t kept : {std::size_t{4}, std::size_t{5}, kLengths, kPaths, good.size() - 20}) {
        Bytes file(none.begin(), none.begin() + static_cast<std::ptrdiff_t>(kept));
        file.insert(file.end(), kSignature.begin(), kSignature.end());
        all->add("no windows in " + std::to_string(kept) + " bytes", file);
    }
}

void add_lengths(Collection* all, const Bytes& good)
{
    std::uint32_t path = kPaths;
    for (std::size_t entry = 0; entry < kEntries; ++entry) {
        const std::size_t field = kLengths + 4 * entry;
        const std::uint32_t rest = static_cast<std::uint32_t>(good.size()) - path - 2;
        for (const std::uint32_t length :
             {0U, 1U, rest, rest + 1, rest + 2, rest + 3, 0xFFFFU, 0x10000U, 0x7FFFFFFFU, 0x80000000U,
              0xFFFFFFFFU - path, 0xFFFFFFFEU, 0xFFFFFFFFU})
            all->add("length " + std::to_string(length) + " of path " + std::to_string(entry),
                     with_number(good, field, length));
        path += number_at(good, field) + 2;
    }
}

// The offsets where a field begins or ends.
std::vector<std::size_t> boundaries(const Bytes& good)
{
    std::vector<std::size_t> offsets{0};
    for (std::size_t offset = 4; offset < 4 + kEntries; ++offset)
        offsets.push_back(offset);
    for (std::size_t offset = 4 + kEntries; offset < kPaths; offset += 4)
        offsets.push_back(offset);
    std::size_t path = kPaths;
    for (std::size_t entry = 0; entry < kEntries; ++entry) {
        offsets.push_back(path);
        const std::size_t length = number_at(good, kLengths + 4 * entry);
        offsets.push_back(path + length);
        path += length + 2;
    }
    offsets.push_back(path);
    offsets.push_back(good.size() - kSignature.size());
    return offsets;
}

void add_cuts(Collection* all, const Bytes& good)
{
    for (const std::size_t boundary : boundaries(good)) {
        for (const std::size_t kept : {boundary - 1, boundary, boundary + 1}) {
            if (kept >= good.size())
                continue; // -1
            Bytes cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(kept));
            if (kept == boundary || kept < kSignature.size())
                all->add("cut to " + std::to_string(kept), cut);
            cut.insert(cut.end(), kSignature.begin(), kSignature.end());
            all->add("cut to " + std::to_string(kept) + " and signed", cut);
        }
    }
}

void add_signatures(Collection* all, const Bytes& good)
{
    for (std::size_t i = 0; i < kSignature.size(); ++i) {
        for (const int value : {0, 1, 0x7F, 0xFF, kSignature[i] + 1}) {
            Bytes file = good;
            file[good.size() - kSignature.size() + i] = static_cast<std::uint8_t>(value);
            all->add("byte " + std::to_string(i) + " of the signature " + std::to_string(value), file);
        }
    }
}

// Up to four bytes among the count, the arrays or anywhere get a random value.
void add_random_damage(Collection* all, const Bytes& good, std::size_t wanted)
{
    std::mt19937 random(20261121);
    for (std::size_t made = 0; made < wanted;) {
        Bytes file = good;
        const std::size_t reach = random() % 4 == 0 ? good.size() : kPaths;
        for (std::size_t bytes = 1 + random() % 4; bytes > 0; --bytes)
            file[random() % reach] = static_cast<std::uint8_t>(random());
        made += all->add("random damage " + std::to_string(made), file) ? 1 : 0;
    }
}

} // namespace

std::optional<Refusal> refusal_of(const Bytes& file)
{
    if (file.empty())
        return Refusal{-3, empty_file_box(), true, false};
    if (file.size() < kSignature.size())
        return Refusal{-4, too_short_box(), true, false};
    if (!std::equal(kSignature.begin(), kSignature.end(), file.end() - kSignature.size()))
        return Refusal{-6, signature_box(), true, false};
    if (file.size() < 4)
        return past_end(0, L"number of windows");
    if (number_at(file, 0) == 0)
        return Refusal{-10, no_windows_box(), false, true};
    return extent_refusal_of(file);
}

std::vector<HostileFile> hostile_files(const std::u16string& program)
{
    const Bytes good = good_file(program);
    Collection all;
    add_counts(&all, good);
    add_empty_profiles(&all, good);
    add_lengths(&all, good);
    add_cuts(&all, good);
    add_signatures(&all, good);
    add_random_damage(&all, good, 40);
    return all.files;
}

} // namespace hostile
