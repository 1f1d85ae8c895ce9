#include "sources/wnd_ScanListView/list_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/wnd_ScanListView/scan_list_state.h"
#include "tests/control/fixtures/list_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/input/real_input.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/quit_message.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using scan_tests::TwoRowsFixture;

namespace
{

using Row = std::vector<std::wstring>;

constexpr DWORD kFullRowSelect = 0x20; // of the list's extended styles

RECT in_client(HWND control)
{
    RECT rect = rectangle_of(control);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

std::string text_of(const RECT& rect)
{
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.right - rect.left) + "x" + std::to_string(rect.bottom - rect.top);
}

std::string rectangle_text(int x, int y, int width, int height)
{
    return text_of({x, y, x + width, y + height});
}

int screen_fraction(float fraction, int metric)
{
    return static_cast<int>(fraction * static_cast<float>(GetSystemMetrics(metric)));
}

// What the list tells of a click while the cursor is there.
void click_list(const RemoteListView& list, int code, POINT cursor)
{
    SetCursorPos(cursor.x, cursor.y);
    NMITEMACTIVATE click{};
    click.hdr = {list.window(), 4, static_cast<UINT>(code)};
    EXPECT_EQ(SendMessageW(hwnd_ScanListView, WM_NOTIFY, 4, reinterpret_cast<LPARAM>(&click)), 0);
}

void expect_layout()
{
    RECT client{};
    GetClientRect(hwnd_ScanListView, &client);
    const int bw = screen_fraction(0.09F, SM_CXSCREEN);
    const int bh = screen_fraction(0.03F, SM_CYSCREEN);
    EXPECT_EQ(text_of(in_client(GetDlgItem(hwnd_ScanListView, list_control::kMove))),
              rectangle_text(5, 5, bw, bh));
    EXPECT_EQ(text_of(in_client(GetDlgItem(hwnd_ScanListView, list_control::kCreateProfile))),
              rectangle_text(bw + 10, 5, bw, bh));
    EXPECT_EQ(text_of(in_client(GetDlgItem(hwnd_ScanListView, list_control::kList))),
              rectangle_text(5, bh + 10, client.right - 10, client.bottom - (bh + 10) - 5));
    const double fractions[] = {0.088, 0.56, 0.088, 0.088, 0.088, 0.088};
    const RemoteListView list(GetDlgItem(hwnd_ScanListView, list_control::kList));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(list.column_width(i), static_cast<int>(fractions[i] * client.right)) << "column " << i;
}

} // namespace

TEST(ListOfWindows, ShowsOneRowPerSlotWithTheWidthBeforeTheHeight)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    ASSERT_EQ(list.row_count(), 2);
    EXPECT_EQ(list.row(0), (Row{L"1", L"First", L"40", L"50", L"300", L"200"}));
    EXPECT_EQ(list.row(1), (Row{L"2", L"Second", L"-20", L"60", L"200", L"150"}));
    EXPECT_FALSE(list.is_ticked(0));
    EXPECT_FALSE(list.is_ticked(1));
}

TEST(ListOfWindows, HasItsColumnsButtonsAndStyles)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    ASSERT_EQ(list.column_count(), 6);
    Row headings;
    for (int i = 0; i < 6; ++i)
        headings.push_back(list.heading(i));
    EXPECT_EQ(headings, (Row{L"#", L"Window name", L"X", L"Y", L"Width", L"Height"}));
    // But for what the notification of a row turns on; Windows sends one for each row that is inserted.
    EXPECT_EQ(list.extended_style() & ~kFullRowSelect, 0x10005u);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(list.window(), GWL_STYLE)) & 0xFFFF, 0x0009u);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(list.window(), GWL_STYLE)) & 0x50800000u, 0x50800000u);
    EXPECT_EQ(title_of(GetDlgItem(hwnd_ScanListView, list_control::kMove)), L"Move");
    EXPECT_EQ(title_of(GetDlgItem(hwnd_ScanListView, list_control::kCreateProfile)), L"Create Profile");
    for (const int id : {1, 2})
        EXPECT_EQ(GetWindowLongW(GetDlgItem(hwnd_ScanListView, id), GWL_STYLE), 0x50000300);
    const HWND button = GetDlgItem(hwnd_ScanListView, list_control::kMove);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_EQ(font.lfPitchAndFamily, 16);
    EXPECT_GT(font.lfHeight, 0);
}

