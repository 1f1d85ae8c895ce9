#include <windows.h>

#include <gtest/gtest.h>

#include <commdlg.h>

#include <string>
#include <utility>
#include <vector>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

// What the main window does with the commands of its menu, its buttons and its lists.

using namespace test_support;
using main_tests::MainWindowFixture;

namespace
{

constexpr wchar_t kMainFile[] = L"sources/main_prg";
constexpr wchar_t kLayoutFile[] = L"sources/funcs_layout_windows";

// An open dialog that is answered with a path, or cancelled with an empty one.
class AnsweredOpenDialog
{
public:
    explicit AnsweredOpenDialog(std::wstring path) : path_(std::move(path)) {}

    int times_asked = 0;

private:
    std::wstring path_;
    ImportHook<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> hook_{
        "comdlg32.dll", [this](OPENFILENAMEW* settings) -> BOOL {
            ++times_asked;
            path_.copy(settings->lpstrFile, path_.size());
            return path_.empty() ? FALSE : TRUE;
        }};
};

} // namespace

TEST(MainWindowCommands, ShowTheAboutBox)
{
    const MainWindowFixture main;
    const BoxWatcher boxes;
    main.menu_command(main_control::kAbout);
    boxes.expect_boxes(
        {{L"About",
          L"This small software utility \"Wendlow\" is intended for keeping your folders and programs "
          L"layout organized.\n\nThe Wendlow project\nhttps://wendlow.example\n"
          L"wendlow@wendlow.example\n\nrelease date: 2020-05-18"}});
    EXPECT_EQ(boxes.boxes().at(0).owner, main.window);
    EXPECT_FALSE(boxes.boxes().at(0).has_icon);
}

TEST(MainWindowCommands, ShowTheBoxesOfReservedCommandsAsBytes)
{
    const char* const texts[] = {"menu item FILE NEW",     "menu item FILE OPEN", "menu item FILE SAVE",
                                 "menu item FILE SAVE AS", "menu item EXIT",      "menu item HELP"};
    const MainWindowFixture main;
    for (WORD id = 3; id <= 8; ++id) {
        const BoxWatcher boxes;
        main.menu_command(id);
        boxes.expect_boxes({{bytes_as_wide(id == 8 ? "Help" : ""), bytes_as_wide(texts[id - 3])}});
        EXPECT_EQ(boxes.boxes().at(0).owner, main.window);
    }
}

TEST(MainWindowCommands, LeaveTheProfileListAloneForTheReservedCommandOfItsNumber)
{
    const MainWindowFixture main;
    SendMessageW(main.control(main_control::kProfile), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"one"));
    SendMessageW(main.control(main_control::kProfile), CB_SETCURSEL, 0, 0);
    main_window.CB_Profile.uiSelection = 7;
    const BoxWatcher boxes;
    main.menu_command(4);
    boxes.expect_boxes({{L"", bytes_as_wide("menu item FILE OPEN")}});
    EXPECT_EQ(main_window.CB_Profile.uiSelection, 7u);
    // The list itself does.
    SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(main_control::kProfile, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(main.control(main_control::kProfile)));
    EXPECT_EQ(main_window.CB_Profile.uiSelection, 0u);
    EXPECT_EQ(boxes.count(), 1u);
}

TEST(MainWindowCommands, StoreTheSelectionOfTheActionList)
{
    const MainWindowFixture main;
    const BoxWatcher boxes;
    SendMessageW(main.control(main_control::kAction), CB_SETCURSEL, 2, 0);
    const auto notify = [&](int id, int code, int control) {
        return SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, code),
                            reinterpret_cast<LPARAM>(main.control(control)));
    };
    main_window.CB_Action.uiSelection = 7;
    for (const int code : {CBN_SETFOCUS, CBN_DBLCLK, CBN_DROPDOWN, CBN_SELENDOK}) // any but CBN_SELCHANGE
        EXPECT_EQ(notify(5, code, 5), 0);
    EXPECT_EQ(notify(5, CBN_SELCHANGE, 4), 0); // of another list
    EXPECT_EQ(notify(4, CBN_SELCHANGE, 5), 0);
    EXPECT_EQ(main_window.CB_Action.uiSelection, 7u);
    EXPECT_EQ(notify(5, CBN_SELCHANGE, 5), 0);
    EXPECT_EQ(main_window.CB_Action.uiSelection, 2u);
    boxes.expect_no_boxes();
}

TEST(MainWindowCommands, AreAllAnsweredWith0)
{
    scan_tests::Desktop desktop({});
    int scans = 0;
    desktop.before_pass = [&](int) { ++scans; }; // with nothing to list there is no second pass
    const scan_tests::ScanFixture fixture;
    const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall, FALSE,
                                                                            0);
    const MainWindowFixture main;
    const BoxWatcher boxes;
    for (WORD id = 0; id <= 10; ++id) {
        EXPECT_EQ(SendMessageW(main.window, WM_COMMAND, id, 0), 0) << id; // as the menu sends it
        for (const int code : {BN_CLICKED, CBN_SELCHANGE})
            EXPECT_EQ(SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, code),
                                   reinterpret_cast<LPARAM>(main.control(id))),
                      0)
                << id << " with " << code;
    }
    // Among them were two scans, two loads and Apply.
    EXPECT_EQ(scans, 2);
    EXPECT_EQ(cancelled.calls(), 2);
    EXPECT_EQ(boxes.boxes().at(0).title, L"info");
    // WM_DROPFILES without a handle, WM_SIZE and WM_PAINT are answered with 0 as well.
    EXPECT_EQ(SendMessageW(main.window, WM_DROPFILES, 0, 0), 0);
    EXPECT_EQ(SendMessageW(main.window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(600, 400)), 0);
    EXPECT_EQ(SendMessageW(main.window, WM_PAINT, 0, 0), 0);
}

