// Notices of Move: boxes that report no failure.
#pragma once

#include "errors/error_box.h"
#include "sources/wnd_ScanListView/saving/scan_list_error_source.h"

// clang-format off
inline constexpr ErrorRow kMoveNothingTicked{
    .source = &kSource_scan_list, .site = 1102, .function = "onButton_Move",
    .layout = ErrorLayout::PLAIN,
    .detail = "There are no selected items.\nSelect any item, change its position (or/and dimensions)\n"
              "and then press button Move.",
    .result = 1, .title = "info"};
// clang-format on