TEST(ListOfWindows, HasAnEmptyListOfSmallImages)
{
    TwoRowsFixture scan;
    std::vector<std::vector<int>> made;
    HIMAGELIST images = nullptr;
    const ImportHook<"ImageList_Create", decltype(ImageList_Create)> create(
        "comctl32.dll", [&](int width, int height, UINT flags, int count, int growth) {
            images = create.call_original(width, height, flags, count, growth);
            made.push_back({width, height, static_cast<int>(flags), count, growth});
            return images;
        });
    ASSERT_EQ(scan.fixture.scan(), 1);
    EXPECT_EQ(made, (std::vector<std::vector<int>>{{GetSystemMetrics(SM_CXSMICON),
                                                    GetSystemMetrics(SM_CYSMICON), 1 /* mask */, 12, 1}}));
    const HWND list = scan.fixture.list().window();
    EXPECT_NE(images, nullptr);
    EXPECT_EQ(reinterpret_cast<HIMAGELIST>(SendMessageW(list, LVM_GETIMAGELIST, 1 /* small */, 0)), images);
    EXPECT_EQ(ImageList_GetImageCount(images), 0);
}

TEST(ListOfWindows, InsertsItsColumnsLeftAlignedWithTheirWidths)
{
    TwoRowsFixture scan;
    HWND list = nullptr;
    std::vector<std::string> columns;
    const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == LVM_INSERTCOLUMNW) {
                list = window;
                const auto& column = *reinterpret_cast<const LVCOLUMNW*>(lParam);
                columns.push_back(std::to_string(wParam) + ": mask " + std::to_string(column.mask) +
                                  ", format " + std::to_string(column.fmt) + ", width " +
                                  std::to_string(column.cx) + ", subitem " + std::to_string(column.iSubItem));
            }
            return send.call_original(window, message, wParam, lParam);
        });
    ASSERT_EQ(scan.fixture.scan(), 1);
    EXPECT_EQ(list, scan.fixture.list().window());
    RECT client{};
    GetClientRect(hwnd_ScanListView, &client);
    const double fractions[] = {0.088, 0.56, 0.088, 0.088, 0.088, 0.088};
    ASSERT_EQ(columns.size(), 6u);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(columns[static_cast<std::size_t>(i)],
                  std::to_string(i) + ": mask 15, format 0, width " +
                      std::to_string(static_cast<int>(fractions[i] * client.right)) + ", subitem " +
                      std::to_string(i));
}

TEST(ListOfWindows, LaysListAndColumnsOutWithTheWindowButNotTheButtons)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    expect_layout();
    MoveWindow(hwnd_ScanListView, 10, 10, 700, 420, TRUE);
    expect_layout();
    MoveWindow(hwnd_ScanListView, 10, 10, 900, 600, TRUE);
    expect_layout();
}

TEST(ListOfWindows, SelectsARowWithItsTickAndDeselectsItAgain)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    SendMessageW(list.window(), LVM_SETEXTENDEDLISTVIEWSTYLE, kFullRowSelect, 0);
    list.set_ticked(1, true);
    EXPECT_TRUE(list.is_selected(1));
    EXPECT_FALSE(list.is_selected(0));
    // Whole rows are selected from now on; grid lines, check boxes and the rest stay.
    EXPECT_EQ(list.extended_style(), 0x10025u);
    list.set_ticked(1, false);
    EXPECT_FALSE(list.is_selected(1));
    EXPECT_EQ(list.extended_style(), 0x10025u);
}

TEST(ListOfWindows, ReleasesTheScanAndClearsItsHandleWhenItCloses)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    SendMessageW(hwnd_ScanListView, WM_CLOSE, 0, 0);
    EXPECT_EQ(hwnd_ScanListView, nullptr);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath, nullptr);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP, nullptr);
    EXPECT_EQ(scan_record.pcTmpBuf_Prg_Folder_Path, nullptr);
    EXPECT_EQ(scan_record.pcDynMem_GeomText, nullptr);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls, nullptr);
    EXPECT_EQ(scan_record.pcDynMem_FullPaths, nullptr);
    EXPECT_EQ(scan_record.counter_valid, 2u); // the counters stay
    EXPECT_FALSE(take_quit_message());
}

TEST(ListOfWindows, IgnoresDataThatIsNotForIt)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    wchar_t name[] = L"name";
    COPYDATASTRUCT data{.dwData = 1, .cbData = sizeof name, .lpData = name};
    const BoxWatcher boxes;
    EXPECT_EQ(SendMessageW(hwnd_ScanListView, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), TRUE);
    boxes.expect_no_boxes();
    // The low 32 bits decide; this one is a name, which nobody has sent.
    data.dwData = ULONG_PTR{1} << 32;
    EXPECT_EQ(SendMessageW(hwnd_ScanListView, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), FALSE);
    EXPECT_EQ(boxes.count(), 2u);
}

TEST(ListOfWindows, ShowsTheMenuOverANumberAndNotOverTheName)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    // The menu answers to WM_CANCELMODE as to a click elsewhere.
    int menus = 0;
    POINT shown_at{};
    const ImportHook<"TrackPopupMenu", decltype(TrackPopupMenu)> track(
        "user32.dll", [&](HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) -> BOOL {
            ++menus;
            shown_at = {x, y};
            EXPECT_EQ(flags, 0u);
            EXPECT_EQ(owner, hwnd_ScanListView);
            EXPECT_EQ(GetMenuItemCount(menu), 1);
            EXPECT_EQ(GetMenuItemID(menu, 0), 101u);
            return TRUE;
        });
    for (int column = 0; column < 6; ++column) {
        const POINT centre = list.cell_centre(1, column);
        click_list(list, NM_RCLICK, centre);
        EXPECT_EQ(menus, column < 2 ? 0 : column - 1) << "column " << column;
        if (column >= 2) {
            EXPECT_EQ(shown_at.x, centre.x);
            EXPECT_EQ(shown_at.y, centre.y);
        }
    }
}

