#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/processes/started_process.h"
#include "tests/support/windows/control_ids.h"

// The program under test as a process of its own, worked from outside. A routine that presses
// something does not wait for what follows, as the program may be inside a modal box; routines that
// name a result ("wait_for_...", "load_profile") do. Message boxes are answered only by a watcher, which
// watch_boxes() makes.

namespace test_support
{

// The path of the program that was built with these tests, or of the one that the environment variable
// WENDLOW_PROGRAM names: a build by another compiler.
std::wstring wendlow_path();
bool is_another_build();
// The path of another program in its folder; nothing says that it is there.
std::wstring path_beside_wendlow(const std::wstring& name);

// Drops files on a window as the shell does. Under Wine the path list, one page, is left in the window's
// process.
void drop_files_on(HWND window, const std::vector<std::wstring>& paths);

class WendlowProcess
{
public:
    // Starts the program and waits for its main window.
    WendlowProcess();
    // The same with a copy of the program that lies elsewhere.
    explicit WendlowProcess(const std::wstring& path);
    // Closes the main window; ends the process when it does not end by itself within 5 s. A program that
    // has crashed fails the test.
    ~WendlowProcess();
    WendlowProcess(const WendlowProcess&) = delete;
    WendlowProcess& operator=(const WendlowProcess&) = delete;

    DWORD process_id() const { return process_.id(); }
    HANDLE process() const { return process_.handle(); }
    bool is_running() const;
    bool crashed() const;
    // Closes the main window and waits for the end.
    DWORD close_and_wait(unsigned milliseconds = kShortWait);
    // Waits for the end and returns the exit code.
    DWORD wait_for_exit(unsigned milliseconds = kShortWait) const;

    // The main window and its controls.
    HWND main_window() const { return main_window_; }
    HWND scan_button() const { return control(main_control::kScan); }
    HWND load_profile_button() const { return control(main_control::kLoadProfile); }
    HWND profile_combo() const { return control(main_control::kProfile); }
    HWND action_combo() const { return control(main_control::kAction); }
    HWND apply_button() const { return control(main_control::kApply); }
    HWND control(int id) const;

    // Presses a button as BM_CLICK does, or sends a menu command, without waiting.
    void press(HWND button) const;
    void send_command(int id) const;
    void press_scan() const { press(scan_button()); }
    void press_load_profile() const { press(load_profile_button()); }
    void press_apply() const { press(apply_button()); }
    void choose_about() const { send_command(main_control::kAbout); }

    // Answers and records the boxes of the program. Its expect_boxes() waits until the program is idle, so it
    // sees a box too many as well; while a dialog is left open use wait_for_box() and boxes().
    BoxWatcher watch_boxes() const;

    // Waits until what was posted to the program so far is done and no dialog of it is on the screen.
    // A box that a command shows half-way, and a BoxWatcher answers, may end this wait early: wait for
    // the box, or for what the command does last, as well.
    void wait_until_idle(unsigned milliseconds = kLongWait) const;

    // List of Windows.
    HWND list_window() const;
    HWND wait_for_list_window(unsigned milliseconds = kLongWait) const;
    // Presses Scan, waits for the (new) list window and its rows.
    RemoteListView scan(unsigned milliseconds = kLongWait) const;
    RemoteListView list_view() const;
    // The row of that window name, which must be in the list.
    int row_of(const std::wstring& window_name) const;
    void tick(const std::wstring& window_name) const;
    void press_move() const;
    void press_create_profile() const;
    void close_list_window() const;

    // Modify Cell.
    // Right-clicks the cell with the mouse and chooses the popup menu's item.
    HWND open_modify_cell(int row, int column) const;
    HWND modify_cell_window() const;

    // Name of Profile.
    HWND name_window() const;
    HWND wait_for_name_window(unsigned milliseconds = kShortWait) const;
    void enter_name(const std::wstring& name) const;
    void press_name_ok() const;
    void press_name_cancel() const;

    // The whole way from ticked rows to a saved file.
    void create_profile(const std::wstring& name, const std::wstring& path) const;

    // Presses Load Profile, chooses the file, waits until the profile's name has been added to the
    // Profile combo and the program is idle (boxes on the way must be answered by a BoxWatcher).
    void load_profile(const std::wstring& path, unsigned milliseconds = kLongWait * 2) const;
    // Presses Load Profile and chooses the file, without waiting for the load.
    void start_load_profile(const std::wstring& path) const;
    void drop_files(const std::vector<std::wstring>& paths) const { drop_files_on(main_window_, paths); }

    // Combo boxes: the texts of the list, the selected position (-1 = none), selecting as a user does
    // (with the notification to the main window).
    std::vector<std::wstring> combo_texts(HWND combo) const;
    int combo_selection(HWND combo) const;
    std::wstring combo_shown_text(HWND combo) const;
    void select(HWND combo, int position) const;
    void select_action(const std::wstring& name) const;
    void select_profile(int position) const { select(profile_combo(), position); }
    // Selects and presses Apply, waits until it is carried out.
    void apply(const std::wstring& action) const;

private:
    // Whether the program handles what is posted to it now, in whichever message loop it is.
    bool takes_its_turn(unsigned milliseconds) const;

    StartedProcess process_;
    HWND main_window_ = nullptr;
};

// Starts a second copy and returns its exit code, for the single-instance rule.
DWORD run_second_copy(unsigned milliseconds = kShortWait);

} // namespace test_support
