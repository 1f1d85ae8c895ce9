// The texts in the cells of a list view.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

// Reads the text of a cell, cut off where `text` ends with its closing zero.
void read_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text);

// Shows the zero-terminated `text` in a cell. Nothing happens when there is no such cell.
void set_cell_text(HWND list, std::uint32_t row, int column, std::span<wchar_t> text);
