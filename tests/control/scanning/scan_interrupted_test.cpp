#include "sources/funcs_layout_windows/scanning/scan_use.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>
#include <objbase.h>
#include <shlobj.h>

#include <optional>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/quit_message.h"
#include "tests/support/windows/test_window.h"

// The main window is closed while a scan is under way: calls to other windows, to the shell and boxes let
// messages in. The scan ends quietly then, on a record whose blocks are gone.

using namespace test_support;
using main_tests::MainWindowFixture;
using scan_tests::Desktop;
using scan_tests::ScanFixture;

namespace
{

// A main window, and a folder window to be scanned. Both are of this process.
struct ClosedOnTheWay {
    ScanFixture fixture;
    std::optional<MainWindowFixture> main;
    TestWindow window{L"window"};
    BoxWatcher boxes;

    ClosedOnTheWay() { open(); }

    void open()
    {
        main.emplace();
        fixture.folders.clear();
        fixture.folders.add(window, L"C:\\windows");
    }

    void close() const
    {
        DestroyWindow(main->window);
        // With the end of the program waiting in the queue a box would not come up to be seen.
        EXPECT_TRUE(take_quit_message());
    }

    void expect_quiet_end()
    {
        EXPECT_EQ(fixture.scan(), 1);
        boxes.expect_no_boxes();
        EXPECT_FALSE(IsWindow(main->window));
        EXPECT_EQ(hwnd_ScanListView, nullptr);
        EXPECT_TRUE(ScanUse().is_taken());
        EXPECT_EQ(scan_record.pcTmpBuf_Prg_Folder_Path, nullptr);
        EXPECT_EQ(scan_record.arr1D_ui_LenPath, nullptr);
        EXPECT_EQ(scan_record.pcDynMem_GeomText, nullptr);
        EXPECT_EQ(scan_record.pcDynMem_WinHndls, nullptr);
        EXPECT_EQ(scan_record.pcDynMem_FullPaths, nullptr);
        const StandInCounts counts = fixture.folders.counts();
        EXPECT_EQ(counts.interfaces_live, 0);
        EXPECT_EQ(counts.released_too_often, 0);
        EXPECT_EQ(counts.id_lists_live, 0);
    }
};

} // namespace

TEST(ScanInterrupted, ByAClosingMainWindowWhileATitleIsReadShowsNoBox)
{
    ClosedOnTheWay scan;
    const Desktop desktop({scan.window});
    for (const int pass : {1, 2}) {
        SCOPED_TRACE(pass);
        scan.open();
        int asked = 0;
        ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
            "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                              UINT timeout, PDWORD_PTR answer) {
                if (target == scan.window && ++asked == pass)
                    scan.close();
                return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
            });
        scan.expect_quiet_end();
        EXPECT_EQ(asked, pass);
        EXPECT_EQ(scan_record.counter_valid, pass == 1 ? 0u : 1u);
        EXPECT_EQ(scan_record.counter_filled, 0u);
    }
}

TEST(ScanInterrupted, ByAClosingMainWindowWhileTheShellIsAskedShowsNoBox)
{
    ClosedOnTheWay scan;
    const Desktop desktop({scan.window});
    for (const int pass : {1, 2}) {
        SCOPED_TRACE(pass);
        scan.open();
        int asked = 0;
        ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
            "ole32.dll", [&](REFCLSID class_id, LPUNKNOWN outer, DWORD context, REFIID iid, void** object) {
                if (++asked == pass)
                    scan.close();
                return create.call_original(class_id, outer, context, iid, object);
            });
        scan.expect_quiet_end();
        EXPECT_EQ(asked, pass);
        EXPECT_EQ(scan_record.counter_folders, pass == 1 ? 0u : 1u);
        EXPECT_EQ(scan_record.counter_filled, pass == 1 ? 0u : 1u);
    }
}

TEST(ScanInterrupted, ByAClosingMainWindowAsksNoOtherWindow)
{
    ClosedOnTheWay scan;
    TestWindow second(L"second");
    const Desktop desktop({scan.window, second});
    for (const int pass : {1, 2}) {
        SCOPED_TRACE(pass);
        scan.open();
        std::vector<HWND> asked;
        ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
            "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                              UINT timeout, PDWORD_PTR answer) {
                asked.push_back(target);
                if (asked.size() == (pass == 1 ? 1u : 3u))
                    scan.close();
                return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
            });
        scan.expect_quiet_end();
        EXPECT_EQ(asked, pass == 1 ? (std::vector<HWND>{scan.window})
                                   : (std::vector<HWND>{scan.window, second, scan.window}));
        EXPECT_EQ(scan.fixture.folders.counts().passes, pass - 1);
    }
}

