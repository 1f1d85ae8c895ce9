#include "tests/support/windows/windows_lookup.h"

#include <tlhelp32.h>

#include "tests/support/basics/waiting.h"

namespace test_support
{

DWORD process_of(HWND window)
{
    DWORD process_id = 0;
    GetWindowThreadProcessId(window, &process_id);
    return process_id;
}

std::wstring class_of(HWND window)
{
    wchar_t name[257] = {};
    GetClassNameW(window, name, 257);
    return name;
}

std::wstring title_of(HWND window)
{
    wchar_t title[1024] = {};
    InternalGetWindowText(window, title, 1024);
    return title;
}

RECT rectangle_of(HWND window)
{
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

std::wstring image_path_of(DWORD process_id)
{
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process_id);
    if (!process)
        return {};
    wchar_t path[2048] = {};
    DWORD units = 2048;
    if (!QueryFullProcessImageNameW(process, 0, path, &units))
        path[0] = L'\0';
    CloseHandle(process);
    return path;
}

std::wstring own_image_path()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::vector<HWND> top_level_windows()
{
    std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::vector<HWND> top_level_windows_of(DWORD process_id)
{
    std::vector<HWND> windows;
    for (const HWND window : top_level_windows())
        if (process_of(window) == process_id)
            windows.push_back(window);
    return windows;
}

HWND find_window(DWORD process_id, const std::wstring& class_name)
{
    for (const HWND window : top_level_windows_of(process_id))
        if (IsWindowVisible(window) && class_of(window) == class_name)
            return window;
    return nullptr;
}

std::vector<DWORD> processes_below(const std::wstring& path_prefix)
{
    std::vector<DWORD> processes;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE)
        return processes;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) {
        const std::wstring path = image_path_of(entry.th32ProcessID);
        const int units = static_cast<int>(path_prefix.size());
        if (path.size() >= path_prefix.size() &&
            CompareStringOrdinal(path.c_str(), units, path_prefix.c_str(), units, TRUE) == CSTR_EQUAL)
            processes.push_back(entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return processes;
}

bool is_process_running(DWORD process_id)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, process_id);
    if (!process)
        return false;
    const bool running = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return running;
}

void terminate_process(DWORD process_id)
{
    const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process_id);
    if (!process)
        return;
    TerminateProcess(process, 1);
    WaitForSingleObject(process, kShortWait);
    CloseHandle(process);
}

} // namespace test_support
