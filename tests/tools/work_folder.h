// A folder to run the tool in, as the working directory while this exists.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/wendlow_profile/command_line.h"
#include "tools/wendlow_profile/system/text.h"

namespace tool_tests
{

class WorkFolder
{
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    // Copies the files of a folder of this tree.
    void add_files_of(const std::string& folder) const;

    // The names of all files in it, sorted.
    [[nodiscard]] std::vector<std::string> files() const;

    static void write(const std::string& name, const profile_tool::Bytes& bytes);
    static profile_tool::Bytes read(const std::string& name);

private:
    std::filesystem::path before_;
    std::filesystem::path folder_;
};

struct Ran {
    profile_tool::ExitCode code;
    std::string out;
    std::string err;
};
Ran run_tool(const std::vector<std::string>& arguments);

// The bytes of a file of this tree.
std::string text_of_tree(const std::string& path);

} // namespace tool_tests
