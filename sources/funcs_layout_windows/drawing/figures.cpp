#include "sources/funcs_layout_windows/drawing/figures.h"

#include <array>

#include "sources/funcs_layout_windows/drawing/drawing_errors.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/owners/gdi_object.h"

namespace
{

constexpr COLORREF kFrame_black = RGB(0, 0, 0);
constexpr COLORREF kFrame_white = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kTitleBar_blue = RGB(0x5B, 0xAF, 0xFF);
constexpr COLORREF kCloseBox_red = RGB(0xFF, 0, 0);

void draw_rectangle(HDC hdc, HGDIOBJ brush, int left, int top, int right, int bottom)
{
    SelectObject(hdc, brush);
    Rectangle(hdc, left, top, right, bottom);
}

} // namespace

std::int32_t vex_DrawLine(HDC hdc, std::int32_t x0, std::int32_t y0, std::int32_t x1, std::int32_t y1)
{
    if (hdc == nullptr || (x0 == x1 && y0 == y1))
        return report<kDrawLineInput>(hdc, x0, y0, x1, y1);
    MoveToEx(hdc, x0, y0, nullptr);
    LineTo(hdc, x1, y1);
    return 1;
}

std::int32_t draw_wnd_frame(HWND hwnd_MW, HDC hdc_MW, std::int32_t x, std::int32_t y, std::uint32_t h,
                            std::uint32_t w)
{
    if (hwnd_MW == nullptr || hdc_MW == nullptr || h == 0 || w == 0)
        return report<kDrawFrameInput>(hwnd_MW, hdc_MW, h, w, kBadInput);

    const Pen black(CreatePen(PS_SOLID, 1, kFrame_black));
    // Quirk: this pen is never selected; kept so that the drawing makes the same calls in every version.
    const Pen white(CreatePen(PS_SOLID, 2, kFrame_white));
    const Brush blue(CreateSolidBrush(kTitleBar_blue));
    const Brush red(CreateSolidBrush(kCloseBox_red));
    const HGDIOBJ hollow = GetStockObject(NULL_BRUSH);
    const std::int32_t right = x + static_cast<std::int32_t>(w);
    const std::int32_t bottom = y + static_cast<std::int32_t>(h);

    const SavedDC saved(hdc_MW);
    SelectObject(hdc_MW, black.get());
    SetBkMode(hdc_MW, TRANSPARENT);
    draw_rectangle(hdc_MW, hollow, x, y, right, bottom);
    draw_rectangle(hdc_MW, blue.get(), x, y, right, y + 20);
    draw_rectangle(hdc_MW, red.get(), right - 15, y + 5, right - 5, y + 15);
    draw_rectangle(hdc_MW, hollow, right - 30, y + 5, right - 20, y + 15);
    draw_rectangle(hdc_MW, hollow, right - 45, y + 5, right - 35, y + 15);
    return 1;
}

void fill_background(HWND hwnd, HDC hdc)
{
    RECT client{};
    GetClientRect(hwnd, &client);
    std::array<TRIVERTEX, 2> corners{{
        {.x = client.left, .y = client.top, .Red = 0x1600, .Green = 0xFA00, .Blue = 0xFA00, .Alpha = 0},
        {.x = client.right, .y = client.bottom, .Red = 0xBB00, .Green = 0xFD00, .Blue = 0xFD00, .Alpha = 0},
    }};
    GRADIENT_RECT whole{.UpperLeft = 0, .LowerRight = 1};
    // GradientFill of gdi32: msimg32, which has it too, would be looked for beside the program first.
    GdiGradientFill(hdc, corners.data(), static_cast<ULONG>(corners.size()), &whole, 1, GRADIENT_FILL_RECT_V);
}
