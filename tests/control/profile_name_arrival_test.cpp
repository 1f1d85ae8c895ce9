#include "sources/wnd_ScanListView/profile_name_arrival.h"

#include <gtest/gtest.h>

#include "sources/funcs_layout_windows/scan_record.h"
#include "tests/control/profile_desk.h"
#include "tests/control/saved_profile_desk.h"
#include "tests/support/file_dialogs.h"

namespace
{

using namespace profile_tests;
using test_support::Background;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::difference;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::file_exists;
using test_support::hex;
using test_support::ImportHook;
using test_support::read_file;
using test_support::TemporaryFolder;

ExpectedBox save_box(const std::wstring& function, int site, int handler, const std::wstring& detail)
{
    return {L"error", compact_text({L"sources/wnd_ScanListView", function, site, handler}, detail)};
}

ExpectedBox arrival_box(int site, int handler, const std::wstring& detail)
{
    return save_box(L"on_WM_COPYDATA_on_wnd_NameOfProfile", site, handler, detail);
}

ExpectedBox not_written_box(const std::wstring& code)
{
    return arrival_box(2009, 2131,
                       L"file of profile was not written, profile is not saved\nGetLastError = " + code +
                           L" <- WriteFile() or FlushFileBuffers()");
}

LRESULT send_name(const ListOfWindows& list, HWND sender, ULONG_PTR data, const std::wstring& name,
                  DWORD bytes)
{
    COPYDATASTRUCT copy{.dwData = data, .cbData = bytes, .lpData = const_cast<wchar_t*>(name.data())};
    return SendMessageW(list.window, WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                        reinterpret_cast<LPARAM>(&copy));
}

// Calls of VirtualFree while it lives.
using Releases = FailingImport<"VirtualFree", decltype(VirtualFree)>;

} // namespace

TEST(ProfileSaving, WritesTheTickedRowsUnderTheEnteredName)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"saved.txt");
    const HWND name = list.ask_name_for({4, 1, 7, 0});
    AnsweredSaveDialog dialog(path);
    dialog.look = [&](const OPENFILENAMEW& settings) {
        EXPECT_FALSE(IsWindow(name)) << "the name window goes first";
        EXPECT_EQ(settings.lStructSize, 152u);
        EXPECT_EQ(settings.hwndOwner, list.window);
        EXPECT_EQ(settings.lpstrFilter, nullptr);
        EXPECT_STREQ(settings.lpstrFile, L"Profile_01");
        EXPECT_EQ(settings.nMaxFile, 260u);
        EXPECT_NE(settings.lpstrFileTitle, nullptr);
        EXPECT_EQ(settings.nMaxFileTitle, 260u);
        EXPECT_STREQ(settings.lpstrTitle, L"Save Profile");
        EXPECT_STREQ(settings.lpstrDefExt, L"txt");
        EXPECT_EQ(settings.Flags, 0x81006u);
    };
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    enter_name(name, L"My profile");
    boxes.expect_no_boxes();
    EXPECT_EQ(dialog.asked, 1);
    EXPECT_EQ(hex(read_file(path)), hex(profile_of(ten_windows(), {0, 1, 4, 7}, u"My profile")));
    EXPECT_EQ(releases.calls(), 8);
}

TEST(ProfileSaving, SavesWhatTheScanRecordSaysNotWhatTheListShowed)
{
    std::vector<ScannedWindow> windows = ten_windows();
    const FilledScan scan(windows);
    const ListOfWindows list;
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

TEST(ProfileSaving, CreatesANewFileOnlyForItselfAndClosesIt)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"saved.txt");
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(path);
    ImportHook<"CreateFileW", decltype(CreateFileW)>* original = nullptr;
    ImportHook<"CreateFileW", decltype(CreateFileW)> hook(
        "kernel32.dll", [&](LPCWSTR file, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                            DWORD disposition, DWORD attributes, HANDLE pattern) {
            EXPECT_EQ(file, path);
            EXPECT_EQ(access, 0xC0000000u);
            EXPECT_EQ(share, 0u);
            EXPECT_EQ(disposition, 1u);
            EXPECT_EQ(attributes, 0x80u);
            return original->call_original(file, access, share, security, disposition, attributes, pattern);
        });
    original = &hook;
    enter_name(name, L"x");
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST(ProfileSaving, LeavesAFileThatExistsAsItIs)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const Bytes kept{'k', 'e', 'p', 't', 0, 7, 12};
    for (const DWORD attributes : {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN}) {
        SCOPED_TRACE(attributes);
        const std::wstring path = folder.file(L"kept " + std::to_wstring(attributes) + L".txt");
        test_support::write_file(path, kept);
        SetFileAttributesW(path.c_str(), attributes);
        const HWND name = list.ask_name_for({1});
        AnsweredSaveDialog dialog(path);
        const Releases releases("kernel32.dll", -1, TRUE, 0);
        BoxWatcher boxes;
        enter_name(name, L"x");
        boxes.expect_boxes({{L"information", L"File already exists"}});
        EXPECT_EQ(boxes.boxes().front().owner, nullptr);
        EXPECT_EQ(boxes.boxes().front().buttons, std::vector<int>{IDOK});
        EXPECT_EQ(read_file(path), kept);
        EXPECT_EQ(releases.calls(), 8);
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // or it could not be deleted
    }
}

