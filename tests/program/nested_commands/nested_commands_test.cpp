#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/loading_boxes.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// Commands that arrive while a dialog of another command is open. A dialog disables the window that owns it,
// but another program can still post to it.

using namespace test_support;

namespace
{

using Texts = std::vector<std::wstring>;

class NestedCommands : public testing::Test
{
protected:
    NestedCommands() : work_(fixtures_.add(L"Work", {.title = L"Work"})), boxes_(wendlow_.watch_boxes())
    {
        wendlow_.load_profile(profile(
            L"work.txt", ProfileEncoder().add_program(40, 50, 320, 240, units_of(work_)).name(u"Work")));
    }

    std::wstring profile(const wchar_t* name, const ProfileEncoder& encoder) const
    {
        const std::wstring path = folder_.file(name);
        write_file(path, encoder.bytes());
        return path;
    }

    // A button as a program outside would press it, whether its window is enabled or not.
    void post_button(int id) const
    {
        PostMessageW(wendlow_.main_window(), WM_COMMAND, static_cast<WPARAM>(id),
                     reinterpret_cast<LPARAM>(wendlow_.control(id)));
    }
    void post_to_list(int id) const
    {
        const HWND list = wendlow_.list_window();
        PostMessageW(list, WM_COMMAND, static_cast<WPARAM>(id),
                     reinterpret_cast<LPARAM>(GetDlgItem(list, id)));
    }

    // Ticks the program's row and goes on to the save dialog.
    void open_save_dialog() const
    {
        wendlow_.scan();
        wendlow_.tick(L"Work");
        wendlow_.press_create_profile();
        wendlow_.enter_name(L"Nested");
        wendlow_.press_name_ok();
        wait_for_file_dialog(wendlow_.process_id());
    }

    Texts profiles() const { return wendlow_.combo_texts(wendlow_.profile_combo()); }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    std::wstring work_;
    WendlowProcess wendlow_;
    BoxWatcher boxes_;
};

TEST_F(NestedCommands, CloseWhileTheReportOfALoadIsUpKeepsThatLoadsProfile)
{
    const std::wstring path = profile(
        L"gone.txt", ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\gone\\program.exe").name(u"Gone"));
    wendlow_.select_profile(0);
    wendlow_.select_action(L"Close");
    boxes_.hold();
    wendlow_.drop_files({path});
    EXPECT_EQ(boxes_.wait_for_box(0).owner, wendlow_.main_window());
    post_button(main_control::kApply);
    fixtures_.wait_for_end(L"Work");
    wait_until([&] { return profiles().empty(); }, kShortWait, "the closed profile's name to go");
    boxes_.release();
    boxes_.expect_boxes({loading_boxes::programs_failed_box(1, 1)});
    EXPECT_EQ(profiles(), Texts{L"Gone"});
    EXPECT_EQ(wendlow_.close_and_wait(), 0u);
}

TEST_F(NestedCommands, ScanAndEndWhileTheAboutBoxIsUpEndTheProgram)
{
    boxes_.hold();
    wendlow_.choose_about();
    EXPECT_EQ(boxes_.wait_for_box(0).owner, wendlow_.main_window());
    post_button(main_control::kScan);
    wendlow_.wait_for_list_window();
    wait_until([&] { return wendlow_.list_view().find_row(L"Work").has_value(); }, kLongWait, "the rows");
    PostMessageW(wendlow_.main_window(), WM_CLOSE, 0, 0);
    wait_until([&] { return !IsWindow(wendlow_.main_window()); }, kShortWait, "the main window to go");
    boxes_.release();
    EXPECT_EQ(wendlow_.wait_for_exit(2 * kShortWait), 0u);
    EXPECT_EQ(boxes_.count(), 1u);
}

TEST_F(NestedCommands, DropWhileTheOpenDialogIsUpIsLoaded)
{
    wendlow_.press_load_profile();
    wait_for_file_dialog(wendlow_.process_id());
    wendlow_.drop_files({folder_.file(L"work.txt")});
    wait_until([&] { return profiles().size() == 2; }, kLongWait,
               "the profile dropped while the dialog is up");
    EXPECT_NE(file_dialog_of(wendlow_.process_id()), nullptr);
    cancel_file_dialog(wendlow_.process_id());
    boxes_.expect_no_boxes();
    EXPECT_EQ(profiles(), (Texts{L"Work", L"Work"}));
}

TEST_F(NestedCommands, TwoOpenDialogsAreCancelledOneByOne)
{
    post_button(main_control::kLoadProfile);
    const HWND first = wait_for_file_dialog(wendlow_.process_id());
    post_button(main_control::kLoadProfile);
    const auto dialogs = [&] {
        std::size_t count = 0;
        for (const HWND window : top_level_windows_of(wendlow_.process_id()))
            count += IsWindowVisible(window) && is_file_dialog(window) ? 1u : 0u;
        return count;
    };
    wait_until([&] { return dialogs() == 2; }, kShortWait, "the second dialog");
    for (const HWND window : top_level_windows_of(wendlow_.process_id())) {
        if (window != first && IsWindowVisible(window) && is_file_dialog(window))
            PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    }
    wait_until([&] { return dialogs() == 1; }, kShortWait, "the second dialog to go");
    PostMessageW(first, WM_COMMAND, IDCANCEL, 0);
    wait_until([&] { return dialogs() == 0; }, kShortWait, "the first dialog to go");
    boxes_.expect_no_boxes();
    EXPECT_TRUE(IsWindowEnabled(wendlow_.main_window()));
    EXPECT_EQ(profiles(), Texts{L"Work"});
}

TEST_F(NestedCommands, CreateProfileDoesNothingWhileTheSaveDialogIsUp)
{
    open_save_dialog();
    post_to_list(list_control::kCreateProfile);
    choose_file(wendlow_.process_id(), folder_.file(L"saved.txt"));
    boxes_.expect_no_boxes();
    EXPECT_EQ(wendlow_.name_window(), nullptr);
    EXPECT_EQ(hex(read_file(folder_.file(L"saved.txt"))),
              hex(ProfileEncoder().add_program(40, 50, 320, 240, units_of(work_)).name(u"Nested").bytes()));
}

// The list is destroyed, and the dialog that it owns.
TEST_F(NestedCommands, ScanWhileTheSaveDialogIsUpCancelsTheSave)
{
    open_save_dialog();
    const HWND list = wendlow_.list_window();
    post_button(main_control::kScan);
    wait_until([&] { return !IsWindow(list) && wendlow_.list_window() != nullptr; }, kLongWait,
               "the new list");
    boxes_.expect_no_boxes();
    EXPECT_EQ(wendlow_.name_window(), nullptr);
    EXPECT_TRUE(wendlow_.list_view().find_row(L"Work"));
    wendlow_.tick(L"Work");
    wendlow_.create_profile(L"Next", folder_.file(L"next.txt"));
    EXPECT_EQ(hex(read_file(folder_.file(L"next.txt"))),
              hex(ProfileEncoder().add_program(40, 50, 320, 240, units_of(work_)).name(u"Next").bytes()));
    boxes_.expect_no_boxes();
}

} // namespace
