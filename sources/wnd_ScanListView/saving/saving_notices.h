// Notices of Create Profile and of saving: boxes that report no failure.
#pragma once

#include "errors/error_box.h"
#include "sources/wnd_ScanListView/saving/scan_list_error_source.h"

// clang-format off
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
