#include <windows.h>

#include <gtest/gtest.h>

#include "tests/program/hostile/all_windows_open_fixture.h"
#include "tests/support/basics/files.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/profiles/profile_encoder.h"

// What a user or another program asks for while a box is open.

using namespace test_support;
using hostile::Texts;

namespace
{

class MessagesWhileABoxIsUp : public hostile::AllWindowsOpenFixture
{
};

// Re-entrancy: a box without owner runs a message loop and leaves the windows usable.
TEST_F(MessagesWhileABoxIsUp, AreCarriedOut)
{
    const auto bad_file = [&](const wchar_t* name) {
        write_file(folder_.file(name), {1, 2, 3, 4});
        return folder_.file(name);
    };
    SendMessageW(wendlow_.name_window(), WM_CLOSE, 0, 0);
    SendMessageW(wendlow_.modify_cell_window(), WM_CLOSE, 0, 0);
    boxes_.hold();
    wendlow_.drop_files({bad_file(L"1.txt")}); // its box stays on the screen
    boxes_.wait_for_box(0);

    const HWND list = wendlow_.list_window();
    wendlow_.press_scan();
    wait_until([&] { return !IsWindow(list) && wendlow_.list_window() != nullptr; }, kLongWait,
               "the list of the second scan");
    wendlow_.drop_files({folder_.file(L"good.txt")});
    wait_until([&] { return wendlow_.combo_texts(wendlow_.profile_combo()).size() == 2; }, kLongWait,
               "the profile loaded under the box");
    wendlow_.press_apply(); // without an action
    boxes_.wait_for_box(1);
    wendlow_.drop_files({bad_file(L"2.txt")});
    boxes_.wait_for_box(2);
    wendlow_.press_load_profile();
    cancel_file_dialog(wendlow_.process_id());
    wendlow_.press_move(); // with nothing ticked
    boxes_.wait_for_box(3);
    boxes_.release();
    // The four that were held, and the one that follows each refused file.
    boxes_.wait_for_box(5);
    wendlow_.wait_until_idle();

    EXPECT_EQ(boxes_.count(), 6u);
    EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), (Texts{L"Good", L"Good"}));
    EXPECT_TRUE(wendlow_.list_view().find_row(L"Edited"));
    EXPECT_EQ(wendlow_.close_and_wait(), 0u);
}

// Closing the main window while a box of a load is open ends the program.
TEST_F(MessagesWhileABoxIsUp, EndTheProgramWhenTheyCloseTheMainWindow)
{
    const std::wstring path = folder_.file(L"gone.txt");
    write_file(path,
               ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\gone\\program.exe").name(u"P").bytes());
    boxes_.hold();
    wendlow_.drop_files({path});
    boxes_.wait_for_box(0);
    PostMessageW(wendlow_.main_window(), WM_CLOSE, 0, 0);
    wait_until([&] { return !IsWindow(wendlow_.main_window()); }, kShortWait, "the main window to go");
    boxes_.release();
    EXPECT_EQ(wendlow_.wait_for_exit(2 * kShortWait), 0u);
}

} // namespace
