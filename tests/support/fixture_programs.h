#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/waiting.h"

// Small programs of a chosen behaviour for the program under test to list, start and place.

namespace test_support
{

struct FixtureOptions {
    std::wstring title = L"Fixture";
    std::wstring class_name = L"WendlowFixture";
    int x = 100;
    int y = 120;
    int width = 320;
    int height = 240;
    DWORD style = WS_OVERLAPPEDWINDOW;
    DWORD extended_style = 0;
    bool visible = true;
    bool minimised = false;
    // Each window after the first is 30 pixels further right and down and has " 2", " 3"... added to
    // its title.
    int window_count = 1;
    bool no_window = false;
    // Waited before the window is created, without handling messages.
    unsigned delay_milliseconds = 0;
    // The same, but handling messages, so that the program counts as ready meanwhile.
    unsigned idle_delay_milliseconds = 0;
    // Handles no message any more once the window is shown.
    bool hang_after_start = false;
    // Never answers the first question for its title (WM_GETTEXT) that comes from elsewhere.
    bool hang_on_get_text = false;
    bool refuse_close = false;
    // The window belongs to a second thread instead of the program's first.
    bool window_of_second_thread = false;
    // Takes place, size and show command from what it was started with, where these were given.
    bool use_startup = false;
    // Smallest size the window accepts; 0 = the system's.
    int minimum_width = 0;
    int minimum_height = 0;
};

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
