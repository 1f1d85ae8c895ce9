// Notices of scanning: boxes that report no failure.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kScanNothingFound{
    .source = &kSource_layout_windows, .site = 1049, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::PLAIN,
    .detail = "Number of found valid windows = %d\nMax length of path to valid windows = %d",
    .result = 1, .title = "info"};
// clang-format on
