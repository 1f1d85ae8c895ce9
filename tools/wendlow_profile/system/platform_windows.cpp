// The system's part on Windows.
#include "tools/wendlow_profile/system/platform.h"

#include <windows.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tools/wendlow_profile/system/error_text.h"
#include "tools/wendlow_profile/system/opening.h"
#include "tools/wendlow_profile/system/wide_text.h"

namespace profile_tool::platform
{

namespace
{

constexpr DWORD kCall_max_bytes = 1 << 20;
constexpr int kTemporaryNames = 100;

class Handle
{
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] HANDLE get() const { return handle_; }
    [[nodiscard]] bool is_open() const { return handle_ != INVALID_HANDLE_VALUE; }
    void close()
    {
        if (is_open())
            CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

bool fail(DWORD error, std::string* why)
{
    *why = utf8_of(units_of_wide(text_of_error(error)));
    while (why->ends_with(' '))
        why->pop_back();
    return false;
}

DWORD write_all(HANDLE file, ByteView bytes)
{
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kCall_max_bytes));
        if (WriteFile(file, bytes.data(), part, &written, nullptr) == FALSE)
            return GetLastError();
        bytes = bytes.subspan(written);
    }
    return FlushFileBuffers(file) == FALSE ? GetLastError() : ERROR_SUCCESS;
}

// Creates the file with these bytes; leaves none that is not whole.
bool create(const std::wstring& path, ByteView bytes, bool* exists, std::string* why)
{
    Handle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.is_open()) {
        const DWORD error = GetLastError();
        *exists = error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
        return fail(error, why);
    }
    const DWORD error = write_all(file.get(), bytes);
    file.close();
    if (error == ERROR_SUCCESS)
        return true;
    DeleteFileW(path.c_str());
    return fail(error, why);
}

class FindHandle
{
public:
    explicit FindHandle(HANDLE handle) : handle_(handle) {}
    ~FindHandle()
    {
        if (is_open())
            FindClose(handle_);
    }
    FindHandle(const FindHandle&) = delete;
    FindHandle& operator=(const FindHandle&) = delete;
    [[nodiscard]] HANDLE get() const { return handle_; }
    [[nodiscard]] bool is_open() const { return handle_ != INVALID_HANDLE_VALUE; }

private:
    HANDLE handle_;
};

// A folder's own number, whichever way leads to it; nothing when the system does not tell.
std::optional<std::pair<DWORD, std::uint64_t>> identity_of(const std::wstring& folder)
{
    const Handle handle(CreateFileW(folder.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!handle.is_open() || GetFileInformationByHandle(handle.get(), &info) == FALSE)
        return std::nullopt;
    return std::pair(info.dwVolumeSerialNumber,
                     std::uint64_t{info.nFileIndexHigh} << 32 | info.nFileIndexLow);
}

// True for a junction or a symbolic link, which may lead back to where the search came from.
bool is_link(const WIN32_FIND_DATAW& entry)
{
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT || entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK);
}

BOOL CALLBACK add_monitor(HMONITOR, HDC, RECT* rectangle, LPARAM monitors)
{
    reinterpret_cast<std::vector<MonitorRectangle>*>(monitors)->push_back(
        {rectangle->left, rectangle->top, rectangle->right, rectangle->bottom});
    return TRUE;
}

} // namespace

