#include "tools/wendlow_profile/entry_warnings.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "sources/profile_file/profile_file.h"
#include "tools/wendlow_profile/contents/entry_text.h"
#include "tools/wendlow_profile/contents/parts.h"

namespace profile_tool
{

namespace
{

constexpr std::size_t kPath_max_units = 32767;     // of a path that the system takes
constexpr std::size_t kImagePath_max_units = 2047; // of a path that the program compares with

// What many entries of one file may have in common, gathered so that a file of many entries gives few lines.
enum class Trait {
    OTHER_KIND,
    ODD_LENGTH,
    EMPTY_PATH,
    CUT_PATH,
    LONG_PATH,
    NO_TERMINATOR,
    EXPLORER,
    ONE_ZERO,
    NEGATIVE_SIZE,
    NOT_THERE,
    OFF_SCREEN,
};

struct TraitText {
    const char* field;
    const char* what;
    const char* advice;
};

TraitText text_of(Trait trait)
{
    switch (trait) {
    case Trait::OTHER_KIND:
        return {"kind flag", "neither 1, a program, nor 0, a folder",
                "The program starts nothing for such an entry."};
    case Trait::ODD_LENGTH:
        return {"path length", "an odd number of bytes, so the path ends in half a character",
                "The program takes the last byte for a character of its own."};
    case Trait::EMPTY_PATH:
        return {"path", "empty", "The program cannot start or open anything for it and says so."};
    case Trait::CUT_PATH:
        return {"path", "has a zero character in it", "For the program the path ends there."};
    case Trait::LONG_PATH:
        return {"path", "longer than any path of a window that the program recognises",
                "The program will not find the window."};
    case Trait::NO_TERMINATOR:
        return {"path", "is not followed by a zero character",
                "The program takes it; other readers may read on."};
    case Trait::EXPLORER:
        return {
            "path", "the program explorer.exe",
            "The program looks for windows of Explorer by the folder that they show, never by this path."};
    case Trait::ONE_ZERO:
        return {"width or height", "one of the two is zero",
                "The program starts the window minimised and leaves it so, as if both were."};
    case Trait::NEGATIVE_SIZE:
        return {"width or height", "negative", "No window has such a size; Windows makes of it what it can."};
    case Trait::NOT_THERE:
        return {"path", "leads to nothing on this computer",
                "Say where it is now: wendlow-profile relink --find FOLDER or --replace OLD NEW."};
    case Trait::OFF_SCREEN:
        return {"rectangle", "touches no monitor of this computer", "The window will be out of sight."};
    }
    return {"", "", ""};
}

struct Gathered {
    std::vector<std::uint32_t> entries;
    std::uint64_t first_offset = 0;
};

void gather(const profile_file::Entry& entry, std::uint64_t offset, Gathered* gathered)
{
    if (gathered->entries.empty())
        gathered->first_offset = offset;
    gathered->entries.push_back(entry.index);
}

bool ends_in_explorer(std::u16string_view path)
{
    constexpr std::u16string_view kExplorer = u"EXPLORER.EXE";
    return path.size() >= kExplorer.size() &&
           without_case(path.substr(path.size() - kExplorer.size())) == kExplorer;
}

bool touches(const profile_file::Entry& entry, const MonitorRectangle& monitor)
{
    const std::int64_t right = std::int64_t{entry.x} + entry.width;
    const std::int64_t bottom = std::int64_t{entry.y} + entry.height;
    return entry.x < monitor.right && right > monitor.left && entry.y < monitor.bottom &&
           bottom > monitor.top;
}

// Looks at one entry after the other.
class EntryInspection
{
public:
    EntryInspection(ByteView file, const Surroundings& surroundings)
        : file_(file), n_(profile_file::window_count(file)), surroundings_(surroundings)
    {
    }

    void look_at(const profile_file::Entry& entry);
    [[nodiscard]] std::vector<Warning> warnings() const;

private:
    void note(Trait trait, const profile_file::Entry& entry, std::uint64_t offset);
    [[nodiscard]] std::uint64_t offset_in(profile_file::Array array, const profile_file::Entry& entry) const;
    void look_at_path(const profile_file::Entry& entry, const std::u16string& path);
    void look_at_rectangle(const profile_file::Entry& entry);

    // One warning for each path that several entries of a kind have, in the order of their first entries.
    void append_same(std::uint8_t kind, const char* what, const char* advice,
                     std::vector<Warning>* all) const;