TEST(ProfileSaving, FreesTheArraysAndWritesNothingWhenTheSaveDialogIsCancelled)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
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

TEST(ProfileSaving, DeletesAHalfWrittenFileAndSaysSo)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"half.txt");
    AnsweredSaveDialog dialog(path);
    for (const int part : {1, 8, 10}) {
        const HWND name = list.ask_name_for({1});
        const FailingImport<"WriteFile", decltype(WriteFile)> fails("kernel32.dll", part, FALSE,
                                                                    ERROR_DISK_FULL);
        const Releases releases("kernel32.dll", -1, TRUE, 0);
        BoxWatcher boxes;
        enter_name(name, L"x");
        boxes.expect_boxes({not_written_box(L"112")});
        EXPECT_FALSE(file_exists(path));
        EXPECT_EQ(releases.calls(), 8);
    }
    const HWND name = list.ask_name_for({1});
    const FailingImport<"FlushFileBuffers", decltype(FlushFileBuffers)> fails("kernel32.dll", 1, FALSE,
                                                                              ERROR_WRITE_FAULT);
    BoxWatcher boxes;
    enter_name(name, L"x");
    boxes.expect_boxes({not_written_box(L"29")});
    EXPECT_FALSE(file_exists(path));
}

TEST(ProfileSaving, SaysThatAFileCannotBeCreated)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(folder.file(L"no folder\\x.txt"));
    BoxWatcher boxes;
    enter_name(name, L"x");
    boxes.expect_boxes({arrival_box(1983, 2087,
                                    L"file of profile was not created, profile is not saved\n"
                                    L"GetLastError = 3 <- CreateFile()")});
}

TEST(ProfileSaving, ReportsAWriterThatRefusesAndAnswersFalse)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    // The name comes a second time, after the arrays have gone with the first.
    const HWND twin = [&] {
        list.press_create_profile();
        return name_window();
    }();
    ASSERT_FALSE(IsWindow(name));
    {
        AnsweredSaveDialog dialog(L"");
        send_name(list, twin, 0, L"x", 2);
    }
    const HWND late = create_wnd_ProfileName(list.window);
    AnsweredSaveDialog dialog(folder.file(L"refused.txt"));
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, late, 0, L"x", 2), FALSE);
    const auto seen = boxes.boxes();
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(
        difference({seen[1], seen[2]}, {arrival_box(1997, 2109,
                                                    L"error, one of callable functions returned error, -1 <- "
                                                    L"WriteData_Profile()"),
                                        save_box(L"WndProc_ScanListView", 358, 541,
                                                 L"iRetCode = -2 <- on_WM_COPYDATA_on_wnd_NameOfProfile()")}),
        "");
}

TEST(ProfileSaving, TakesAtMost256UnitsAndWholeUnitsOnly)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"long.txt");
    AnsweredSaveDialog dialog(path);
    const std::wstring long_name(5000, L'n');
    EXPECT_EQ(send_name(list, list.ask_name_for({1}), 0, long_name, 10'000), TRUE);
    EXPECT_EQ(hex(read_file(path)), hex(profile_of(ten_windows(), {1}, std::u16string(256, u'n'))));
    DeleteFileW(path.c_str());
    EXPECT_EQ(send_name(list, list.ask_name_for({1}), 0, long_name, 7), TRUE);
    EXPECT_EQ(hex(read_file(path)), hex(profile_of(ten_windows(), {1}, u"nnn")));
}

TEST(ProfileSaving, IgnoresOtherMessagesAndStrangers)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const HWND name = list.ask_name_for({1});
    AnsweredSaveDialog dialog(L"");
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, name, 1, L"x", 2), TRUE);
    EXPECT_TRUE(IsWindow(name));
    EXPECT_EQ(send_name(list, list.window, 0, L"x", 2), FALSE);
    EXPECT_EQ(SendMessageW(list.window, WM_COPYDATA, reinterpret_cast<WPARAM>(name), 0), FALSE);
    EXPECT_EQ(dialog.asked, 0);
    EXPECT_TRUE(IsWindow(name));
    boxes.expect_no_boxes();
}

