#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/started_process.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

std::vector<long> place_of(HWND window)
{
    const RECT rectangle = rectangle_of(window);
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

TEST(FixturePrograms, ShowAWindowOfTheChosenTitleClassAndRectangle)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.title = L" \"Grüße\" ; = ' ";
    options.class_name = L"SomeClass";
    options.x = 210;
    options.y = 95;
    options.width = 411;
    options.height = 307;
    const std::wstring path = fixtures.add(L"first", options);
    const HWND window = fixtures.start(L"first");

    EXPECT_EQ(title_of(window), options.title);
    EXPECT_EQ(class_of(window), options.class_name);
    EXPECT_EQ(place_of(window), (std::vector<long>{210, 95, 411, 307}));
    EXPECT_FALSE(IsIconic(window));
    EXPECT_EQ(image_path_of(process_of(window)), path);
}

TEST(FixturePrograms, AreEndedWithTheirFolder)
{
    DWORD process_id = 0;
    std::wstring folder;
    {
        FixturePrograms fixtures;
        fixtures.add(L"tools\\Explorer.exe");
        process_id = process_of(fixtures.start(L"tools\\Explorer.exe"));
        folder = fixtures.folder().path();
        EXPECT_EQ(processes_below(folder), std::vector<DWORD>{process_id});
    }
    EXPECT_EQ(processes_below(folder), std::vector<DWORD>{});
    EXPECT_FALSE(folder_exists(folder));
}

TEST(FixturePrograms, CanStartMinimised)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.minimised = true;
    fixtures.add(L"small", options);
    EXPECT_TRUE(IsIconic(fixtures.start(L"small")));
}

TEST(FixturePrograms, CanHaveSeveralWindows)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.window_count = 3;
    fixtures.add(L"many", options);
    fixtures.start(L"many");
    const std::vector<HWND> windows = fixtures.wait_for_windows(L"many", 3);
    EXPECT_EQ(title_of(windows[0]), L"Fixture 3");
    EXPECT_EQ(title_of(windows[2]), L"Fixture");
}

TEST(FixturePrograms, CanHaveNoWindow)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.no_window = true;
    fixtures.add(L"none", options);
    EXPECT_EQ(fixtures.start(L"none"), nullptr);
    fixtures.startup_of(L"none");
    EXPECT_TRUE(fixtures.is_running(L"none"));
    EXPECT_TRUE(fixtures.windows_of(L"none").empty());
    fixtures.stop(L"none");
    EXPECT_FALSE(fixtures.is_running(L"none"));
}

TEST(FixturePrograms, CanOpenTheirWindowLate)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.idle_delay_milliseconds = 1'500;
    fixtures.add(L"late", options);
    fixtures.start_only(L"late");
    // The record is written before the delay.
    fixtures.startup_of(L"late");
    EXPECT_TRUE(fixtures.windows_of(L"late").empty());
    fixtures.wait_for_window(L"late");
}

TEST(FixturePrograms, CanHang)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.hang_after_start = true;
    fixtures.add(L"hung", options);
    const HWND window = fixtures.start(L"hung");
    fixtures.wait_until_hanging(L"hung");
    EXPECT_FALSE(answers(window, WM_NULL));
}

TEST(FixturePrograms, CanHangWhenTheirTitleIsRead)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.hang_on_get_text = true;
    fixtures.add(L"shy", options);
    const HWND window = fixtures.start(L"shy");
    EXPECT_TRUE(answers(window, WM_NULL));
    EXPECT_FALSE(answers(window, WM_GETTEXT));
    fixtures.wait_until_hanging(L"shy");
}

TEST(FixturePrograms, CanEndWhenAskedWhetherTheyAnswer)
{
    FixturePrograms fixtures;
    fixtures.add(L"frail", {.end_when_asked = true});
    const HWND window = fixtures.start(L"frail");
    EXPECT_TRUE(answers(window, WM_GETTEXT));
    EXPECT_FALSE(answers(window, WM_NULL));
    fixtures.wait_for_end(L"frail");
}

TEST(FixturePrograms, CanRefuseToClose)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.refuse_close = true;
    fixtures.add(L"stubborn", options);
    fixtures.add(L"willing");
    const HWND stubborn = fixtures.start(L"stubborn");
    const HWND willing = fixtures.start(L"willing");
    PostMessageW(stubborn, WM_CLOSE, 0, 0);
    PostMessageW(stubborn, WM_CLOSE, 0, 0);
    PostMessageW(willing, WM_CLOSE, 0, 0);
    fixtures.wait_for_end(L"willing");
    wait_until([&] { return FixturePrograms::close_requests(stubborn) == 2; }, kShortWait, "two requests");
    EXPECT_EQ(FixturePrograms::awaited_close_requests(stubborn), 0);
    SendMessageW(stubborn, WM_CLOSE, 0, 0);
    EXPECT_EQ(FixturePrograms::close_requests(stubborn), 3);
    EXPECT_EQ(FixturePrograms::awaited_close_requests(stubborn), 1);
    EXPECT_TRUE(IsWindow(stubborn));
}

TEST(FixturePrograms, CanShowTheirWindowFromASecondThread)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.window_of_second_thread = true;
    const std::wstring path = fixtures.add(L"threads", options);
    const StartedProcess process(path);
    const HWND window = fixtures.wait_for_window(L"threads");
    EXPECT_EQ(process_of(window), process.id());
    EXPECT_NE(GetWindowThreadProcessId(window, nullptr), process.thread_id());
    PostMessageW(window, WM_CLOSE, 0, 0);
    fixtures.wait_for_end(L"threads");
}

TEST(FixturePrograms, RecordAndUseWhatTheyAreStartedWith)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.use_startup = true;
    const std::wstring path = fixtures.add(L"obedient", options);
    STARTUPINFOW startup{};
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESIZE | STARTF_USEPOSITION;
    startup.wShowWindow = SW_SHOW;
    startup.dwX = 300;
    startup.dwY = 80;
    startup.dwXSize = 333;
    startup.dwYSize = 222;
    const StartedProcess process(path, {.startup = startup});
    const StartupRecord record = fixtures.startup_of(L"obedient");
    EXPECT_EQ(record.flags & 7u, 7u);
    EXPECT_EQ(record.show_window, 5);
    EXPECT_EQ(record.x, 300u);
    EXPECT_EQ(record.y, 80u);
    EXPECT_EQ(record.width, 333u);
    EXPECT_EQ(record.height, 222u);
    EXPECT_EQ(record.process_id, process.id());
    EXPECT_NE(record.command_line.find(L"obedient.exe"), std::wstring::npos);
    EXPECT_EQ(place_of(fixtures.wait_for_window(L"obedient")), (std::vector<long>{300, 80, 333, 222}));
}

TEST(FixturePrograms, CanBoundTheirSize)
{
    FixturePrograms fixtures;
    FixtureOptions options;
    options.minimum_width = 280;
    options.minimum_height = 180;
    fixtures.add(L"wide", options);
    const HWND window = fixtures.start(L"wide");
    MoveWindow(window, 10, 20, 100, 50, TRUE);
    EXPECT_TRUE(becomes_true([&] { return place_of(window) == std::vector<long>{10, 20, 280, 180}; }));
}

} // namespace
