#include "sources/funcs_layout_windows/main_view/main_layout.h"

namespace
{

constexpr float kInitialWidth_of_screen = 0.4F;
constexpr float kInitialHeight_of_screen = 0.45F;
constexpr float kButtonHeight_of_screen = 0.035F;
constexpr float kButtonWidth_of_screen = 0.06F;
constexpr float kFrameHeight_of_client = 0.85F;
constexpr float kFrameWidth_of_client = 0.7F;
constexpr double kLineHeight_of_font = 1.2;

std::int32_t bottom_of(const PixelRect& rect)
{
    return rect.y + rect.height;
}

// The column at the right: two buttons, the count line, two labels with their lists, and Apply.
void compute_column(STR_GeomLt* geometry, std::int32_t screen_width, std::int32_t screen_height)
{
    const std::int32_t g = geometry->i_gap;
    const std::int32_t x = g + geometry->rect_frame.width + 5 * g;
    const std::int32_t button_height = truncated_product(geometry->f_Scan_height, screen_height);
    const std::int32_t button_width = truncated_product(geometry->f_Scan_width, screen_width);
    const std::int32_t line_height = truncated_product(kLineHeight_of_font, geometry->i_font_size);
    const std::int32_t line_width = geometry->i_client_width - x - 3 * g;

    geometry->rect_Scan = {.x = x, .y = g, .height = button_height, .width = button_width};
    geometry->rect_LoadProfile = {.x = x,
                                  .y = g + button_height + g,
                                  .height = truncated_product(geometry->f_LoadProfile_height, screen_height),
                                  .width = truncated_product(geometry->f_LoadProfile_width, screen_width)};
    geometry->rect_count_line = {.x = x,
                                 .y = bottom_of(geometry->rect_LoadProfile) + 5 * g,
                                 .height = line_height,
                                 .width = line_width};

    const auto below = [&](const PixelRect& above, std::int32_t height, std::int32_t width) {
        return PixelRect{.x = x, .y = bottom_of(above) + g, .height = height, .width = width};
    };
    // The lists are as high as the buttons, their drop-down parts included.
    geometry->rect_label_Profile = below(geometry->rect_count_line, line_height, line_width);
    geometry->rect_CB_Profile = below(geometry->rect_label_Profile, button_height, line_width);
    geometry->rect_label_Action = below(geometry->rect_CB_Profile, line_height, line_width);
    geometry->rect_CB_Action = below(geometry->rect_label_Action, button_height, line_width);
    geometry->rect_Apply = below(geometry->rect_CB_Action, button_height, button_width);
}

void compute_axes(STR_GeomLt* geometry)
{
    const std::int32_t g = geometry->i_gap;
    const PixelRect& frame = geometry->rect_frame;
    geometry->pt_axis_origin = {.x = 3 * g, .y = 3 * g};
    geometry->i_x_axis_length = frame.width - 4 * g;
    geometry->i_y_axis_length = frame.height - 4 * g;
    geometry->pt_label_Y = {.x = g, .y = frame.height - g};
    geometry->pt_label_X = {.x = frame.width - g, .y = 0};
}

// Five miniature windows in a grid of three by three cells: A and D at the left, B and C two cells high
// beside A and D, E along the bottom.
void compute_miniatures(STR_GeomLt* geometry)
{
    const std::int32_t g = geometry->i_gap;
    const auto cell_width = static_cast<std::int32_t>((geometry->rect_frame.width - 10 * g) / 3.0);
    const auto cell_height = static_cast<std::int32_t>((geometry->rect_frame.height - 10 * g) / 3.0);
    const std::int32_t left = 5 * g;
    const std::int32_t top = 5 * g;
    auto& [a, b, c, d, e] = geometry->arr1D_rect_miniatures;

    a = {.x = left, .y = top, .height = cell_height, .width = cell_width};
    b = {.x = left + cell_width + g, .y = top, .height = 2 * cell_height + g, .width = cell_width};
    c = {.x = b.x + cell_width + g, .y = top, .height = b.height, .width = b.width};
    d = {.x = left, .y = top + cell_height + g, .height = cell_height, .width = cell_width};
    e = {.x = left, .y = d.y + cell_height + g, .height = cell_height, .width = 3 * cell_width + 2 * g};
}

} // namespace

std::int32_t initial_main_width(std::int32_t screen_width)
{
    return truncated_product(kInitialWidth_of_screen, screen_width);
}

std::int32_t initial_main_height(std::int32_t screen_height)
{
    return truncated_product(kInitialHeight_of_screen, screen_height);
}

void set_layout_constants(STR_GeomLt* pSTR_GeomLt)
{
    pSTR_GeomLt->f_initial_width = kInitialWidth_of_screen;
    pSTR_GeomLt->f_initial_height = kInitialHeight_of_screen;
    pSTR_GeomLt->f_Scan_height = kButtonHeight_of_screen;
    pSTR_GeomLt->f_Scan_width = kButtonWidth_of_screen;
    pSTR_GeomLt->f_LoadProfile_height = kButtonHeight_of_screen;
    pSTR_GeomLt->f_LoadProfile_width = kButtonWidth_of_screen;
    pSTR_GeomLt->f_frame_height = kFrameHeight_of_client;
    pSTR_GeomLt->f_frame_width = kFrameWidth_of_client;
    pSTR_GeomLt->i_gap = kMargin;
}

void compute_main_layout(STR_GeomLt* pSTR_GeomLt, std::int32_t screen_width, std::int32_t screen_height)
{
    const std::int32_t g = pSTR_GeomLt->i_gap;
    pSTR_GeomLt->rect_frame = {
        .x = g,
        .y = g,
        .height = truncated_product(pSTR_GeomLt->f_frame_height, pSTR_GeomLt->i_client_height),
        .width = truncated_product(pSTR_GeomLt->f_frame_width, pSTR_GeomLt->i_client_width)};
    compute_column(pSTR_GeomLt, screen_width, screen_height);
    compute_axes(pSTR_GeomLt);
    compute_miniatures(pSTR_GeomLt);
}
