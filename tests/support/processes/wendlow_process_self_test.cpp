#include <windows.h>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

using Texts = std::vector<std::wstring>;

TEST(WendlowProcess, StartsAndClosesTheProgram)
{
    WendlowProcess wendlow;
    EXPECT_TRUE(wendlow.is_running());
    EXPECT_EQ(class_of(wendlow.main_window()), L"prg_wnds_layout");
    EXPECT_EQ(wendlow.combo_texts(wendlow.action_combo()), (Texts{L"Minimize", L"Restore", L"Close"}));
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), Texts{});
    EXPECT_EQ(wendlow.combo_selection(wendlow.profile_combo()), -1);
    EXPECT_EQ(run_second_copy(), 0u);
    EXPECT_EQ(wendlow.close_and_wait(), 0u);
    EXPECT_FALSE(wendlow.is_running());
}

TEST(WendlowProcess, ShowsBoxesToAWatcher)
{
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.choose_about();
    const SeenBox about = boxes.wait_for_box(0);
    EXPECT_EQ(about.title, L"About");
    EXPECT_TRUE(about.text.starts_with(L"This small"));
    EXPECT_EQ(about.owner, wendlow.main_window());
    wendlow.wait_until_idle();
}

TEST(WendlowProcess, ScansTicksAndReadsTheList)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.title = L"Fixture on the list";
    options.x = 900;
    options.y = 500;
    fixtures.add(L"listed", options);
    fixtures.start(L"listed");
    const WendlowProcess wendlow;
    const HWND first = wendlow.scan().window();
    const RemoteListView list = wendlow.scan();
    EXPECT_NE(list.window(), first);
    EXPECT_EQ(list.heading(1), L"Window name");
    const int row = wendlow.row_of(L"Fixture on the list");
    EXPECT_EQ(list.cell(row, 0), std::to_wstring(row + 1));
    wendlow.tick(L"Fixture on the list");
    EXPECT_TRUE(list.is_ticked(row));
    list.click_check_box(row);
    EXPECT_FALSE(list.is_ticked(row));
    EXPECT_THROW(wendlow.row_of(L"no such window"), Failure);
    wendlow.close_list_window();
    EXPECT_EQ(wendlow.list_window(), nullptr);
}

TEST(WendlowProcess, OpensModifyCellWithTheMouse)
{
    const WendlowProcess wendlow;
    wendlow.scan();
    const HWND window = wendlow.open_modify_cell(0, 3);
    EXPECT_EQ(title_of(window), L"Modify Cell");
}

TEST(WendlowProcess, SavesAProfile)
{
    FixturePrograms fixtures;
    fixtures.add(L"saved");
    fixtures.start(L"saved");
    const TemporaryFolder folder;
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.scan();
    wendlow.tick(L"Fixture");
    wendlow.press_create_profile();
    wendlow.wait_for_name_window();
    wendlow.press_name_cancel();
    wait_until([&] { return !wendlow.name_window(); }, kShortWait, "the name window to close");
    wendlow.create_profile(L"N", folder.file(L"p.txt"));
    EXPECT_TRUE(file_exists(folder.file(L"p.txt")));
    boxes.expect_no_boxes();
}

// A profile of a window that is on the screen already, so that nothing has to be waited for.
std::wstring saved_profile(FixturePrograms& fixtures, const TemporaryFolder& folder)
{
    const std::wstring program = fixtures.add(L"loaded");
    const std::wstring path = folder.file(L"profile.txt");
    write_file(path,
               ProfileEncoder().add_program(50, 60, 300, 200, units_of(program)).name(u"profile1").bytes());
    return path;
}

TEST(WendlowProcess, LoadsAProfileThroughTheDialogAndAppliesAnAction)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring profile = saved_profile(fixtures, folder);
    const WendlowProcess wendlow;
    BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.load_profile(profile);
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), (Texts{L"profile1"}));
    EXPECT_EQ(wendlow.combo_shown_text(wendlow.profile_combo()), L"profile1");
    wendlow.select_profile(0);
    wendlow.apply(L"Restore");
    EXPECT_EQ(wendlow.combo_selection(wendlow.action_combo()), 1);
}

TEST(WendlowProcess, TakesDroppedFiles)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring profile = saved_profile(fixtures, folder);
    const WendlowProcess wendlow;
    wendlow.drop_files({profile, folder.file(L"ignored")});
    wait_until([&] { return !wendlow.combo_texts(wendlow.profile_combo()).empty(); }, kLongWait,
               "the dropped profile");
}

TEST(WendlowProcess, IsEndedEvenWhenADialogIsOpen)
{
    DWORD process_id = 0;
    {
        const WendlowProcess wendlow;
        process_id = wendlow.process_id();
        wendlow.press_load_profile();
        wait_for_file_dialog(process_id);
    }
    EXPECT_FALSE(is_process_running(process_id));
}

// Called as if the thread started there; nothing can be.
void crash(const WendlowProcess& wendlow)
{
    const HANDLE thread = CreateRemoteThread(
        wendlow.process(), nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(0x10), nullptr, 0, nullptr);
    wendlow.wait_for_exit(kLongWait);
    CloseHandle(thread);
}

TEST(WendlowProcess, FailsTheTestWhenItCrashes)
{
    EXPECT_NONFATAL_FAILURE(
        {
            const WendlowProcess wendlow;
            EXPECT_FALSE(wendlow.crashed());
            crash(wendlow);
            EXPECT_TRUE(wendlow.crashed());
        },
        "the program crashed");
}

TEST(WendlowProcess, CanBeWorkedWithTheMouse)
{
    const WendlowProcess wendlow;
    click(wendlow.scan_button());
    wendlow.wait_for_list_window();
}

} // namespace
