#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

// The controls of Modify Cell at work: the buttons' looks, two dialogs at once, messages that change nothing.

using namespace test_support;
using modify_cell_tests::ModifyCell;
using modify_cell_tests::Texts;

namespace
{

struct Posted {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool operator==(const Posted&) const = default;
};

void PrintTo(const Posted& posted, std::ostream* out)
{
    *out << posted.window << ": " << std::hex << posted.message << " " << posted.wParam << " "
         << posted.lParam;
}

} // namespace

TEST_F(ModifyCell, PostsTheStyleOfAFocusedButtonToIt)
{
    open(0);
    std::vector<Posted> posted;
    const ImportHook<"PostMessageW", decltype(PostMessageW)> post(
        "user32.dll", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            posted.push_back({window, message, wParam, lParam});
            return post.call_original(window, message, wParam, lParam);
        });
    for (const int id : {4, 5}) {
        SCOPED_TRACE(id);
        const auto looks = [&] { return GetWindowLongW(control(id), GWL_STYLE) & BS_TYPEMASK; };
        posted.clear();
        EXPECT_EQ(SendMessageW(control(id), WM_SETFOCUS, 0, 0), 0);
        EXPECT_EQ(posted, (std::vector<Posted>{{control(id), 0xF4, 0x50010301, TRUE}}));
        EXPECT_EQ(looks(), BS_PUSHBUTTON); // not yet
        pump_messages();
        EXPECT_EQ(looks(), BS_DEFPUSHBUTTON);
        posted.clear();
        EXPECT_EQ(SendMessageW(control(id), WM_KILLFOCUS, 0, 0), 0);
        EXPECT_EQ(posted, (std::vector<Posted>{{control(id), 0xF4, 0x50010300, TRUE}}));
        EXPECT_EQ(looks(), BS_DEFPUSHBUTTON);
        pump_messages();
        EXPECT_EQ(looks(), BS_PUSHBUTTON);
    }
}

TEST_F(ModifyCell, SharesControlsAndRowWithASecondOne)
{
    open(0);
    const HWND older = dialog;
    const auto font_of = [](HWND window) {
        return reinterpret_cast<HGDIOBJ>(
            SendMessageW(GetDlgItem(window, cell_control::kX), WM_GETFONT, 0, 0));
    };
    const HGDIOBJ font_of_older = font_of(older);
    open(1);
    enter(0, L"77");
    SetDlgItemTextW(older, 0, L"66");

    // Tab in the older one goes to the next control of the newer one.
    SendMessageW(GetDlgItem(older, cell_control::kX), WM_KEYDOWN, VK_TAB, 0);
    EXPECT_EQ(GetFocus(), control(cell_control::kY));

    // Ok of the older one applies the newer one's texts to the newer one's row, and closes the older one.
    const BoxWatcher boxes;
    SendMessageW(older, WM_COMMAND, cell_control::kOk, 0);
    EXPECT_FALSE(IsWindow(older));
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(cells(0), (Texts{L"10", L"50", L"300", L"200"}));
    EXPECT_EQ(entry(0), "10,50 300x200");
    EXPECT_EQ(cells(1), (Texts{L"77", L"60", L"200", L"150"}));
    EXPECT_EQ(entry(1), "77,60 200x150");
    EXPECT_EQ(GetObjectType(font_of_older), 0u);
    EXPECT_EQ(GetObjectType(font_of(dialog)), static_cast<DWORD>(OBJ_FONT));

    enter(0, L"78");
    EXPECT_EQ(on_Button_OK(dialog, fixture.list().window(), 1, &scan_record), 1);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(entry(1), "78,60 200x150");
    boxes.expect_no_boxes();
}

TEST_F(ModifyCell, AnswersNotificationsAndSizesWithoutAnyChange)
{
    open(0);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control(cell_control::kX), WM_GETFONT, 0, 0));
    NMHDR header{control(cell_control::kX), 0, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(SendMessageW(dialog, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_EQ(SendMessageW(dialog, WM_SIZE, SIZE_RESTORED, MAKELPARAM(100, 90)), 0);
    for (const WORD id : {WORD{4}, WORD{5}}) // what else a button may tell
        EXPECT_EQ(SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, 1), reinterpret_cast<LPARAM>(control(id))),
                  0);
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(GetObjectType(font), static_cast<DWORD>(OBJ_FONT));
    EXPECT_EQ(texts(), (Texts{L"10", L"50", L"300", L"200"}));
    DestroyWindow(dialog);
    EXPECT_EQ(GetObjectType(font), 0u);
}

TEST_F(ModifyCell, ShowsFortyNineUnitsOfACell)
{
    std::wstring long_text = std::wstring(49, L'1') + L"2";
    LVITEMW item{};
    item.iSubItem = 2;
    item.pszText = long_text.data();
    SendMessageW(fixture.list().window(), LVM_SETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    open(0);
    EXPECT_EQ(text(0), std::wstring(49, L'1'));
}
