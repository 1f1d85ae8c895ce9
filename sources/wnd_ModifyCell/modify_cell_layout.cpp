#include "sources/wnd_ModifyCell/modify_cell_layout.h"

namespace
{

constexpr float kButtonWidth_of_screen = 0.045F;
constexpr float kButtonHeight_of_screen = 0.025F;
constexpr double kWidth_of_screen = 0.135;
constexpr double kHeight_of_screen = 0.15;

// Added to those shares, in pixels.
constexpr double kWidth_fixed = 35.0;
constexpr double kHeight_fixed = 25.0;
constexpr double kButtonsRight_fixed = 30.0;

constexpr std::int32_t kHeightLabel_extra = 5;

// A fixed part and a share of the screen, truncated once, after the sum.
std::int32_t sum_truncated(double fixed, double fraction, std::int32_t length)
{
    return static_cast<std::int32_t>(fixed + fraction * static_cast<double>(length));
}

} // namespace

std::int32_t modify_cell_width(std::int32_t screen_width)
{
    return sum_truncated(kWidth_fixed, kWidth_of_screen, screen_width);
}

std::int32_t modify_cell_height(std::int32_t screen_height)
{
    return sum_truncated(kHeight_fixed, kHeight_of_screen, screen_height);
}

ModifyCellLayout compute_modify_cell_layout(std::int32_t screen_width, std::int32_t screen_height)
{
    ModifyCellLayout layout{};
    const std::int32_t bw = layout.button_width = truncated_product(kButtonWidth_of_screen, screen_width);
    const std::int32_t bh = layout.button_height = truncated_product(kButtonHeight_of_screen, screen_height);
    const std::int32_t m = kMargin;
    const std::int32_t buttons_right = sum_truncated(kButtonsRight_fixed, kWidth_of_screen, screen_width) - m;

    for (std::int32_t row = 0; row < static_cast<std::int32_t>(kModifyCell_edits); ++row) {
        const std::int32_t top = m + row * (bh + m);
        const auto i = static_cast<std::size_t>(row);
        layout.controls[i] = {.x = bw + 3 * m, .y = top, .height = bh, .width = bw};
        layout.labels[i] = {.x = m, .y = top, .height = bh, .width = bw};
    }
    layout.labels[MODIFY_CELL_HEIGHT].height += kHeightLabel_extra;

    layout.controls[MODIFY_CELL_OK] = {.x = buttons_right - bw, .y = m, .height = bh, .width = bw};
    layout.controls[MODIFY_CELL_CANCEL] = {
        .x = buttons_right - bw, .y = m + bh + m, .height = bh, .width = bw};
    return layout;
}
