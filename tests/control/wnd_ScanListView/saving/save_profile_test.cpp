#include "sources/wnd_ScanListView/saving/save_profile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/windows/control_ids.h"

using namespace profile_tests;
using test_support::Background;
using test_support::BoxWatcher;
using test_support::FailingImport;
using test_support::file_exists;
using test_support::hex;
using test_support::ImportHook;
using test_support::read_file;
using test_support::TemporaryFolder;

TEST(SaveProfile, WritesTheTickedRowsUnderTheEnteredName)
{
    SavingFixture saving;
    const HWND name = saving.list.ask_name_for({4, 1, 7, 0});
    saving.dialog.look = [&](const OPENFILENAMEW& settings) {
        EXPECT_FALSE(IsWindow(name)) << "the name window goes first";
        EXPECT_EQ(settings.lStructSize, 152u);
        EXPECT_EQ(settings.hwndOwner, saving.list.window);
        EXPECT_EQ(settings.hInstance, nullptr);
        EXPECT_EQ(settings.lpstrFilter, nullptr);
        EXPECT_EQ(settings.lpstrCustomFilter, nullptr);
        EXPECT_EQ(settings.nFilterIndex, 0u);
        EXPECT_STREQ(settings.lpstrFile, L"Profile_01");
        EXPECT_EQ(settings.nMaxFile, 260u);
        EXPECT_NE(settings.lpstrFileTitle, nullptr);
        EXPECT_EQ(settings.nMaxFileTitle, 260u);
        EXPECT_EQ(settings.lpstrInitialDir, nullptr);
        EXPECT_STREQ(settings.lpstrTitle, L"Save Profile");
        EXPECT_STREQ(settings.lpstrDefExt, L"txt");
        EXPECT_EQ(settings.Flags, 0x81006u);
    };
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    enter_name(name, L"My profile");
    boxes.expect_no_boxes();
    EXPECT_EQ(saving.dialog.asked, 1);
    EXPECT_EQ(hex(read_file(saving.path)), hex(profile_of(ten_windows(), {0, 1, 4, 7}, u"My profile")));
    EXPECT_EQ(releases.calls(), 8);
}

TEST(SaveProfile, SavesWhatTheScanRecordSaysNotWhatTheListShowed)
{
    std::vector<ScannedWindow> windows = ten_windows();
    const FilledScanFixture scan(windows);
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"saved.txt");
    // As Modify Cell does it.
    geometry_entry(&scan_record, 2)->x = 100;
    windows[2].x = 100;
    const HWND name = list.ask_name_for({2});
    AnsweredSaveDialog dialog(path);
    enter_name(name, L"x");
    EXPECT_EQ(hex(read_file(path)), hex(profile_of(windows, {2}, u"x")));
}

TEST(SaveProfile, CreatesANewFileOnlyForItselfAndClosesIt)
{
    SavingFixture saving;
    const HWND name = saving.list.ask_name_for({1});
    ImportHook<"CreateFileW", decltype(CreateFileW)>* original = nullptr;
    ImportHook<"CreateFileW", decltype(CreateFileW)> hook(
        "kernel32.dll", [&](LPCWSTR file, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                            DWORD disposition, DWORD attributes, HANDLE pattern) {
            EXPECT_EQ(file, saving.path);
            EXPECT_EQ(access, 0xC0000000u);
            EXPECT_EQ(share, 0u);
            EXPECT_EQ(security, nullptr);
            EXPECT_EQ(disposition, 1u);
            EXPECT_EQ(attributes, 0x80u);
            EXPECT_EQ(pattern, nullptr);
            return original->call_original(file, access, share, security, disposition, attributes, pattern);
        });
    original = &hook;
    enter_name(name, L"x");
    EXPECT_TRUE(DeleteFileW(saving.path.c_str()));
}

TEST(SaveProfile, FreesTheArraysAndWritesNothingWhenTheSaveDialogIsCancelled)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(L"");
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    const FailingImport<"CreateFileW", decltype(CreateFileW)> creations("kernel32.dll", -1, nullptr, 0);
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 0, L"x", 2), TRUE);
    boxes.expect_no_boxes();
    EXPECT_EQ(releases.calls(), 8);
    EXPECT_EQ(creations.calls(), 0);
    EXPECT_FALSE(IsWindow(name));
}

