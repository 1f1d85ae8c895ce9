#include <gtest/gtest.h>

#include <objbase.h>

#include <string>
#include <vector>

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/wnd_ScanListView/saving/save_profile.h"
#include "sources/wnd_ScanListView/saving/saving_errors.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"
#include "tests/support/basics/com_apartment.h"

// Profiles that are not saved: what is told, and what is left.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::file_exists;
using test_support::hex;
using test_support::ImportHook;
using test_support::read_file;
using test_support::TemporaryFolder;

ExpectedBox not_written_box(const std::wstring& code)
{
    return arrival_box(2009, 2131,
                       L"file of profile was not written, profile is not saved\nGetLastError = " + code +
                           L" <- WriteFile() or FlushFileBuffers()");
}

// What opening a file that exists for writing comes to.
DWORD error_of_writing_to(const std::wstring& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const DWORD error = file == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
    CloseHandle(file);
    return error;
}

} // namespace

// The main window uninitialises COM when it is closed, and the dialog, which is the shell's, lets that in.
TEST(SaveProfile, HoldsComWhileTheSaveDialogIsUp)
{
    const test_support::ComApartment com;
    SavingFixture saving;
    // Counted, as the system's edit boxes may hold it as well.
    int holds = 0;
    const ImportHook<"CoInitializeEx", decltype(CoInitializeEx)> hold(
        "ole32.dll", [&](LPVOID reserved, DWORD model) {
            ++holds;
            return hold.call_original(reserved, model);
        });
    const ImportHook<"CoUninitialize", decltype(CoUninitialize)> let_go("ole32.dll", [&] {
        --holds;
        let_go.call_original();
    });
    int holds_at_dialog = 0;
    saving.dialog.look = [&](const OPENFILENAMEW&) { holds_at_dialog = holds; };
    send_name(saving.list, saving.list.ask_name_for({1}), 0, L"x", 2);
    EXPECT_EQ(saving.dialog.asked, 1);
    EXPECT_EQ(holds_at_dialog, 1);
    EXPECT_EQ(holds, 0);
}

TEST(SaveProfile, LeavesAFileThatExistsAsItIs)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
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
        EXPECT_EQ(send_name(list, name, 0, L"x", 2), TRUE);
        boxes.expect_boxes({{L"information", L"File already exists"}});
        EXPECT_EQ(boxes.boxes().front().owner, nullptr);
        EXPECT_EQ(boxes.boxes().front().buttons, std::vector<int>{IDOK});
        EXPECT_EQ(read_file(path), kept);
        EXPECT_EQ(folder.names(),
                  std::vector<std::wstring>{L"kept " + std::to_wstring(attributes) + L".txt"});
        EXPECT_EQ(releases.calls(), 8);
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // or it could not be deleted
        DeleteFileW(path.c_str());
    }
}

TEST(SaveProfile, DeletesAHalfWrittenFileAndReportsIt)
{
    SavingFixture saving(L"half.txt");
    for (const int part : {1, 8, 10}) {
        const HWND name = saving.list.ask_name_for({1});
        const FailingImport<"WriteFile", decltype(WriteFile)> fails("kernel32.dll", part, FALSE,
                                                                    ERROR_DISK_FULL);
        const Releases releases("kernel32.dll", -1, TRUE, 0);
        BoxWatcher boxes;
        EXPECT_EQ(send_name(saving.list, name, 0, L"x", 2), TRUE);
        boxes.expect_boxes({not_written_box(L"112")});
        EXPECT_FALSE(file_exists(saving.path));
        EXPECT_EQ(releases.calls(), 8);
    }
    const HWND name = saving.list.ask_name_for({1});
    const FailingImport<"FlushFileBuffers", decltype(FlushFileBuffers)> fails("kernel32.dll", 1, FALSE,
                                                                              ERROR_WRITE_FAULT);
    BoxWatcher boxes;
    EXPECT_EQ(send_name(saving.list, name, 0, L"x", 2), TRUE);
    boxes.expect_boxes({not_written_box(L"29")});
    EXPECT_FALSE(file_exists(saving.path));
}

TEST(SaveProfile, ReportsAFileThatCannotBeCreated)
{
    SavingFixture saving(L"no folder\\x.txt");
    const HWND name = saving.list.ask_name_for({1});
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    EXPECT_EQ(send_name(saving.list, name, 0, L"x", 2), TRUE);
    boxes.expect_boxes({arrival_box(1983, 2087,
                                    L"file of profile was not created, profile is not saved\n"
                                    L"GetLastError = 3 <- CreateFile()")});
    EXPECT_EQ(releases.calls(), 8);
    EXPECT_FALSE(IsWindow(name));
    EXPECT_FALSE(file_exists(saving.path));
}