TEST(ProfileSaving, ReportsANameThatComesFromNoWindow)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, nullptr, 0, L"x", 2), FALSE);
    const auto seen = boxes.boxes();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_NE(seen.front().text.find(L"error, incorrect input parameters\nhwnd_wnd_ListOfWnds = " +
                                     pointer(list.window) +
                                     L", hwnd_wnd_NameProfile = 0000000000000000, pSTR_ENUM_WNDS_DATA = "),
              std::wstring::npos);
    const ExpectedBox again = save_box(L"WndProc_ScanListView", 358, 541,
                                       L"iRetCode = -1 <- on_WM_COPYDATA_on_wnd_NameOfProfile()");
    EXPECT_EQ(seen.back().title, again.title);
    EXPECT_EQ(seen.back().text, again.text);
}

TEST(ProfileSaving, TakesAFileSystemThatHasNoFlushing)
{
    for (const DWORD code : {DWORD{ERROR_INVALID_FUNCTION}, DWORD{ERROR_NOT_SUPPORTED}}) {
        const FilledScan scan(ten_windows());
        const ListOfWindows list;
        const TemporaryFolder folder;
        const std::wstring path = folder.file(L"saved.txt");
        const HWND name = list.ask_name_for({1});
        AnsweredSaveDialog dialog(path);
        const FailingImport<"FlushFileBuffers", decltype(FlushFileBuffers)> failing(
            "kernel32.dll", test_support::kEveryCall, FALSE, code);
        BoxWatcher boxes;
        EXPECT_EQ(send_name(list, name, 0, L"x", 2), TRUE);
        boxes.expect_no_boxes();
        EXPECT_TRUE(file_exists(path));
    }
}

TEST(ProfileSaving, RefusesMissingArgumentsNamingThem)
{
    const FilledScan scan(ten_windows());
    STR_RW_PRFL write{};
    const auto some = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
    for (int missing = 0; missing < 4; ++missing) {
        const HWND list = missing == 0 ? nullptr : some;
        const HWND name = missing == 1 ? nullptr : some;
        const STR_ENUM_WNDS_DATA* const read = missing == 2 ? nullptr : &scan_record;
        STR_RW_PRFL* const record = missing == 3 ? nullptr : &write;
        BoxWatcher boxes;
        EXPECT_EQ(on_WM_COPYDATA_on_wnd_NameOfProfile(list, name, read, record), -1);
        boxes.expect_boxes(
            {arrival_box(1908, 2065,
                         L"error, incorrect input parameters\nhwnd_wnd_ListOfWnds = " + pointer(list) +
                             L", hwnd_wnd_NameProfile = " + pointer(name) + L", pSTR_ENUM_WNDS_DATA = " +
                             pointer(read) + L", pSTR_RW_PRFL = " + pointer(record))});
    }
}

TEST(ProfileSaving, AddsTheEndingThatTheRealSaveDialogWasGiven)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const HWND name = list.ask_name_for({1});
    std::wstring title;
    std::wstring proposed;
    BoxWatcher boxes;
    Background user([&] {
        const HWND dialog = test_support::wait_for_file_dialog(GetCurrentProcessId());
        title = test_support::file_dialog_title(dialog);
        proposed = test_support::file_dialog_name(dialog);
        test_support::choose_file(GetCurrentProcessId(), folder.file(L"real"));
    });
    enter_name(name, L"Real");
    user.join();
    boxes.expect_no_boxes();
    EXPECT_EQ(title, L"Save Profile");
    EXPECT_EQ(proposed, L"Profile_01");
    EXPECT_EQ(hex(read_file(folder.file(L"real.txt"))), hex(profile_of(ten_windows(), {1}, u"Real")));
    SetCurrentDirectoryW(L"C:\\"); // the dialog has gone to the folder
}
