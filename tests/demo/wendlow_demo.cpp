// The main job on real programs, done as a user does it: lay out, scan, tick, save, close, load. The
// script that runs this shows the steps, takes the pictures and prints the table. With the argument
// --for-user it only opens everything and leaves the rest to the user; with --pictures it takes the pictures
// of the guide.
#include <windows.h>

#include <algorithm>
#include <string_view>

#include "tests/demo/demo_desktop.h"
#include "tests/demo/demo_for_user.h"
#include "tests/demo/demo_pictures.h"
#include "tests/demo/demo_script.h"
#include "tests/demo/demo_user.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/input/real_input.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using namespace demo;

namespace
{

const std::wstring kDemoFolder = L"C:\\wendlow-demo";
const std::wstring kLettersFolder = kDemoFolder + L"\\Letters";
const std::wstring kProfile = kDemoFolder + L"\\Office.txt";

std::vector<DesktopWindow> windows_to_lay_out()
{
    return {
        {.name = "Notepad",
         .path = L"C:\\windows\\system32\\notepad.exe",
         .class_name = L"Notepad",
         .place = {.x = 20, .y = 440, .width = 420, .height = 300}},
        {.name = "WordPad, partly left of the screen",
         .path = L"C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe",
         .class_name = L"WORDPADTOP",
         .place = {.x = -60, .y = 30, .width = 640, .height = 380}},
        {.name = "File manager",
         .path = L"C:\\windows\\system32\\winefile.exe",
         .class_name = L"WFS_Frame",
         .place = {.x = 600, .y = 20, .width = 480, .height = 340}},
        {.name = "WineMine",
         .path = L"C:\\windows\\system32\\winemine.exe",
         .class_name = L"WineMine",
         .place = {.x = 1150, .y = 60, .width = 170, .height = 220}},
        {.name = "Folder Letters",
         .path = kLettersFolder,
         .is_folder = true,
         .class_name = L"ExplorerWClass",
         .place = {.x = 470, .y = 390, .width = 520, .height = 340}},
        {.name = "Clock, minimised",
         .path = L"C:\\windows\\system32\\clock.exe",
         .class_name = L"CLClass",
         .place = {.minimised = true}},
    };
}

void make_letters()
{
    if (folder_exists(kDemoFolder))
        throw Failure("C:\\wendlow-demo is left from an earlier demo");
    CreateDirectoryW(kDemoFolder.c_str(), nullptr);
    CreateDirectoryW(kLettersFolder.c_str(), nullptr);
    for (const wchar_t* name : {L"to a friend.txt", L"to the bank.txt", L"to the landlord.txt"})
        write_file(kLettersFolder + L"\\" + name, {});
}

void show_main_window(const WendlowProcess& wendlow)
{
    step("Wendlow is started");
    const HWND window = wendlow.main_window();
    SetWindowPos(window, HWND_TOP, 700, 380, 0, 0, SWP_NOSIZE);
    bring_to_front(window);
    picture("02-main-window");
    const Place small = place_of(window);
    SetWindowPos(window, HWND_TOP, 100, 60, 1100, 640, 0);
    picture("03-main-window-enlarged");
    SetWindowPos(window, HWND_TOP, small.x, small.y, small.width, small.height, 0);
    expect(becomes_placed(window, small), "the main window does not take its first size again");
}

void scan_and_tick(const WendlowProcess& wendlow, const Desktop& desktop)
{
    step("Scan is pressed");
    click(wendlow.scan_button());
    bring_to_front(wendlow.wait_for_list_window());
    picture("04-list-of-windows");
    step("The windows are ticked");
    const RemoteListView list = wendlow.list_view();
    for (const DesktopWindow& window : desktop.windows())
        list.click_check_box(wendlow.row_of(title_of(window.window)));
    picture("05-windows-ticked");
}

void save_profile(const WendlowProcess& wendlow)
{
    step("Create Profile is pressed, the name is typed");
    wendlow.press_create_profile();
    bring_to_front(wendlow.wait_for_name_window());
    click(GetDlgItem(wendlow.name_window(), name_control::kName));
    type_text(L"Office");
    picture("06-name-of-profile");
    click(GetDlgItem(wendlow.name_window(), name_control::kOk));
    wait_for_file_dialog(wendlow.process_id());
    step("The profile is saved as " + printable(kProfile));
    picture("07-save-dialog");
    choose_file(wendlow.process_id(), kProfile);
    wait_until([] { return file_exists(kProfile); }, kShortWait, "the profile file");
    wendlow.wait_until_idle();
    wendlow.close_list_window();
}

// Every window that was laid out is in the profile, at the place it had.
void compare_profile(const std::vector<SavedWindow>& profile, const Desktop& desktop)
{
    expect(profile.size() == desktop.windows().size(), "the profile has " + std::to_string(profile.size()) +
                                                           " windows, not " +
                                                           std::to_string(desktop.windows().size()));
    for (const DesktopWindow& window : desktop.windows()) {
        const auto is_it = [&](const SavedWindow& saved) {
            return CompareStringOrdinal(saved.path.c_str(), -1, window.path.c_str(), -1, TRUE) ==
                       CSTR_EQUAL &&
                   saved.is_folder == window.is_folder && saved.place == window.place;
        };
        expect(std::any_of(profile.begin(), profile.end(), is_it),
               window.name + " was not saved with its place " + as_text(window.place));
    }
}

void load_profile(const WendlowProcess& wendlow)
{
    step("Load Profile is pressed");
    click(wendlow.load_profile_button());
    wait_for_file_dialog(wendlow.process_id());
    picture("09-open-dialog");
    step("The profile is loaded: Wendlow starts and places everything");
    choose_file(wendlow.process_id(), kProfile);
    wait_for_profile_names(wendlow, 1);
    picture("10-profile-loaded");
}

Place found_place(const Desktop& desktop, const SavedWindow& saved, std::string& name)
{
    for (const DesktopWindow& window : desktop.windows()) {
        if (CompareStringOrdinal(saved.path.c_str(), -1, window.path.c_str(), -1, TRUE) != CSTR_EQUAL)
            continue;
        name = window.name;
        becomes_placed(window.window, saved.place);
        return place_of(window.window);
    }
    throw Failure("the profile has a strange path: " + printable(saved.path));
}

void tell_rows(const std::vector<SavedWindow>& profile, const Desktop& desktop)
{
    for (const SavedWindow& saved : profile) {
        std::string name;
        const Place found = found_place(desktop, saved, name);
        row(name, as_text(saved.place), as_text(found));
    }
}

void expect_all_placed(const std::vector<SavedWindow>& profile, const Desktop& desktop,
                       const std::string& when)
{
    for (const SavedWindow& saved : profile) {
        std::string name;
        const Place found = found_place(desktop, saved, name);
        expect(found == saved.place, when + ": " + name + " is at " + as_text(found));
    }
}

void modify_and_move(const WendlowProcess& wendlow, const Desktop& desktop)
{
    step("Modify Cell: Notepad's X is changed, then Move is pressed");
    const DesktopWindow& notepad = desktop.named("Notepad");
    const RemoteListView list = wendlow.scan();
    const int row = wendlow.row_of(title_of(notepad.window));
    list.click_check_box(row);
    bring_to_front(wendlow.list_window());
    const HWND menu = open_cell_menu(wendlow, row, 2);
    picture("11-popup-menu");
    const HWND cell = choose_modify_cell(wendlow, menu);
    picture("12-modify-cell");
    bring_to_front(cell);
    double_click(centre_of(GetDlgItem(cell, cell_control::kX)));
    type_text(L"880");
    picture("13-modify-cell-typed");
    click(GetDlgItem(cell, cell_control::kOk));
    wait_until([&] { return !IsWindow(cell); }, kShortWait, "Modify Cell to close");
    expect(list.cell(row, 2) == L"880", "the list does not show the X that was typed");
    click(GetDlgItem(wendlow.list_window(), list_control::kMove));
    Place moved = notepad.place;
    moved.x = 880;
    expect(becomes_placed(notepad.window, moved), "Notepad was not moved");
    wendlow.close_list_window();
    picture("14-notepad-moved");
}

void apply_actions(const WendlowProcess& wendlow, const std::vector<SavedWindow>& profile,
                   const Desktop& desktop)
{
    step("Apply: Minimize");
    choose_action(wendlow, kMinimize);
    picture("15-actions");
    press_apply(wendlow);
    for (const DesktopWindow& window : desktop.windows())
        expect(becomes_placed(window.window, {.minimised = true}), window.name + " was not minimised");
    picture("16-minimised");
    step("Apply: Restore");
    apply_action(wendlow, kRestore);
    expect_all_placed(profile, desktop, "after Restore");
    picture("17-restored");
}

void close_and_drop(const WendlowProcess& wendlow, const std::vector<SavedWindow>& profile, Desktop& desktop)
{
    step("Apply: Close");
    apply_action(wendlow, kClose);
    desktop.wait_until_closed();
    expect(wendlow.combo_texts(wendlow.profile_combo()).empty(), "the profile's name is still in the list");
    picture("18-closed");
    step("The profile file is dropped on the main window");
    wendlow.drop_files({kProfile});
    wait_for_profile_names(wendlow, 1);
    desktop.find();
    expect_all_placed(profile, desktop, "after the drop");
    picture("19-dropped");
}

void run_demo()
{
    make_letters();
    Desktop desktop(windows_to_lay_out());
    step("Five programs and a folder window are opened and laid out");
    desktop.open();
    picture("01-laid-out");

    WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    show_main_window(wendlow);
    scan_and_tick(wendlow, desktop);
    save_profile(wendlow);
    const std::vector<SavedWindow> profile = read_profile(read_file(kProfile));
    compare_profile(profile, desktop);

    step("The programs and the folder are closed");
    desktop.close();
    picture("08-closed");
    load_profile(wendlow);
    desktop.find();
    tell_rows(profile, desktop);

    modify_and_move(wendlow, desktop);
    apply_actions(wendlow, profile, desktop);
    close_and_drop(wendlow, profile, desktop);

    for (const SeenBox& box : boxes.boxes())
        fail("Wendlow showed a box: " + printable(box.title) + ": " + printable(box.text));
    step("Wendlow is closed");
    expect(wendlow.close_and_wait() == 0, "Wendlow did not end with the exit code 0");
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 2 && std::string_view(argv[1]) == "--for-user")
            open_for_user();
        else if (argc == 2 && std::string_view(argv[1]) == "--pictures")
            take_pictures_of_guide();
        else
            run_demo();
    } catch (const std::exception& failure) {
        fail(failure.what());
    }
    return failures() == 0 ? 0 : 1;
}
