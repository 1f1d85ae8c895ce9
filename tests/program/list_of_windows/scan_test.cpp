#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/boxes/box_watcher.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/folder_windows/real_folder_window.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

using Cells = std::vector<std::wstring>;

Cells cells_of(const WendlowProcess& wendlow, const std::wstring& name)
{
    const int row = wendlow.row_of(name);
    Cells cells = wendlow.list_view().row(row);
    EXPECT_EQ(cells[0], std::to_wstring(row + 1));
    cells.erase(cells.begin());
    return cells;
}

TEST(Scan, ListsProgramsFoldersAndItselfWithTheirPlaces)
{
    FixturePrograms fixtures;
    fixtures.add(L"plain", {.title = L"Plain", .x = 640, .y = 80, .width = 400, .height = 300});
    fixtures.add(L"left", {.title = L"Left of the screen", .x = -50, .y = 310, .width = 330, .height = 250});
    fixtures.add(L"small", {.title = L"Made small", .minimised = true});
    for (const wchar_t* name : {L"plain", L"left", L"small"})
        fixtures.start(name);
    const std::wstring path = fixtures.folder().make_folder(L"Folder on the list");
    const RealFolderWindow folder(path);
    SetWindowPos(folder.window(), nullptr, 333, 222, 500, 310, SWP_NOZORDER);
    FolderWindowsScript script;
    script.add(folder.window(), path);
    const std::wstring title = title_of(folder.window());
    EXPECT_TRUE(title.starts_with(L"Folder on the list"));
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.scan();
    EXPECT_EQ(cells_of(wendlow, L"Plain"), (Cells{L"Plain", L"640", L"80", L"400", L"300"}));
    EXPECT_EQ(cells_of(wendlow, L"Left of the screen"),
              (Cells{L"Left of the screen", L"-50", L"310", L"330", L"250"}));
    EXPECT_EQ(cells_of(wendlow, L"Made small"), (Cells{L"Made small", L"0", L"0", L"0", L"0"}));
    EXPECT_EQ(cells_of(wendlow, title), (Cells{title, L"333", L"222", L"500", L"310"}));
    const RECT own = rectangle_of(wendlow.main_window());
    EXPECT_EQ(cells_of(wendlow, L"Wendlow"),
              (Cells{L"Wendlow", std::to_wstring(own.left), std::to_wstring(own.top),
                     std::to_wstring(own.right - own.left), std::to_wstring(own.bottom - own.top)}));
    boxes.expect_no_boxes();
}

TEST(Scan, OpensTheListAtThreeQuartersOfTheScreen)
{
    const WendlowProcess wendlow;
    wendlow.scan();
    const RECT list = rectangle_of(wendlow.list_window());
    EXPECT_EQ(title_of(wendlow.list_window()), L"List of windows");
    EXPECT_EQ(list.left, 30);
    EXPECT_EQ(list.top, 30);
    EXPECT_EQ(list.right - list.left, static_cast<int>(0.75 * GetSystemMetrics(SM_CXSCREEN)));
    EXPECT_EQ(list.bottom - list.top, static_cast<int>(0.75 * GetSystemMetrics(SM_CYSCREEN)));
    EXPECT_EQ(GetWindow(wendlow.list_window(), GW_OWNER), nullptr);
}

TEST(Scan, SecondScanReplacesTheListAndItsEdits)
{
    FixturePrograms fixtures;
    fixtures.add(L"edited", {.title = L"Edited", .x = 640});
    fixtures.start(L"edited");
    const WendlowProcess wendlow;
    wendlow.scan();
    const HWND first = wendlow.list_window();
    const HWND cell = wendlow.open_modify_cell(wendlow.row_of(L"Edited"), 2);
    double_click(centre_of(GetDlgItem(cell, cell_control::kX)));
    type_text(L"1");
    click(GetDlgItem(cell, cell_control::kOk));
    wait_until([&] { return cells_of(wendlow, L"Edited")[1] == L"1"; }, kShortWait, "the edit");
    wendlow.scan();
    EXPECT_FALSE(IsWindow(first));
    EXPECT_EQ(cells_of(wendlow, L"Edited")[1], L"640");
}

TEST(Scan, ShowsItsListAgainAfterItWasClosed)
{
    FixturePrograms fixtures;
    fixtures.add(L"listed", {.title = L"Listed"});
    fixtures.start(L"listed");
    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    for (int i = 0; i < 3; ++i) {
        wendlow.scan();
        EXPECT_TRUE(wendlow.list_view().find_row(L"Listed"));
        wendlow.close_list_window();
        EXPECT_EQ(wendlow.list_window(), nullptr);
    }
    boxes.expect_no_boxes();
}

TEST(Scan, IsNotFrozenByAHungProgram)
{
    FixturePrograms fixtures;
    fixtures.add(L"hung", {.title = L"Hung", .hang_after_start = true});
    fixtures.add(L"well", {.title = L"Well"});
    fixtures.start(L"hung");
    fixtures.wait_until_hanging(L"hung");
    fixtures.start(L"well");
    const WendlowProcess wendlow;
    wendlow.scan(2 * kLongWait);
    EXPECT_EQ(cells_of(wendlow, L"Well")[0], L"Well");
    EXPECT_FALSE(wendlow.list_view().find_row(L"Hung"));
}

} // namespace
