#include "tools/wendlow_profile/showing.h"

#include <algorithm>
#include <array>

#include "sources/profile_file/profile_file.h"
#include "tools/wendlow_profile/contents/entry_text.h"
#include "tools/wendlow_profile/contents/json_form.h"
#include "tools/wendlow_profile/contents/parts.h"

namespace profile_tool
{

namespace
{

// Columns of the table that stand to the right; the path follows them.
enum Column { NUMBER, KIND, X, Y, WIDTH, HEIGHT, N_COLUMNS };
using Row = std::array<std::string, N_COLUMNS>;
using Widths = std::array<std::size_t, N_COLUMNS>;

const Row& headings()
{
    static const Row row{"#", "kind", "x", "y", "width", "height"};
    return row;
}

constexpr std::string_view kMinimised = "minimised";

std::string kind_text(std::uint8_t kind)
{
    if (kind == profile_file::kKind_program)
        return "program";
    return kind == profile_file::kKind_folder ? "folder" : std::string("kind ").append(std::to_string(kind));
}

Row row_of(const profile_file::Entry& entry)
{
    return {std::to_string(entry.index), kind_text(entry.kind),       std::to_string(entry.x),
            std::to_string(entry.y),     std::to_string(entry.width), std::to_string(entry.height)};
}

Widths widths_of(ByteView file)
{
    Widths widths{};
    const auto widen = [&](const Row& row) {
        for (std::size_t i = 0; i < N_COLUMNS; ++i)
            widths[i] = std::max(widths[i], row[i].size());
    };
    widen(headings());
    for (const profile_file::Entry& entry : profile_file::entries(file.data())) {
        Row row = row_of(entry);
        // One word stands across both columns.
        if (profile_file::is_minimised(entry)) {
            row[WIDTH].clear();
            row[HEIGHT].clear();
            if (widths[WIDTH] + widths[HEIGHT] + 2 < kMinimised.size())
                widths[WIDTH] = kMinimised.size() - 2 - widths[HEIGHT];
        }
        widen(row);
    }
    return widths;
}

void append_cell(std::string* out, std::string_view cell, std::size_t width, bool to_the_right)
{
    const std::string space(width - std::min(width, cell.size()), ' ');
    *out += "  ";
    if (to_the_right)
        *out += space;
    *out += cell;
    if (!to_the_right)
        *out += space;
}

void append_row(std::string* out, const Row& row, const Widths& widths, bool is_minimised,
                const std::string& path)
{
    for (const Column column : {NUMBER, KIND, X, Y})
        append_cell(out, row[column], widths[column], column != KIND);
    if (is_minimised) {
        append_cell(out, kMinimised, widths[WIDTH] + 2 + widths[HEIGHT], true);
    } else {
        append_cell(out, row[WIDTH], widths[WIDTH], true);
        append_cell(out, row[HEIGHT], widths[HEIGHT], true);
    }
    if (!path.empty())
        out->append("  ").append(path);
    *out += "\n";
}

// The name as readers of the file find it; none when they find none.
std::optional<std::u16string> name_of(ByteView file)
{
    const Ending ending = ending_of(file);
    if (ending.name_begin == 0)
        return std::nullopt;
    return units_of(file.subspan(ending.name_begin, ending.name_end - ending.name_begin));
}

} // namespace

std::string table_of_profile(const std::string& title, ByteView accepted_file)
{
    const std::uint32_t n = profile_file::window_count(accepted_file);
    const std::optional<std::u16string> name = name_of(accepted_file);
    std::string out = shown(title) + ": " +
                      (name ? std::string("\"").append(shown(*name)).append("\"") : "no name") + ", " +
                      std::to_string(n) + (n == 1 ? " entry, " : " entries, ") +
                      std::to_string(accepted_file.size()) + " bytes\n";
    const Widths widths = widths_of(accepted_file);
    append_row(&out, headings(), widths, false, "path");
    for (const profile_file::Entry& entry : profile_file::entries(accepted_file.data()))
        append_row(&out, row_of(entry), widths, profile_file::is_minimised(entry),
                   shown(path_for_system(entry)));
    return out;
}

std::string json_summary_of_profile(const std::string& title, ByteView accepted_file)
{
    const std::optional<std::u16string> name = name_of(accepted_file);
    std::string out = R"({"file": )" + json_string(title) + R"(, "bytes": )" +
                      std::to_string(accepted_file.size()) + R"(, "name": )" +
                      (name ? json_of_text(*name) : "null") + ", \"entries\": [";
    for (const profile_file::Entry& entry : profile_file::entries(accepted_file.data())) {
        out += entry.index == 0 ? "\n" : ",\n";
        out += R"(  {"number": )" + std::to_string(entry.index);
        out +=
            R"(, "kind": )" + (entry.kind <= profile_file::kKind_program ? json_string(kind_text(entry.kind))
                                                                         : std::to_string(entry.kind));
        out += R"(, "x": )" + std::to_string(entry.x) + R"(, "y": )" + std::to_string(entry.y);
        out += R"(, "width": )" + std::to_string(entry.width);
        out += R"(, "height": )" + std::to_string(entry.height);
        out += R"(, "minimised": )" + std::string(profile_file::is_minimised(entry) ? "true" : "false");
        out += R"(, "path": )" + json_of_text(path_for_system(entry)) + "}";
    }
    return out + "\n]}";
}

} // namespace profile_tool
