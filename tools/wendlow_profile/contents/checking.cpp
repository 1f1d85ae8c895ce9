#include "tools/wendlow_profile/contents/checking.h"

#include <algorithm>

#include "sources/profile_file/profile_file.h"

namespace profile_tool
{

namespace
{

using profile_file::Field;

// The length of the path of entry `index`, whose number lies inside the file.
std::uint64_t length_of_path(ByteView file, std::uint64_t index)
{
    const std::uint64_t n = profile_file::window_count(file);
    const std::uint64_t offset = profile_file::offset_of_array(n, profile_file::Array::PATH_LENGTH) +
                                 profile_file::kNumber_bytes * index;
    std::uint64_t length = 0;
    for (std::size_t i = profile_file::kNumber_bytes; i-- > 0;)
        length = length << 8 | file[offset + i];
    return length;
}

std::uint64_t offset_of_field(ByteView file, const profile_file::ExtentFault& fault)
{
    const std::uint64_t n = profile_file::window_count(file);
    const auto in_array = [&](profile_file::Array array) {
        return profile_file::offset_of_array(n, array) +
               std::uint64_t{profile_file::kNumber_bytes} * fault.entry;
    };
    switch (fault.field) {
    case Field::NONE:
    case Field::COUNT:
        break;
    case Field::FLAG:
        return profile_file::offset_of_flags() + fault.entry;
    case Field::X:
        return in_array(profile_file::Array::X);
    case Field::Y:
        return in_array(profile_file::Array::Y);
    case Field::WIDTH:
        return in_array(profile_file::Array::WIDTH);
    case Field::HEIGHT:
        return in_array(profile_file::Array::HEIGHT);
    case Field::PATH_LENGTH:
        return in_array(profile_file::Array::PATH_LENGTH);
    case Field::PATH: {
        // All lengths are there when a path is what does not fit.
        std::uint64_t offset = profile_file::offset_of_paths(n);
        for (std::uint64_t i = 0; i < fault.entry; ++i)
            offset += length_of_path(file, i) + profile_file::kTerminator_bytes;
        return offset;
    }
    }
    return 0;
}

std::string bytes_text(std::uint64_t bytes)
{
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

Refusal empty_file()
{
    return {.entry = std::nullopt,
            .field = "file",
            .offset = 0,
            .what = "the file is empty",
            .box = "one of callable functions returned error: zero_file_size <- GetFileSizeEx( )",
            .line = 5581,
            .handler_line = 7117,
            .advice = "Take the file from a backup. The program itself leaves an empty file where it was "
                      "asked to load one that did not exist."};
}

Refusal too_short(ByteView file)
{
    return {.entry = std::nullopt,
            .field = "signature",
            .offset = 0,
            .what = "the file has " + bytes_text(file.size()) + ", the signature alone has 3",
            .box = "one of callable functions returned error: error <- SetFilePointer( )",
            .line = 5601,
            .handler_line = 7139,
            .advice = "Take the file from a backup: nothing of a profile is left in this one."};
}

// What became of the signature decides what helps.
std::string signature_advice(ByteView file)
{
    const auto& signature = profile_file::kSignature;
    const auto last = std::find_end(file.begin(), file.end(), signature.begin(), signature.end());
    if (last != file.end()) {
        const auto size = static_cast<std::uint64_t>(last - file.begin()) + signature.size();
        return "The signature ends at byte " + std::to_string(size) + " and " +
               bytes_text(file.size() - size) +
               " follow: something was appended to the file. Cut it to its first " + bytes_text(size) + ".";
    }
    const bool begins_like_one =
        profile_file::window_count(file) != 0 && profile_file::check_extent(file).field == Field::NONE;
    if (begins_like_one)
        return "All entries are there, only the end of the file is missing or changed: put the name and the "
               "bytes 00 07 0C behind them, or take the file from a backup.";
    return "Either this file is no profile, or its end was lost: take it from a backup, or save the profile "
           "again.";
}

Refusal wrong_signature(ByteView file)
{
    const ByteView last = file.last(profile_file::kSignature.size());
    const auto [found, wanted] = std::mismatch(last.begin(), last.end(), profile_file::kSignature.begin());
    const std::string hex = hex_of(last);
    return {.entry = std::nullopt,
            .field = "signature",
            .offset = file.size() - static_cast<std::uint64_t>(last.end() - found),
            .what = "the last three bytes are " + hex.substr(0, 2) + " " + hex.substr(2, 2) + " " +
                    hex.substr(4, 2) + " instead of 00 07 0C",
            .box = "invalid type of file, signature doesn't coincide",
            .line = 5629,
            .handler_line = 7183,
            .advice = signature_advice(file)};
}

Refusal no_windows()
{
    return {.entry = std::nullopt,
            .field = profile_file::name_of_field(Field::COUNT),
            .offset = 0,
            .what = "the file says that it holds no windows",
            .box = "error, 0 == number of windows in profile (data read from file)",
            .line = 5701,
            .handler_line = 7272,
            .advice =
                "A profile without windows cannot be loaded: save it again with at least one row ticked."};
}

std::string past_end_what(ByteView file, const profile_file::ExtentFault& fault, std::uint64_t offset)
{
    const std::string size = "the file of " + bytes_text(file.size());
    if (fault.field == Field::COUNT)
        return size + " is too short for the number of windows";
    const std::uint64_t n = profile_file::window_count(file);
    if (fault.field != Field::PATH)
        return "for " + std::to_string(n) +
               " windows, as the file's first four bytes say, this field lies at "
               "or across the end of " +
               size;
    const std::uint64_t length = length_of_path(file, fault.entry);
    return "the path of " + bytes_text(length) + " with its terminator would end at byte " +
           std::to_string(offset + length + profile_file::kTerminator_bytes) + " of " + size;
}

Refusal past_end(ByteView file, const profile_file::ExtentFault& fault)
{
    const std::string field = profile_file::name_of_field(fault.field);
    const std::uint64_t offset = offset_of_field(file, fault);
    const bool is_path = fault.field == Field::PATH;
    return {.entry = fault.field == Field::COUNT ? std::nullopt : std::optional(fault.entry),
            .field = field,
            .offset = offset,
            .what = past_end_what(file, fault, offset),
            .box = "error, file is damaged: data of profile run past end of file\nentry = " +
                   std::to_string(fault.entry) + ", field = " + field,
            .line = 5713,
            .handler_line = 7294,
            .advice = is_path
                          ? "The length of this path or of one before it is wrong, or the file was cut off: "
                            "take it from a backup, or save the profile again."
                          : "The number of windows is wrong, or the file was cut off: take it from a "
                            "backup, or save the profile again."};
}

} // namespace

std::vector<Refusal> refusals_of(ByteView file)
{
    if (file.empty())
        return {empty_file()};
    if (file.size() < profile_file::kSignature.size())
        return {too_short(file)};
    std::vector<Refusal> refusals;
    if (!profile_file::ends_with_signature(file))
        refusals.push_back(wrong_signature(file));
    if (file.size() >= profile_file::kCount_bytes && profile_file::window_count(file) == 0) {
        refusals.push_back(no_windows());
        return refusals;
    }
    const profile_file::ExtentFault fault = profile_file::check_extent(file);
    if (fault.field != Field::NONE)
        refusals.push_back(past_end(file, fault));
    return refusals;
}

} // namespace profile_tool
