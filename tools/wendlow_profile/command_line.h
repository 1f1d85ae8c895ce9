// The tool's command line.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/wendlow_profile/commands.h"

namespace profile_tool
{

// Asked only for commands that hold a profile against the computer.
using SurroundingsSource = std::function<Surroundings()>;

// Carries out what the arguments, UTF-8 and without the program's own name, ask for.
ExitCode run_command_line(const std::vector<std::string>& arguments, const SurroundingsSource& surroundings,
                          Output* output);

} // namespace profile_tool