TEST(ListOfWindows, StoresThatAClickBelowTheLastRowHitNoRow)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const RemoteListView list = scan.fixture.list();
    std::vector<std::string> menus;
    const ImportHook<"TrackPopupMenu", decltype(TrackPopupMenu)> track(
        "user32.dll", [&](HMENU, UINT, int x, int y, int, HWND, const RECT*) -> BOOL {
            menus.push_back(std::to_string(x) + "," + std::to_string(y));
            return TRUE;
        });
    std::vector<std::uint32_t> cell;
    int column = 2;
    const ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_COPYDATA) {
                const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
                const auto* words = static_cast<const std::uint32_t*>(data.lpData);
                cell.assign(words, words + 2);
            }
            const LRESULT result = send.call_original(window, message, wParam, lParam);
            // Which column it tells where there is no row is the system's own affair.
            if (message == LVM_SUBITEMHITTEST && result == -1)
                reinterpret_cast<LVHITTESTINFO*>(lParam)->iSubItem = column;
            return result;
        });
    for (; column <= 5; ++column) {
        SCOPED_TRACE(column);
        // A row that was hit before is forgotten.
        const POINT hit = list.cell_centre(1, column);
        click_list(list, NM_CLICK, hit);
        const POINT below{hit.x, hit.y + 100};
        menus.clear();
        click_list(list, NM_RCLICK, below);
        EXPECT_EQ(menus, (std::vector<std::string>{std::to_string(below.x) + "," + std::to_string(below.y)}));
        const BoxWatcher boxes;
        SendMessageW(hwnd_ScanListView, WM_COMMAND, list_control::kModifyCell, 0);
        EXPECT_EQ(cell, (std::vector<std::uint32_t>{0xFFFFFFFF, static_cast<std::uint32_t>(column)}));
        const HWND dialog = FindWindowW(L"Modify Cell Window", nullptr);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(dialog, cell_control::kX)), 0);
        SendMessageW(dialog, WM_COMMAND, cell_control::kOk, 0);
        EXPECT_EQ(boxes.count(), 1u); // that there is no such row
        EXPECT_TRUE(IsWindow(dialog));
        DestroyWindow(dialog);
    }
    EXPECT_EQ(list.row(0), (Row{L"1", L"First", L"40", L"50", L"300", L"200"}));
    EXPECT_EQ(list.row(1), (Row{L"2", L"Second", L"-20", L"60", L"200", L"150"}));
}

TEST(ListOfWindows, ReportsAMissingNotificationInUnreadableWords)
{
    TwoRowsFixture scan;
    ASSERT_EQ(scan.fixture.scan(), 1);
    const HWND list = scan.fixture.list().window();
    scan_list.hit_cell = {.iRow = 7, .iColumn = 8};
    NMHDR header{};
    header.code = static_cast<UINT>(NM_CLICK); // would change the cell
    const BoxWatcher boxes;
    EXPECT_EQ(on_WM_NOTIFY_ListView(nullptr, list, 0, 0, &header), -1);
    EXPECT_EQ(on_WM_NOTIFY_ListView(hwnd_ScanListView, nullptr, 0, 0, &header), -1);
    EXPECT_EQ(on_WM_NOTIFY_ListView(hwnd_ScanListView, list, 0, 0, nullptr), -1);
    const ExpectedBox box{
        bytes_as_wide("ERROR"),
        shown_as_bytes(shouted_text({L"sources/wnd_ScanListView", L"on_WM_NOTIFY_ListView", 871}, L""))};
    boxes.expect_boxes({box, box, box});
    EXPECT_EQ(scan_list.hit_cell.iRow, 7);
    EXPECT_EQ(scan_list.hit_cell.iColumn, 8);
}

TEST(ListOfWindows, DestroysItsMenuWhenItIsDestroyed)
{
    TwoRowsFixture scan;
    HMENU loaded = nullptr;
    const ImportHook<"LoadMenuW", decltype(LoadMenuW)> load("user32.dll",
                                                            [&](HINSTANCE instance, LPCWSTR name) {
                                                                loaded = load.call_original(instance, name);
                                                                return loaded;
                                                            });
    ASSERT_EQ(scan.fixture.scan(), 1);
    EXPECT_TRUE(IsMenu(loaded));
    DestroyWindow(hwnd_ScanListView);
    EXPECT_FALSE(IsMenu(loaded));
}
