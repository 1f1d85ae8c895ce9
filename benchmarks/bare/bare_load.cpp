#include "benchmarks/bare/bare_load.h"

#include <windows.h>

#include <psapi.h>
#include <string.h>

#include "benchmarks/bare/bare_main_window.h"

namespace bare
{

namespace
{

constexpr unsigned kEntries_max = 64;
constexpr unsigned kFile_max_bytes = 64 * 1024;
constexpr int kTitle_units = 1000;
constexpr DWORD kIdle_milliseconds = 5000;
constexpr int kAttempts = 10;
constexpr DWORD kPause_milliseconds = 1000;

struct Entry {
    int x, y, width, height;
    wchar_t path[MAX_PATH];
    HANDLE process;
    DWORD process_id;
    HWND window;
};

struct Profile {
    unsigned count;
    Entry entries[kEntries_max];
};
Profile loaded;

unsigned number_at(const unsigned char* bytes)
{
    unsigned number = 0;
    memcpy(&number, bytes, sizeof number);
    return number;
}

bool read_profile(const wchar_t* file_path)
{
    static unsigned char bytes[kFile_max_bytes];
    const HANDLE file = CreateFileW(file_path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD size = 0;
    const BOOL read = ReadFile(file, bytes, kFile_max_bytes, &size, nullptr);
    CloseHandle(file);
    loaded.count = 0;
    const unsigned count = number_at(bytes);
    if (!read || count > kEntries_max)
        return false;
    // The kinds, then the five arrays of numbers, then the paths.
    const unsigned char* numbers = bytes + 4 + count;
    const unsigned char* path = numbers + 20 * count;
    for (unsigned i = 0; i < count; ++i) {
        Entry& entry = loaded.entries[i];
        entry = {};
        int* const fields[] = {&entry.x, &entry.y, &entry.width, &entry.height};
        for (unsigned k = 0; k < 4; ++k)
            *fields[k] = static_cast<int>(number_at(numbers + 4 * (k * count + i)));
        const unsigned path_bytes = number_at(numbers + 4 * (4 * count + i));
        memcpy(entry.path, path, path_bytes);
        path += path_bytes + sizeof(wchar_t);
    }
    loaded.count = count;
    return true;
}

void start(Entry& entry)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESIZE | STARTF_USEPOSITION;
    startup.wShowWindow = SW_SHOW;
    startup.dwX = static_cast<DWORD>(entry.x);
    startup.dwY = static_cast<DWORD>(entry.y);
    startup.dwXSize = static_cast<DWORD>(entry.width);
    startup.dwYSize = static_cast<DWORD>(entry.height);
    PROCESS_INFORMATION process{};
    CreateProcessW(entry.path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process);
    WaitForInputIdle(process.hProcess, kIdle_milliseconds);
    entry.process = process.hProcess;
    entry.process_id = process.dwProcessId;
    CloseHandle(process.hThread);
}

BOOL CALLBACK match(HWND window, LPARAM)
{
    wchar_t title[kTitle_units];
    wchar_t class_name[250];
    DWORD_PTR length = 0;
    if (!IsWindowVisible(window) ||
        !SendMessageTimeoutW(window, WM_GETTEXT, kTitle_units, reinterpret_cast<LPARAM>(title),
                             SMTO_ABORTIFHUNG, kIdle_milliseconds, &length) ||
        length == 0)
        return TRUE;
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    GetClassNameW(window, class_name, 250);
    DWORD process_id = 0;
    GetWindowThreadProcessId(window, &process_id);
    const HANDLE process =
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, process_id);
    wchar_t path[MAX_PATH] = {};
    K32GetModuleFileNameExW(process, nullptr, path, MAX_PATH);
    CloseHandle(process);
    for (unsigned i = 0; i < loaded.count; ++i)
        if (loaded.entries[i].process_id == process_id &&
            CompareStringOrdinal(loaded.entries[i].path, -1, path, -1, TRUE) == CSTR_EQUAL)
            loaded.entries[i].window = window;
    return TRUE;
}

bool all_found()
{
    for (unsigned i = 0; i < loaded.count; ++i)
        if (!loaded.entries[i].window)
            return false;
    return true;
}

void place(const Entry& entry)
{
    if (IsIconic(entry.window))
        ShowWindow(entry.window, SW_RESTORE);
    const DPI_AWARENESS_CONTEXT before =
        SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    MoveWindow(entry.window, entry.x, entry.y, entry.width, entry.height, TRUE);
    SetThreadDpiAwarenessContext(before);
}

} // namespace

void load(const wchar_t* path)
{
    for (unsigned i = 0; i < loaded.count; ++i)
        CloseHandle(loaded.entries[i].process);
    if (!read_profile(path))
        return;
    for (unsigned i = 0; i < loaded.count; ++i)
        start(loaded.entries[i]);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        EnumWindows(match, 0);
        if (all_found())
            break;
        Sleep(kPause_milliseconds);
    }
    for (unsigned i = 0; i < loaded.count; ++i)
        place(loaded.entries[i]);
}

void apply(int action)
{
    for (unsigned i = 0; i < loaded.count; ++i) {
        const Entry& entry = loaded.entries[i];
        if (action == kMinimise) {
            ShowWindow(entry.window, SW_MINIMIZE);
        } else if (action == kRestore) {
            ShowWindow(entry.window, SW_RESTORE);
            place(entry);
        } else {
            PostMessageW(entry.window, WM_CLOSE, 0, 0);
        }
    }
}

} // namespace bare
