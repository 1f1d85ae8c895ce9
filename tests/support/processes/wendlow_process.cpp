#include "tests/support/processes/wendlow_process.h"

#include <gtest/gtest.h>

#include <shlobj.h>

#include <cstdlib>
#include <cstring>

#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/input/real_input.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/remote_memory.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

constexpr wchar_t kMainClass[] = L"prg_wnds_layout";
constexpr wchar_t kListClass[] = L"List of Windows";
constexpr wchar_t kModifyCellClass[] = L"Modify Cell Window";
constexpr wchar_t kNameClass[] = L"Name of Profile Window";

// The path, when no other copy would take the commands.
const std::wstring& when_alone(const std::wstring& path)
{
    if (FindWindowW(kMainClass, nullptr))
        throw Failure("another copy of the program is running already");
    return path;
}

void set_text(HWND edit, const std::wstring& text)
{
    answer_of(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

HWND child_of(HWND window, int id)
{
    const HWND child = window ? GetDlgItem(window, id) : nullptr;
    if (!child)
        throw Failure("the window has no control " + std::to_string(id));
    return child;
}

bool shows_dialog(DWORD process_id)
{
    return find_window(process_id, L"#32770") != nullptr;
}

} // namespace

bool is_another_build()
{
    return std::getenv("WENDLOW_PROGRAM") != nullptr;
}

std::wstring wendlow_path()
{
    if (is_another_build())
        return windows_path(std::getenv("WENDLOW_PROGRAM"));
#ifdef WENDLOW_EXE
    return windows_path(WENDLOW_EXE);
#else
    throw Failure("the program was not built with these tests");
#endif
}

std::wstring path_beside_wendlow(const std::wstring& name)
{
    const std::wstring wendlow = wendlow_path();
    return wendlow.substr(0, wendlow.find_last_of(L'\\') + 1) + name;
}

WendlowProcess::WendlowProcess() : WendlowProcess(wendlow_path()) {}

WendlowProcess::WendlowProcess(const std::wstring& path) : process_(when_alone(path))
{
    try {
        wait_until(
            [&] {
                if (!is_running())
                    throw Failure("the program ended with exit code " + std::to_string(wait_for_exit()) +
                                  " before it showed its window");
                main_window_ = find_window(process_.id(), kMainClass);
                return main_window_ != nullptr;
            },
            kLongWait, "the main window");
        wait_until_idle();
        lend_stand_in(main_window_);
    } catch (...) {
        terminate_process(process_.id());
        throw;
    }
}

WendlowProcess::~WendlowProcess()
{
    if (is_running()) {
        PostMessageW(main_window_, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(process_.handle(), kShortWait) != WAIT_OBJECT_0)
            terminate_process(process_.id());
    }
    if (crashed())
        ADD_FAILURE() << "the program crashed";
}

bool WendlowProcess::is_running() const
{
    return WaitForSingleObject(process_.handle(), 0) == WAIT_TIMEOUT;
}

bool WendlowProcess::crashed() const
{
    // A process that an exception ends has its code for exit code, an error of the highest severity.
    constexpr DWORD kSeverity_error = 0xC0000000;
    DWORD code = 0;
    return !is_running() && GetExitCodeProcess(process_.handle(), &code) &&
           (code & kSeverity_error) == kSeverity_error;
}

DWORD WendlowProcess::close_and_wait(unsigned milliseconds)
{
    PostMessageW(main_window_, WM_CLOSE, 0, 0);
    return wait_for_exit(milliseconds);
}

DWORD WendlowProcess::wait_for_exit(unsigned milliseconds) const
{
    return process_.wait_for_exit(milliseconds);
}

HWND WendlowProcess::control(int id) const
{
    return child_of(main_window_, id);
}

void WendlowProcess::press(HWND button) const
{
    PostMessageW(button, BM_CLICK, 0, 0);
}

void WendlowProcess::send_command(int id) const
{
    PostMessageW(main_window_, WM_COMMAND, MAKEWPARAM(id, 0), 0);
}

BoxWatcher WendlowProcess::watch_boxes() const
{
    return BoxWatcher(process_.id(), [this] {
        if (is_running())
            wait_until_idle();
    });
}

bool WendlowProcess::takes_its_turn(unsigned milliseconds) const
{
    // Posted messages are handled in order. The data word of an Action entry, of which the program
    // makes no use, tells when the one posted here has had its turn.
    static DWORD_PTR marks = 0;
    const HWND marked = action_combo();
    const DWORD_PTR mark = ++marks;
    PostMessageW(marked, CB_SETITEMDATA, 0, static_cast<LPARAM>(mark));
    return becomes_true(
        [&] {
            DWORD_PTR seen = 0;
            return SendMessageTimeoutW(marked, CB_GETITEMDATA, 0, 0, SMTO_NORMAL, 100, &seen) && seen == mark;
        },
        milliseconds);
}

void WendlowProcess::wait_until_idle(unsigned milliseconds) const
{
    // A dialog handles posted messages too, and one may come and go within a turn. Two turns without any
    // before and after them are taken for the program's own.
    constexpr int kTurns = 2;
    int turns = 0;
    wait_until(
        [&] {
            if (!is_running())
                throw Failure("the program has ended");
            const bool quiet =
                !shows_dialog(process_.id()) && takes_its_turn(milliseconds) && !shows_dialog(process_.id());
            turns = quiet ? turns + 1 : 0;
            return turns == kTurns;
        },
        milliseconds, "the program to be idle");
}

HWND WendlowProcess::list_window() const
{
    return find_window(process_.id(), kListClass);
}

HWND WendlowProcess::wait_for_list_window(unsigned milliseconds) const
{
    return wait_for([&] { return list_window(); }, milliseconds, "the List of Windows window");
}

RemoteListView WendlowProcess::scan(unsigned milliseconds) const
{
    press_scan();
    wait_until_idle(milliseconds);
    wait_for_list_window();
    return list_view();
}

RemoteListView WendlowProcess::list_view() const
{
    return RemoteListView(child_of(list_window(), 4));
}

int WendlowProcess::row_of(const std::wstring& window_name) const
{
    const RemoteListView list = list_view();
    if (const std::optional<int> row = list.find_row(window_name))
        return *row;
    std::string names;
    for (int row = 0; row < list.row_count(); ++row)
        names += "\n  " + printable(list.cell(row, 1));
    throw Failure("the list has no row \"" + printable(window_name) + "\"; it has" + names);
}

void WendlowProcess::tick(const std::wstring& window_name) const
{
    list_view().set_ticked(row_of(window_name), true);
}

void WendlowProcess::press_move() const
{
    press(child_of(list_window(), 1));
}

void WendlowProcess::press_create_profile() const
{
    press(child_of(list_window(), 2));
}

void WendlowProcess::close_list_window() const
{
    const HWND list = list_window();
    PostMessageW(list, WM_CLOSE, 0, 0);
    wait_until([&] { return !IsWindow(list); }, kShortWait, "the List of Windows window to close");
}

HWND WendlowProcess::open_modify_cell(int row, int column) const
{
    const RemoteListView list = list_view();
    bring_to_front(list_window());
    right_click(list.cell_centre(row, column));
    const HWND menu = wait_for([&] { return find_window(process_.id(), L"#32768"); }, kShortWait,
                               "the popup menu of the list");
    click(centre_of(menu));
    const HWND window = wait_for([&] { return modify_cell_window(); }, kShortWait, "the Modify Cell window");
    wait_until_idle();
    return window;
}

HWND WendlowProcess::modify_cell_window() const
{
    return find_window(process_.id(), kModifyCellClass);
}

HWND WendlowProcess::name_window() const
{
    return find_window(process_.id(), kNameClass);
}

HWND WendlowProcess::wait_for_name_window(unsigned milliseconds) const
{
    return wait_for([&] { return name_window(); }, milliseconds, "the Name of Profile window");
}

void WendlowProcess::enter_name(const std::wstring& name) const
{
    set_text(child_of(wait_for_name_window(), 3), name);
}

void WendlowProcess::press_name_ok() const
{
    press(child_of(wait_for_name_window(), 1));
}

void WendlowProcess::press_name_cancel() const
{
    press(child_of(wait_for_name_window(), 2));
}

void WendlowProcess::create_profile(const std::wstring& name, const std::wstring& path) const
{
    press_create_profile();
    enter_name(name);
    press_name_ok();
    choose_file(process_.id(), path);
    wait_until_idle();
}

void WendlowProcess::load_profile(const std::wstring& path, unsigned milliseconds) const
{
    const std::size_t before = combo_texts(profile_combo()).size();
    start_load_profile(path);
    wait_until(
        [&] {
            // While the load goes on the program does not answer.
            DWORD_PTR names = 0;
            return SendMessageTimeoutW(profile_combo(), CB_GETCOUNT, 0, 0, SMTO_NORMAL, 100, &names) &&
                   names > before;
        },
        milliseconds, "the load of " + printable(path));
    wait_until_idle();
}

void WendlowProcess::start_load_profile(const std::wstring& path) const
{
    press_load_profile();
    choose_file(process_.id(), path);
}

namespace
{

// Windows carries what a drop names from the program that posts it to the one that gets it.
void post_drop(HWND window, const DROPFILES& header, const std::wstring& list)
{
    const std::size_t list_bytes = list.size() * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof(header) + list_bytes);
    auto* const bytes = static_cast<std::byte*>(GlobalLock(block));
    std::memcpy(bytes, &header, sizeof(header));
    std::memcpy(bytes + sizeof(header), list.data(), list_bytes);
    GlobalUnlock(block);
    if (!PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0))
        throw Failure("the files cannot be dropped, error " + std::to_string(GetLastError()));
}

