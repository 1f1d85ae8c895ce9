#include <windows.h>

#include <commdlg.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"

using namespace test_support;

namespace
{

OPENFILENAMEW request_for(wchar_t (&path)[520], DWORD flags)
{
    OPENFILENAMEW request{};
    request.lStructSize = sizeof(request);
    request.lpstrFile = path;
    request.nMaxFile = 520;
    request.lpstrTitle = L"Save Profile";
    request.lpstrDefExt = L"txt";
    request.Flags = flags | OFN_EXPLORER;
    return request;
}

TEST(FileDialogs, ChooseAFileToOpenWhileBoxesAreWatched)
{
    BoxWatcher boxes;
    const TemporaryFolder folder;
    write_file(folder.file(L"a.bin"), {1, 2, 3});
    Background user([&] { choose_file(GetCurrentProcessId(), folder.file(L"a.bin")); });
    wchar_t path[520] = {};
    OPENFILENAMEW request = request_for(path, OFN_FILEMUSTEXIST);
    EXPECT_TRUE(GetOpenFileNameW(&request));
    user.join();

    EXPECT_EQ(std::wstring(path), folder.file(L"a.bin"));
    boxes.expect_no_boxes();
}

TEST(FileDialogs, CancelASaveDialogThatProposesAName)
{
    std::wstring proposed;
    std::wstring title;
    Background user([&] {
        const HWND dialog = wait_for_file_dialog(GetCurrentProcessId());
        wait_until([&] { return file_dialog_name(dialog) == L"Profile_01"; }, kShortWait,
                   "the proposed name");
        title = file_dialog_title(dialog);
        cancel_file_dialog(GetCurrentProcessId());
    });
    wchar_t path[520] = L"Profile_01";
    OPENFILENAMEW request = request_for(path, OFN_OVERWRITEPROMPT);
    EXPECT_FALSE(GetSaveFileNameW(&request));
    user.join();
    EXPECT_EQ(title, L"Save Profile");
}

TEST(FileDialogs, AnswerTheQuestionWhetherToReplaceAFile)
{
    const BoxWatcher boxes;
    const TemporaryFolder folder;
    write_file(folder.file(L"there.txt"), {1});
    Background user([&] {
        choose_existing_file(GetCurrentProcessId(), folder.file(L"there.txt"), Overwrite::kNo);
        choose_existing_file(GetCurrentProcessId(), folder.file(L"there.txt"), Overwrite::kYes);
    });
    wchar_t path[520] = {};
    OPENFILENAMEW request = request_for(path, OFN_OVERWRITEPROMPT);
    EXPECT_TRUE(GetSaveFileNameW(&request));
    user.join();
    EXPECT_EQ(std::wstring(path), folder.file(L"there.txt"));
    boxes.expect_no_boxes();
}

TEST(FileDialogs, MayAskQuestionsThatAWatcherLeavesAlone)
{
    const BoxWatcher boxes;
    Background user([] {
        const HWND dialog = wait_for_file_dialog(GetCurrentProcessId());
        Background asking([&] { MessageBoxW(dialog, L"replace?", L"the dialog asks", MB_OK); });
        const HWND question =
            wait_for([] { return FindWindowW(L"#32770", L"the dialog asks"); }, kShortWait, "the question");
        // Once this one is answered, the watcher has seen the question as well.
        MessageBoxW(nullptr, L"not the dialog", L"info", MB_OK);
        EXPECT_TRUE(IsWindow(question));
        PostMessageW(question, WM_COMMAND, IDOK, 0);
        PostMessageW(question, WM_COMMAND, IDCANCEL, 0);
        asking.join();
        cancel_file_dialog(GetCurrentProcessId());
    });
    wchar_t path[520] = {};
    OPENFILENAMEW request = request_for(path, OFN_OVERWRITEPROMPT);
    EXPECT_FALSE(GetSaveFileNameW(&request));
    user.join();
    boxes.expect_boxes({{L"info", L"not the dialog"}});
}

} // namespace
