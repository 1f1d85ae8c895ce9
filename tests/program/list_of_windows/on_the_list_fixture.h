#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/basics/text.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

namespace on_the_list
{

using namespace test_support;

using Cells = std::vector<std::wstring>;

using namespace cell_control;

// One program on the list, its window and its row.
class OnTheListFixture : public testing::Test
{
protected:
    OnTheListFixture()
    {
        fixtures_.add(L"listed", {.title = L"Listed", .x = 200, .y = 150, .width = 400, .height = 300});
        window_ = fixtures_.start(L"listed");
        rescan();
    }

    void rescan()
    {
        wendlow_.scan();
        row_ = wendlow_.row_of(L"Listed");
    }

    // Opens Modify Cell over the X of the row.
    void open() { cell_ = wendlow_.open_modify_cell(row_, 2); }
    HWND control(int id) const { return GetDlgItem(cell_, id); }
    // Replaces the text of an edit box as a user does, by a double click and typing.
    void type_into(int id, const std::wstring& text)
    {
        bring_to_front(cell_);
        double_click(centre_of(control(id)));
        type_text(text);
        wait_until([&] { return text_of(id) == text; }, kShortWait,
                   "the edit box to take " + printable(text));
    }
    std::wstring text_of(int id) const { return test_support::text_of(control(id)); }
    void press_ok()
    {
        click(control(kOk));
        wait_until([&] { return !IsWindow(cell_); }, kShortWait, "Modify Cell to close");
    }
    int focused_control() const
    {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(cell_, nullptr), &info);
        return info.hwndFocus ? GetDlgCtrlID(info.hwndFocus) : -1;
    }
    bool focus_comes_to(int id) const
    {
        return becomes_true([&] { return focused_control() == id; });
    }

    void change(int id, const std::wstring& text)
    {
        open();
        type_into(id, text);
        press_ok();
    }

    // X, Y, Width and Height of the row.
    Cells cells() const
    {
        const Cells row = wendlow_.list_view().row(row_);
        return {row.begin() + 2, row.end()};
    }
    bool comes_to(int x, int y, int width, int height) const
    {
        const RECT place{x, y, x + width, y + height};
        return becomes_true([&] {
            const RECT found = rectangle_of(window_);
            return EqualRect(&found, &place) != FALSE;
        });
    }
    void tick_and_move()
    {
        wendlow_.list_view().click_check_box(row_);
        click(GetDlgItem(wendlow_.list_window(), list_control::kMove));
        wendlow_.wait_until_idle();
    }

    FixturePrograms fixtures_;
    WendlowProcess wendlow_;
    HWND window_ = nullptr;
    HWND cell_ = nullptr;
    int row_ = 0;
};

} // namespace on_the_list
