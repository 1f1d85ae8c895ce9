// Everything that can go wrong in the main window's layout and painting.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
// Quirk: text and title are handed over as bytes; users compare reports between versions.
inline constexpr ErrorRow kMainSizeInput{
    .source = &kSource_layout_windows, .site = 1491, .handler = 1713, .function = "on_WM_SIZE",
    .layout = ErrorLayout::SPACED,
    .detail = "incorrect input:\nhwnd_MW = %p, pSTR_GeomLt = %p, hWndBTN00 = %p, hWndBTN02 = %p",
    .result = kBadInput, .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
// Quirk: the text names a function draw_arrows, which there is not; users compare reports between versions.
inline constexpr ErrorRow kDrawMainInput{
    .source = &kSource_layout_windows, .site = 3552, .handler = 3560, .function = "draw_MainWindow",
    .layout = ErrorLayout::INLINE,
    .detail = "incorrect input parameters, func draw_arrows()\nINPUT PARAMETERS:\n"
              "hwnd_MW = %p, hdc_MW = %p, pSTR_GeomLt = %p, hFont_buttons = %p\npLoadedProfiles_STR = %p",
    .result = kBadInput};
// clang-format on
