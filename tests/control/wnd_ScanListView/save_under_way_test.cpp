#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_blocks.h"
#include "tests/control/fixtures/saved_profile_fixture.h"

// A save from the arrival of its name to its end: what comes in which order, and what is refused meanwhile.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::ExpectedBox;
using test_support::hex;
using test_support::ImportHook;
using test_support::read_file;
using test_support::TemporaryFolder;

const ExpectedBox kFileExists{L"information", L"File already exists"};

const ExpectedBox kNoFolder = arrival_box(
    1983, 2087, L"file of profile was not created, profile is not saved\nGetLastError = 3 <- CreateFile()");

// Does something while a message box of that title is up, every time.
class WhileBoxIsUp
{
public:
    WhileBoxIsUp(std::wstring title, std::function<void()> action)
        : title_(std::move(title)), action_(std::move(action))
    {
    }
    int boxes = 0;

private:
    std::wstring title_;
    std::function<void()> action_;
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> hook_{
        "user32.dll", [this](HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
            if (title == title_) {
                ++boxes;
                action_();
            }
            return hook_.call_original(owner, text, title, type);
        }};
};

std::wstring file_that_exists(const TemporaryFolder& folder)
{
    test_support::write_file(folder.file(L"kept.txt"), {1, 2, 3});
    return folder.file(L"kept.txt");
}

// Whether each of the blocks has been given back once.
bool all_given_back(const RecordedBlocks& blocks)
{
    return std::all_of(blocks.taken.begin(), blocks.taken.end(), [&](const void* block) {
        return std::count(blocks.given_back.begin(), blocks.given_back.end(), block) == 1;
    });
}

} // namespace

TEST(SaveUnderWay, TakesNoOtherNameWhileItsDialogIsUp)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(folder.file(L"first.txt"));
    dialog.look = [&](const OPENFILENAMEW&) {
        if (dialog.asked > 1)
            return; // a second dialog must not bring about a third
        EXPECT_EQ(send_name(list, list.window, 0, L"Other", 10), FALSE);
        EXPECT_EQ(send_name(list, nullptr, 0, L"Other", 10), FALSE);
        EXPECT_EQ(send_name(list, list.window, 1, L"Other", 10), TRUE); // is no name
    };
    const BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 0, L"First", 10), TRUE);
    boxes.expect_no_boxes();
    EXPECT_EQ(dialog.asked, 1);
    EXPECT_EQ(hex(read_file(folder.file(L"first.txt"))), hex(profile_of(ten_windows(), {1}, u"First")));
}

TEST(SaveUnderWay, RefusesCreateProfileWhileItsDialogIsUp)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(folder.file(L"first.txt"));
    dialog.look = [&](const OPENFILENAMEW&) { EXPECT_EQ(list.ask_name_for({2}), nullptr); };
    const BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 0, L"First", 10), TRUE);
    boxes.expect_no_boxes();
    EXPECT_EQ(hex(read_file(folder.file(L"first.txt"))), hex(profile_of(ten_windows(), {1}, u"First")));
    EXPECT_NE(list.ask_name_for({}), nullptr);
}

TEST(SaveUnderWay, TakesNothingWhileTheNoticeOfAFileThatExistsIsUp)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    AnsweredSaveDialog dialog(file_that_exists(folder));
    std::optional<RecordedBlocks> blocks(std::in_place);
    const HWND name = list.ask_name_for({1});
    blocks->given_back.clear(); // what an earlier profile had left
    const WhileBoxIsUp meanwhile(L"information", [&] {
        EXPECT_EQ(list.ask_name_for({2}), nullptr);
        EXPECT_EQ(send_name(list, list.window, 0, L"Other", 10), FALSE);
    });
    const BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 0, L"First", 10), TRUE);
    boxes.expect_boxes({kFileExists});
    EXPECT_EQ(meanwhile.boxes, 1);
    EXPECT_EQ(dialog.asked, 1);
    EXPECT_EQ(blocks->taken.size(), 8u);
    EXPECT_TRUE(all_given_back(*blocks));
    blocks.reset();
    EXPECT_NE(list.ask_name_for({}), nullptr);
}

TEST(SaveUnderWay, ReleasesItsArraysWhenItsListIsClosedWhileTheNoticeIsUp)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    AnsweredSaveDialog dialog(file_that_exists(folder));
    RecordedBlocks blocks;
    const HWND name = list.ask_name_for({1});
    blocks.given_back.clear(); // what an earlier profile had left
    const WhileBoxIsUp meanwhile(L"information", [&] { DestroyWindow(list.window); });
    const BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 0, L"First", 10), TRUE);
    boxes.expect_boxes({kFileExists});
    EXPECT_FALSE(IsWindow(list.window));
    EXPECT_EQ(blocks.taken.size(), 8u);
    EXPECT_TRUE(all_given_back(blocks));
    EXPECT_EQ(hex(read_file(folder.file(L"kept.txt"))), "01 02 03");
}

