#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/processes/fixture_options.h"

// A program of chosen behaviour. It is started without arguments and reads what to do from the file
// beside it that bears its own path with .ini in place of .exe; what it was started with it writes
// to the same path with .startup.

using test_support::FixtureOptions;
using test_support::for_each_option;

namespace
{

FixtureOptions settings;
int windows_open = 0;

std::wstring path_without_ending()
{
    wchar_t path[2048] = {};
    GetModuleFileNameW(nullptr, path, 2047);
    std::wstring result = path;
    result.resize(result.rfind(L'.'));
    return result;
}

class IniFile
{
public:
    explicit IniFile(std::wstring path) : path_(std::move(path)) {}

    void read(const wchar_t* key, std::wstring* value) const
    {
        wchar_t text[1024] = {};
        GetPrivateProfileStringW(L"fixture", key, L"", text, 1024, path_.c_str());
        *value = text;
    }
    template <typename Number> void read(const wchar_t* key, Number* value) const
    {
        std::wstring text;
        read(key, &text);
        *value = static_cast<Number>(wcstoll(text.c_str(), nullptr, 10));
    }

private:
    std::wstring path_;
};

FixtureOptions read_settings(const IniFile& file)
{
    FixtureOptions read;
    for_each_option(read, [&](const wchar_t* key, auto& value) { file.read(key, &value); });
    return read;
}

void write_startup(const std::wstring& path, const STARTUPINFOW& startup)
{
    wchar_t folder[1024] = {};
    GetCurrentDirectoryW(1024, folder);
    const auto line = [](const wchar_t* name, DWORD value) {
        return std::wstring(name) + L"=" + std::to_wstring(value) + L"\r\n";
    };
    const std::wstring text =
        L"\xFEFF[startup]\r\n" + line(L"flags", startup.dwFlags) + line(L"show_window", startup.wShowWindow) +
        line(L"x", startup.dwX) + line(L"y", startup.dwY) + line(L"width", startup.dwXSize) +
        line(L"height", startup.dwYSize) + line(L"process_id", GetCurrentProcessId()) + L"current_folder=\"" +
        folder + L"\"\r\ncommand_line='" + GetCommandLineW() + L"'\r\n";

    // Moved into place complete, so that nobody reads half a record.
    const std::wstring unfinished = path + L".part";
    const HANDLE file = CreateFileW(unfinished.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(file);
    MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

void take_place_from(const STARTUPINFOW& startup)
{
    if (startup.dwFlags & STARTF_USEPOSITION) {
        settings.x = static_cast<int>(startup.dwX);
        settings.y = static_cast<int>(startup.dwY);
    }
    if (startup.dwFlags & STARTF_USESIZE) {
        settings.width = static_cast<int>(startup.dwXSize);
        settings.height = static_cast<int>(startup.dwYSize);
    }
    if (startup.dwFlags & STARTF_USESHOWWINDOW)
        settings.minimised = startup.wShowWindow == SW_MINIMIZE || startup.wShowWindow == SW_SHOWMINIMIZED ||
                             startup.wShowWindow == SW_SHOWMINNOACTIVE;
}

[[noreturn]] void hang(HWND window)
{
    SetPropW(window, L"WendlowFixtureHanging", reinterpret_cast<HANDLE>(1));
    for (;;)
        Sleep(INFINITE);
}

void count_up(HWND window, const wchar_t* name)
{
    const auto count = reinterpret_cast<std::size_t>(GetPropW(window, name));
    SetPropW(window, name, reinterpret_cast<HANDLE>(count + 1));
}

// Counts a request to close. The total comes last: a test that waits for it finds the other count complete.
void note_close_request(HWND window)
{
    if (InSendMessage())
        count_up(window, L"WendlowFixtureAwaitedCloseRequests");
    count_up(window, L"WendlowFixtureCloseRequests");
}

LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
{
    switch (message) {
    case WM_GETTEXT:
        if (settings.hang_on_get_text && InSendMessage())
            hang(window);
        break;
    case WM_NULL:
        if (settings.end_when_asked && InSendMessage())
            ExitProcess(0);
        break;
    case WM_GETMINMAXINFO:
        if (settings.minimum_width > 0) {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(narrow);
            limits.ptMinTrackSize = {settings.minimum_width, settings.minimum_height};
            return 0;
        }
        break;
    case WM_CLOSE:
        note_close_request(window);
        if (settings.refuse_close)
            return 0;
        break;
    case WM_DESTROY:
        if (--windows_open == 0)
            PostQuitMessage(0);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wide, narrow);
}

void dispatch_waiting_messages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void idle_for(DWORD milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        dispatch_waiting_messages();
    }
}

HWND open_window(int index)
{
    const int offset = 30 * index;
    const std::wstring title =
        index == 0 ? settings.title : settings.title + L" " + std::to_wstring(index + 1);
    const HWND window =
        CreateWindowExW(settings.extended_style, settings.class_name.c_str(), title.c_str(), settings.style,
                        settings.x + offset, settings.y + offset, settings.width, settings.height, nullptr,
                        nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!window)
        return nullptr;
    ++windows_open;
    if (!settings.visible)
        return window;
    if (settings.minimised)
        ShowWindow(window, SW_MINIMIZE);
    else
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    UpdateWindow(window);
    return window;
}

void register_class()
{
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = window_procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    description.lpszClassName = settings.class_name.c_str();
    RegisterClassExW(&description);
}

DWORD WINAPI show_windows(void*)
{
    register_class();
    HWND first = nullptr;
    for (int i = 0; i < settings.window_count; ++i) {
        const HWND window = open_window(i);
        if (!first)
            first = window;
    }
    if (settings.hang_after_start) {
        dispatch_waiting_messages();
        hang(first);
    }
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

void dispatch_until_ended(HANDLE thread)
{
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
        dispatch_waiting_messages();
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    // Or its places and sizes would be other pixels on a scaled screen, and odd ones could not be had at all.
    SetProcessDPIAware();
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    GetStartupInfoW(&startup);

    const std::wstring path = path_without_ending();
    settings = read_settings(IniFile(path + L".ini"));
    write_startup(path + L".startup", startup);
    if (settings.use_startup)
        take_place_from(startup);

    Sleep(settings.delay_milliseconds);
    idle_for(settings.idle_delay_milliseconds);
    if (settings.no_window) {
        idle_for(INFINITE);
    } else if (settings.window_of_second_thread) {
        const HANDLE thread = CreateThread(nullptr, 0, show_windows, nullptr, 0, nullptr);
        dispatch_until_ended(thread);
    } else {
        show_windows(nullptr);
    }
    return 0;
}
