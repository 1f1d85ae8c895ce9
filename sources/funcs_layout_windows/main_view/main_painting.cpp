#include "sources/funcs_layout_windows/main_view/main_painting.h"

#include <array>
#include <cstdio>

#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/funcs_layout_windows/drawing/fonts.h"
#include "sources/funcs_layout_windows/main_view/main_view_errors.h"
#include "sources/win32/controls.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/owners/gdi_object.h"

namespace
{

constexpr int kAxisWidth = 3;

void fill_arrow_head(HDC hdc, const std::array<POINT, 3>& corners)
{
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Polygon(hdc, corners.data(), static_cast<int>(corners.size()));
}

void draw_axes(HDC hdc, const STR_GeomLt* geometry)
{
    const std::int32_t g = geometry->i_gap;
    const PixelPoint origin = geometry->pt_axis_origin;

    const std::int32_t y_end = origin.y + geometry->i_y_axis_length;
    vex_DrawLine(hdc, origin.x, origin.y, origin.x, y_end);
    fill_arrow_head(hdc, {{{origin.x - g, y_end - g}, {origin.x, y_end}, {origin.x + g, y_end - g}}});

    const std::int32_t x_end = origin.x + geometry->i_x_axis_length;
    vex_DrawLine(hdc, origin.x, origin.y, x_end, origin.y);
    fill_arrow_head(hdc, {{{x_end - g, origin.y - g}, {x_end, origin.y}, {x_end - g, origin.y + g}}});
}

void draw_axis_label(HDC hdc, const wchar_t* text, PixelPoint corner, std::int32_t side)
{
    RECT square = to_RECT({.x = corner.x, .y = corner.y, .height = side, .width = side});
    DrawTextW(hdc, text, -1, &square, DT_SINGLELINE | DT_VCENTER);
}

void draw_axis_labels(HDC hdc, STR_GeomLt* geometry)
{
    geometry->i_label_font_size = 2 * geometry->i_font_size;
    const Font font(create_control_font(geometry->i_label_font_size));
    const SavedDC saved(hdc);
    SelectObject(hdc, font.get());
    SetBkMode(hdc, TRANSPARENT);
    const std::int32_t side = 4 * geometry->i_font_size;
    draw_axis_label(hdc, L"Y", geometry->pt_label_Y, side);
    draw_axis_label(hdc, L"X", geometry->pt_label_X, side);
}

void draw_list_labels(HDC hdc, const STR_GeomLt* geometry, HFONT font)
{
    SelectObject(hdc, font);
    SetBkMode(hdc, TRANSPARENT);
    RECT profile = to_RECT(geometry->rect_label_Profile);
    DrawTextW(hdc, kLabel_Profile, -1, &profile, DT_WORDBREAK | DT_VCENTER);
    RECT action = to_RECT(geometry->rect_label_Action);
    DrawTextW(hdc, kLabel_Action, -1, &action, DT_WORDBREAK | DT_VCENTER);
}

} // namespace

std::int32_t draw_MainWindow(HWND hwnd_MW, HDC hdc_MW, STR_GeomLt* pSTR_GeomLt, HFONT hFont_buttons,
                             const LoadedProfiles_STR* pLoadedProfiles_STR)
{
    if (hwnd_MW == nullptr || hdc_MW == nullptr || pSTR_GeomLt == nullptr || hFont_buttons == nullptr ||
        pLoadedProfiles_STR == nullptr)
        return report<kDrawMainInput>(hwnd_MW, hdc_MW, pSTR_GeomLt, hFont_buttons, pLoadedProfiles_STR);

    // Quirk: the count's text is made but not drawn; kept so that the window looks the same in every version.
    std::array<wchar_t, 25> count_text{};
    _snwprintf(count_text.data(), count_text.size() - 1, L"Profiles loaded: %.2u",
               pLoadedProfiles_STR->uiN_loaded_prfls);

    const Pen axis_pen(CreatePen(PS_SOLID, kAxisWidth, RGB(0, 0, 0)));
    const SavedDC saved(hdc_MW);
    SelectObject(hdc_MW, axis_pen.get());
    draw_axes(hdc_MW, pSTR_GeomLt);
    draw_axis_labels(hdc_MW, pSTR_GeomLt);
    for (const PixelRect& rect : pSTR_GeomLt->arr1D_rect_miniatures)
        draw_wnd_frame(hwnd_MW, hdc_MW, rect.x, rect.y, static_cast<std::uint32_t>(rect.height),
                       static_cast<std::uint32_t>(rect.width));
    draw_list_labels(hdc_MW, pSTR_GeomLt, hFont_buttons);
    return 1;
}
