#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/control/saved_profile_desk.h"
#include "tests/support/box_watcher.h"
#include "tests/support/files.h"
#include "tests/support/import_patch.h"

// What a failed save leaves behind when even the deletion of the half-written file fails.

using namespace profile_tests;
using namespace test_support;

TEST(ProfileLeftover, IsToldWhenItCannotBeDeleted)
{
    const FilledScan scan(ten_windows());
    const ListOfWindows list;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"left.txt");
    AnsweredSaveDialog dialog(path);
    const HWND name = list.ask_name_for({1});
    const FailingImport<"WriteFile", decltype(WriteFile)> full("kernel32.dll", 2, FALSE, ERROR_DISK_FULL);
    const FailingImport<"DeleteFileW", decltype(DeleteFileW)> kept("kernel32.dll", 1, FALSE,
                                                                   ERROR_SHARING_VIOLATION);
    BoxWatcher boxes;
    enter_name(name, L"x");
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/wnd_ScanListView\nfunction:\n"
                    L"on_WM_COPYDATA_on_wnd_NameOfProfile\nline:\n2017\n\n"
                    L"file of profile was not wholly written and cannot be deleted, profile is not saved\n"
                    L"GetLastError = 112 <- WriteFile() or FlushFileBuffers()\n"
                    L"GetLastError = 32 <- DeleteFile()\nline of error handler:2131"}});
    EXPECT_EQ(kept.calls(), 1);
    EXPECT_EQ(hex(read_file(path)), "01 00 00 00");
    EXPECT_TRUE(DeleteFileW(path.c_str())) << "the program holds it open";
}