TEST(SaveProfile, TakesAtMost256UnitsAndWholeUnitsOnly)
{
    SavingFixture saving(L"long.txt");
    const std::wstring long_name(5000, L'n');
    EXPECT_EQ(send_name(saving.list, saving.list.ask_name_for({1}), 0, long_name, 10'000), TRUE);
    EXPECT_EQ(hex(read_file(saving.path)), hex(profile_of(ten_windows(), {1}, std::u16string(256, u'n'))));
    DeleteFileW(saving.path.c_str());
    EXPECT_EQ(send_name(saving.list, saving.list.ask_name_for({1}), 0, long_name, 7), TRUE);
    EXPECT_EQ(hex(read_file(saving.path)), hex(profile_of(ten_windows(), {1}, u"nnn")));
}

TEST(SaveProfile, CreatesNoFileAfterEitherCancel)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    SetCurrentDirectoryW(folder.path().c_str()); // where a name without a folder would go
    const FailingImport<"CreateFileW", decltype(CreateFileW)> creations("kernel32.dll", -1, nullptr, 0);
    BoxWatcher boxes;
    {
        AnsweredSaveDialog dialog(folder.file(L"name cancelled.txt"));
        const HWND name = list.ask_name_for({1});
        SetWindowTextW(GetDlgItem(name, name_control::kName), L"x");
        SendMessageW(name, WM_COMMAND, name_control::kCancel, 0);
        EXPECT_FALSE(IsWindow(name));
        EXPECT_EQ(dialog.asked, 0);
    }
    {
        AnsweredSaveDialog dialog(L"");
        dialog.look = [&](const OPENFILENAMEW& settings) { // a path is entered before Cancel
            const std::wstring path = folder.file(L"dialog cancelled.txt");
            path.copy(settings.lpstrFile, path.size());
        };
        enter_name(list.ask_name_for({}), L"x");
        EXPECT_EQ(dialog.asked, 1);
    }
    EXPECT_EQ(creations.calls(), 0);
    EXPECT_EQ(folder.names(), std::vector<std::wstring>{});
    boxes.expect_no_boxes();
    SetCurrentDirectoryW(L"C:\\");
}

TEST(SaveProfile, TakesTheNameFromWhicheverWindowSendsIt)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"saved.txt");
    const TestWindow other(L"other");
    BoxWatcher boxes;
    const HWND senders[] = {list.window, list.list, other, GetDesktopWindow(),
                            reinterpret_cast<HWND>(std::uintptr_t{0xDEAD'BEEF})};
    for (const HWND sender : senders) {
        AnsweredSaveDialog dialog(path);
        const HWND name = list.ask_name_for({1});
        const bool was_there = IsWindow(sender) != FALSE;
        EXPECT_EQ(send_name(list, sender, 0, L"Stranger", 16), TRUE);
        EXPECT_EQ(hex(read_file(path)), hex(profile_of(ten_windows(), {1}, u"Stranger")));
        EXPECT_EQ(IsWindow(sender) != FALSE, was_there);
        EXPECT_TRUE(IsWindow(name)) << "it has sent nothing";
        DeleteFileW(path.c_str());
    }
    boxes.expect_no_boxes();
}

TEST(SaveProfile, TreatsAMissingNameAsAnEmptyOne)
{
    SavingFixture saving;
    BoxWatcher boxes;
    for (const DWORD bytes : {0U, 2U, 512U, 0xFFFF'FFFFU}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(send_name(saving.list, saving.list.ask_name_for({1}), 0, L"Before", 12), TRUE);
        DeleteFileW(saving.path.c_str());
        EXPECT_EQ(send_name_at(saving.list, saving.list.ask_name_for({1}), 0, nullptr, bytes), TRUE);
        EXPECT_EQ(hex(read_file(saving.path)), hex(profile_of(ten_windows(), {1}, u"")));
        DeleteFileW(saving.path.c_str());
    }
    EXPECT_EQ(send_name(saving.list, saving.list.ask_name_for({1}), 0, L"x", 0), TRUE);
    EXPECT_EQ(hex(read_file(saving.path)), hex(profile_of(ten_windows(), {1}, u"")));
    boxes.expect_no_boxes();
}

TEST(SaveProfile, IgnoresDataOfOtherKindsAndMissingData)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(L"");
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 1, L"x", 2), TRUE);
    EXPECT_TRUE(IsWindow(name));
    EXPECT_EQ(SendMessageW(list.window, WM_COPYDATA, reinterpret_cast<WPARAM>(name), 0), FALSE);
    EXPECT_EQ(dialog.asked, 0);
    EXPECT_TRUE(IsWindow(name));
    boxes.expect_no_boxes();
}

TEST(SaveProfile, AcceptsAFileSystemThatCannotFlush)
{
    for (const DWORD code : {DWORD{ERROR_INVALID_FUNCTION}, DWORD{ERROR_NOT_SUPPORTED}}) {
        SavingFixture saving;
        const HWND name = saving.list.ask_name_for({1});
        const FailingImport<"FlushFileBuffers", decltype(FlushFileBuffers)> failing(
            "kernel32.dll", test_support::kEveryCall, FALSE, code);
        BoxWatcher boxes;
        EXPECT_EQ(send_name(saving.list, name, 0, L"x", 2), TRUE);
        boxes.expect_no_boxes();
        EXPECT_TRUE(file_exists(saving.path));
    }
}

TEST(SaveProfile, AddsTheEndingThatTheRealSaveDialogWasGiven)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    std::wstring title;
    std::wstring proposed;
    BoxWatcher boxes;
    Background user([&] {
        const HWND dialog = test_support::wait_for_file_dialog(GetCurrentProcessId());
        title = test_support::file_dialog_title(dialog);
        proposed = test_support::file_dialog_name(dialog);
        // Create Profile, pressed by another program, would begin a new record while the dialog is up.
        SendMessageW(list.window, WM_COMMAND, list_control::kCreateProfile, 0);
        test_support::choose_file(GetCurrentProcessId(), folder.file(L"real"));
    });
    enter_name(name, L"Real");
    user.join();
    boxes.expect_no_boxes();
    EXPECT_EQ(name_window(), nullptr);
    EXPECT_EQ(title, L"Save Profile");
    if (proposed != L"Profile_01.txt") { // Windows may add the ending at once
        EXPECT_EQ(proposed, L"Profile_01");
    }
    EXPECT_EQ(hex(read_file(folder.file(L"real.txt"))), hex(profile_of(ten_windows(), {1}, u"Real")));
    SetCurrentDirectoryW(L"C:\\"); // the dialog has gone to the folder
}
