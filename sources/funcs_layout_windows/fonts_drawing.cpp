#include "sources/funcs_layout_windows/fonts_drawing.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "sources/funcs_layout_windows/layout_windows_errors.h"
#include "sources/funcs_layout_windows/pixel_rect.h"
#include "sources/win32/bytes_as_wide.h"
#include "sources/win32/device_contexts.h"
#include "sources/win32/gdi_object.h"

namespace
{

// The text whose line height is measured: 8-bit bytes handed over unconverted, and as many wide characters of
// the buffer as the text has bytes. Only the height matters.
constexpr int kProbe_units = 6;
constexpr std::array<wchar_t, 8> probe_text()
{
    std::array<wchar_t, 8> probe{};
    const auto bytes = bytes_as_wide("Hello!");
    std::copy(bytes.begin(), bytes.end(), probe.begin());
    return probe;
}
constexpr std::array<wchar_t, 8> kProbe = probe_text();

constexpr double kTextHeight_of_button = 0.85;
constexpr double kTextWidth_of_button = 0.8;

struct TextSize {
    bool measured; // false when the font could not be made or the text not be measured
    std::int32_t width;
    std::int32_t height;
};

// The size in pixels of the first `length_units` units of `text` (-1: all) on one line in a plain font of
// that height.
TextSize measure_text(HDC hdc, std::int32_t font_height, const wchar_t* text, int length_units)
{
    const Font font(vex_CreateFont(static_cast<std::uint32_t>(font_height), kFontWeight_normal, 0, 0, 0,
                                   kFontPitchAndFamily, kFontFace));
    if (font.get() == nullptr)
        return {};
    const SavedDC saved(hdc); // restored before the font is deleted
    SelectObject(hdc, font.get());
    RECT rect{};
    const int height = DrawTextW(hdc, text, length_units, &rect, DT_CALCRECT | DT_SINGLELINE);
    return {.measured = height != 0, .width = rect.right - rect.left, .height = rect.bottom - rect.top};
}

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

HFONT vex_CreateFont(std::uint32_t height, std::uint32_t weight, std::uint8_t italic, std::uint8_t underline,
                     std::uint8_t strike_out, std::uint8_t pitch_and_family, const char* pcTypeFaceName)
{
    if (pcTypeFaceName == nullptr)
        report(errors_layout_windows, SITE_CREATE_FONT_NULL_FACE, pcTypeFaceName);

    LOGFONTW description{};
    description.lfHeight = static_cast<LONG>(height);
    description.lfWeight = static_cast<LONG>(weight);
    description.lfItalic = italic;
    description.lfUnderline = underline;
    description.lfStrikeOut = strike_out;
    description.lfCharSet = ANSI_CHARSET;
    description.lfOutPrecision = OUT_TT_PRECIS;
    description.lfClipPrecision = CLIP_CHARACTER_PRECIS;
    description.lfQuality = DEFAULT_QUALITY;
    description.lfPitchAndFamily = pitch_and_family;
    if (pcTypeFaceName != nullptr)
        lay_bytes_as_wide(pcTypeFaceName, description.lfFaceName);
    return CreateFontIndirectW(&description);
}

HFONT create_control_font(std::int32_t height)
{
    return vex_CreateFont(static_cast<std::uint32_t>(height), kFontWeight_bold, 0, 0, 0, kFontPitchAndFamily,
                          kFontFace);
}

std::int32_t FindFontSize(HDC hdc, std::int32_t hREC)
{
    if (hdc == nullptr || hREC < 1)
        return report(errors_layout_windows, SITE_FIND_FONT_SIZE_INPUT, hdc, hREC);
    for (std::int32_t size = 1;; ++size) {
        const TextSize text = measure_text(hdc, size, kProbe.data(), kProbe_units);
        // A font that cannot be measured ends the search like one that is too high.
        if (!text.measured || text.height > hREC)
            return size - 1;
        if (text.height == hREC)
            return size;
    }
}

std::int32_t FindFontSize_fit_H_and_W(HDC hdc, const wchar_t* ptc_Text, std::int32_t hREC, std::int32_t wREC)
{
    if (hdc == nullptr || hREC < 1 || wREC == 0 || ptc_Text == nullptr)
        return report(errors_layout_windows, SITE_FIT_FONT_SIZE_INPUT, hdc, hREC, wREC, ptc_Text);
    std::int32_t size = FindFontSize(hdc, hREC);
    if (size == kDrawing_bad_input)
        return kDrawing_bad_input;
    // Size 0 asks for a font of default height.
    while (measure_text(hdc, size, ptc_Text, -1).width > wREC) {
        --size;
        if (size < 1)
            return 1;
    }
    return size;
}

std::optional<std::int32_t> find_button_font_size(HWND window, const wchar_t* text,
                                                  std::int32_t button_height, std::int32_t button_width)
{
    const WindowDC dc(window);
    if (dc.get() == nullptr)
        return std::nullopt;
    return FindFontSize_fit_H_and_W(dc.get(), text, truncated_product(kTextHeight_of_button, button_height),
                                    truncated_product(kTextWidth_of_button, button_width));
}

std::int32_t vex_DrawLine(HDC hdc, std::int32_t x0, std::int32_t y0, std::int32_t x1, std::int32_t y1)
{
    if (hdc == nullptr || (x0 == x1 && y0 == y1))
        return report(errors_layout_windows, SITE_DRAW_LINE_INPUT, hdc, x0, y0, x1, y1);
    MoveToEx(hdc, x0, y0, nullptr);
    LineTo(hdc, x1, y1);
    return 1;
}

std::int32_t draw_wnd_frame(HWND hwnd_MW, HDC hdc_MW, std::int32_t x, std::int32_t y, std::uint32_t h,
                            std::uint32_t w)
{
    if (hwnd_MW == nullptr || hdc_MW == nullptr || h == 0 || w == 0)
        return report(errors_layout_windows, SITE_DRAW_FRAME_INPUT, hwnd_MW, hdc_MW, h, w,
                      kDrawing_bad_input);

    const Pen black(CreatePen(PS_SOLID, 1, kFrame_black));
    const Pen white(CreatePen(PS_SOLID, 2, kFrame_white)); // never selected
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
    GradientFill(hdc, corners.data(), static_cast<ULONG>(corners.size()), &whole, 1, GRADIENT_FILL_RECT_V);
}
