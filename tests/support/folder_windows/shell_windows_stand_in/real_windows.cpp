#include "tests/support/folder_windows/shell_windows_stand_in/real_windows.h"

#include <shellapi.h>
#include <winternl.h>

#include <cstdint>

namespace test_support::stand_in
{

namespace
{

// Places of two fields that the system's headers keep to themselves, for 64-bit processes.
constexpr std::size_t kParametersInPeb = 0x20;
constexpr std::size_t kCommandLineInParameters = 0x70;

template <typename Value> bool read_remote(HANDLE process, std::uintptr_t address, Value& value)
{
    return ReadProcessMemory(process, reinterpret_cast<const void*>(address), &value, sizeof(value), nullptr);
}

using QueryProcess = NTSTATUS(NTAPI*)(HANDLE, PROCESSINFOCLASS, void*, ULONG, ULONG*);

QueryProcess query_process()
{
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return reinterpret_cast<QueryProcess>(
        reinterpret_cast<void*>(GetProcAddress(ntdll, "NtQueryInformationProcess")));
}

std::wstring command_line_of(HANDLE process)
{
    PROCESS_BASIC_INFORMATION information{};
    if (query_process()(process, ProcessBasicInformation, &information, sizeof(information), nullptr) != 0)
        return {};
    std::uintptr_t parameters = 0;
    UNICODE_STRING command{};
    const auto peb = reinterpret_cast<std::uintptr_t>(information.PebBaseAddress);
    if (!read_remote(process, peb + kParametersInPeb, parameters) ||
        !read_remote(process, parameters + kCommandLineInParameters, command))
        return {};
    std::wstring text(command.Length / sizeof(wchar_t), L'\0');
    if (!ReadProcessMemory(process, command.Buffer, text.data(), command.Length, nullptr))
        return {};
    return text;
}

bool is_folder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The last argument that names a folder; Explorer's switches end in a comma before it ("/e,C:\x").
std::wstring folder_in(const std::wstring& command_line)
{
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(command_line.c_str(), &count);
    if (!arguments)
        return {};
    std::wstring folder;
    for (int i = 1; i < count; ++i) {
        std::wstring argument = arguments[i];
        if (argument.starts_with(L'/'))
            argument.erase(0, argument.rfind(L',') + 1);
        while (argument.size() > 3 && argument.ends_with(L'\\'))
            argument.pop_back();
        if (is_folder(argument))
            folder = argument;
    }
    LocalFree(static_cast<HLOCAL>(arguments));
    return folder;
}

std::wstring folder_shown_by(HWND window)
{
    DWORD process_id = 0;
    GetWindowThreadProcessId(window, &process_id);
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process_id);
    if (!process)
        return {};
    const std::wstring folder = folder_in(command_line_of(process));
    CloseHandle(process);
    return folder;
}

bool is_folder_window(HWND window)
{
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return IsWindowVisible(window) &&
           (lstrcmpW(name, L"ExplorerWClass") == 0 || lstrcmpW(name, L"CabinetWClass") == 0);
}

BOOL CALLBACK note_folder_window(HWND window, LPARAM list)
{
    if (is_folder_window(window))
        reinterpret_cast<std::vector<FolderOnScreen>*>(list)->push_back({window, folder_shown_by(window)});
    return TRUE;
}

} // namespace

std::vector<FolderOnScreen> folder_windows_on_screen()
{
    std::vector<FolderOnScreen> windows;
    EnumWindows(note_folder_window, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

} // namespace test_support::stand_in
