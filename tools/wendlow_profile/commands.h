// The tool's commands. Paths and texts are UTF-8.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tools/wendlow_profile/system/platform.h"

namespace profile_tool
{

enum ExitCode {
    EXIT_FINE = 0,
    EXIT_FINDINGS = 1,   // something is wrong with a profile, or a user should know of it
    EXIT_USAGE = 2,      // the command line cannot be understood
    EXIT_UNREADABLE = 3, // a file cannot be read or written, or holds no JSON form
};

// What a command has to say: results, and what went wrong.
struct Output {
    std::string out;
    std::string err;
};

// Where a command's result goes.
struct Destination {
    std::string path; // none: to the output
    bool force = false;
};

// Each command says in `output` what it found or did and returns the worst that it met; a file that cannot be
// read or written is told there with the system's reason.

// Shows the name and the entries of each file, as a table or as JSON.
ExitCode show_command(const std::vector<std::string>& files, bool as_json, Output* output);

// Tells for each file why the program refuses it or, unless `refusals_only`, what its owner should know of
// it.
ExitCode check_command(const std::vector<std::string>& files, bool refusals_only,
                       const Surroundings& surroundings, Output* output);

// Writes the JSON form of a profile.
ExitCode to_json_command(const std::string& file, const Destination& destination, Output* output);

// Writes the profile that a JSON form stands for.
ExitCode from_json_command(const std::string& file, const Destination& destination, Output* output);

// How relink_command looks for new places.
struct RelinkOptions {
    std::vector<std::pair<std::string, std::string>> replacements; // beginnings of paths, old and new
    std::vector<std::string> folders;                              // where programs are looked for by name
    bool takes_all = false;                                        // replaces also in paths that are there
};

// Writes the profile with new places for the paths that are gone, and tells what became of each.
ExitCode relink_command(const std::string& file, const Destination& destination, const RelinkOptions& options,
                        const Surroundings& surroundings, Output* output);

// Hands a profile to the running program, or starts it first.
ExitCode open_command(const std::string& file, Output* output);

} // namespace profile_tool
