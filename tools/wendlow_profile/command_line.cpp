#include "tools/wendlow_profile/command_line.h"

#include <algorithm>
#include <functional>
#include <sstream>

#include <CLI/CLI.hpp>

namespace profile_tool
{

namespace
{

// What the arguments say, for all commands.
struct Arguments {
    std::vector<std::string> files;
    std::string file;
    Destination destination;
    RelinkOptions relink;
    bool as_json = false;
    bool refusals_only = false;
};

constexpr const char* kDescription =
    "Shows, checks, converts and mends the profiles of Wendlow, and hands them to it.";

constexpr const char* kFooter =
    "Entries are counted from 0, as in the boxes of the program. wendlow-profile COMMAND --help tells more.\n"
    "Exit codes: 0 fine; 1 something was found, see the output; 2 the command line is wrong;\n"
    "3 a file cannot be read or written.";

// A script whose variable is not set gives an empty argument.
std::string refuse_nothing(const std::string& path)
{
    return path.empty() ? "must not be empty" : "";
}

void add_destination(CLI::App* command, Arguments* arguments, bool is_required)
{
    CLI::Option* out = command->add_option("-o,--output", arguments->destination.path,
                                           is_required ? "The file to write"
                                                       : "The file to write; without it the "
                                                         "result goes to the output");
    out->type_name("OUT")->required(is_required);
    out->check(refuse_nothing);
    command->add_flag("--force", arguments->destination.force, "Replace OUT when it is there already");
}

using Command = std::function<ExitCode()>;

// Each routine adds one command and what it does once it is chosen.

void add_show(CLI::App* app, Arguments* arguments, Output* output, Command* chosen)
{
    CLI::App* command = app->add_subcommand("show", "Show the name and the entries of profiles");
    command->add_option("FILE", arguments->files, "The profiles")->type_name("")->required();
    command->add_flag("--json", arguments->as_json, "Show them as JSON");
    command->callback(
        [=] { *chosen = [=] { return show_command(arguments->files, arguments->as_json, output); }; });
}

void add_check(CLI::App* app, Arguments* arguments, const SurroundingsSource& surroundings, Output* output,
               Command* chosen)
{
    CLI::App* command = app->add_subcommand(
        "check", "Tell why the program refuses a profile, and what else its owner should know");
    command->add_option("FILE", arguments->files, "The profiles")->type_name("")->required();
    command->add_flag("--faults-only", arguments->refusals_only,
                      "Look only for what makes the program refuse a file");
    command->callback([=, &surroundings] {
        *chosen = [=, &surroundings] {
            return check_command(arguments->files, arguments->refusals_only, surroundings(), output);
        };
    });
}

void add_to_json(CLI::App* app, Arguments* arguments, Output* output, Command* chosen)
{
    CLI::App* command = app->add_subcommand("to-json", "Turn a profile into JSON; nothing of it is lost");
    command->add_option("FILE", arguments->file, "The profile")->type_name("")->required();
    add_destination(command, arguments, false);
    command->callback(
        [=] { *chosen = [=] { return to_json_command(arguments->file, arguments->destination, output); }; });
}

void add_from_json(CLI::App* app, Arguments* arguments, Output* output, Command* chosen)
{
    CLI::App* command = app->add_subcommand("from-json", "Turn such JSON into a profile");
    command->add_option("JSON", arguments->file, "The JSON file")->type_name("")->required();
    add_destination(command, arguments, true);
    command->callback([=] {
        *chosen = [=] { return from_json_command(arguments->file, arguments->destination, output); };
    });
}

void add_relink(CLI::App* app, Arguments* arguments, const SurroundingsSource& surroundings, Output* output,
                Command* chosen)
{
    CLI::App* command = app->add_subcommand("relink", "Give the paths that are gone their new places");
    command->footer(
        "A path that is there stays as it is. Where paths of Windows mean nothing, as on Linux, each\n"
        "counts as gone. --replace is tried first, then --find. A program that is found more than\n"
        "once is listed and left as it is.");
    command->add_option("FILE", arguments->file, "The profile")->type_name("")->required();
    add_destination(command, arguments, true);
    CLI::Option* replace =
        command->add_option("--replace", arguments->relink.replacements,
                            "Paths that begin with the folder OLD begin with NEW; may be given again");
    replace->type_name("OLD NEW")->expected(1)->take_all()->allow_extra_args(false);
    CLI::Option* find =
        command->add_option("--find", arguments->relink.folders,
                            "Look below FOLDER for programs of the same file name; may be given "
                            "again");
    find->type_name("FOLDER")->expected(1)->take_all()->allow_extra_args(false);
    find->check(refuse_nothing);
    command->add_flag("--all", arguments->relink.takes_all, "Replace also in paths that are there");
    command->callback([=, &surroundings] {
        if (replace->count() + find->count() == 0)
            throw CLI::ValidationError("relink", "--replace or --find is required");
        *chosen = [=, &surroundings] {
            return relink_command(arguments->file, arguments->destination, arguments->relink, surroundings(),
                                  output);
        };
    });
}

void add_open(CLI::App* app, Arguments* arguments, Output* output, Command* chosen)
{
    CLI::App* command = app->add_subcommand(
        "open", "Load a profile in Wendlow, which is started from beside this program if it does not run");
    command->add_option("FILE", arguments->file, "The profile")->type_name("")->required();
    command->callback([=] { *chosen = [=] { return open_command(arguments->file, output); }; });
}

} // namespace

ExitCode run_command_line(const std::vector<std::string>& arguments, const SurroundingsSource& surroundings,
                          Output* output)
{
    Arguments parsed;
    Command chosen;
    CLI::App app(kDescription, "wendlow-profile");
    app.allow_windows_style_options(false); // A path may begin with a slash there, too.
    app.footer(kFooter);
    app.set_version_flag("--version", "wendlow-profile " WENDLOW_VERSION, "Print the version and exit");
    app.require_subcommand(0, 1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    add_show(&app, &parsed, output, &chosen);
    add_check(&app, &parsed, surroundings, output, &chosen);
    add_to_json(&app, &parsed, output, &chosen);
    add_from_json(&app, &parsed, output, &chosen);
    add_relink(&app, &parsed, surroundings, output, &chosen);
    add_open(&app, &parsed, output, &chosen);
    for (CLI::App* command : app.get_subcommands({}))
        command->group("Commands");
    try {
        // It takes them from the end.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        std::ostringstream out;
        std::ostringstream err;
        const int code = app.exit(error, out, err);
        output->out += out.str();
        if (code == 0)
            return EXIT_FINE;
        output->err += "wendlow-profile: " + err.str();
        return EXIT_USAGE;
    }
    if (chosen)
        return chosen();
    output->err += "wendlow-profile: COMMAND is required\nRun with --help for more information.\n";
    return EXIT_USAGE;
}

} // namespace profile_tool
