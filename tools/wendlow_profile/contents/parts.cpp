#include "tools/wendlow_profile/contents/parts.h"

#include <algorithm>

#include "sources/profile_file/profile_file.h"

namespace profile_tool
{

namespace
{

void put_32(Bytes* out, std::uint32_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
        out->push_back(static_cast<std::uint8_t>(number >> shift & 0xFF));
}

void put(Bytes* out, ByteView bytes)
{
    out->insert(out->end(), bytes.begin(), bytes.end());
}

Bytes copy_of(ByteView file, std::uint64_t begin, std::uint64_t end)
{
    const ByteView part = file.subspan(begin, end - begin);
    return {part.begin(), part.end()};
}

} // namespace

Ending ending_of(ByteView accepted_file)
{
    Ending ending{};
    const std::uint64_t n = profile_file::window_count(accepted_file);
    for (const profile_file::Entry& entry : profile_file::entries(accepted_file.data()))
        ending.all_paths += entry.path_bytes;
    ending.paths_end =
        profile_file::offset_of_paths(n) + ending.all_paths + n * profile_file::kTerminator_bytes;
    ending.name_end = accepted_file.size() - profile_file::kSignature.size();
    ending.name_begin =
        profile_file::find_name(accepted_file.data(), static_cast<std::uint32_t>(accepted_file.size()));
    return ending;
}

std::uint64_t zero_tail_of(ByteView accepted_file, const Ending& ending)
{
    const ByteView between = accepted_file.subspan(ending.paths_end, ending.name_begin - ending.paths_end);
    const auto end =
        std::find_if(between.begin(), between.end(), [](std::uint8_t byte) { return byte != 0; });
    return std::min(static_cast<std::uint64_t>(end - between.begin()), ending.all_paths);
}

ProfileParts take_apart(ByteView accepted_file)
{
    ProfileParts parts;
    parts.entries.reserve(profile_file::window_count(accepted_file));
    for (const profile_file::Entry& entry : profile_file::entries(accepted_file.data())) {
        const std::uint8_t* terminator = entry.path + entry.path_bytes;
        parts.entries.push_back({.kind = entry.kind,
                                 .x = entry.x,
                                 .y = entry.y,
                                 .width = entry.width,
                                 .height = entry.height,
                                 .path = Bytes(entry.path, terminator),
                                 .terminator = {terminator[0], terminator[1]}});
    }
    const Ending ending = ending_of(accepted_file);
    if (!ending.has_name_of_its_own()) {
        parts.after_paths = copy_of(accepted_file, ending.paths_end, accepted_file.size());
        return parts;
    }
    const std::uint64_t tail = zero_tail_of(accepted_file, ending);
    if (tail != ending.all_paths)
        parts.zero_tail_bytes = tail;
    parts.surplus = copy_of(accepted_file, ending.paths_end + tail, ending.name_begin);
    parts.name = copy_of(accepted_file, ending.name_begin, ending.name_end);
    return parts;
}

std::uint64_t all_path_bytes(const ProfileParts& parts)
{
    std::uint64_t bytes = 0;
    for (const EntryParts& entry : parts.entries)
        bytes += entry.path.size();
    return bytes;
}

std::uint64_t size_of(const ProfileParts& parts)
{
    const std::uint64_t paths = all_path_bytes(parts);
    const std::uint64_t entries = profile_file::offset_of_paths(parts.entries.size()) + paths +
                                  parts.entries.size() * profile_file::kTerminator_bytes;
    if (parts.after_paths)
        return entries + parts.after_paths->size();
    return entries + parts.zero_tail_bytes.value_or(paths) + parts.surplus.size() + parts.name.size() +
           profile_file::kSignature.size();
}

Bytes put_together(const ProfileParts& parts)
{
    Bytes out;
    out.reserve(size_of(parts));
    put_32(&out, static_cast<std::uint32_t>(parts.entries.size()));
    for (const EntryParts& entry : parts.entries)
        out.push_back(entry.kind);
    for (const std::int32_t EntryParts::*number :
         {&EntryParts::x, &EntryParts::y, &EntryParts::width, &EntryParts::height}) {
        for (const EntryParts& entry : parts.entries)
            put_32(&out, static_cast<std::uint32_t>(entry.*number));
    }
    for (const EntryParts& entry : parts.entries)
        put_32(&out, static_cast<std::uint32_t>(entry.path.size()));
    for (const EntryParts& entry : parts.entries) {
        put(&out, entry.path);
        put(&out, entry.terminator);
    }
    if (parts.after_paths) {
        put(&out, *parts.after_paths);
        return out;
    }
    out.insert(out.end(), parts.zero_tail_bytes.value_or(all_path_bytes(parts)), std::uint8_t{0});
    put(&out, parts.surplus);
    put(&out, parts.name);
    put(&out, profile_file::kSignature);
    return out;
}

} // namespace profile_tool