// The list is closed while the dialog is up and another scan is listed before the dialog has returned.
TEST(SaveUnderWay, RefusesTheNextListsCreateProfileUntilItHasEnded)
{
    std::optional<FilledScanFixture> scan(std::in_place, ten_windows());
    const ListOfWindowsFixture list;
    std::optional<ListOfWindowsFixture> next;
    {
        AnsweredSaveDialog dialog(L"");
        std::optional<RecordedBlocks> blocks(std::in_place);
        const HWND name = list.ask_name_for({1});
        blocks->given_back.clear(); // what an earlier profile had left
        const std::vector<void*> arrays = blocks->taken;
        dialog.look = [&](const OPENFILENAMEW&) {
            DestroyWindow(list.window);
            scan.emplace(ten_windows());
            next.emplace();
            EXPECT_EQ(next->ask_name_for({2, 3}), nullptr);
        };
        const BoxWatcher boxes;
        EXPECT_EQ(send_name(list, name, 0, L"x", 2), TRUE);
        boxes.expect_no_boxes();
        EXPECT_EQ(arrays.size(), 8u);
        for (void* const array : arrays)
            EXPECT_EQ(std::count(blocks->given_back.begin(), blocks->given_back.end(), array), 1);
    }
    const TemporaryFolder folder;
    AnsweredSaveDialog dialog(folder.file(L"next.txt"));
    const BoxWatcher boxes;
    enter_name(next->ask_name_for({}), L"Next");
    boxes.expect_no_boxes();
    EXPECT_EQ(hex(read_file(folder.file(L"next.txt"))), hex(profile_of(ten_windows(), {2, 3}, u"Next")));
}

TEST(SaveUnderWay, ReportsAMissingFileBeforeTheWriterRuns)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    for (const bool exists : {true, false}) {
        SCOPED_TRACE(exists);
        AnsweredSaveDialog dialog(exists ? file_that_exists(folder) : folder.file(L"no folder\\x.txt"));
        const HWND name = list.ask_name_for({1});
        std::string order;
        const ImportHook<"MessageBoxW", decltype(MessageBoxW)> shown("user32.dll", [&](auto... arguments) {
            order += "box ";
            return shown.call_original(arguments...);
        });
        const ImportHook<"WriteFile", decltype(WriteFile)> written(
            "kernel32.dll", [&](HANDLE file, auto... arguments) {
                EXPECT_EQ(file, INVALID_HANDLE_VALUE);
                order += "part ";
                return written.call_original(file, arguments...);
            });
        const ImportHook<"VirtualFree", decltype(VirtualFree)> released(
            "kernel32.dll", [&](auto... arguments) {
                order += "free ";
                return released.call_original(arguments...);
            });
        const BoxWatcher boxes;
        EXPECT_EQ(send_name(list, name, 0, L"x", 2), TRUE);
        boxes.expect_boxes({exists ? kFileExists : kNoFolder});
        EXPECT_EQ(order, "box part part part part part part part part part part "
                         "free free free free free free free free ");
    }
}

TEST(SaveUnderWay, ReportsAMissingFileWhenTheWriterRefuses)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    for (const bool exists : {true, false}) {
        SCOPED_TRACE(exists);
        AnsweredSaveDialog dialog(exists ? file_that_exists(folder) : folder.file(L"no folder\\x.txt"));
        BoxWatcher boxes;
        list.press_create_profile(); // with nothing ticked: the record is empty now
        boxes.forget();
        EXPECT_EQ(send_name(list, list.window, 0, L"x", 2), FALSE);
        const std::vector<test_support::SeenBox> seen = boxes.boxes();
        ASSERT_EQ(seen.size(), 4u);
        const std::wstring record = record_named_in(seen[1].text);
        boxes.expect_boxes(
            {exists ? kFileExists : kNoFolder,
             save_box(L"WriteData_Profile", 2204, 2318,
                      L"error, incorrect INPUT parameters:\nhFile_wnds_profile = FFFFFFFFFFFFFFFF\n"
                      L"pSTR_RW_PRFL = " +
                          record +
                          L"\nN_wnds = 0\np_arr1D_uc_flag_Prg_or_Folder = 0000000000000000\n"
                          L"p_arr1D_ui_x = 0000000000000000\np_arr1D_ui_y = 0000000000000000\n"
                          L"p_arr1D_ui_w = 0000000000000000\np_arr1D_ui_h = 0000000000000000\n"
                          L"p_arr1D_ui_len_path = 0000000000000000\np_arr_strz_paths = 0000000000000000"),
             arrival_box(1997, 2109,
                         L"error, one of callable functions returned error, -1 <- WriteData_Profile()"),
             save_box(L"WndProc_ScanListView", 358, 541,
                      L"iRetCode = -2 <- on_WM_COPYDATA_on_wnd_NameOfProfile()")});
    }
}

TEST(SaveUnderWay, IsOverAfterEveryOutcome)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const BoxWatcher boxes; // answers what the failed ones show
    list.tick(1);
    const std::wstring answers[] = {folder.file(L"saved.txt"), file_that_exists(folder),
                                    folder.file(L"no folder\\x.txt"), L""};
    for (const std::wstring& answer : answers) {
        AnsweredSaveDialog dialog(answer);
        EXPECT_EQ(send_name(list, list.ask_name_for({}), 0, L"x", 2), TRUE);
        EXPECT_EQ(dialog.asked, 1);
        EXPECT_EQ(name_window(), nullptr);
    }
    EXPECT_EQ(send_name(list, nullptr, 0, L"x", 2), FALSE); // refused for want of a sender
    {
        AnsweredSaveDialog dialog(folder.file(L"refused.txt"));
        EXPECT_EQ(send_name(list, list.window, 0, L"x", 2), FALSE); // no arrays: the writer refuses
        EXPECT_EQ(dialog.asked, 1);
    }
    EXPECT_NE(list.ask_name_for({}), nullptr);
}
