#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace test_support
{

using Bytes = std::vector<std::uint8_t>;

// All paths are Windows paths. Each routine throws a Failure when it cannot do its work.
void write_file(const std::wstring& path, const Bytes& bytes);
Bytes read_file(const std::wstring& path);
bool file_exists(const std::wstring& path);
bool folder_exists(const std::wstring& path);

// A path of the build machine ("/tmp/x.exe") as the system under test sees it ("Z:\tmp\x.exe");
// a Windows path comes back with backslashes.
std::wstring windows_path(const std::string& path);

// "48 6F 6C" - for comparing bytes readably in assertions.
std::string hex(const Bytes& bytes);

// A folder of its own under the user's temporary folder, removed with all that is in it at the end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::wstring& path() const { return path_; }
    // path() + "\" + name; nothing is created.
    std::wstring file(const std::wstring& name) const;
    // Creates the folder of that name inside and returns its path.
    std::wstring make_folder(const std::wstring& name) const;
    // What is inside, in alphabetical order.
    std::vector<std::wstring> names() const;

private:
    std::wstring path_;
};

} // namespace test_support
