#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/program/hostile/hostile_windows.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using hostile::Neighbour;
using hostile::Neighbours;

namespace
{

using Texts = std::vector<std::wstring>;

// "Window name" of every row.
Texts names_on(const RemoteListView& list)
{
    Texts names;
    for (int row = 0; row < list.row_count(); ++row)
        names.push_back(list.cell(row, 1));
    return names;
}

bool is_listed(const Texts& names, const std::wstring& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// A title of that many units in which no place looks like another.
std::wstring numbered_title(std::size_t units)
{
    std::wstring title = L"=";
    for (std::size_t i = 0; title.size() < units; ++i)
        title += std::to_wstring(units + i) + L"/";
    title.resize(units);
    return title;
}

RECT tile(std::size_t index)
{
    const auto column = static_cast<LONG>(index % 60);
    const auto row = static_cast<LONG>(index / 60);
    return {20 * column, 20 * row, 20 * column + 19, 20 * row + 18};
}

TEST(HostileWindows, ShowTitlesOfEveryLengthAndKind)
{
    const std::wstring of_999 = numbered_title(1000).substr(0, 999); // what a buffer of 1000 units takes
    const std::wstring of_30000 = numbered_title(30'000).substr(0, 999);
    const struct {
        std::wstring title;
        std::wstring shown;
    } titles[] = {
        {numbered_title(48), numbered_title(48)},
        {numbered_title(49), numbered_title(49).substr(0, 25) + L"..." + numbered_title(49).substr(29)},
        {numbered_title(511), numbered_title(511).substr(0, 25) + L"..." + numbered_title(511).substr(491)},
        {numbered_title(1000), of_999.substr(0, 25) + L"..." + of_999.substr(979)},
        {numbered_title(30'000), of_30000.substr(0, 25) + L"..." + of_30000.substr(979)},
        {L"two\nlines", L"two\nlines"},
        {L"\r\n\t", L"\r\n\t"},
        {L"high \xD83D alone", L"high \xD83D alone"},
        {L"low \xDE00 alone", L"low \xDE00 alone"},
        {L"\xDE00\xD83D", L"\xDE00\xD83D"},
        // A pair that is cut between its halves.
        {std::wstring(24, L'a') + L"\xD83D\xDE00" + std::wstring(40, L'b'),
         std::wstring(24, L'a') + L"\xD83D..." + std::wstring(20, L'b')},
        {L"\x202E\x05D0\x05D1 abc \x2067\x0627\x0644\x200F",
         L"\x202E\x05D0\x05D1 abc \x2067\x0627\x0644\x200F"},
        {L"%s%n%p &amp; \xFFFF\xFEFF", L"%s%n%p &amp; \xFFFF\xFEFF"},
        {L" ", L" "},
    };
    const RECT untitled{5, 6, 7 + 123, 8 + 321};
    std::vector<Neighbour> windows{{.title = L"", .place = untitled}};
    for (const auto& row : titles)
        windows.push_back({.title = row.title, .place = tile(windows.size())});
    const Neighbours neighbours(windows);
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    const RemoteListView list = wendlow.scan();
    const Texts names = names_on(list);
    for (const auto& row : titles)
        EXPECT_TRUE(is_listed(names, row.shown)) << printable(row.shown);
    for (int row = 0; row < list.row_count(); ++row)
        EXPECT_FALSE(list.cell(row, 4) == L"125" && list.cell(row, 5) == L"323") << "the untitled window";
    boxes.expect_no_boxes();
}

TEST(HostileWindows, AreLeftOutByTheirClassInAnyCaseButNotByASimilarOne)
{
    const Texts excluded{L"ToolTips_Class32",
                         L"TOOLTIPS_CLASS",
                         L"sYsShAdOw",
                         L"RegEdit_RegEdit",
                         L"#32770",
                         L"TaskManagerWindow",
                         L"APPLICATIONframeWINDOW",
                         L"Windows.UI.Core.CoreWindow",
                         L"ProgMan",
                         L"bUtToN"};
    const Texts near_misses{L"tooltips_class3",
                            L"tooltips_class_",
                            L"sysshadow ",
                            L"regedit.regedit",
                            L"#32771x",
                            L"taskmanagerwindows",
                            L"applicationframewindo",
                            L"windows-ui-core-corewindow",
                            L"progmans",
                            L"buttons"};
    ASSERT_EQ(near_misses.size(), 10u);
    std::vector<Neighbour> windows;
    for (const std::wstring& name : excluded)
        windows.push_back({L"class " + name, name, tile(windows.size())});
    for (const std::wstring& name : near_misses)
        windows.push_back({L"class " + name, name, tile(windows.size())});
    const Neighbours neighbours(windows);
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    const Texts names = names_on(wendlow.scan());
    for (const std::wstring& name : excluded)
        EXPECT_FALSE(is_listed(names, L"class " + name)) << printable(name);
    for (const std::wstring& name : near_misses)
        EXPECT_TRUE(is_listed(names, L"class " + name)) << printable(name);
    boxes.expect_no_boxes();
}

// Store apps keep visible windows of these classes while they are suspended, and would not answer.
TEST(HostileWindows, AreNotAskedForTheirTitlesWhenTheirClassLeavesThemOut)
{
    std::set<HWND> asked;
    const auto note = [&](HWND window, int) { asked.insert(window); };
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring loaded = fixtures.add(L"loaded", {.title = L"Loaded"});
    write_file(folder.file(L"p.txt"),
               ProfileEncoder().add_program(60, 70, 333, 222, units_of(loaded)).name(u"P").bytes());
    HWND listed = nullptr;
    {
        const Neighbours neighbours({{.title = L"Listed"},
                                     {L"A suspended frame", L"ApplicationFrameWindow"},
                                     {L"A suspended app", L"Windows.UI.Core.CoreWindow"}},
                                    note);
        listed = neighbours[0];
        const WendlowProcess wendlow;
        EXPECT_TRUE(is_listed(names_on(wendlow.scan()), L"Listed"));
        wendlow.load_profile(folder.file(L"p.txt"));
    }
    EXPECT_EQ(asked, std::set<HWND>{listed});
}

TEST(HostileWindows, AreListedWhenThereAreFifteenHundred)
{
    constexpr std::size_t kWindows = 1500;
    std::vector<Neighbour> windows;
    for (std::size_t i = 0; i < kWindows; ++i)
        windows.push_back({.title = L"Window " + std::to_wstring(i), .place = tile(i)});
    const Neighbours neighbours(windows);
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    const RemoteListView list = wendlow.scan(2 * kLongWait);
    const Texts names = names_on(list);
    const std::set<std::wstring> listed(names.begin(), names.end());
    for (const Neighbour& window : windows)
        EXPECT_TRUE(listed.contains(window.title)) << printable(window.title);

    // The window at the bottom of the z-order is listed last, and Move works on it.
    const auto row = static_cast<int>(std::find(names.begin(), names.end(), L"Window 0") - names.begin());
    EXPECT_GE(row, static_cast<int>(kWindows) - 1);
    EXPECT_EQ(list.row(row), (Texts{std::to_wstring(row + 1), L"Window 0", L"0", L"0", L"19", L"18"}));
    SetWindowPos(neighbours[0], nullptr, 400, 300, 99, 88, SWP_NOZORDER | SWP_NOACTIVATE);
    list.set_ticked(row, true);
    wendlow.press_move();
    const RECT wanted = tile(0);
    EXPECT_TRUE(becomes_true([&] {
        const RECT found = rectangle_of(neighbours[0]);
        return EqualRect(&found, &wanted) != FALSE;
    }));
    boxes.expect_no_boxes();
}

// One window is destroyed between the two passes, another while the second pass asks for its title.
TEST(HostileWindows, MayDieWhileTheyAreListed)
{
    HWND gone_between = nullptr;
    HWND gone_when_asked = nullptr;
    HWND gate = nullptr;
    const auto asked = [&](HWND window, int time) {
        if (window == gate && time == 1)
            DestroyWindow(gone_between);
        if (window == gone_when_asked && time == 2)
            DestroyWindow(window);
    };
    // The gate is at the bottom of the z-order, so the first pass asks it last.
    const Neighbours neighbours({{.title = L"Gate", .place = {11, 22, 144, 155}},
                                 {.title = L"Upper", .place = {33, 44, 166, 177}},
                                 {.title = L"Gone between the passes"},
                                 {.title = L"Gone when asked"}},
                                asked);
    gate = neighbours[0];
    gone_between = neighbours[2];
    gone_when_asked = neighbours[3];
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    const RemoteListView list = wendlow.scan();
    EXPECT_FALSE(IsWindow(gone_between));
    EXPECT_FALSE(IsWindow(gone_when_asked));
    const Texts names = names_on(list);
    EXPECT_FALSE(is_listed(names, L"Gone between the passes"));
    EXPECT_FALSE(is_listed(names, L"Gone when asked"));
    const int gate_row = wendlow.row_of(L"Gate");
    const int upper_row = wendlow.row_of(L"Upper");
    EXPECT_EQ(list.row(gate_row),
              (Texts{std::to_wstring(gate_row + 1), L"Gate", L"11", L"22", L"133", L"133"}));
    EXPECT_EQ(list.row(upper_row),
              (Texts{std::to_wstring(upper_row + 1), L"Upper", L"33", L"44", L"133", L"133"}));
    boxes.expect_no_boxes();
}

TEST(HostileWindows, MayDieBetweenTickingAndSaving)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const auto show = [&](const wchar_t* title, int x) {
        const std::wstring path =
            fixtures.add(title, {.title = title, .x = x, .y = 80, .width = 300, .height = 200});
        fixtures.start(title);
        return units_of(path);
    };
    const std::u16string stays = show(L"Stays", 40);
    const std::u16string dies = show(L"Dies", 440); // the upper one, so its row comes first
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.scan();
    wendlow.tick(L"Dies");
    wendlow.tick(L"Stays");
    fixtures.stop(L"Dies");
    wendlow.create_profile(L"P", folder.file(L"p.txt"));
    EXPECT_EQ(hex(read_file(folder.file(L"p.txt"))), hex(ProfileEncoder()
                                                             .add_program(440, 80, 300, 200, dies)
                                                             .add_program(40, 80, 300, 200, stays)
                                                             .name(u"P")
                                                             .bytes()));
    boxes.expect_no_boxes();
}

// One program ends before it has a window, one when its window is there, one stays.
TEST(HostileWindows, MayDieWhileTheyAreLoaded)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring early = fixtures.add(L"early", {.idle_delay_milliseconds = 60'000});
    const std::wstring late = fixtures.add(L"late");
    const std::wstring stays = fixtures.add(L"stays");
    write_file(folder.file(L"p.txt"), ProfileEncoder()
                                          .add_program(1, 2, 300, 200, units_of(early))
                                          .add_program(3, 4, 300, 200, units_of(late))
                                          .add_program(60, 70, 333, 222, units_of(stays))
                                          .name(u"P")
                                          .bytes());
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.drop_files({folder.file(L"p.txt")});
    wait_until([&] { return fixtures.is_running(L"early"); }, kLongWait, "the start of the first program");
    fixtures.stop(L"early");
    fixtures.wait_for_window(L"late");
    fixtures.wait_for_window(L"stays");
    fixtures.stop(L"late");
    // A window that dies just when it is looked at ends that pass with a box of its own; a later one finds it
    // gone.
    std::size_t passes_ended = 0;
    while (boxes.wait_for_box(passes_ended, kLongWait).text ==
           compact_text({L"sources/funcs_layout_windows", L"GetHWNDS_of_LoadedPrograms", 8405, 8713},
                        L"ERROR <- GetModuleFileNameEx()"))
        ++passes_ended;
    EXPECT_EQ(boxes.wait_for_box(passes_ended, kLongWait).text,
              L"Not all Programs of Profile were detected after launching\n");
    wendlow.wait_until_idle();
    const HWND window = fixtures.wait_for_window(L"stays");
    const RECT wanted{60, 70, 393, 292};
    EXPECT_TRUE(becomes_true([&] {
        const RECT found = rectangle_of(window);
        return EqualRect(&found, &wanted) != FALSE;
    }));
    // Every action reaches the window that is left.
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), Texts{L"P"});
    wendlow.apply(L"Minimize");
    EXPECT_TRUE(becomes_true([&] { return IsIconic(window) != FALSE; }));
    wendlow.apply(L"Restore");
    EXPECT_TRUE(becomes_true([&] { return IsIconic(window) == FALSE; }));
    wendlow.apply(L"Close");
    fixtures.wait_for_end(L"stays");
    EXPECT_EQ(boxes.count(), passes_ended + 1);
}

// It has a title, but never tells it: scanning and loading go on without it.
TEST(HostileWindows, AreSkippedWhenTheyNeverTellTheirTitles)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    fixtures.add(L"mute", {.title = L"Mute", .hang_on_get_text = true});
    fixtures.add(L"well", {.title = L"Well"});
    const std::wstring loaded = fixtures.add(L"loaded", {.title = L"Loaded"});
    write_file(folder.file(L"p.txt"),
               ProfileEncoder().add_program(60, 70, 333, 222, units_of(loaded)).name(u"P").bytes());
    fixtures.start(L"well");
    fixtures.start(L"mute");
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    const Texts names = names_on(wendlow.scan(2 * kLongWait));
    EXPECT_TRUE(is_listed(names, L"Well"));
    EXPECT_FALSE(is_listed(names, L"Mute"));
    fixtures.wait_until_hanging(L"mute");
    wendlow.load_profile(folder.file(L"p.txt"));
    const RECT wanted{60, 70, 393, 292};
    EXPECT_TRUE(becomes_true([&] {
        const RECT found = rectangle_of(fixtures.wait_for_window(L"loaded"));
        return EqualRect(&found, &wanted) != FALSE;
    }));
    boxes.expect_no_boxes();
}

} // namespace
