#include "tests/tools/work_folder.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tool_tests
{

namespace fs = std::filesystem;

WorkFolder::WorkFolder() : before_(fs::current_path())
{
    std::string name = (fs::temp_directory_path() / "wendlow-profile-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    folder_ = name;
    fs::current_path(folder_);
}

WorkFolder::~WorkFolder()
{
    std::error_code ignored;
    fs::current_path(before_, ignored);
    fs::remove_all(folder_, ignored);
}

void WorkFolder::add_files_of(const std::string& folder) const
{
    fs::copy(fs::path(PROJECT_FOLDER) / folder, folder_, fs::copy_options::recursive);
}

std::vector<std::string> WorkFolder::files() const
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void WorkFolder::write(const std::string& name, const profile_tool::Bytes& bytes)
{
    std::ofstream file(name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("cannot write " + name);
}

profile_tool::Bytes WorkFolder::read(const std::string& name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

Ran run_tool(const std::vector<std::string>& arguments)
{
    profile_tool::Output output;
    const profile_tool::ExitCode code =
        profile_tool::run_command_line(arguments, profile_tool::platform::surroundings, &output);
    return {code, output.out, output.err};
}

std::string text_of_tree(const std::string& path)
{
    const profile_tool::Bytes bytes = WorkFolder::read((fs::path(PROJECT_FOLDER) / path).string());
    return {bytes.begin(), bytes.end()};
}

} // namespace tool_tests
