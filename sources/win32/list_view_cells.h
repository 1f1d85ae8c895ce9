// The cells of a list view, and the check boxes of its rows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

// Reads the text of a cell, cut off where `text` ends with its closing zero.
void read_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text);

// Shows the zero-terminated `text` in a cell. Nothing happens when there is no such cell.
void set_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text);

// True when the check box of a row is ticked. A row without a check box is not.
bool is_row_ticked(HWND list, std::uint32_t row);
