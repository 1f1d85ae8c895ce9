#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

using Texts = std::vector<std::wstring>;

class Apply : public testing::Test
{
protected:
    // Loads a profile of that name with one program at the rectangle; its window comes back.
    HWND load(const std::wstring& name, const RECT& place)
    {
        const std::wstring program = fixtures_.add(name, {.title = name});
        const std::wstring path = folder_.file(name + L".txt");
        write_file(path, ProfileEncoder()
                             .add_program(place.left, place.top, place.right - place.left,
                                          place.bottom - place.top, units_of(program))
                             .name(units_of(name))
                             .bytes());
        wendlow_.load_profile(path);
        return fixtures_.wait_for_window(name);
    }

    Texts profiles() const { return wendlow_.combo_texts(wendlow_.profile_combo()); }

    static bool comes_to(HWND window, const RECT& place)
    {
        return becomes_true([&] {
            const RECT found = rectangle_of(window);
            return EqualRect(&found, &place) != FALSE;
        });
    }
    static bool becomes_minimised(HWND window)
    {
        return becomes_true([&] { return IsIconic(window) != FALSE; });
    }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
};

TEST_F(Apply, AsksForAnAction)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    click(wendlow_.apply_button());
    boxes.expect_boxes({{L"info", L"There is no selected item in \"Action\" list"}});
}

TEST_F(Apply, AsksForAProfile)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.select_action(L"Close");
    wendlow_.press_apply();
    boxes.expect_boxes(
        {{L"info", L"There is no selected item in \"Profile\" list.\nSelect or Load at least one Profile."}});
}

TEST_F(Apply, MinimisesRestoresAndClosesTheWindowsOfTheProfile)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    const RECT place{310, 90, 710, 390};
    const HWND window = load(L"Work", place);
    ASSERT_TRUE(comes_to(window, place));
    wendlow_.apply(L"Minimize");
    EXPECT_TRUE(becomes_minimised(window));
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(comes_to(window, place));
    EXPECT_FALSE(IsIconic(window));
    SetWindowPos(window, nullptr, 5, 6, 350, 250, SWP_NOZORDER);
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(comes_to(window, place));
    wendlow_.apply(L"Close");
    EXPECT_EQ(profiles(), Texts{});
    EXPECT_EQ(wendlow_.combo_selection(wendlow_.profile_combo()), -1);
    fixtures_.wait_for_end(L"Work");
    boxes.expect_no_boxes();
}

TEST_F(Apply, CloseAsksAWindowOnceAndRemovesTheProfilesName)
{
    const std::wstring program = fixtures_.add(L"stubborn", {.title = L"Stubborn", .refuse_close = true});
    const std::wstring path = folder_.file(L"p.txt");
    write_file(path,
               ProfileEncoder().add_program(20, 30, 300, 200, units_of(program)).name(u"Stubborn").bytes());
    wendlow_.load_profile(path);
    const HWND window = fixtures_.wait_for_window(L"stubborn");
    wendlow_.apply(L"Close");
    EXPECT_EQ(profiles(), Texts{});
    EXPECT_TRUE(becomes_true([&] { return FixturePrograms::close_requests(window) == 1; }));
    EXPECT_EQ(FixturePrograms::awaited_close_requests(window), 0);
    EXPECT_TRUE(IsWindow(window));
}

TEST_F(Apply, ClosingOneProfileLeavesTheOtherOneUsable)
{
    const RECT first_place{20, 30, 340, 270};
    const RECT second_place{500, 300, 900, 600};
    const HWND first = load(L"Alpha", first_place);
    const HWND second = load(L"Beta", second_place);
    wendlow_.select_profile(0);
    wendlow_.apply(L"Close");
    EXPECT_EQ(profiles(), Texts{L"Beta"});
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(first); }));
    wendlow_.select_profile(0);
    wendlow_.apply(L"Minimize");
    EXPECT_TRUE(becomes_minimised(second));
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(comes_to(second, second_place));
}

TEST_F(Apply, RestoreLeavesAWindowAloneThatWasSavedMinimised)
{
    const HWND window = load(L"Small", {0, 0, 0, 0});
    ASSERT_TRUE(becomes_minimised(window));
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(IsIconic(window));
    ShowWindow(window, SW_RESTORE);
    wait_until([&] { return !IsIconic(window); }, kShortWait, "the window to be restored");
    const RECT place = rectangle_of(window);
    wendlow_.apply(L"Restore");
    EXPECT_TRUE(comes_to(window, place));
}

TEST_F(Apply, ActsOnTheSelectedProfileOnly)
{
    const RECT first_place{20, 30, 340, 270};
    const RECT second_place{500, 300, 900, 600};
    const HWND first = load(L"Alpha", first_place);
    const HWND second = load(L"Beta", second_place);
    EXPECT_EQ(wendlow_.combo_shown_text(wendlow_.profile_combo()), L"Beta");
    wendlow_.select_profile(0);
    wendlow_.apply(L"Minimize");
    EXPECT_TRUE(becomes_minimised(first));
    EXPECT_FALSE(IsIconic(second));
}

} // namespace
