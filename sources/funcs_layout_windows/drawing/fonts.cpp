#include "sources/funcs_layout_windows/drawing/fonts.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "errors/bytes_as_wide.h"
#include "sources/funcs_layout_windows/drawing/drawing_errors.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/owners/gdi_object.h"
#include "sources/win32/pixel_rect.h"

namespace
{

// Quirk: the probe text is 8-bit bytes handed over as so many wide characters; only its height matters.
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

} // namespace

HFONT vex_CreateFont(std::uint32_t height, std::uint32_t weight, std::uint8_t italic, std::uint8_t underline,
                     std::uint8_t strike_out, std::uint8_t pitch_and_family, const char* pcTypeFaceName)
{
    if (pcTypeFaceName == nullptr)
        report<kCreateFontNullFace>(pcTypeFaceName);

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
        return report<kFindFontSizeInput>(hdc, hREC);
    for (std::int32_t size = 1;; ++size) {
        const TextSize text = measure_text(hdc, size, kProbe.data(), kProbe_units);
        // A font that cannot be measured ends the search as one that is too high does.
        if (!text.measured || text.height > hREC)
            return size - 1;
        if (text.height == hREC)
            return size;
    }
}

std::int32_t FindFontSize_fit_H_and_W(HDC hdc, const wchar_t* ptc_Text, std::int32_t hREC, std::int32_t wREC)
{
    if (hdc == nullptr || hREC < 1 || wREC == 0 || ptc_Text == nullptr)
        return report<kFitFontSizeInput>(hdc, hREC, wREC, ptc_Text);
    std::int32_t size = FindFontSize(hdc, hREC);
    if (size == kBadInput)
        return kBadInput;
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
