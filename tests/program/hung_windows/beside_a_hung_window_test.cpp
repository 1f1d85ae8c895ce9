#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/stopped_window.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

// Load, Minimize and Restore while the first of two windows handles no message.

using namespace test_support;

namespace
{

class BesideAHungWindow : public testing::Test
{
protected:
    // Writes a profile of the program that hangs and the other one. With a program that is not there a box
    // stops the load before the windows are placed.
    std::wstring write_profile(bool stops_at_a_box)
    {
        const std::u16string hung = units_of(fixtures_.add(L"hung", {.title = L"Hung", .x = 40, .y = 60}));
        const std::u16string well = units_of(fixtures_.add(L"well", {.title = L"Well"}));
        ProfileEncoder profile;
        profile.add_program(80, 90, 400, 300, hung).add_program(500, 310, 350, 250, well);
        if (stops_at_a_box)
            profile.add_program(0, 0, 9, 9, u"C:\\gone.exe");
        write_file(folder_.file(L"p.txt"), profile.name(u"P").bytes());
        return folder_.file(L"p.txt");
    }
    void load()
    {
        wendlow_.load_profile(write_profile(false));
        hung_ = fixtures_.wait_for_window(L"hung");
        well_ = fixtures_.wait_for_window(L"well");
        ASSERT_TRUE(comes_to(hung_, {80, 90, 480, 390}));
        ASSERT_TRUE(comes_to(well_, {500, 310, 850, 560}));
    }
    static bool comes_to(HWND window, const RECT& place)
    {
        return becomes_true(
            [&] {
                const RECT found = rectangle_of(window);
                return EqualRect(&found, &place) != FALSE;
            },
            kLongWait);
    }
    static bool becomes_minimised(HWND window)
    {
        return becomes_true([&] { return IsIconic(window) != FALSE; }, kLongWait);
    }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
    HWND hung_ = nullptr;
    HWND well_ = nullptr;
};

TEST_F(BesideAHungWindow, ALoadPlacesTheOthersAndTheHungOneOnceItAnswers)
{
    const std::wstring path = write_profile(true);
    BoxWatcher boxes = wendlow_.watch_boxes();
    boxes.hold();
    wendlow_.drop_files({path});
    boxes.wait_for_box(0, kLongWait);
    hung_ = fixtures_.wait_for_window(L"hung");
    well_ = fixtures_.wait_for_window(L"well");
    const StoppedWindow stopped(hung_);
    boxes.release();
    EXPECT_TRUE(comes_to(well_, {500, 310, 850, 560}));
    wendlow_.wait_until_idle();
    EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), std::vector<std::wstring>{L"P"});
    EXPECT_EQ(rectangle_of(hung_).left, 40);
    EXPECT_EQ(boxes.count(), 1u);
    stopped.go_on();
    EXPECT_TRUE(comes_to(hung_, {80, 90, 480, 390}));
}

TEST_F(BesideAHungWindow, MinimizeAndRestoreReachTheOthersWhileItHangs)
{
    load();
    const StoppedWindow stopped(hung_);
    wendlow_.apply(L"Minimize");
    EXPECT_TRUE(becomes_minimised(well_));
    EXPECT_FALSE(IsIconic(hung_));
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(comes_to(well_, {500, 310, 850, 560}));
    EXPECT_FALSE(IsIconic(well_));
}

TEST_F(BesideAHungWindow, MinimizeIsDoneOnceItAnswers)
{
    load();
    const StoppedWindow stopped(hung_);
    wendlow_.apply(L"Minimize");
    EXPECT_FALSE(IsIconic(hung_));
    stopped.go_on();
    EXPECT_TRUE(becomes_minimised(hung_));
}

TEST_F(BesideAHungWindow, RestoreIsDoneOnceItAnswers)
{
    load();
    ShowWindow(hung_, SW_MINIMIZE);
    ASSERT_TRUE(becomes_minimised(hung_));
    const StoppedWindow stopped(hung_);
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(IsIconic(hung_));
    stopped.go_on();
    EXPECT_TRUE(comes_to(hung_, {80, 90, 480, 390}));
    EXPECT_FALSE(IsIconic(hung_));
}

} // namespace
