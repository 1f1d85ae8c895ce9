#include "tools/wendlow_profile/contents/json_form.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "sources/profile_file/profile_file.h"
#include "tools/wendlow_profile/contents/checking.h"
#include "tools/wendlow_profile/contents/parts.h"

namespace profile_tool
{

namespace
{

using Json = nlohmann::json;

constexpr const char* kFormat = "wendlow profile";
constexpr int kVersion = 1;

// What is wrong with a form, and where.
class FormError : public std::runtime_error
{
public:
    FormError(const std::string& where, const std::string& what)
        : std::runtime_error(where.empty() ? what : where + ": " + what)
    {
    }
};

// Writing.

void append_entry(std::string* out, const EntryParts& entry)
{
    *out += R"({"kind": )";
    if (entry.kind == profile_file::kKind_program)
        *out += R"("program")";
    else if (entry.kind == profile_file::kKind_folder)
        *out += R"("folder")";
    else
        *out += std::to_string(entry.kind);
    for (const auto& [name, number] : {std::pair{"x", entry.x}, std::pair{"y", entry.y},
                                       std::pair{"width", entry.width}, std::pair{"height", entry.height}})
        *out += std::string(", \"") + name + "\": " + std::to_string(number);
    *out += R"(, "path": )" + json_of_text(units_of(entry.path));
    if (entry.path.size() % 2 != 0)
        *out += R"(, "path_odd_byte": )" + std::to_string(entry.path.back());
    if (entry.terminator != std::array<std::uint8_t, 2>{})
        *out += R"(, "terminator": )" + json_string(hex_of(entry.terminator));
    *out += "}";
}

// Reading.

void refuse_unknown_keys(const Json& object, const std::string& where, const std::set<std::string>& known)
{
    for (const auto& item : object.items())
        if (!known.contains(item.key()))
            throw FormError(where + "/" + item.key(), "nothing of this name is known here");
}

const Json& member(const Json& object, const std::string& where, const char* name)
{
    const auto found = object.find(name);
    if (found == object.end())
        throw FormError(where + "/" + name, "is missing");
    return *found;
}

std::int64_t whole_number(const Json& value, const std::string& where, std::int64_t least, std::int64_t most)
{
    const bool fits_64 =
        value.is_number_integer() &&
        (!value.is_number_unsigned() ||
         value.get<std::uint64_t>() <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()));
    if (fits_64) {
        const auto number = value.get<std::int64_t>();
        if (number >= least && number <= most)
            return number;
    }
    throw FormError(where, "a whole number from " + std::to_string(least) + " to " + std::to_string(most) +
                               " is wanted");
}

std::u16string string_units(const Json& value)
{
    // The parser has let valid UTF-8 through only.
    return utf16_of(value.get_ref<const std::string&>()).value_or(std::u16string());
}

std::u16string text(const Json& value, const std::string& where)
{
    if (value.is_string())
        return string_units(value);
    if (!value.is_array())
        throw FormError(where, "a string, or an array of strings and numbers of UTF-16 units, is wanted");
    std::u16string units;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i].is_string())
            units += string_units(value[i]);
        else
            units.push_back(
                static_cast<char16_t>(whole_number(value[i], where + "/" + std::to_string(i), 0, 0xFFFF)));
    }
    return units;
}

Bytes hex_bytes(const Json& value, const std::string& where)
{
    if (value.is_string()) {
        const std::optional<Bytes> bytes = bytes_of_hex(value.get_ref<const std::string&>());
        if (bytes)
            return *bytes;
    }
    throw FormError(where, "a string of pairs of hexadecimal digits is wanted");
}

std::uint8_t kind(const Json& value, const std::string& where)
{
    if (value == "program")
        return profile_file::kKind_program;
    if (value == "folder")
        return profile_file::kKind_folder;
    if (value.is_number())
        return static_cast<std::uint8_t>(whole_number(value, where, 0, 255));
    throw FormError(where, R"("program", "folder" or a number from 0 to 255 is wanted)");
}