// A folder window that the shell gives without a handle is reported, but not once the main window has gone.
TEST(ScanInterrupted, ByAClosingMainWindowWhileAFolderIsAskedForShowsNoBox)
{
    ClosedOnTheWay scan;
    scan.fixture.folders.clear();
    scan.fixture.folders.add(nullptr, L"C:\\windows").add(scan.window, L"C:\\windows");
    const Desktop desktop({scan.window});
    int asked = 0;
    ImportHook<"SHGetPathFromIDListW", decltype(SHGetPathFromIDListW)> path(
        "shell32.dll", [&](PCIDLIST_ABSOLUTE list, LPWSTR buffer) {
            if (++asked == 3) // after the two of the first pass
                scan.close();
            return path.call_original(list, buffer);
        });
    scan.expect_quiet_end();
    EXPECT_EQ(asked, 3);
}

// The boxes of the folders do not end a scan, yet the closed main window does.
TEST(ScanInterrupted, ByAClosingMainWindowWhileABoxOfTheFoldersIsUpOpensNoList)
{
    ClosedOnTheWay scan;
    const Desktop desktop({scan.window});
    for (const bool has_shell_list : {true, false}) {
        SCOPED_TRACE(has_shell_list);
        scan.open();
        scan.fixture.folders.clear();
        scan.fixture.folders.add(nullptr, L"C:\\windows").add(scan.window, L"C:\\windows");
        scan.fixture.folders.fail_creation(has_shell_list ? S_OK : E_FAIL);
        std::vector<std::wstring> texts;
        const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
            "user32.dll", [&](HWND, const wchar_t* text, const wchar_t*, UINT) -> int {
                texts.emplace_back(text);
                scan.close();
                return IDOK;
            });
        scan.expect_quiet_end();
        ASSERT_EQ(texts.size(), 1u);
        EXPECT_NE(texts[0].find(has_shell_list ? L"hwnd of folder = 0000000000000000"
                                               : L"function : CoCreateInstance()"),
                  std::wstring::npos)
            << testing::PrintToString(texts[0]);
    }
}

TEST(ScanInterrupted, ByAClosingMainWindowWhileTheListFailsToBeCreatedShowsNoBox)
{
    ClosedOnTheWay scan;
    const Desktop desktop({scan.window});
    const ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create(
        "user32.dll",
        [&](DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID) -> HWND {
            scan.close();
            return nullptr;
        });
    EXPECT_EQ(scan.fixture.scan(), 1);
    scan.boxes.expect_no_boxes();
    EXPECT_EQ(hwnd_ScanListView, nullptr);
}

// The box of a row that the list refuses has no owner, so the main window can be closed while it is up. The
// list, still being made, comes up as it is.
TEST(ScanInterrupted, ByAClosingMainWindowWhileABoxOfTheListIsUpShowsNoFurtherBox)
{
    ClosedOnTheWay scan;
    TestWindow second(L"second");
    const Desktop desktop({scan.window, second});
    ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            return message == LVM_INSERTITEMW ? -1 : send.call_original(target, message, wParam, lParam);
        });
    int shown = 0;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box(
        "user32.dll", [&](HWND owner, const wchar_t* text, const wchar_t* title, UINT) -> int {
            ++shown;
            EXPECT_EQ(owner, nullptr);
            EXPECT_EQ(std::wstring(title), bytes_as_wide("ERROR"));
            EXPECT_STREQ(text, L"-1 <-- InsertItem, cycle i");
            scan.close();
            return IDOK;
        });
    // Goes through; a window procedure that is cut short by an exception does not get there.
    const FailingImport<"LoadMenuW", decltype(LoadMenuW)> menu("user32.dll", 1000, nullptr, 0);
    EXPECT_EQ(scan.fixture.scan(), 1);
    EXPECT_EQ(menu.calls(), 1);
    EXPECT_EQ(shown, 1);
    scan.boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.pcDynMem_GeomText, nullptr);
    EXPECT_EQ(scan.fixture.list().row_count(), 0);
}
