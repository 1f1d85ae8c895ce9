#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/basics/files.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/processes/fixture_options.h"

// Small programs of a chosen behaviour for the program under test to list, start and place.

namespace test_support
{

// What a fixture program was started with.
struct StartupRecord {
    DWORD flags = 0;
    WORD show_window = 0;
    DWORD x = 0;
    DWORD y = 0;
    DWORD width = 0;
    DWORD height = 0;
    DWORD process_id = 0;
    std::wstring command_line;
    std::wstring current_folder;
};

class FixturePrograms
{
public:
    FixturePrograms();
    // Ends every process started from the folder, by whomever, and removes the folder.
    ~FixturePrograms();
    FixturePrograms(const FixturePrograms&) = delete;
    FixturePrograms& operator=(const FixturePrograms&) = delete;

    // Makes the program folder\name.exe and returns its full path. The name may lie deeper, and may
    // have its ending: add(L"tools\\Explorer.exe").
    std::wstring add(const std::wstring& name, const FixtureOptions& options = {});

    const TemporaryFolder& folder() const { return folder_; }
    std::wstring path_of(const std::wstring& name) const;

    // Starts a program that was added and waits for its window (unless it has none). Returns the
    // window, null for a program without one.
    HWND start(const std::wstring& name);
    // Starts it without waiting for anything; the process id comes back.
    DWORD start_only(const std::wstring& name);

    // Visible top-level windows of the program's processes, in z-order, whoever started them.
    std::vector<HWND> windows_of(const std::wstring& name) const;
    HWND wait_for_window(const std::wstring& name, unsigned milliseconds = kLongWait) const;
    std::vector<HWND> wait_for_windows(const std::wstring& name, std::size_t count,
                                       unsigned milliseconds = kLongWait) const;
    // Waits until a program with hang_after_start or hang_on_get_text has stopped handling messages.
    void wait_until_hanging(const std::wstring& name, unsigned milliseconds = kLongWait) const;

    // How often the window was asked to close; counted as long as the window lives.
    static int close_requests(HWND window);
    // How many of these were sent, so that the sender waited for the answer, and not posted.
    static int awaited_close_requests(HWND window);

    std::vector<DWORD> processes_of(const std::wstring& name) const;
    bool is_running(const std::wstring& name) const { return !processes_of(name).empty(); }
    void wait_for_end(const std::wstring& name, unsigned milliseconds = kLongWait) const;
    // Ends the program's processes at once.
    void stop(const std::wstring& name) const;
    void stop_all() const;

    // What the program's last start was given; waits for the record.
    StartupRecord startup_of(const std::wstring& name, unsigned milliseconds = kShortWait) const;

private:
    TemporaryFolder folder_;
};

} // namespace test_support
