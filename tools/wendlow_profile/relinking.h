// New places for the programs and folders of a profile that have moved.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tools/wendlow_profile/contents/parts.h"
#include "tools/wendlow_profile/system/platform.h"

namespace profile_tool
{

// The beginning of paths, a whole folder or file, and what stands in its place.
using Replacement = std::pair<std::u16string, std::u16string>;

// Paths by the name of their file in capitals.
using FoundFiles = std::unordered_map<std::u16string, std::vector<std::u16string>>;

enum class Relinked { LEFT, REPLACED, FOUND, AMBIGUOUS, NOT_FOUND };

struct RelinkedEntry {
    std::uint32_t entry;
    Relinked what;
    std::u16string old_path;
    std::vector<std::u16string> places; // the new path, or the ones to choose from
};

struct Relinking {
    std::vector<Replacement> replacements;
    bool takes_all = false; // replaces also in paths that are there
    bool finds = false;     // looks for programs by name
};

// The last part of a path, in capitals.
std::u16string file_name_in_capitals(std::u16string_view path);

// The names of files that `relink` will look for, in capitals.
std::vector<std::u16string> names_to_find(const ProfileParts& parts, const Relinking& relinking,
                                          const Surroundings& surroundings);

// Changes the paths that have a new place and tells what became of each entry that needed one.
std::vector<RelinkedEntry> relink(const Relinking& relinking, const FoundFiles& found,
                                  const Surroundings& surroundings, ProfileParts* parts);

} // namespace profile_tool
