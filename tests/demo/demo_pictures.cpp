#include "tests/demo/demo_pictures.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/demo/demo_desktop.h"
#include "tests/demo/demo_script.h"
#include "tests/demo/demo_user.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/input/real_input.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

namespace demo
{

using namespace test_support;

namespace
{

const std::wstring kFolder = L"C:\\Work";
const std::wstring kLetters = kFolder + L"\\Letters";
const std::wstring kOfficeProfile = kFolder + L"\\Office.txt";
const std::wstring kNoProfile = kLetters + L"\\to a friend.txt";

std::vector<DesktopWindow> windows_of_guide()
{
    return {
        {.name = "Notepad",
         .path = L"C:\\windows\\system32\\notepad.exe",
         .class_name = L"Notepad",
         .place = {.x = 20, .y = 20, .width = 420, .height = 330}},
        {.name = "WordPad",
         .path = L"C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe",
         .class_name = L"WORDPADTOP",
         .place = {.x = 460, .y = 20, .width = 660, .height = 330}},
        {.name = "Letters",
         .path = kLetters,
         .is_folder = true,
         .class_name = L"ExplorerWClass",
         .place = {.x = 20, .y = 370, .width = 640, .height = 330}},
        {.name = "WineMine",
         .path = L"C:\\windows\\system32\\winemine.exe",
         .class_name = L"WineMine",
         .place = {.x = 1150, .y = 60}},
    };
}

// The pictures show when a file was changed: always the same.
void write_dated_file(const std::wstring& path, const Bytes& bytes)
{
    write_file(path, bytes);
    SYSTEMTIME date{};
    date.wYear = 2026;
    date.wMonth = 3;
    date.wDay = 2;
    date.wHour = 12;
    FILETIME time{};
    SystemTimeToFileTime(&date, &time);
    HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
}

void make_folders()
{
    CreateDirectoryW(kFolder.c_str(), nullptr);
    CreateDirectoryW(kLetters.c_str(), nullptr);
    for (const wchar_t* name : {L"to a friend.txt", L"to the bank.txt", L"to the landlord.txt"})
        write_dated_file(kLetters + L"\\" + name, {'D', 'e', 'a', 'r', ' ', 'A', 'n', 'n', 'a', ','});
    // The file dialogs begin here, and show nothing of where the program was built.
    SetCurrentDirectoryW(kFolder.c_str());
}

void picture_of_window(const std::string& name, HWND window)
{
    picture(name, rectangle_of(window));
}

// The window down to a height.
void picture_of_top(const std::string& name, HWND window, int height)
{
    RECT part = rectangle_of(window);
    part.bottom = part.top + height;
    picture(name, part);
}

void show_main_window(const WendlowProcess& wendlow)
{
    SetWindowPos(wendlow.main_window(), HWND_TOP, 750, 390, 0, 0, SWP_NOSIZE);
    bring_to_front(wendlow.main_window());
    picture("desktop");
    picture_of_window("main-window", wendlow.main_window());
}

// What is left open is held by `boxes`, so that its picture can be taken.
void picture_of_box(const std::string& name, const BoxWatcher& boxes, std::size_t index)
{
    picture_of_window(name, boxes.wait_for_box(index).window);
}

void open_list(const WendlowProcess& wendlow)
{
    click(wendlow.scan_button());
    const HWND list_window = wendlow.wait_for_list_window();
    bring_to_front(list_window);
    SetWindowPos(list_window, HWND_TOP, 170, 60, 0, 0, SWP_NOSIZE);
}

void show_list(const WendlowProcess& wendlow, const Desktop& desktop)
{
    const HWND list_window = wendlow.list_window();
    const RemoteListView list = wendlow.list_view();
    for (const DesktopWindow& window : desktop.windows())
        list.click_check_box(wendlow.row_of(title_of(window.window)));
    picture("desktop-with-list");
    picture_of_top("list-of-windows", list_window, 230);
}

void show_modify_cell(const WendlowProcess& wendlow)
{
    const int row = wendlow.row_of(L"Untitled - Notepad");
    const HWND menu = open_cell_menu(wendlow, row, 2);
    picture_of_top("modify-cell-menu", wendlow.list_window(), 230);
    const HWND cell = choose_modify_cell(wendlow, menu);
    bring_to_front(cell);
    picture_of_window("modify-cell", cell);
    click(GetDlgItem(cell, cell_control::kCancel));
    wait_until([&] { return !IsWindow(cell); }, kShortWait, "Modify Cell to close");
}

void show_saving(const WendlowProcess& wendlow)
{
    wendlow.press_create_profile();
    const HWND name_window = wendlow.wait_for_name_window();
    bring_to_front(name_window);
    click(GetDlgItem(name_window, name_control::kName));
    type_text(L"Office");
    picture_of_window("name-of-profile", name_window);
    click(GetDlgItem(name_window, name_control::kOk));
    const HWND dialog = wait_for_file_dialog(wendlow.process_id());
    enter_file_name(wendlow.process_id(), L"Office.txt");
    press_key(VK_END);
    picture_of_window("save-profile", dialog);
    choose_file(wendlow.process_id(), kOfficeProfile);
    wait_until([] { return file_exists(kOfficeProfile); }, kShortWait, "the profile file");
    wendlow.wait_until_idle();
    wendlow.close_list_window();
}

void show_loading(const WendlowProcess& wendlow, Desktop& desktop)
{
    desktop.close();
    bring_to_front(wendlow.main_window());
    picture("desktop-closed");
    click(wendlow.load_profile_button());
    const HWND dialog = wait_for_file_dialog(wendlow.process_id());
    enter_file_name(wendlow.process_id(), L"Office.txt");
    press_key(VK_END);
    picture_of_window("load-profile", dialog);
    choose_file(wendlow.process_id(), kOfficeProfile);
    wait_for_profile_names(wendlow, 1);
    desktop.find();
    bring_to_front(wendlow.main_window());
    picture("desktop-loaded");
}

void show_actions(const WendlowProcess& wendlow)
{
    choose_action(wendlow, kMinimize);
    picture_of_window("actions", wendlow.main_window());
    press_key(VK_ESCAPE);
    wendlow.wait_until_idle();
}

// A report of a file that is no profile, and of a drop of one.
void show_reports(const WendlowProcess& wendlow, BoxWatcher* boxes)
{
    boxes->forget();
    boxes->hold();
    wendlow.start_load_profile(kNoProfile);
    picture_of_box("report", *boxes, 0);
    boxes->answer_held();
    boxes->wait_for_box(1);
    boxes->answer_held();
    wendlow.wait_until_idle();
    wendlow.drop_files({kNoProfile});
    boxes->wait_for_box(2);
    boxes->answer_held();
    picture_of_box("unreadable-report", *boxes, 3);
    boxes->release();
    wendlow.wait_until_idle();
}

// A profile with a program that is not there.
void show_missing_program(const WendlowProcess& wendlow, BoxWatcher* boxes)
{
    ProfileEncoder profile;
    profile.add_program(0, 0, 300, 200, u"C:\\Old\\planner.exe").name(u"Last year");
    const std::wstring path = kFolder + L"\\Last year.txt";
    write_file(path, profile.bytes());
    boxes->forget();
    boxes->hold();
    wendlow.start_load_profile(path);
    picture_of_box("not-all-programs", *boxes, 0);
    boxes->release();
    wait_for_profile_names(wendlow, 2);
}

// What is shown when nothing is ticked.
void show_notice(const WendlowProcess& wendlow, BoxWatcher* boxes)
{
    boxes->forget();
    boxes->hold();
    wendlow.press_create_profile();
    picture_of_box("nothing-ticked", *boxes, 0);
    boxes->release();
    wendlow.wait_until_idle();
}

} // namespace

void take_pictures_of_guide()
{
    make_folders();
    Desktop desktop(windows_of_guide());
    step("The windows of the guide are opened and laid out");
    desktop.open();
    WendlowProcess wendlow;
    BoxWatcher boxes = wendlow.watch_boxes();
    show_main_window(wendlow);
    step("They are listed and saved");
    open_list(wendlow);
    show_notice(wendlow, &boxes);
    show_list(wendlow, desktop);
    show_modify_cell(wendlow);
    show_saving(wendlow);
    step("They are closed and loaded");
    show_loading(wendlow, desktop);
    show_actions(wendlow);
    step("Boxes are shown");
    show_missing_program(wendlow, &boxes);
    show_reports(wendlow, &boxes);
    expect(wendlow.close_and_wait() == 0, "Wendlow did not end with the exit code 0");
}

} // namespace demo
