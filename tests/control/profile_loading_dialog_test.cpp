#include "sources/funcs_layout_windows/profile_loading.h"

#include <gtest/gtest.h>

#include <cderr.h>
#include <commdlg.h>

#include "tests/control/profile_desk.h"
#include "tests/support/file_dialogs.h"
#include "tests/support/waiting.h"

// The open dialog of the Load Profile command.

namespace
{

using namespace profile_tests;
using test_support::Background;
using test_support::BoxWatcher;
using test_support::ImportHook;
using test_support::ProfileEncoder;

constexpr wchar_t kNotOpened[] =
    L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()";

} // namespace

TEST(ProfileLoading, AsksForAFileThatExists)
{
    ProfileDesk desk;
    wchar_t current[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, current);
    int asked = 0;
    const ImportHook<"GetOpenFileNameW", decltype(GetOpenFileNameW)> hook(
        "comdlg32.dll", [&](OPENFILENAMEW* settings) -> BOOL {
            ++asked;
            EXPECT_EQ(settings->lStructSize, 152u);
            EXPECT_EQ(settings->hwndOwner, desk.window.get());
            EXPECT_EQ(std::wstring(settings->lpstrFilter, 15), std::wstring(L"All Files\0*.*\0\0", 15));
            EXPECT_EQ(settings->nFilterIndex, 0u);
            EXPECT_EQ(std::wstring(settings->lpstrFile), L"");
            EXPECT_EQ(settings->nMaxFile, 260u);
            EXPECT_EQ(settings->nMaxFileTitle, 260u);
            EXPECT_EQ(std::wstring(settings->lpstrInitialDir), current);
            EXPECT_EQ(settings->lpstrTitle, nullptr);
            EXPECT_EQ(settings->lpstrDefExt, nullptr);
            EXPECT_EQ(settings->Flags, 0x1800u);
            return FALSE;
        });
    for (const DWORD error : {DWORD{0}, DWORD{FNERR_INVALIDFILENAME}}) {
        const test_support::FailingImport<"CommDlgExtendedError", decltype(CommDlgExtendedError)> answer(
            "comdlg32.dll", test_support::kEveryCall, error, 0);
        BoxWatcher boxes;
        const std::int32_t result =
            onButton_LoadProfile_clicked(desk.window, 0, L"ignored", &desk.store, &desk.profiles);
        if (error == 0) {
            EXPECT_EQ(result, 1);
            boxes.expect_no_boxes();
        } else {
            EXPECT_EQ(result, -2);
            boxes.expect_boxes({{L"error", gap_text({L"sources/funcs_layout_windows",
                                                     L"onButton_LoadProfile_clicked", 5521, 7095},
                                                    kNotOpened)}});
        }
    }
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(desk.store.uiN_loaded_prfls, 0u);
}

TEST(ProfileLoading, DoesNothingWhenTheOpenDialogIsCancelled)
{
    ProfileDesk desk;
    BoxWatcher boxes;
    Background user([] { test_support::cancel_file_dialog(GetCurrentProcessId()); });
    EXPECT_EQ(onButton_LoadProfile_clicked(desk.window, 0, nullptr, &desk.store, &desk.profiles), 1);
    user.join();
    boxes.expect_no_boxes();
    EXPECT_EQ(desk.store.uiN_loaded_prfls, 0u);
}

TEST(ProfileLoading, LoadsTheFileThatIsChosenInTheOpenDialog)
{
    ProfileDesk desk;
    RecordedFolderStarts starts;
    const OwnWindow folder(L"stand-in folder");
    desk.folders.add(folder, L"C:\\windows");
    const std::wstring path = desk.files.file(L"chosen.txt");
    test_support::write_file(path,
                             ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"Chosen").bytes());
    Background user([&] { test_support::choose_file(GetCurrentProcessId(), path); });
    EXPECT_EQ(onButton_LoadProfile_clicked(desk.window, 0, nullptr, &desk.store, &desk.profiles), 1);
    user.join();
    EXPECT_EQ(combo_texts(desk.profile_combo), std::vector<std::wstring>{L"Chosen"});
    wchar_t temporary[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temporary);
    SetCurrentDirectoryW(temporary); // the dialog has gone to the folder of the file
}