EntryParts entry_parts(const Json& entry, const std::string& where)
{
    if (!entry.is_object())
        throw FormError(where, "an object is wanted");
    refuse_unknown_keys(entry, where,
                        {"kind", "x", "y", "width", "height", "path", "path_odd_byte", "terminator"});
    const auto number = [&](const char* name) {
        return static_cast<std::int32_t>(whole_number(member(entry, where, name), where + "/" + name,
                                                      std::numeric_limits<std::int32_t>::min(),
                                                      std::numeric_limits<std::int32_t>::max()));
    };
    EntryParts parts;
    parts.kind = kind(member(entry, where, "kind"), where + "/kind");
    parts.x = number("x");
    parts.y = number("y");
    parts.width = number("width");
    parts.height = number("height");
    parts.path = bytes_of(text(member(entry, where, "path"), where + "/path"));
    if (entry.contains("path_odd_byte"))
        parts.path.push_back(static_cast<std::uint8_t>(
            whole_number(entry["path_odd_byte"], where + "/path_odd_byte", 0, 255)));
    if (entry.contains("terminator")) {
        const Bytes bytes = hex_bytes(entry["terminator"], where + "/terminator");
        if (bytes.size() != parts.terminator.size())
            throw FormError(where + "/terminator", "four hexadecimal digits are wanted");
        std::copy(bytes.begin(), bytes.end(), parts.terminator.begin());
    }
    return parts;
}

void read_ending(const Json& form, ProfileParts* parts)
{
    if (form.contains("after_paths")) {
        for (const char* name : {"name", "zero_tail", "surplus"})
            if (form.contains(name))
                throw FormError(std::string("/") + name, "cannot stand beside \"after_paths\"");
        parts->after_paths = hex_bytes(form["after_paths"], "/after_paths");
        return;
    }
    parts->name = bytes_of(text(member(form, "", "name"), "/name"));
    // A few digits must not make a file of any size.
    if (form.contains("zero_tail"))
        parts->zero_tail_bytes = static_cast<std::uint64_t>(whole_number(
            form["zero_tail"], "/zero_tail", 0, static_cast<std::int64_t>(all_path_bytes(*parts))));
    if (form.contains("surplus"))
        parts->surplus = hex_bytes(form["surplus"], "/surplus");
}

ProfileParts parts_of_form(const Json& form)
{
    if (!form.is_object())
        throw FormError("", "an object is wanted");
    if (member(form, "", "format") != kFormat)
        throw FormError("/format", std::string("\"") + kFormat + "\" is wanted");
    if (member(form, "", "version") != kVersion)
        throw FormError("/version", "this program knows version 1 only");
    refuse_unknown_keys(form, "",
                        {"format", "version", "name", "entries", "zero_tail", "surplus", "after_paths"});
    const Json& entries = member(form, "", "entries");
    if (!entries.is_array() || entries.empty())
        throw FormError("/entries", "an array of at least one entry is wanted");
    ProfileParts parts;
    parts.entries.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        parts.entries.push_back(entry_parts(entries[i], "/entries/" + std::to_string(i)));
    read_ending(form, &parts);
    if (size_of(parts) > kFile_max_bytes)
        throw FormError("", "the file would be larger than any that the program loads");
    return parts;
}

// Refuses a name that stands twice in one object, of which the library would take one. A check inside its
// reading would look at the whole array behind each entry, so the text is read once more instead.
class DuplicateNameCheck : public nlohmann::json_sax<Json>
{
public:
    bool start_object(std::size_t) override
    {
        open_objects_.emplace_back();
        return true;
    }
    bool end_object() override
    {
        open_objects_.pop_back();
        return true;
    }
    bool key(std::string& name) override
    {
        if (!open_objects_.back().insert(name).second)
            throw FormError("", "the name " + json_string(name) + " stands twice in one object");
        return true;
    }
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const std::string&) override { return true; }
    bool string(std::string&) override { return true; }
    bool binary(Json::binary_t&) override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    // The reading that follows tells of it.
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override
    {
        return false;
    }

private:
    std::vector<std::set<std::string>> open_objects_;
};

Json parse_without_duplicates(std::string_view json)
{
    if (json.starts_with("\xFF\xFE") || json.starts_with("\xFE\xFF"))
        throw FormError("", "it is UTF-16, as some shells write what they redirect; UTF-8 is wanted");
    DuplicateNameCheck check;
    Json::sax_parse(json, &check);
    return Json::parse(json);
}

