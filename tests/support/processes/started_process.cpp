#include "tests/support/processes/started_process.h"

#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/input/real_input.h"

namespace test_support
{

StartedProcess::StartedProcess(const std::wstring& path, StartSettings settings)
{
    let_started_programs_come_to_front();
    SetErrorMode(SetErrorMode(0) | SEM_NOGPFAULTERRORBOX); // inherited: no box of Windows' when it crashes
    std::wstring line = L"\"" + path + L"\" " + settings.arguments;
    settings.startup.cb = sizeof settings.startup;
    if (!CreateProcessW(path.c_str(), settings.arguments.empty() ? nullptr : line.data(), nullptr, nullptr,
                        FALSE, 0, nullptr, settings.folder.empty() ? nullptr : settings.folder.c_str(),
                        &settings.startup, &started_))
        throw Failure("cannot start " + printable(path) + ", error " + std::to_string(GetLastError()));
}

StartedProcess::~StartedProcess()
{
    CloseHandle(started_.hThread);
    CloseHandle(started_.hProcess);
}

DWORD StartedProcess::wait_for_exit(unsigned milliseconds) const
{
    if (WaitForSingleObject(started_.hProcess, milliseconds) != WAIT_OBJECT_0)
        throw Failure("the program did not end within " + std::to_string(milliseconds) + " ms");
    DWORD code = 0;
    GetExitCodeProcess(started_.hProcess, &code);
    return code;
}

} // namespace test_support
