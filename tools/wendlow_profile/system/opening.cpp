#include "tools/wendlow_profile/system/opening.h"

#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "tools/wendlow_profile/system/error_text.h"

namespace profile_tool
{

namespace
{

constexpr wchar_t kClass_MainWindow[] = L"prg_wnds_layout";
constexpr wchar_t kProgram[] = L"wendlow.exe";
constexpr std::size_t kPath_max_units = 2047; // of a path that a drop may bring to the program
constexpr ULONGLONG kStart_max_ms = 30000;
constexpr DWORD kLook_again_ms = 50;

std::wstring path_beside_this_program(const wchar_t* name)
{
    std::vector<wchar_t> buffer(32768);
    const DWORD units = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    std::wstring path(buffer.data(), units);
    path.resize(path.find_last_of(L'\\') + 1);
    return path + name;
}

// The program asked to load a file that is not there would create it, so it is not asked.
std::optional<std::wstring> what_is_wrong_with(const std::wstring& full_path)
{
    const DWORD attributes = GetFileAttributesW(full_path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return L"cannot be found: " + text_of_error(GetLastError());
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return L"is a folder, not a profile";
    if (full_path.size() > kPath_max_units)
        return L"has too long a path for Wendlow";
    return std::nullopt;
}

// Waits for the main window; the process may be one that gives way to an instance which runs already.
HWND wait_for_window(HANDLE process)
{
    const ULONGLONG begin = GetTickCount64();
    bool has_ended = false;
    for (;;) {
        const HWND window = find_wendlow();
        if (window != nullptr || has_ended || GetTickCount64() - begin > kStart_max_ms)
            return window;
        has_ended = WaitForSingleObject(process, kLook_again_ms) == WAIT_OBJECT_0;
    }
}

std::optional<std::wstring> start_wendlow(HWND* window)
{
    std::wstring program = path_beside_this_program(kProgram);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started) == FALSE)
        return L"is not loaded, Wendlow cannot be started: " + program + L": " +
               text_of_error(GetLastError());
    *window = wait_for_window(started.hProcess);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    if (*window == nullptr)
        return L"is not loaded, Wendlow was started and no window of it came: " + program;
    return std::nullopt;
}

} // namespace

std::wstring full_path_of(const std::wstring& path)
{
    std::vector<wchar_t> buffer(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr) + std::size_t{1});
    const DWORD units =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(buffer.size()), buffer.data(), nullptr);
    return units < buffer.size() ? std::wstring(buffer.data(), units) : std::wstring();
}

HWND find_wendlow()
{
    return FindWindowW(kClass_MainWindow, nullptr);
}

bool post_drop(HWND window, const std::wstring& full_path)
{
    // A second zero ends the list.
    const std::size_t list_bytes = (full_path.size() + 2) * sizeof(wchar_t);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + list_bytes);
    if (block == nullptr)
        return false;
    auto* bytes = static_cast<char*>(GlobalLock(block));
    if (bytes == nullptr) {
        GlobalFree(block);
        return false;
    }
    DROPFILES header{};
    header.pFiles = sizeof header;
    header.fWide = TRUE;
    std::memcpy(bytes, &header, sizeof header);
    std::copy(full_path.begin(), full_path.end(), reinterpret_cast<wchar_t*>(bytes + sizeof header));
    GlobalUnlock(block);
    if (PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0) != FALSE)
        return true;
    const DWORD error = GetLastError();
    GlobalFree(block);
    SetLastError(error);
    return false;
}

std::optional<std::wstring> open_in_wendlow(const std::wstring& path)
{
    const std::wstring full_path = full_path_of(path);
    if (std::optional<std::wstring> wrong = what_is_wrong_with(full_path))
        return wrong;
    HWND window = find_wendlow();
    if (window == nullptr) {
        if (std::optional<std::wstring> wrong = start_wendlow(&window))
            return wrong;
    }
    // Its boxes, and the windows that it brings up, may come to the front.
    DWORD process_id = 0;
    GetWindowThreadProcessId(window, &process_id);
    AllowSetForegroundWindow(process_id);
    if (!post_drop(window, full_path))
        return L"is not loaded, Wendlow does not take it: " + text_of_error(GetLastError());
    return std::nullopt;
}

} // namespace profile_tool
