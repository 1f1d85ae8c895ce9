#include "tools/wendlow_profile/warnings.h"

#include <algorithm>
#include <string>

#include "sources/profile_file/profile_file.h"
#include "tools/wendlow_profile/contents/parts.h"

namespace profile_tool
{

namespace
{

constexpr std::size_t kName_max_units = 256;          // of a name that the program saves
constexpr std::size_t kShownName_max_units = 201;     // of a name in the program's list
constexpr std::uint64_t kStore_max_bytes = 0x2000000; // of all files that the program keeps
constexpr std::uint64_t kStore_max_windows = 0x80000; // of all profiles that it keeps

Warning about_file(const char* field, std::uint64_t offset, std::string what, const char* advice)
{
    return {{}, field, offset, std::move(what), advice};
}

void append_name_warnings(ByteView file, const Ending& ending, std::vector<Warning>* all)
{
    if (ending.name_begin == 0) {
        all->push_back(
            about_file("name", ending.name_end, "cannot be found, no zero character precedes it",
                       "The program shows the box \"0 == flag_offset_PrfName_beg_found\", titled "
                       "\"warning,error\", or takes the end of a profile loaded before for the name."));
        return;
    }
    const std::u16string name =
        units_of(file.subspan(ending.name_begin, ending.name_end - ending.name_begin));
    if (ending.name_begin < ending.paths_end)
        all->push_back(about_file("name", ending.name_begin, "begins inside what comes before it",
                                  "The program shows whatever it finds there as the name."));
    if (name.empty())
        all->push_back(about_file("name", ending.name_begin, "empty",
                                  "The program's list shows an empty line for this profile."));
    if (name.size() > kName_max_units)
        all->push_back(about_file("name", ending.name_begin,
                                  "has " + std::to_string(name.size()) +
                                      " characters, the program saves at most " +
                                      std::to_string(kName_max_units),
                                  "It is loaded, and shown cut off."));
    else if (name.size() > kShownName_max_units)
        all->push_back(about_file("name", ending.name_begin,
                                  "has " + std::to_string(name.size()) + " characters",
                                  "The program's list shows the first 201 of them."));
    if (std::any_of(name.begin(), name.end(), [](char16_t unit) { return unit > 0xFF; }))
        all->push_back(about_file("name", ending.name_begin, "has characters beyond U+00FF",
                                  "The program's list shows other characters in their place."));
}

void append_tail_warnings(ByteView file, const Ending& ending, std::vector<Warning>* all)
{
    if (!ending.has_name_of_its_own())
        return;
    const std::uint64_t between = ending.name_begin - ending.paths_end;
    const std::uint64_t tail = zero_tail_of(file, ending);
    if (tail < ending.all_paths)
        all->push_back(about_file("zero tail", ending.paths_end,
                                  "has " + std::to_string(tail) + " of the " +
                                      std::to_string(ending.all_paths) +
                                      " zero bytes that belong between the paths and the name",
                                  "The program takes it; other readers may look for the name elsewhere."));
    if (tail < between)
        all->push_back(about_file("surplus", ending.paths_end + tail,
                                  std::to_string(between - tail) +
                                      (between - tail == 1 ? " byte" : " bytes") +
                                      " too many between the paths and the name",
                                  "The program passes over them."));
}

void append_size_warnings(ByteView file, std::vector<Warning>* all)
{
    if (file.size() > kStore_max_bytes || profile_file::window_count(file) > kStore_max_windows)
        all->push_back(about_file("file", 0, "larger than what the program can keep of all profiles together",
                                  "The program starts and places the windows, but does not add the profile "
                                  "to its list."));
}

} // namespace

std::vector<Warning> warnings_of(ByteView file, const Surroundings& surroundings)
{
    std::vector<Warning> all = entry_warnings_of(file, surroundings);
    const Ending ending = ending_of(file);
    append_tail_warnings(file, ending, &all);
    append_name_warnings(file, ending, &all);
    append_size_warnings(file, &all);
    return all;
}

} // namespace profile_tool