TEST(SaveProfile, ReportsAWriterThatRefusesAndAnswersFalse)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"refused.txt");
    const Releases releases("kernel32.dll", -1, TRUE, 0);
    BoxWatcher boxes;
    // Create Profile gets seven of its eight blocks, and no name window.
    std::vector<void*> arrays;
    {
        const ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> memory(
            "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
                arrays.push_back(arrays.size() == 7 ? nullptr
                                                    : memory.call_original(address, size, type, protection));
                return arrays.back();
            });
        ASSERT_EQ(list.ask_name_for({1}), nullptr);
    }
    ASSERT_EQ(arrays.size(), 8u);
    boxes.forget();
    const HWND late = create_wnd_ProfileName(list.window);
    HANDLE file = nullptr;
    {
        const ImportHook<"CreateFileW", decltype(CreateFileW)> creation(
            "kernel32.dll", [&](auto... arguments) { return file = creation.call_original(arguments...); });
        AnsweredSaveDialog dialog(path);
        EXPECT_EQ(send_name(list, late, 0, L"x", 2), FALSE);
    }
    const std::wstring record = record_named_in(boxes.wait_for_box(0).text);
    EXPECT_NE(record, pointer(nullptr));
    boxes.expect_boxes(
        {save_box(L"WriteData_Profile", 2204, 2318,
                  L"error, incorrect INPUT parameters:\nhFile_wnds_profile = " + pointer(file) +
                      L"\npSTR_RW_PRFL = " + record + L"\nN_wnds = 1\np_arr1D_uc_flag_Prg_or_Folder = " +
                      pointer(arrays[1]) + L"\np_arr1D_ui_x = " + pointer(arrays[2]) + L"\np_arr1D_ui_y = " +
                      pointer(arrays[3]) + L"\np_arr1D_ui_w = " + pointer(arrays[4]) + L"\np_arr1D_ui_h = " +
                      pointer(arrays[5]) + L"\np_arr1D_ui_len_path = " + pointer(arrays[6]) +
                      L"\np_arr_strz_paths = 0000000000000000"),
         arrival_box(1997, 2109,
                     L"error, one of callable functions returned error, -1 <- WriteData_Profile()"),
         save_box(L"WndProc_ScanListView", 358, 541,
                  L"iRetCode = -2 <- on_WM_COPYDATA_on_wnd_NameOfProfile()")});
    EXPECT_FALSE(IsWindow(late));
    // The file stays, empty and open; the arrays stay until the next Create Profile.
    WIN32_FILE_ATTRIBUTE_DATA about{};
    EXPECT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &about));
    EXPECT_EQ(about.nFileSizeLow, 0u);
    EXPECT_EQ(error_of_writing_to(path), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(releases.calls(), 0);
    EXPECT_NE(list.ask_name_for({1}), nullptr);
    EXPECT_EQ(releases.calls(), 7);
    CloseHandle(file);
    EXPECT_EQ(error_of_writing_to(path), DWORD{ERROR_SUCCESS});
}

TEST(SaveProfile, ReportsANameThatComesFromNoWindow)
{
    const FilledScanFixture scan(ten_windows());
    const ListOfWindowsFixture list;
    BoxWatcher boxes;
    EXPECT_EQ(send_name(list, nullptr, 0, L"x", 2), FALSE);
    const std::wstring record = record_named_in(boxes.wait_for_box(0).text);
    EXPECT_NE(record, pointer(nullptr));
    boxes.expect_boxes(
        {arrival_box(1908, 2065,
                     L"error, incorrect input parameters\nhwnd_wnd_ListOfWnds = " + pointer(list.window) +
                         L", hwnd_wnd_NameProfile = 0000000000000000, pSTR_ENUM_WNDS_DATA = " +
                         pointer(&scan_record) + L", pSTR_RW_PRFL = " + record),
         save_box(L"WndProc_ScanListView", 358, 541,
                  L"iRetCode = -1 <- on_WM_COPYDATA_on_wnd_NameOfProfile()")});
}

TEST(SaveProfile, RefusesMissingArgumentsNamingThem)
{
    const FilledScanFixture scan(ten_windows());
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

TEST(SaveProfile, ReportsAHalfWrittenFileThatCannotBeDeleted)
{
    SavingFixture saving(L"left.txt");
    const HWND name = saving.list.ask_name_for({1});
    const FailingImport<"WriteFile", decltype(WriteFile)> full("kernel32.dll", 2, FALSE, ERROR_DISK_FULL);
    const FailingImport<"DeleteFileW", decltype(DeleteFileW)> kept("kernel32.dll", 1, FALSE,
                                                                   ERROR_SHARING_VIOLATION);
    BoxWatcher boxes;
    EXPECT_EQ(send_name(saving.list, name, 0, L"x", 2), TRUE);
    boxes.expect_boxes(
        {arrival_box(2017, 2131,
                     L"file of profile was not wholly written and cannot be deleted, profile is not saved\n"
                     L"GetLastError = 112 <- WriteFile() or FlushFileBuffers()\n"
                     L"GetLastError = 32 <- DeleteFile()")});
    EXPECT_EQ(kept.calls(), 1);
    EXPECT_EQ(hex(read_file(saving.path)), ""); // emptied: no reader takes it for a profile
    EXPECT_EQ(error_of_writing_to(saving.path), DWORD{ERROR_SUCCESS});
}

// A record that is not there is noticed before it is released, so nothing brings this one about.
TEST(SaveProfile, HasAReportForArraysThatCannotBeReleased)
{
    BoxWatcher boxes;
    EXPECT_EQ(report<kSaveFreeFailed>(-1), -2);
    boxes.expect_boxes({arrival_box(
        2031, 2153, L"error, one of callable functions returned error, -1 <- FreeDynMem_wnds_Profile()")});
}
