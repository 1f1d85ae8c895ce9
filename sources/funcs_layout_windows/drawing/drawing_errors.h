// Everything that can go wrong in the fonts and the drawing primitives.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kCreateFontNullFace{
    .source = &kSource_layout_windows, .site = 2861, .handler = 2874, .function = "vex_CreateFont",
    .layout = ErrorLayout::INLINE,
    .detail = "incorrect input parameters, func vex_CreateFont()\npcTypeFaceName = %p",
    .result = kBadInput};
inline constexpr ErrorRow kFindFontSizeInput{
    .source = &kSource_layout_windows, .site = 2912, .handler = 2990, .function = "FindFontSize",
    .layout = ErrorLayout::INLINE,
    .detail = "incorrect input parameters, func FindFontSize()\nhdc = %p, hREC = %d",
    .result = kBadInput};
inline constexpr ErrorRow kFitFontSizeInput{
    .source = &kSource_layout_windows, .site = 3024, .handler = 3106, .function = "FindFontSize_fit_H_and_W",
    .layout = ErrorLayout::INLINE,
    .detail = "incorrect input parameters, func FindFontSize_fit_H_and_W()\n"
              "hdc = %p,hREC = %d,wREC = %d,ptc_Text = %p",
    .result = kBadInput};
inline constexpr ErrorRow kDrawLineInput{
    .source = &kSource_layout_windows, .site = 3151, .handler = 3179, .function = "vex_DrawLine",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "incorrect input:\nhdc = %p, x0 = %d, y0 = %d, x1 = %d, y1 = %d",
    .result = kBadInput};
inline constexpr ErrorRow kDrawFrameInput{
    .source = &kSource_layout_windows, .site = 3214, .handler = 3338, .function = "draw_wnd_frame",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "incorrect input:\nhwnd_MW = %p, hdc_MW = %p, h = %u, w = %u\nreturn code : %d",
    .result = kBadInput};
// clang-format on
