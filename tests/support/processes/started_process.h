#pragma once

#include <windows.h>

#include <string>

namespace test_support
{

// What a program is started with besides its path.
struct StartSettings {
    std::wstring arguments{};
    std::wstring folder{}; // its working folder, empty: that of the test
    STARTUPINFOW startup{};
};

// A program that was started. Its handles are closed at the end, the program itself goes on.
class StartedProcess
{
public:
    // Throws a Failure when the program cannot be started.
    explicit StartedProcess(const std::wstring& path, StartSettings settings = {});
    StartedProcess(const StartedProcess&) = delete;
    StartedProcess& operator=(const StartedProcess&) = delete;
    ~StartedProcess();

    HANDLE handle() const { return started_.hProcess; }
    DWORD id() const { return started_.dwProcessId; }
    DWORD thread_id() const { return started_.dwThreadId; }
    // The exit code; throws a Failure when the program does not end within the time.
    DWORD wait_for_exit(unsigned milliseconds) const;

private:
    PROCESS_INFORMATION started_{};
};

} // namespace test_support
