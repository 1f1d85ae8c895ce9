// The Modify Cell window's layout as a function of the screen size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "sources/win32/pixel_rect.h"

// The controls by identifier; also the Tab order.
enum ModifyCellControl : unsigned {
    MODIFY_CELL_X,
    MODIFY_CELL_Y,
    MODIFY_CELL_WIDTH,
    MODIFY_CELL_HEIGHT,
    MODIFY_CELL_OK,
    MODIFY_CELL_CANCEL,
    MODIFY_CELL_CONTROLS // how many
};

// The first four controls are the edit boxes, each with a label.
inline constexpr std::size_t kModifyCell_edits = 4;

// Where the window's controls and labels are.
struct ModifyCellLayout {
    std::int32_t button_width; // of buttons and edit boxes
    std::int32_t button_height;
    std::array<PixelRect, MODIFY_CELL_CONTROLS> controls; // by identifier, client coordinates
    std::array<PixelRect, kModifyCell_edits> labels;      // of the edit boxes, same order
};

// The outer size of the window in pixels.
std::int32_t modify_cell_width(std::int32_t screen_width);
std::int32_t modify_cell_height(std::int32_t screen_height);

// Every rectangle of the window, in pixels.
ModifyCellLayout compute_modify_cell_layout(std::int32_t screen_width, std::int32_t screen_height);
