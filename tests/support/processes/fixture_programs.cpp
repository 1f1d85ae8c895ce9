#include "tests/support/processes/fixture_programs.h"

#include <filesystem>

#include "tests/support/basics/text.h"
#include "tests/support/processes/started_process.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

std::wstring without_ending(const std::wstring& path)
{
    return path.substr(0, path.size() - 4);
}

bool same_path(const std::wstring& one, const std::wstring& other)
{
    return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Values in quotation marks keep their blanks; quotation marks inside stay as they are.
std::wstring line(const std::wstring& key, const std::wstring& value)
{
    return key + L"=\"" + value + L"\"\r\n";
}

std::wstring line(const std::wstring& key, long long value)
{
    return key + L"=" + std::to_wstring(value) + L"\r\n";
}

std::wstring settings_text(const FixtureOptions& options)
{
    std::wstring text = L"\xFEFF[fixture]\r\n";
    for_each_option(options, [&](const wchar_t* key, const auto& value) { text += line(key, value); });
    return text;
}

Bytes as_bytes(const std::wstring& text)
{
    Bytes bytes;
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

std::wstring startup_text(const std::wstring& path, const wchar_t* key)
{
    wchar_t value[2048] = {};
    GetPrivateProfileStringW(L"startup", key, L"", value, 2048, path.c_str());
    return value;
}

DWORD startup_number(const std::wstring& path, const wchar_t* key)
{
    return wcstoul(startup_text(path, key).c_str(), nullptr, 10);
}

} // namespace

FixturePrograms::FixturePrograms() = default;

FixturePrograms::~FixturePrograms()
{
    stop_all();
}

std::wstring FixturePrograms::add(const std::wstring& name, const FixtureOptions& options)
{
    const std::wstring path = path_of(name);
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    const std::wstring source = windows_path(FIXTURE_PROGRAM_EXE);
    if (!CopyFileW(source.c_str(), path.c_str(), FALSE))
        throw Failure("cannot copy " + printable(source) + " to " + printable(path) + ", error " +
                      std::to_string(GetLastError()));
    write_file(without_ending(path) + L".ini", as_bytes(settings_text(options)));
    return path;
}

std::wstring FixturePrograms::path_of(const std::wstring& name) const
{
    const bool has_ending = name.size() > 4 && same_path(name.substr(name.size() - 4), L".exe");
    return folder_.file(has_ending ? name : name + L".exe");
}

HWND FixturePrograms::start(const std::wstring& name)
{
    start_only(name);
    wchar_t flag[8] = {};
    const std::wstring ini = without_ending(path_of(name)) + L".ini";
    const auto is_set = [&](const wchar_t* key) {
        GetPrivateProfileStringW(L"fixture", key, L"0", flag, 8, ini.c_str());
        return flag[0] == L'1';
    };
    if (is_set(L"no_window") || !is_set(L"visible"))
        return nullptr;
    return wait_for_window(name);
}

DWORD FixturePrograms::start_only(const std::wstring& name)
{
    const std::wstring path = path_of(name);
    DeleteFileW((without_ending(path) + L".startup").c_str());
    return StartedProcess(path).id();
}

std::vector<HWND> FixturePrograms::windows_of(const std::wstring& name) const
{
    const std::vector<DWORD> processes = processes_of(name);
    std::vector<HWND> windows;
    for (const HWND window : top_level_windows()) {
        const DWORD owner = process_of(window);
        for (const DWORD process : processes)
            if (owner == process && IsWindowVisible(window))
                windows.push_back(window);
    }
    return windows;
}

HWND FixturePrograms::wait_for_window(const std::wstring& name, unsigned milliseconds) const
{
    return wait_for_windows(name, 1, milliseconds).front();
}

std::vector<HWND> FixturePrograms::wait_for_windows(const std::wstring& name, std::size_t count,
                                                    unsigned milliseconds) const
{
    wait_until([&] { return windows_of(name).size() >= count; }, milliseconds,
               std::to_string(count) + " window(s) of " + printable(name));
    return windows_of(name);
}

void FixturePrograms::wait_until_hanging(const std::wstring& name, unsigned milliseconds) const
{
    wait_until(
        [&] {
            for (const HWND window : windows_of(name))
                if (GetPropW(window, L"WendlowFixtureHanging"))
                    return true;
            return false;
        },
        milliseconds, printable(name) + " to hang");
}

int FixturePrograms::close_requests(HWND window)
{
    return static_cast<int>(reinterpret_cast<INT_PTR>(GetPropW(window, L"WendlowFixtureCloseRequests")));
}

int FixturePrograms::awaited_close_requests(HWND window)
{
    return static_cast<int>(
        reinterpret_cast<INT_PTR>(GetPropW(window, L"WendlowFixtureAwaitedCloseRequests")));
}

std::vector<DWORD> FixturePrograms::processes_of(const std::wstring& name) const
{
    return processes_below(path_of(name));
}

void FixturePrograms::wait_for_end(const std::wstring& name, unsigned milliseconds) const
{
    wait_until([&] { return !is_running(name); }, milliseconds, printable(name) + " to end");
}

void FixturePrograms::stop(const std::wstring& name) const
{
    for (const DWORD process : processes_of(name))
        terminate_process(process);
}

void FixturePrograms::stop_all() const
{
    for (const DWORD process : processes_below(folder_.path() + L"\\"))
        terminate_process(process);
}

StartupRecord FixturePrograms::startup_of(const std::wstring& name, unsigned milliseconds) const
{
    const std::wstring path = without_ending(path_of(name)) + L".startup";
    wait_until([&] { return file_exists(path); }, milliseconds,
               "the record of what " + printable(name) + " was started with");
    StartupRecord record;
    record.flags = startup_number(path, L"flags");
    record.show_window = static_cast<WORD>(startup_number(path, L"show_window"));
    record.x = startup_number(path, L"x");
    record.y = startup_number(path, L"y");
    record.width = startup_number(path, L"width");
    record.height = startup_number(path, L"height");
    record.process_id = startup_number(path, L"process_id");
    record.command_line = startup_text(path, L"command_line");
    record.current_folder = startup_text(path, L"current_folder");
    return record;
}

} // namespace test_support
