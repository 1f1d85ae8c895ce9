#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/wnd_ModifyCell/modify_cell_applying.h"
#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"
#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"
#include "tests/control/scanning/scan_fixture.h"
#include "tests/support/windows/test_window.h"

namespace modify_cell_tests
{

using scan_tests::Desktop;
using scan_tests::ScanFixture;
using test_support::TestWindow;

using Texts = std::vector<std::wstring>;

// A scan of two windows, and Modify Cell opened for a row of it.
class ModifyCell : public testing::Test
{
protected:
    ModifyCell() { fixture.scan(); }
    ~ModifyCell() override { DestroyWindow(dialog); }

    void open(int row, int column = 2)
    {
        const HitCell_STR cell{row, column};
        SetCursorPos(200, 150);
        dialog = create_wnd_ModifyCell(hwnd_ScanListView, fixture.list().window(), &cell);
    }
    HWND control(int id) const { return GetDlgItem(dialog, id); }
    std::wstring text(int id) const
    {
        wchar_t buffer[400]{};
        GetWindowTextW(control(id), buffer, 400);
        return buffer;
    }
    Texts texts() const { return {text(0), text(1), text(2), text(3)}; }
    void enter(int id, const std::wstring& value) { SetWindowTextW(control(id), value.c_str()); }
    void press(int id)
    {
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, 0), reinterpret_cast<LPARAM>(control(id)));
    }
    // Presses a key in a control.
    LRESULT key(int id, WPARAM code) const { return SendMessageW(control(id), WM_KEYDOWN, code, 0); }
    // As it is after a font that could not be made.
    void expect_system_font_and_no_subclassing() const
    {
        for (int id = 0; id < 6; ++id) {
            EXPECT_EQ(SendMessageW(control(id), WM_GETFONT, 0, 0), 0) << id;
            // No subclassing: Tab does not move the focus.
            SetFocus(control(id));
            key(id, VK_TAB);
            EXPECT_EQ(GetFocus(), control(id));
        }
    }
    Texts cells(int row) const
    {
        const Texts all = fixture.list().row(row);
        return {all.begin() + 2, all.end()};
    }
    static std::string entry(std::uint32_t row)
    {
        const GeomEntry_STR* entry = geometry_entry(&scan_record, row);
        return std::to_string(entry->x) + "," + std::to_string(entry->y) + " " +
               std::to_string(entry->width) + "x" + std::to_string(entry->height);
    }

    ScanFixture fixture;
    TestWindow first{L"First", {10, 50, 310, 250}};
    TestWindow second{L"Second", {-20, 60, 180, 210}};
    Desktop desktop{{first, second}};
    HWND dialog = nullptr;
};

} // namespace modify_cell_tests
