#include "sources/funcs_layout_windows/profiles/profile_loading.h"

#include <gtest/gtest.h>

#include <cderr.h>
#include <commdlg.h>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/file_dialogs.h"

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
    ProfileFixture fixture;
    wchar_t current[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, current);
    int asked = 0;
    const ImportHook<"GetOpenFileNameW", decltype(GetOpenFileNameW)> hook(
        "comdlg32.dll", [&](OPENFILENAMEW* settings) -> BOOL {
            ++asked;
            EXPECT_EQ(settings->lStructSize, 152u);
            EXPECT_EQ(settings->hwndOwner, fixture.window.get());
            EXPECT_EQ(std::wstring(settings->lpstrFilter, 15), std::wstring(L"All Files\0*.*\0\0", 15));
            EXPECT_EQ(settings->lpstrCustomFilter, nullptr);
            EXPECT_EQ(settings->nFilterIndex, 0u);
            EXPECT_EQ(std::wstring(settings->lpstrFile), L"");
            EXPECT_EQ(settings->nMaxFile, 260u);
            EXPECT_NE(settings->lpstrFileTitle, nullptr);
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
            onButton_LoadProfile_clicked(fixture.window, 0, L"ignored", &fixture.store, &fixture.profiles);
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
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
}

// The main window uninitialises COM when it is closed, and the dialog, which is the shell's, lets that in.
TEST(ProfileLoading, HoldsComWhileTheOpenDialogIsUp)
{
    ProfileFixture fixture;
    bool held = false;
    const ImportHook<"GetOpenFileNameW", decltype(GetOpenFileNameW)> hook(
        "comdlg32.dll", [&](OPENFILENAMEW*) -> BOOL {
            held = test_support::com_outlives_its_owner();
            return FALSE;
        });
    EXPECT_EQ(onButton_LoadProfile_clicked(fixture.window, 0, nullptr, &fixture.store, &fixture.profiles), 1);
    EXPECT_TRUE(held);
}

TEST(ProfileLoading, DoesNothingWhenTheOpenDialogIsCancelled)
{
    ProfileFixture fixture;
    BoxWatcher boxes;
    Background user([] { test_support::cancel_file_dialog(GetCurrentProcessId()); });
    EXPECT_EQ(onButton_LoadProfile_clicked(fixture.window, 0, nullptr, &fixture.store, &fixture.profiles), 1);
    user.join();
    boxes.expect_no_boxes();
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
}

TEST(ProfileLoading, LoadsTheFileThatIsChosenInTheOpenDialog)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const std::wstring path = fixture.files.file(L"chosen.txt");
    test_support::write_file(path,
                             ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"Chosen").bytes());
    Background user([&] { test_support::choose_file(GetCurrentProcessId(), path); });
    EXPECT_EQ(onButton_LoadProfile_clicked(fixture.window, 0, nullptr, &fixture.store, &fixture.profiles), 1);
    user.join();
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"Chosen"});
    wchar_t temporary[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temporary);
    SetCurrentDirectoryW(temporary); // the dialog has gone to the folder of the file
}