bool read_file(const std::string& path, Bytes* bytes, std::string* why)
{
    const Handle file(CreateFileW(wide_of(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.is_open())
        return fail(GetLastError(), why);
    Bytes all;
    for (;;) {
        const std::size_t size = all.size();
        if (size > kFile_max_bytes) {
            *why = "it has 4 GiB or more, the program reads no file of that size";
            return false;
        }
        all.resize(size + kCall_max_bytes);
        DWORD read = 0;
        if (ReadFile(file.get(), all.data() + size, kCall_max_bytes, &read, nullptr) == FALSE) {
            // The other end of a pipe that has been written to its end.
            if (GetLastError() != ERROR_BROKEN_PIPE)
                return fail(GetLastError(), why);
            read = 0;
        }
        all.resize(size + read);
        if (read == 0)
            break;
    }
    *bytes = std::move(all);
    return true;
}

bool write_new_file(const std::string& path, ByteView bytes, bool* exists, std::string* why)
{
    *exists = false;
    return create(wide_of(path), bytes, exists, why);
}

bool replace_file(const std::string& path, ByteView bytes, std::string* why)
{
    const std::wstring target = wide_of(path);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        *why = "it is no ordinary file";
        return false;
    }
    for (int i = 0; i < kTemporaryNames; ++i) {
        // Not made of the target's name, which may be as long as names can be.
        const std::wstring temporary = target.substr(0, target.find_last_of(L"\\/:") + 1) +
                                       L".wendlow-profile-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                       std::to_wstring(i) + L".tmp";
        bool exists = false;
        if (!create(temporary, bytes, &exists, why)) {
            if (exists)
                continue;
            return false;
        }
        if (MoveFileExW(temporary.c_str(), target.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE)
            return true;
        fail(GetLastError(), why);
        DeleteFileW(temporary.c_str());
        return false;
    }
    return false;
}

bool find_files(const std::string& folder, const std::function<bool(const std::u16string&)>& wants,
                const std::function<void(const std::u16string& name, const std::u16string& path)>& found,
                std::string* why)
{
    std::vector<std::wstring> folders{full_path_of(wide_of(folder))};
    std::set<std::pair<DWORD, std::uint64_t>> seen;
    for (bool is_first = true; !folders.empty(); is_first = false) {
        const std::wstring here = std::move(folders.back());
        folders.pop_back();
        // A server's links look like folders, and may lead back to where the search came from.
        const auto identity = identity_of(here);
        if (identity && !seen.insert(*identity).second)
            continue;
        const std::wstring begin = here.ends_with(L'\\') ? here : here + L'\\';
        WIN32_FIND_DATAW entry{};
        const FindHandle search(FindFirstFileW((begin + L'*').c_str(), &entry));
        // The first one has to be there. Below it a folder that is not to be read, or gone, is passed over.
        if (!search.is_open() && is_first && GetLastError() != ERROR_FILE_NOT_FOUND)
            return fail(GetLastError(), why);
        for (BOOL goes_on = search.is_open(); goes_on != FALSE;
             goes_on = FindNextFileW(search.get(), &entry)) {
            const std::wstring_view name = entry.cFileName;
            if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                const std::u16string capitals = without_case(units_of_wide(name));
                if (wants(capitals))
                    found(capitals, units_of_wide(begin + entry.cFileName));
            } else if (name != L"." && name != L".." && !is_link(entry)) {
                folders.push_back(begin + entry.cFileName);
            }
        }
    }
    return true;
}

void put_in_capitals(std::u16string* text)
{
    const std::wstring wide = wide_of(*text);
    std::wstring capitals = wide;
    const int units = static_cast<int>(wide.size());
    if (LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.c_str(), units, capitals.data(), units,
                      nullptr, nullptr, 0) == units)
        *text = units_of_wide(capitals);
}

Surroundings surroundings()
{
    Surroundings here;
    here.is_there = [](const std::u16string& path) {
        return GetFileAttributesW(wide_of(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    };
    // Profiles hold real pixels.
    SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    EnumDisplayMonitors(nullptr, nullptr, add_monitor, reinterpret_cast<LPARAM>(&here.monitors));
    return here;
}

std::optional<std::string> open_profile(const std::string& path)
{
    const std::optional<std::wstring> wrong = open_in_wendlow(wide_of(path));
    if (!wrong)
        return std::nullopt;
    return utf8_of(units_of_wide(*wrong));
}

} // namespace profile_tool::platform