    ByteView file_;
    std::uint64_t n_;
    const Surroundings& surroundings_;
    std::map<Trait, Gathered> traits_;
    std::array<std::unordered_map<std::u16string, Gathered>, 2> same_;
};

void EntryInspection::look_at(const profile_file::Entry& entry)
{
    const std::u16string path = path_for_system(entry);
    look_at_path(entry, path);
    look_at_rectangle(entry);
    const bool is_known = entry.kind <= profile_file::kKind_program;
    if (!is_known)
        note(Trait::OTHER_KIND, entry, profile_file::offset_of_flags() + entry.index);
    if (is_known && !path.empty())
        gather(entry, static_cast<std::uint64_t>(entry.path - file_.data()),
               &same_[entry.kind][without_case(path)]);
}

void EntryInspection::look_at_path(const profile_file::Entry& entry, const std::u16string& path)
{
    const auto offset = static_cast<std::uint64_t>(entry.path - file_.data());
    const std::uint8_t* terminator = entry.path + entry.path_bytes;
    const std::size_t units = (std::size_t{entry.path_bytes} + 1) / 2;
    if (entry.path_bytes % 2 != 0)
        note(Trait::ODD_LENGTH, entry, offset_in(profile_file::Array::PATH_LENGTH, entry));
    if (terminator[0] != 0 || terminator[1] != 0)
        note(Trait::NO_TERMINATOR, entry, offset + entry.path_bytes);
    if (path.empty())
        note(Trait::EMPTY_PATH, entry, offset);
    else if (path.size() < units)
        note(Trait::CUT_PATH, entry, offset + 2 * path.size());
    if (path.size() > kPath_max_units ||
        (entry.kind == profile_file::kKind_program && path.size() > kImagePath_max_units))
        note(Trait::LONG_PATH, entry, offset);
    if (entry.kind == profile_file::kKind_program && ends_in_explorer(path))
        note(Trait::EXPLORER, entry, offset);
    if (surroundings_.is_there && entry.kind <= profile_file::kKind_program && !path.empty() &&
        !surroundings_.is_there(path))
        note(Trait::NOT_THERE, entry, offset);
}

void EntryInspection::look_at_rectangle(const profile_file::Entry& entry)
{
    if ((entry.width == 0) != (entry.height == 0))
        note(Trait::ONE_ZERO, entry,
             offset_in(entry.width == 0 ? profile_file::Array::WIDTH : profile_file::Array::HEIGHT, entry));
    if (entry.width < 0 || entry.height < 0)
        note(Trait::NEGATIVE_SIZE, entry,
             offset_in(entry.width < 0 ? profile_file::Array::WIDTH : profile_file::Array::HEIGHT, entry));
    const auto& monitors = surroundings_.monitors;
    if (!monitors.empty() && !profile_file::is_minimised(entry) &&
        std::none_of(monitors.begin(), monitors.end(),
                     [&](const MonitorRectangle& monitor) { return touches(entry, monitor); }))
        note(Trait::OFF_SCREEN, entry, offset_in(profile_file::Array::X, entry));
}

void EntryInspection::note(Trait trait, const profile_file::Entry& entry, std::uint64_t offset)
{
    gather(entry, offset, &traits_[trait]);
}

std::uint64_t EntryInspection::offset_in(profile_file::Array array, const profile_file::Entry& entry) const
{
    return profile_file::offset_of_array(n_, array) +
           std::uint64_t{profile_file::kNumber_bytes} * entry.index;
}

std::vector<Warning> EntryInspection::warnings() const
{
    std::vector<Warning> all;
    for (const auto& [trait, gathered] : traits_) {
        const TraitText text = text_of(trait);
        all.push_back({gathered.entries, text.field, gathered.first_offset, text.what, text.advice});
    }
    append_same(profile_file::kKind_program, "are one program", "They share one window.", &all);
    append_same(profile_file::kKind_folder, "are one folder", "They share one window.", &all);
    return all;
}

void EntryInspection::append_same(std::uint8_t kind, const char* what, const char* advice,
                                  std::vector<Warning>* all) const
{
    const std::size_t first = all->size();
    for (const auto& [path, gathered] : same_[kind]) {
        if (gathered.entries.size() > 1)
            all->push_back({gathered.entries, "path", gathered.first_offset, what, advice});
    }
    std::sort(all->begin() + static_cast<std::ptrdiff_t>(first), all->end(),
              [](const Warning& a, const Warning& b) { return a.entries.front() < b.entries.front(); });
}

} // namespace

std::vector<Warning> entry_warnings_of(ByteView file, const Surroundings& surroundings)
{
    EntryInspection inspection(file, surroundings);
    for (const profile_file::Entry& entry : profile_file::entries(file.data()))
        inspection.look_at(entry);
    return inspection.warnings();
}

} // namespace profile_tool
