#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace test_support
{

// Reads and works a list view in report mode, of this or of another process. Rows and columns count
// from 0. Throws a Failure when the list does not answer.
class RemoteListView
{
public:
    explicit RemoteListView(HWND list);

    HWND window() const { return list_; }

    int row_count() const;
    std::wstring cell(int row, int column) const;
    std::vector<std::wstring> row(int row) const;
    // The first row whose cell in that column is exactly this text.
    std::optional<int> find_row(const std::wstring& text, int column = 1) const;

    bool is_ticked(int row) const;
    // Changes the row's state as a program would.
    void set_ticked(int row, bool ticked) const;
    // Clicks the row's check box with the mouse.
    void click_check_box(int row) const;

    bool is_selected(int row) const;

    int column_count() const;
    std::wstring heading(int column) const;
    int column_width(int column) const;
    DWORD extended_style() const;

    // The cell's rectangle and its centre on the screen; the row is scrolled into view first.
    RECT cell_rectangle(int row, int column) const;
    POINT cell_centre(int row, int column) const;

private:
    HWND list_;
};

} // namespace test_support
