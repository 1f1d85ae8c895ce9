#include "sources/wnd_ProfileName/profile_name_layout.h"

namespace
{

constexpr float kWidth_of_screen = 0.1875F;
constexpr float kHeight_of_screen = 0.175F;
constexpr float kButtonWidth_of_screen = 0.045F;
constexpr float kButtonHeight_of_screen = 0.025F;
constexpr float kEditWidth_of_screen = 0.126F;
constexpr float kEditHeight_of_screen = 0.03F;
constexpr float kEditTop_of_edit_height = 1.5F;
constexpr float kLabelHeight_of_screen = 0.03F;
constexpr double kLabelWidth_of_screen = 1.8 * 0.126;

} // namespace

std::int32_t profile_name_width(std::int32_t screen_width)
{
    return truncated_product(kWidth_of_screen, screen_width);
}

std::int32_t profile_name_height(std::int32_t screen_height)
{
    return truncated_product(kHeight_of_screen, screen_height);
}

ProfileNameLayout compute_profile_name_layout(std::int32_t outer_width, std::int32_t screen_width,
                                              std::int32_t screen_height)
{
    const std::int32_t m = kMargin;
    const std::int32_t bw = truncated_product(kButtonWidth_of_screen, screen_width);
    const std::int32_t bh = truncated_product(kButtonHeight_of_screen, screen_height);
    const std::int32_t eh = truncated_product(kEditHeight_of_screen, screen_height);
    const std::int32_t lh = truncated_product(kLabelHeight_of_screen, screen_height);

    ProfileNameLayout layout{};
    layout.ok = {.x = outer_width - bw - 2 * m, .y = m, .height = bh, .width = bw};
    layout.cancel = {.x = outer_width - bw - 2 * m, .y = m + bh + m, .height = bh, .width = bw};
    layout.edit = {.x = m,
                   .y = truncated_product(kEditTop_of_edit_height, eh),
                   .height = eh,
                   .width = truncated_product(kEditWidth_of_screen, screen_width)};
    layout.label = {.x = m,
                    .y = layout.edit.y - lh - m,
                    .height = lh,
                    .width = truncated_product(kLabelWidth_of_screen, screen_width)};
    return layout;
}
