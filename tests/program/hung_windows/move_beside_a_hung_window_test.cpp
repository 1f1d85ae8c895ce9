#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/boxes/box_watcher.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/stopped_window.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

// Two programs on the list, the one that will hang before the other.
class MoveBesideAHungWindow : public testing::Test
{
protected:
    MoveBesideAHungWindow()
    {
        fixtures_.add(L"well", {.title = L"Well", .x = 500, .y = 300, .width = 350, .height = 250});
        fixtures_.add(L"hung", {.title = L"Hung", .x = 40, .y = 60, .width = 380, .height = 280});
        well_ = fixtures_.start(L"well");
        hung_ = fixtures_.start(L"hung");
    }

    void scan()
    {
        wendlow_.scan();
        if (wendlow_.row_of(L"Hung") > wendlow_.row_of(L"Well"))
            throw Failure("the window that hangs is not the first of the two");
    }
    void give_place(const wchar_t* const (&values)[4])
    {
        const HWND cell = wendlow_.open_modify_cell(wendlow_.row_of(L"Hung"), 2);
        for (int id = 0; id < 4; ++id)
            SendMessageW(GetDlgItem(cell, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(values[id]));
        PostMessageW(GetDlgItem(cell, cell_control::kOk), BM_CLICK, 0, 0);
        wait_until([&] { return !IsWindow(cell); }, kShortWait, "Modify Cell to close");
    }
    static bool comes_to(HWND window, const RECT& place)
    {
        return becomes_true([&] {
            const RECT found = rectangle_of(window);
            return EqualRect(&found, &place) != FALSE;
        });
    }
    // Moves both: the other window comes to its row's place, and the list answers, while the first hangs.
    void expect_move_goes_on()
    {
        const BoxWatcher boxes = wendlow_.watch_boxes();
        SetWindowPos(well_, nullptr, 5, 5, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE);
        wendlow_.tick(L"Hung");
        wendlow_.tick(L"Well");
        // A program that hangs before the scan is not listed, so it has to stop after it.
        const StoppedWindow stopped(hung_);
        wendlow_.press_move();
        EXPECT_TRUE(comes_to(well_, {500, 300, 850, 550}));
        EXPECT_NO_THROW(wendlow_.wait_until_idle(kShortWait));
        EXPECT_EQ(wendlow_.list_view().cell(wendlow_.row_of(L"Well"), 2), L"500");
        boxes.expect_no_boxes();
        place_while_hung_ = rectangle_of(hung_);
    }

    FixturePrograms fixtures_;
    WendlowProcess wendlow_;
    HWND well_ = nullptr;
    HWND hung_ = nullptr;
    RECT place_while_hung_{};
};

TEST_F(MoveBesideAHungWindow, GoesOnToTheNextWindow)
{
    scan();
    give_place({L"80", L"90", L"400", L"300"});
    expect_move_goes_on();
    EXPECT_EQ(place_while_hung_.left, 40);
    // What was asked of it is done once it handles messages again.
    EXPECT_TRUE(comes_to(hung_, {80, 90, 480, 390}));
}

TEST_F(MoveBesideAHungWindow, GoesOnToTheNextWindowWhenTheHungOneIsMinimised)
{
    ShowWindow(hung_, SW_MINIMIZE);
    wait_until([&] { return IsIconic(hung_) != FALSE; }, kShortWait, "the minimised window");
    scan();
    give_place({L"80", L"90", L"400", L"300"});
    expect_move_goes_on();
    EXPECT_TRUE(comes_to(hung_, {80, 90, 480, 390}));
    EXPECT_FALSE(IsIconic(hung_));
}

} // namespace
