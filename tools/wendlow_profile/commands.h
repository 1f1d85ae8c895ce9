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

ExitCode show_command(const std::vector<std::string>& files, bool as_json, Output* output);

ExitCode check_command(const std::vector<std::string>& files, bool refusals_only,
                       const Surroundings& surroundings, Output* output);

ExitCode to_json_command(const std::string& file, const Destination& destination, Output* output);

ExitCode from_json_command(const std::string& file, const Destination& destination, Output* output);

struct RelinkOptions {
    std::vector<std::pair<std::string, std::string>> replacements;
    std::vector<std::string> folders;
    bool takes_all = false;
};
ExitCode relink_command(const std::string& file, const Destination& destination, const RelinkOptions& options,
                        const Surroundings& surroundings, Output* output);

ExitCode open_command(const std::string& file, Output* output);

} // namespace profile_tool
