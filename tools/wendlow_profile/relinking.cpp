#include "tools/wendlow_profile/relinking.h"

#include <algorithm>
#include <optional>

#include "sources/profile_file/profile_file.h"

namespace profile_tool
{

namespace
{

bool is_separator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

// The path of an entry whose path is an ordinary one.
std::optional<std::u16string> path_of(const EntryParts& entry)
{
    const std::u16string path = units_of(entry.path);
    if (path.empty() || entry.path.size() % 2 != 0 || path.find(u'\0') != std::u16string::npos)
        return std::nullopt;
    return path;
}

bool is_known_to_be_there(const std::u16string& path, const Surroundings& surroundings)
{
    return surroundings.is_there && surroundings.is_there(path);
}

// The path with its beginning replaced; nothing when it does not begin so, or only with a part of a name.
std::optional<std::u16string> replaced(const std::u16string& path, const Replacement& replacement)
{
    const auto& [old_begin, new_begin] = replacement;
    if (old_begin.empty() || path.size() < old_begin.size() ||
        without_case(std::u16string_view(path).substr(0, old_begin.size())) != without_case(old_begin))
        return std::nullopt;
    const std::u16string rest = path.substr(old_begin.size());
    const bool ends_with_name = rest.empty() || is_separator(rest.front()) || is_separator(old_begin.back());
    if (!ends_with_name)
        return std::nullopt;
    // One separator between the two, whichever of them has brought one.
    std::u16string begin = new_begin;
    const bool has_separator = !begin.empty() && is_separator(begin.back());
    if (!rest.empty() && is_separator(rest.front()) && has_separator)
        begin.pop_back();
    if (!rest.empty() && !is_separator(rest.front()) && !has_separator)
        begin.push_back(u'\\');
    return begin + rest;
}

// The first replacement whose result is there, else the first of all.
std::optional<std::u16string> best_replacement(const std::u16string& path, const Relinking& relinking,
                                               const Surroundings& surroundings)
{
    std::optional<std::u16string> first;
    for (const Replacement& replacement : relinking.replacements) {
        std::optional<std::u16string> result = replaced(path, replacement);
        if (result && is_known_to_be_there(*result, surroundings))
            return result;
        if (result && !first)
            first = result;
    }
    return first;
}

// A new place by replacement that need not be looked for any further.
bool settles(const std::optional<std::u16string>& replacement, const Surroundings& surroundings)
{
    return replacement && (!surroundings.is_there || surroundings.is_there(*replacement));
}

bool is_to_be_found(const EntryParts& entry, const std::u16string& path, const Relinking& relinking,
                    const Surroundings& surroundings)
{
    return relinking.finds && entry.kind == profile_file::kKind_program &&
           !is_known_to_be_there(path, surroundings) &&
           !settles(best_replacement(path, relinking, surroundings), surroundings);
}

RelinkedEntry relink_entry(std::uint32_t index, const EntryParts& entry, const std::u16string& path,
                           const Relinking& relinking, const FoundFiles& found,
                           const Surroundings& surroundings)
{
    const bool is_there = is_known_to_be_there(path, surroundings);
    if (is_there && !relinking.takes_all)
        return {index, Relinked::LEFT, path, {}};
    if (is_to_be_found(entry, path, relinking, surroundings)) {
        const auto places = found.find(file_name_in_capitals(path));
        if (places != found.end() && places->second.size() == 1)
            return {index, Relinked::FOUND, path, places->second};
        if (places != found.end() && !places->second.empty())
            return {index, Relinked::AMBIGUOUS, path, places->second};
    }
    const std::optional<std::u16string> replacement = best_replacement(path, relinking, surroundings);
    if (replacement)
        return {index, Relinked::REPLACED, path, {*replacement}};
    // Where nothing tells whether a path is there, only one that was looked for is missing.
    const bool is_missing =
        surroundings.is_there ? !is_there : is_to_be_found(entry, path, relinking, surroundings);
    return {index, is_missing ? Relinked::NOT_FOUND : Relinked::LEFT, path, {}};
}

} // namespace

std::u16string file_name_in_capitals(std::u16string_view path)
{
    const std::size_t separator = path.find_last_of(u"\\/");
    return without_case(separator == std::u16string_view::npos ? path : path.substr(separator + 1));
}

std::vector<std::u16string> names_to_find(const ProfileParts& parts, const Relinking& relinking,
                                          const Surroundings& surroundings)
{
    std::vector<std::u16string> names;
    for (const EntryParts& entry : parts.entries) {
        const std::optional<std::u16string> path = path_of(entry);
        if (path && is_to_be_found(entry, *path, relinking, surroundings))
            names.push_back(file_name_in_capitals(*path));
    }
    return names;
}

std::vector<RelinkedEntry> relink(const Relinking& relinking, const FoundFiles& found,
                                  const Surroundings& surroundings, ProfileParts* parts)
{
    std::vector<RelinkedEntry> results;
    results.reserve(parts->entries.size());
    for (std::size_t i = 0; i < parts->entries.size(); ++i) {
        EntryParts& entry = parts->entries[i];
        const std::optional<std::u16string> path = path_of(entry);
        const auto index = static_cast<std::uint32_t>(i);
        if (!path) {
            results.push_back({index, Relinked::LEFT, {}, {}});
            continue;
        }
        results.push_back(relink_entry(index, entry, *path, relinking, found, surroundings));
        const Relinked what = results.back().what;
        if (what == Relinked::REPLACED || what == Relinked::FOUND)
            entry.path = bytes_of(results.back().places.front());
    }
    return results;
}

} // namespace profile_tool