TEST(MainWindowCommands, AreIgnoredWhenTheyAreUnknown)
{
    const MainWindowFixture main;
    const BoxWatcher boxes;
    for (const int id : {0, 10, 101})
        main.menu_command(static_cast<WORD>(id));
    SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(main_control::kApply, BN_CLICKED),
                 reinterpret_cast<LPARAM>(main.control(main_control::kScan)));
    for (int id = 3; id <= 9; ++id) {
        // What is reserved for the menu, but comes from a control or a key.
        SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(main.control(main_control::kScan)));
        SendMessageW(main.window, WM_COMMAND, MAKEWPARAM(id, 1), 0);
    }
    boxes.expect_no_boxes();
}

TEST(MainWindowCommands, ReportAFailedScan)
{
    const MainWindowFixture main;
    const FailingImport<"EnumWindows", decltype(EnumWindows)> fails("user32.dll", kEveryCall, FALSE, 87);
    const BoxWatcher boxes;
    main.press(main_control::kScan);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/funcs_layout_windows", L"onButton_Scan_Clicked", 1017, 1382},
                                 L"ERROR <- EnumWindows()")},
         {L"error", compact_text({L"sources/main_prg", L"WndProc", 888, 1187},
                                 L"ERROR <- onButton_Scan_Click()\nret code = -2")}});
}

TEST(MainWindowCommands, ResetTheScanRecordBeforeAScan)
{
    const MainWindowFixture main;
    scan_record = {};
    scan_record.counter_all = scan_record.counter_valid = scan_record.counter_filled = 7;
    scan_record.uiSize_TmpBuf_Path = 1;
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr, 8);
    const BoxWatcher boxes;
    main.press(main_control::kScan);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/funcs_layout_windows", L"onButton_Scan_Clicked", 988, 1355},
                                 L"ERROR <- VirtualAlloc()")},
         {L"error", compact_text({L"sources/main_prg", L"WndProc", 888, 1187},
                                 L"ERROR <- onButton_Scan_Click()\nret code = -3")}});
    EXPECT_EQ(scan_record.counter_all, 0u);
    EXPECT_EQ(scan_record.counter_valid, 0u);
    EXPECT_EQ(scan_record.counter_filled, 0u);
    EXPECT_EQ(scan_record.uiSize_TmpBuf_Path, 32768u);
}

TEST(MainWindowCommands, ReportTheResultOfAFailedLoad)
{
    const MainWindowFixture main;
    const TemporaryFolder folder;
    const AnsweredOpenDialog dialog(folder.path());
    const BoxWatcher boxes;
    main.press(main_control::kLoadProfile);
    boxes.expect_boxes(
        {{L"error",
          gap_text({kLayoutFile, L"onButton_LoadProfile_clicked", 5570, 7095},
                   L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()")},
         {L"error", compact_text({kMainFile, L"WndProc", 951, 1269},
                                 L"one of callable functions returned error onButton_LoadProfile_clicked(), "
                                 L"RetCode = -2")}});
    EXPECT_EQ(main.profiles(), 0);
}

TEST(MainWindowCommands, GoOnLoadingWhenTheStoreCannotBeSetUp)
{
    const MainWindowFixture main;
    const AnsweredOpenDialog cancelled(L"");
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr,
                                                                      ERROR_NOT_ENOUGH_MEMORY);
    const BoxWatcher boxes;
    main.press(main_control::kLoadProfile);
    const std::vector<ExpectedBox> expected{
        {L"error", handler_first_text({kLayoutFile, L"preInitOnce_onLoadProfile", 4539, 4613},
                                      L"\nerror <- VirtualAlloc()")},
        {L"error", L"WndProc, WM_COMMAND, error <- preInitOnce_onLoadProfile()"}};
    boxes.expect_boxes(expected);
    EXPECT_EQ(boxes.boxes().at(1).owner, nullptr);
    EXPECT_EQ(cancelled.times_asked, 1);
    EXPECT_EQ(fails.calls(), 1);
    main.press(main_control::kLoadProfile); // one attempt only
    boxes.expect_boxes(expected);
    EXPECT_EQ(cancelled.times_asked, 2);
    EXPECT_EQ(fails.calls(), 1);
    EXPECT_EQ(main_window.LoadedProfiles.pc_hwnds_wnds_of_prfl, nullptr);
    EXPECT_EQ(main_window.LoadedProfiles.pc_raw_FilesProfile, nullptr);
}
