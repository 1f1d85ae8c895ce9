// Notices of the List of Windows window and its commands: boxes that report no failure.
#pragma once

#include "sources/wnd_ScanListView/scan_list_errors.h"

// clang-format off
inline constexpr ErrorRow kMoveNothingTicked{
    .source = &kSource_scan_list, .site = 1102, .function = "onButton_Move",
    .layout = ErrorLayout::PLAIN,
    .detail = "There are no selected items.\nSelect any item, change its position (or/and dimensions)\n"
              "and then press button Move.",
    .result = 1, .title = "info"};
inline constexpr ErrorRow kCreateProfileNothingTicked{
    .source = &kSource_scan_list, .site = 1246, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::PLAIN,
    .detail = "There are no selected items.\nTo create profile - select items you want to include\n"
              "and then press button Create Profile.",
    .result = 1, .title = "info"};
inline constexpr ErrorRow kSaveFileExists{
    .source = &kSource_scan_list, .site = 1972, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::PLAIN, .detail = "File already exists", .result = 1, .title = "information"};
// clang-format on
