// Fonts that fit.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

// The one font of the program, as handed to vex_CreateFont.
inline constexpr char kFontFace[] = "Times New Roman";
inline constexpr std::uint8_t kFontPitchAndFamily = FF_ROMAN;
inline constexpr std::uint32_t kFontWeight_normal = FW_NORMAL;
inline constexpr std::uint32_t kFontWeight_bold = FW_BOLD;
inline constexpr std::int32_t kFontHeight_default = 0; // the system chooses

// Makes a font `height` pixels high; 0 is the default height, and a negative number cast to unsigned reaches
// the system as the negative number that it was. The caller deletes it; null when the system makes none. A
// null face name shows an error box and makes a font without face name.
// Quirk: the 8-bit face name is laid into the wide one unconverted, so no face has that name and the font
// mapper chooses a serif TrueType face; every font size is found with it.
HFONT vex_CreateFont(std::uint32_t height, std::uint32_t weight, std::uint8_t italic, std::uint8_t underline,
                     std::uint8_t strike_out, std::uint8_t pitch_and_family, const char* pcTypeFaceName);

// The bold font of the program's controls, `height` pixels high. The caller deletes it.
HFONT create_control_font(std::int32_t height);

// The largest font height whose single line is at most `hREC` pixels high; 0 when even a font of height 1 is
// higher. -1 after an error box for a null context or a limit below 1.
std::int32_t FindFontSize(HDC hdc, std::int32_t hREC);

// The largest font height, at most that of FindFontSize, at which `ptc_Text` is at most `wREC` pixels wide; 1
// when none is. -1 after an error box for a null context or text, a height limit below 1 or a width limit of
// 0.
std::int32_t FindFontSize_fit_H_and_W(HDC hdc, const wchar_t* ptc_Text, std::int32_t hREC, std::int32_t wREC);

// The font height for the text of a button of `window` of that size in pixels: what FindFontSize_fit_H_and_W
// finds for 0.85 of the height and 0.8 of the width, its -1 included. None when the window gives no device
// context.
std::optional<std::int32_t> find_button_font_size(HWND window, const wchar_t* text,
                                                  std::int32_t button_height, std::int32_t button_width);
