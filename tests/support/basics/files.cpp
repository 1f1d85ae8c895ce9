#include "tests/support/basics/files.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"

namespace test_support
{

namespace
{

class File
{
public:
    File(const std::wstring& path, DWORD access, DWORD disposition)
        : handle_(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (handle_ == INVALID_HANDLE_VALUE)
            throw Failure("cannot open " + printable(path) + ", error " + std::to_string(GetLastError()));
    }
    ~File() { CloseHandle(handle_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

} // namespace

void write_file(const std::wstring& path, const Bytes& bytes)
{
    const File file(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size())
        throw Failure("cannot write " + printable(path));
}

Bytes read_file(const std::wstring& path)
{
    const File file(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    GetFileSizeEx(file.get(), &size);
    Bytes bytes(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    if (!bytes.empty() &&
        (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ||
         read != bytes.size()))
        throw Failure("cannot read " + printable(path));
    return bytes;
}

bool file_exists(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool folder_exists(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring windows_path(const std::string& path)
{
    std::wstring result = widen(path);
    for (wchar_t& unit : result)
        if (unit == L'/')
            unit = L'\\';
    if (!result.empty() && result[0] == L'\\')
        result.insert(0, L"Z:");
    return result;
}

std::string hex(const Bytes& bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (const std::uint8_t byte : bytes) {
        if (!out.empty())
            out.push_back(' ');
        out.push_back(digits[byte >> 4]);
        out.push_back(digits[byte & 0xF]);
    }
    return out;
}

TemporaryFolder::TemporaryFolder()
{
    wchar_t base[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, base);
    // Windows may give the folder in its short form; programs report the long one.
    wchar_t long_base[MAX_PATH + 1] = {};
    const DWORD units = GetLongPathNameW(base, long_base, MAX_PATH + 1);
    const std::wstring parent = units != 0 && units <= MAX_PATH ? long_base : base;
    static unsigned made = 0;
    for (;;) {
        path_ = parent + L"wendlow-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                std::to_wstring(++made);
        if (CreateDirectoryW(path_.c_str(), nullptr))
            return;
        if (GetLastError() != ERROR_ALREADY_EXISTS)
            throw Failure("cannot make the folder " + printable(path_));
    }
}

TemporaryFolder::~TemporaryFolder()
{
    // Windows holds on to the file of a program for a moment after its end.
    constexpr unsigned kGivenUpAfter = 1'000;
    becomes_true(
        [this] {
            std::error_code ignored;
            std::filesystem::remove_all(path_, ignored);
            return !folder_exists(path_);
        },
        kGivenUpAfter);
}

std::wstring TemporaryFolder::file(const std::wstring& name) const
{
    return path_ + L"\\" + name;
}

std::wstring TemporaryFolder::make_folder(const std::wstring& name) const
{
    const std::wstring path = file(name);
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (!folder_exists(path))
        throw Failure("cannot make the folder " + printable(path));
    return path;
}

std::vector<std::wstring> TemporaryFolder::names() const
{
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.push_back(entry.path().filename().wstring());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace test_support
