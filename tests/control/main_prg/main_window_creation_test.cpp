#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/control/fixtures/screen_of_size.h"
#include "tests/control/main_prg/main_creation_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

// What the main window cannot make of itself, and what is there all the same.

using namespace test_support;
using main_tests::ComStart;
using main_tests::expect_controls;
using main_tests::expect_profile_list_set_up;
using main_tests::MainWindowFixture;

namespace
{

constexpr wchar_t kFile[] = L"sources/main_prg";

} // namespace

TEST(MainWindowCreation, ReportsEveryControlThatCannotBeMade)
{
    const wchar_t* const combos =
        L"error while creating ComboBox Profile | ComboBox Action | Button Apply, main window "
        L"WndProc()";
    const struct {
        int id;
        const wchar_t* text;
        bool is_owned;
    } controls[] = {{1, L"err, hWndBTN00=NULL, func WndProc", true},
                    {2, L"error, hWndBTN_LoadProfile==NULL, func WndProc", true},
                    {4, combos, false},
                    {5, combos, false},
                    {6, combos, false}};
    int call = 1; // of the main window itself
    for (const auto& control : controls) {
        SCOPED_TRACE(control.id);
        main_window = {};
        const FailingImport<"CreateWindowExW", decltype(CreateWindowExW)> fails("user32.dll", ++call, nullptr,
                                                                                8);
        const ComStart com;
        const BoxWatcher boxes;
        const MainWindowFixture main;
        std::vector<ExpectedBox> expected{{L"error", control.text}};
        if (control.id == 5) // An Action list that is not there cannot be filled either.
            expected.push_back(
                {L"error",
                 handler_first_text({L"sources/funcs_layout_windows", L"CB_Action_init", 10044, 10121},
                                    L"error, incorrect input parameters:\nhwnd_CB_Action = "
                                    L"0000000000000000, pCB_Action_mng_STR = " +
                                        pointer(&main_window.CB_Action))});
        boxes.expect_boxes(expected);
        EXPECT_EQ(boxes.boxes().at(0).owner, control.is_owned ? main.window : nullptr);
        EXPECT_EQ(fails.calls(), 6);
        // It goes on with what it has.
        expect_controls(main, true, control.id);
        expect_profile_list_set_up();
        EXPECT_EQ(main_window.CB_Action.hwnd_CB, main.control(main_control::kAction));
        EXPECT_EQ(com.calls, 1);
    }
}

TEST(MainWindowCreation, GoesOnWithoutAFontWhenThereIsNoDeviceContext)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 1, nullptr, 8);
    const ComStart com;
    const BoxWatcher boxes;
    const MainWindowFixture main;
    boxes.expect_boxes(
        {{L"error", compact_text({kFile, L"WndProc", 563, 1228}, L"ERROR <- GetDC() of Main Window")}});
    expect_controls(main, false);
    // Creation has ended there.
    EXPECT_EQ(main_window.CB_Profile.hwnd_CB, nullptr);
    EXPECT_EQ(com.calls, 0);
}

TEST(MainWindowCreation, GoesOnWithoutAFontWhenItCannotBeMade)
{
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const ComStart com;
    const BoxWatcher boxes;
    const MainWindowFixture main;
    boxes.expect_boxes({{L"error", L"error <- vex_CreateFont while WM_CREATE"}});
    EXPECT_EQ(boxes.boxes()[0].owner, nullptr);
    expect_controls(main, false);
    expect_profile_list_set_up();
    EXPECT_EQ(com.calls, 1);
}

TEST(MainWindowCreation, ReportsOnlyTheThreeResultsThatMeanNoCom)
{
    for (const HRESULT result : {E_INVALIDARG, E_OUTOFMEMORY, E_UNEXPECTED, RPC_E_CHANGED_MODE, S_FALSE}) {
        SCOPED_TRACE(result);
        main_window = {};
        const ComStart com(result);
        const BoxWatcher boxes;
        const MainWindowFixture main;
        if (result == RPC_E_CHANGED_MODE || result == S_FALSE)
            boxes.expect_no_boxes();
        else
            boxes.expect_boxes({{L"error", L"error <- CoInitializeEx(), impossible init COM"}});
        expect_controls(main, true);
        expect_profile_list_set_up();
        EXPECT_EQ(com.calls, 1);
    }
}

TEST(MainWindowCreation, KeepsItsButtonsWhenTheirTextDoesNotFit)
{
    const screen_tests::TinyScreen screen;
    const ComStart com;
    const BoxWatcher boxes;
    const MainWindowFixture main;
    screen_tests::expect_no_room_and(
        boxes, compact_text({kFile, L"WndProc", 580, 1248}, L"ERROR while get font size for buttons"));
    expect_controls(main, false);
    // Creation has ended there.
    EXPECT_EQ(main_window.CB_Profile.hwnd_CB, nullptr);
    EXPECT_EQ(com.calls, 0);
}
