#include "sources/wnd_ScanListView/scan_list_layout.h"

namespace
{

constexpr float kButtonWidth_of_screen = 0.09F;
constexpr float kButtonHeight_of_screen = 0.03F;
constexpr std::array<double, kScanList_columns> kColumnWidth_of_client{0.088, 0.56,  0.088,
                                                                       0.088, 0.088, 0.088};

} // namespace

std::int32_t scan_list_button_width(std::int32_t screen_width)
{
    return truncated_product(kButtonWidth_of_screen, screen_width);
}

std::int32_t scan_list_button_height(std::int32_t screen_height)
{
    return truncated_product(kButtonHeight_of_screen, screen_height);
}

std::int32_t scan_list_column_width(std::size_t column, std::int32_t client_width)
{
    return truncated_product(kColumnWidth_of_client[column], client_width);
}

ScanListLayout compute_scan_list_layout(std::int32_t client_width, std::int32_t client_height,
                                        std::int32_t screen_width, std::int32_t screen_height)
{
    const std::int32_t m = kMargin;
    const std::int32_t bw = scan_list_button_width(screen_width);
    const std::int32_t bh = scan_list_button_height(screen_height);
    return {.move = {.x = m, .y = m, .height = bh, .width = bw},
            .create_profile = {.x = bw + 2 * m, .y = m, .height = bh, .width = bw},
            .list = {.x = m,
                     .y = bh + 2 * m,
                     .height = client_height - (bh + 2 * m) - m,
                     .width = client_width - 2 * m}};
}
