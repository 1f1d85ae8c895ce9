#include "tools/wendlow_profile/commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_set>

#include "tools/wendlow_profile/contents/checking.h"
#include "tools/wendlow_profile/contents/json_form.h"
#include "tools/wendlow_profile/contents/parts.h"
#include "tools/wendlow_profile/relinking.h"
#include "tools/wendlow_profile/showing.h"
#include "tools/wendlow_profile/warnings.h"

namespace profile_tool
{

namespace
{

constexpr std::size_t kNamedEntries_max = 10; // entries that one line names

ExitCode worse(ExitCode a, ExitCode b)
{
    return std::max(a, b);
}

void report_problem(const std::string& file, const std::string& what, Output* output)
{
    output->err += "wendlow-profile: " + shown(file) + ": " + what + "\n";
}

bool read(const std::string& file, Bytes* bytes, Output* output)
{
    std::string why;
    if (platform::read_file(file, bytes, &why))
        return true;
    report_problem(file, "cannot be read: " + why, output);
    return false;
}

// Reads a profile that the program would load.
ExitCode read_profile(const std::string& file, Bytes* bytes, Output* output)
{
    if (!read(file, bytes, output))
        return EXIT_UNREADABLE;
    const std::vector<Refusal> refusals = refusals_of(*bytes);
    if (refusals.empty())
        return EXIT_FINE;
    report_problem(
        file, "the program would refuse it: " + refusals.front().what + " (wendlow-profile check tells more)",
        output);
    return EXIT_FINDINGS;
}

ExitCode write(const Destination& destination, ByteView bytes, Output* output)
{
    std::string why;
    bool exists = false;
    if (platform::write_new_file(destination.path, bytes, &exists, &why))
        return EXIT_FINE;
    if (exists && !destination.force) {
        report_problem(destination.path, "is there already; --force replaces it", output);
        return EXIT_UNREADABLE;
    }
    if (exists && platform::replace_file(destination.path, bytes, &why))
        return EXIT_FINE;
    report_problem(destination.path, "cannot be written: " + why, output);
    return EXIT_UNREADABLE;
}

// "entry 3", "entries 0, 2 and 5", "entries 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 and 12 more".
std::string entries_text(const std::vector<std::uint32_t>& entries)
{
    if (entries.size() == 1)
        return "entry " + std::to_string(entries.front());
    const std::size_t named = std::min(entries.size(), kNamedEntries_max);
    const std::size_t listed = named == entries.size() ? named - 1 : named;
    std::string text = "entries " + std::to_string(entries.front());
    for (std::size_t i = 1; i < listed; ++i)
        text += ", " + std::to_string(entries[i]);
    return text + " and " +
           (named == entries.size() ? std::to_string(entries.back())
                                    : std::to_string(entries.size() - named) + " more");
}

std::string indented(const std::string& text, const std::string& indent)
{
    std::string out = indent;
    for (const char character : text) {
        out += character;
        if (character == '\n')
            out += indent;
    }
    return out + "\n";
}

std::string text_of(const Refusal& refusal, bool is_first)
{
    return "  fault: " + (refusal.entry ? entries_text({*refusal.entry}) + ", " : "") + refusal.field +
           ", offset " + std::to_string(refusal.offset) + ": " + refusal.what + "\n    " +
           (is_first ? "The program shows a box titled \"error\""
                     : "Once the fault above is mended, the program shows a box titled \"error\"") +
           ", line " + std::to_string(refusal.line) + ":\n" + indented(refusal.box, "      ") + "    " +
           refusal.advice + "\n";
}

std::string text_of(const Warning& warning)
{
    std::string out = "  warning: ";
    if (!warning.entries.empty())
        out += entries_text(warning.entries) + ", ";
    out += warning.field + ", offset " + std::to_string(warning.offset);
    return out + ": " + warning.what + "\n    " + warning.advice + "\n";
}

ExitCode check_file(const std::string& file, bool refusals_only, const Surroundings& surroundings,
                    Output* output)
{
    Bytes bytes;
    if (!read(file, &bytes, output))
        return EXIT_UNREADABLE;
    const std::vector<Refusal> refusals = refusals_of(bytes);
    if (!refusals.empty()) {
        output->out += shown(file) + ": the program refuses this file\n";
        for (const Refusal& refusal : refusals)
            output->out += text_of(refusal, &refusal == &refusals.front());
        return EXIT_FINDINGS;
    }
    const std::vector<Warning> warnings =
        refusals_only ? std::vector<Warning>() : warnings_of(bytes, surroundings);
    if (warnings.empty()) {
        output->out += shown(file) + ": fine\n";
        return EXIT_FINE;
    }
    output->out += shown(file) + ": the program takes this file, with " + std::to_string(warnings.size()) +
                   (warnings.size() == 1 ? " warning\n" : " warnings\n");
    for (const Warning& warning : warnings)
        output->out += text_of(warning);
    return EXIT_FINDINGS;
}

// Searches the folders for the files that the profile misses.
bool find_missing(const ProfileParts& parts, const Relinking& relinking, const RelinkOptions& options,
                  const Surroundings& surroundings, FoundFiles* found, Output* output)
{
    const std::vector<std::u16string> names = names_to_find(parts, relinking, surroundings);
    const std::unordered_set<std::u16string> wanted(names.begin(), names.end());
    for (const std::string& folder : options.folders) {
        std::string why;
        const bool searched = platform::find_files(
            folder, [&](const std::u16string& name) { return wanted.contains(name); },
            [&](const std::u16string& name, const std::u16string& path) { (*found)[name].push_back(path); },
            &why);
        if (!searched) {
            report_problem(folder, "cannot be searched: " + why, output);
            return false;
        }
    }
    for (auto& [name, places] : *found) {
        std::sort(places.begin(), places.end());
        // One folder inside another gives a file twice.
        places.erase(std::unique(places.begin(), places.end()), places.end());
    }
    return true;
}

bool units_of_replacements(const RelinkOptions& options, Relinking* relinking, Output* output)
{
    bool are_fine = true;
    for (const auto& [old_begin, new_begin] : options.replacements) {
        const auto old_units = utf16_of(old_begin);
        const auto new_units = utf16_of(new_begin);
        are_fine = are_fine && old_units && new_units && !old_units->empty() && !new_units->empty();
        if (are_fine)
            relinking->replacements.emplace_back(*old_units, *new_units);
    }
    if (!are_fine)
        output->err += "wendlow-profile: --replace: OLD and NEW must not be empty and must be UTF-8\n";
    return are_fine;
}

// One line for each entry that was not left as it is, and the sums.
ExitCode report_relinking(const std::vector<RelinkedEntry>& entries, const Surroundings& surroundings,
                          Output* output)
{
    std::size_t relinked = 0;
    std::size_t open = 0;
    for (const RelinkedEntry& entry : entries) {
        const std::string head = "entry " + std::to_string(entry.entry) + ": " + shown(entry.old_path);
        switch (entry.what) {
        case Relinked::LEFT:
            break;
        case Relinked::REPLACED:
        case Relinked::FOUND: {
            const bool is_missing = surroundings.is_there && !surroundings.is_there(entry.places.front());
            output->out += head + "\n  -> " + shown(entry.places.front()) +
                           (is_missing ? " (not there either)\n" : "\n");
            ++relinked;
            open += is_missing ? 1U : 0U;
            break;
        }
        case Relinked::AMBIGUOUS:
            output->out += head + "\n  left as it is, there are several of that name:\n";
            for (const std::u16string& place : entry.places)
                output->out += "     " + shown(place) + "\n";
            ++open;
            break;
        case Relinked::NOT_FOUND:
            output->out += head + "\n  left as it is, no new place is known\n";
            ++open;
            break;
        }
    }
    output->out += std::to_string(relinked) + " of " + std::to_string(entries.size()) +
                   (entries.size() == 1 ? " entry relinked, " : " entries relinked, ") +
                   std::to_string(open) + " still to be mended\n";
    return open == 0 ? EXIT_FINE : EXIT_FINDINGS;
}

} // namespace

ExitCode show_command(const std::vector<std::string>& files, bool as_json, Output* output)
{
    ExitCode result = EXIT_FINE;
    bool is_first = true;
    if (as_json)
        output->out += "[";
    for (const std::string& file : files) {
        Bytes bytes;
        const ExitCode read_result = read_profile(file, &bytes, output);
        result = worse(result, read_result);
        if (read_result != EXIT_FINE)
            continue;
        if (as_json)
            output->out += (is_first ? "\n" : ",\n") + json_summary_of_profile(file, bytes);
        else
            output->out += (is_first ? "" : "\n") + table_of_profile(file, bytes);
        is_first = false;
    }
    if (as_json)
        output->out += "\n]\n";
    return result;
}

ExitCode check_command(const std::vector<std::string>& files, bool refusals_only,
                       const Surroundings& surroundings, Output* output)
{
    ExitCode result = EXIT_FINE;
    for (const std::string& file : files)
        result = worse(result, check_file(file, refusals_only, surroundings, output));
    return result;
}

ExitCode to_json_command(const std::string& file, const Destination& destination, Output* output)
{
    Bytes bytes;
    const ExitCode result = read_profile(file, &bytes, output);
    if (result != EXIT_FINE)
        return result;
    const std::string json = json_of_profile(bytes);
    if (destination.path.empty()) {
        output->out += json;
        return EXIT_FINE;
    }
    return write(destination, Bytes(json.begin(), json.end()), output);
}

ExitCode from_json_command(const std::string& file, const Destination& destination, Output* output)
{
    Bytes json;
    if (!read(file, &json, output))
        return EXIT_UNREADABLE;
    Bytes profile;
    std::string why;
    if (!profile_of_json({reinterpret_cast<const char*>(json.data()), json.size()}, &profile, &why)) {
        report_problem(file, why, output);
        return EXIT_UNREADABLE;
    }
    return write(destination, profile, output);
}

ExitCode relink_command(const std::string& file, const Destination& destination, const RelinkOptions& options,
                        const Surroundings& surroundings, Output* output)
{
    Relinking relinking{
        .replacements = {}, .takes_all = options.takes_all, .finds = !options.folders.empty()};
    if (!units_of_replacements(options, &relinking, output))
        return EXIT_USAGE;
    Bytes bytes;
    const ExitCode result = read_profile(file, &bytes, output);
    if (result != EXIT_FINE)
        return result;
    ProfileParts parts = take_apart(bytes);
    FoundFiles found;
    if (!find_missing(parts, relinking, options, surroundings, &found, output))
        return EXIT_UNREADABLE;
    const std::vector<RelinkedEntry> entries = relink(relinking, found, surroundings, &parts);
    const Bytes relinked = put_together(parts);
    // A file that hides its name among the paths may not stand their change.
    const std::vector<Refusal> refusals = refusals_of(relinked);
    if (!refusals.empty()) {
        report_problem(file, "the program would refuse the result: " + refusals.front().what, output);
        return EXIT_UNREADABLE;
    }
    const ExitCode written = write(destination, relinked, output);
    if (written != EXIT_FINE)
        return written;
    return report_relinking(entries, surroundings, output);
}

ExitCode open_command(const std::string& file, Output* output)
{
    const std::optional<std::string> why = platform::open_profile(file);
    if (!why)
        return EXIT_FINE;
    report_problem(file, *why, output);
    return EXIT_UNREADABLE;
}

} // namespace profile_tool
