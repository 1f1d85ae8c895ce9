#include <windows.h>

#include <commdlg.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"

using namespace test_support;

namespace
{

TEST(BoxWatcher, ReadsTitleTextIconOwnerAndButtonsAndPressesTheChosenOne)
{
    BoxWatcher boxes;
    boxes.answer_with(IDNO);
    const HWND owner = CreateWindowExW(0, L"Static", L"owner", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, nullptr,
                                       nullptr, nullptr, nullptr);
    EXPECT_EQ(MessageBoxW(owner, L"yes?", L"question", MB_YESNO), IDNO);
    boxes.answer_with(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"line one\nline two", L"GetLastError", MB_YESNO | MB_ICONWARNING), IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"one button", L"", MB_OK), IDOK);
    DestroyWindow(owner);

    boxes.expect_boxes(
        {{L"question", L"yes?"}, {L"GetLastError", L"line one\nline two", true}, {L"", L"one button"}});
    const std::vector<SeenBox> seen = boxes.boxes();
    EXPECT_EQ(seen[0].owner, owner);
    EXPECT_EQ(seen[0].buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(seen[1].owner, nullptr);
    EXPECT_EQ(seen[2].buttons, (std::vector<int>{IDOK}));
}

TEST(BoxWatcher, KeepsUnitsThatAreNoText)
{
    BoxWatcher boxes;
    // An odd number of bytes, and units that are no characters by themselves.
    const std::wstring text = bytes_as_wide("error, \xD8\xDC\xFF odd\n");
    MessageBoxW(nullptr, text.c_str(), bytes_as_wide("Help").c_str(), MB_OK);

    boxes.expect_boxes({{L"\x6548\x706C", text}});
    EXPECT_EQ(wide_as_bytes(boxes.boxes().at(0).text), "error, \xD8\xDC\xFF odd\n");
}

TEST(BoxWatcher, SetsBoxesOfATitleAside)
{
    BoxWatcher boxes;
    boxes.set_aside(L"Error");
    MessageBoxW(nullptr, L"of the system", L"Error", MB_OK);
    MessageBoxW(nullptr, L"of the program", L"error", MB_OK);

    boxes.expect_boxes({{L"error", L"of the program"}});
    ASSERT_EQ(boxes.boxes_set_aside().size(), 1u);
    EXPECT_EQ(boxes.boxes_set_aside()[0].text, L"of the system");
}

TEST(BoxWatcher, HoldsABoxUntilItIsAnswered)
{
    BoxWatcher boxes;
    boxes.hold();
    Background program([] { MessageBoxW(nullptr, L"held", L"info", MB_OK); });
    const SeenBox box = boxes.wait_for_box(0);
    EXPECT_TRUE(IsWindowVisible(box.window));
    EXPECT_FALSE(program.finished());

    boxes.answer_held();
    program.join();
    EXPECT_FALSE(IsWindow(box.window));
}

TEST(BoxDifference, SaysWhatDiffers)
{
    SeenBox box;
    box.title = L"error";
    box.text = L"a\x4E00";
    EXPECT_EQ(difference({box}, {{L"error", L"a\x4E00"}}), "");
    EXPECT_EQ(difference({box}, {{L"error", L"b"}}),
              "message box 1 differs; expected\n[error]\nb\nseen\n[error]\na\\u4E00\n");
    EXPECT_EQ(difference({box}, {}), "message box 1 was not expected:\n[error]\na\\u4E00\n");
    EXPECT_EQ(difference({}, {{L"info", L"b"}}), "message box 1 was not shown; expected\n[info]\nb\n");
}

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

TEST(Waiting, NamesWhatDidNotHappen)
{
    try {
        wait_until([] { return false; }, 20, "the impossible");
        FAIL() << "it did not wait for the condition";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "waited 20 ms in vain for the impossible");
    }
}

TEST(Waiting, ABackgroundReportsItsFailureWhenJoined)
{
    Background work([] { throw Failure("gone wrong"); });
    EXPECT_THROW(work.join(), Failure);
}

TEST(Files, APathOfTheBuildMachineIsOnDriveZ)
{
    EXPECT_EQ(windows_path("/tmp/x/y.exe"), L"Z:\\tmp\\x\\y.exe");
    EXPECT_EQ(windows_path("C:/x/y.exe"), L"C:\\x\\y.exe");
}

TEST(Files, ATemporaryFolderIsDeletedWithItsContents)
{
    std::wstring path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        write_file(folder.make_folder(L"deep\\deeper") + L"\\file", {0x00, 0x07, 0x0C});
        EXPECT_EQ(hex(read_file(folder.file(L"deep\\deeper\\file"))), "00 07 0C");
    }
    EXPECT_FALSE(folder_exists(path));
}

} // namespace