// Wine does not carry it, so it is put into the program's own memory.
void post_drop_under_wine(HWND window, const DROPFILES& header, const std::wstring& list)
{
    const std::size_t list_bytes = list.size() * sizeof(wchar_t);
    RemoteMemory block(window, sizeof(header) + list_bytes);
    block.write(0, &header, sizeof(header));
    block.write(sizeof(header), list.data(), list_bytes);
    block.leave_to_process();
    PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(block.address()), 0);
}

} // namespace

void drop_files_on(HWND window, const std::vector<std::wstring>& paths)
{
    DROPFILES header{};
    header.pFiles = sizeof(header);
    header.fWide = TRUE;
    std::wstring list;
    for (const std::wstring& path : paths)
        list += path + L'\0';
    list += L'\0';
    if (under_wine())
        post_drop_under_wine(window, header, list);
    else
        post_drop(window, header, list);
}

std::vector<std::wstring> WendlowProcess::combo_texts(HWND combo) const
{
    std::vector<std::wstring> texts;
    const auto count = static_cast<int>(answer_of(combo, CB_GETCOUNT));
    for (int i = 0; i < count; ++i) {
        std::wstring text(1024, L'\0');
        const auto units =
            answer_of(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        text.resize(units);
        texts.push_back(text);
    }
    return texts;
}

int WendlowProcess::combo_selection(HWND combo) const
{
    return static_cast<int>(answer_of(combo, CB_GETCURSEL));
}

std::wstring WendlowProcess::combo_shown_text(HWND combo) const
{
    return text_of(combo);
}

void WendlowProcess::select(HWND combo, int position) const
{
    if (static_cast<int>(answer_of(combo, CB_SETCURSEL, static_cast<WPARAM>(position))) != position)
        throw Failure("the combo box has no entry " + std::to_string(position));
    answer_of(main_window_, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
              reinterpret_cast<LPARAM>(combo));
}

void WendlowProcess::select_action(const std::wstring& name) const
{
    const std::vector<std::wstring> actions = combo_texts(action_combo());
    for (std::size_t i = 0; i < actions.size(); ++i) {
        if (actions[i] == name) {
            select(action_combo(), static_cast<int>(i));
            return;
        }
    }
    throw Failure("there is no action \"" + printable(name) + "\"");
}

void WendlowProcess::apply(const std::wstring& action) const
{
    select_action(action);
    press_apply();
    wait_until_idle();
}

DWORD run_second_copy(unsigned milliseconds)
{
    const StartedProcess process(wendlow_path());
    try {
        return process.wait_for_exit(milliseconds);
    } catch (...) {
        terminate_process(process.id());
        throw;
    }
}

} // namespace test_support