// The library's own texts begin with a mark of the kind "[json.exception.parse_error.101] ".
std::string without_mark(const std::string& what)
{
    const std::size_t end = what.find("] ");
    return what.starts_with("[json.") && end != std::string::npos ? what.substr(end + 2) : what;
}

// The library quotes all that it has read of a text without an end.
std::string shortened(const std::string& text)
{
    constexpr std::size_t kKept_bytes = 200; // of the beginning, and of the end
    if (text.size() <= 2 * kKept_bytes)
        return text;
    const auto is_inside_character = [&](std::size_t i) { return (text[i] & 0xC0) == 0x80; };
    std::size_t begin = kKept_bytes;
    while (begin > 0 && is_inside_character(begin))
        --begin;
    std::size_t end = text.size() - kKept_bytes;
    while (end < text.size() && is_inside_character(end))
        ++end;
    return text.substr(0, begin) + " ... " + text.substr(end);
}

// The program has to read out of the file what the form says.
void require_loadable(const ProfileParts& parts, ByteView file)
{
    const std::vector<Refusal> refusals = refusals_of(file);
    if (!refusals.empty())
        throw FormError("", "the program would refuse the file: " + refusals.front().what);
    if (parts.after_paths)
        return;
    const Ending ending = ending_of(file);
    if (ending.name_end - ending.name_begin != parts.name.size())
        throw FormError("/name", "the program would find another name: the character right before it must be "
                                 "zero, and none in it");
}

} // namespace

std::string json_string(std::string_view utf8)
{
    return Json(utf8).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string json_of_text(std::u16string_view text)
{
    std::string out;
    std::size_t begin = 0; // of the part without halves of pairs
    std::size_t parts = 0;
    const auto append = [&](const std::string& part) { out += (parts++ == 0 ? "" : ", ") + part; };
    const auto append_string = [&](std::size_t end) {
        if (end > begin)
            append(json_string(utf8_of(text.substr(begin, end - begin))));
    };
    bool is_array = false;
    for (std::size_t i = 0; i < text.size();) {
        const Character character = character_at(text, i);
        if (character.is_unpaired) {
            append_string(i);
            append(std::to_string(static_cast<unsigned>(character.code)));
            begin = i + 1;
            is_array = true;
        }
        i += character.units;
    }
    append_string(text.size());
    if (is_array)
        return "[" + out + "]";
    return out.empty() ? "\"\"" : out;
}

std::string json_of_profile(ByteView accepted_file)
{
    const ProfileParts parts = take_apart(accepted_file);
    std::string out = std::string("{\n  \"format\": \"") + kFormat +
                      "\",\n  \"version\": " + std::to_string(kVersion) + ",\n";
    if (!parts.after_paths)
        out += "  \"name\": " + json_of_text(units_of(parts.name)) + ",\n";
    out += "  \"entries\": [\n";
    for (std::size_t i = 0; i < parts.entries.size(); ++i) {
        out += "    ";
        append_entry(&out, parts.entries[i]);
        out += i + 1 < parts.entries.size() ? ",\n" : "\n";
    }
    out += "  ]";
    if (parts.zero_tail_bytes)
        out += ",\n  \"zero_tail\": " + std::to_string(*parts.zero_tail_bytes);
    if (!parts.surplus.empty())
        out += ",\n  \"surplus\": " + json_string(hex_of(parts.surplus));
    if (parts.after_paths)
        out += ",\n  \"after_paths\": " + json_string(hex_of(*parts.after_paths));
    return out + "\n}\n";
}

bool profile_of_json(std::string_view json, Bytes* file, std::string* why)
{
    try {
        const ProfileParts parts = parts_of_form(parse_without_duplicates(json));
        Bytes bytes = put_together(parts);
        require_loadable(parts, bytes);
        *file = std::move(bytes);
        return true;
    } catch (const std::bad_alloc&) {
        *why = "there is not enough memory for it";
    } catch (const std::exception& error) {
        *why = shortened(shown(without_mark(error.what())));
    }
    return false;
}

} // namespace profile_tool
