#pragma once

#include <windows.h>

#include <objbase.h>

#include <gtest/gtest.h>

#include "sources/main_prg/main_window.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"

// What is there after the creation of a main window that could not make everything.

namespace main_tests
{

// Counts the calls that start COM on this thread, and answers them with the result given unless that is S_OK.
class ComStart
{
public:
    explicit ComStart(HRESULT result = S_OK) : result_(result) {}
    ComStart(const ComStart&) = delete;
    ComStart& operator=(const ComStart&) = delete;

    int calls = 0;

private:
    HRESULT result_;
    test_support::ImportHook<"CoInitializeEx", decltype(CoInitializeEx)> hook_{
        "ole32.dll", [this](void* reserved, DWORD model) -> HRESULT {
            EXPECT_EQ(reserved, nullptr);
            EXPECT_EQ(model, 2u);
            ++calls;
            return result_ == S_OK ? hook_.call_original(reserved, model) : result_;
        }};
};

// That all five controls but one are there and share a font, or have none.
inline void expect_controls(const MainWindowFixture& main, bool with_font, int missing = 0)
{
    ASSERT_NE(main.window, nullptr);
    EXPECT_EQ(main_window.hFont_controls != nullptr, with_font);
    for (const int id : {1, 2, 4, 5, 6}) {
        SCOPED_TRACE(id);
        const HWND control = main.control(id);
        EXPECT_EQ(control == nullptr, id == missing);
        if (control != nullptr) {
            EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)),
                      main_window.hFont_controls);
        }
    }
    EXPECT_EQ(main_window.hWndBTN00, main.control(main_control::kScan));
    EXPECT_EQ(main_window.hWndBTN_LoadProfile, main.control(main_control::kLoadProfile));
    EXPECT_EQ(main_window.hwnd_CB_Profile, main.control(main_control::kProfile));
    EXPECT_EQ(main_window.hwnd_CB_Action, main.control(main_control::kAction));
    EXPECT_EQ(main_window.hWndBTN_Apply, main.control(main_control::kApply));
}

inline void expect_profile_list_set_up()
{
    EXPECT_EQ(main_window.CB_Profile.hwnd_CB, main_window.hwnd_CB_Profile);
    EXPECT_EQ(main_window.CB_Profile.uiCtlID, 4u);
    EXPECT_EQ(main_window.CB_Profile.uiMax_N_strs, 32u);
    EXPECT_EQ(main_window.CB_Profile.uiN_strs, 0u);
}

} // namespace main_tests
