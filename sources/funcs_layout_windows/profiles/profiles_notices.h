// Notices of the Profile list and Apply: boxes that report no failure.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kAddStringFull{
    .source = &kSource_profiles, .site = 9792, .function = "CB_Profile_add_string",
    .layout = ErrorLayout::PLAIN, .detail = "impossible to add string to ComboBox, max number exceeded",
    .result = 2, .title = "warning"};
inline constexpr ErrorRow kApplyNoAction{
    .source = &kSource_profiles, .site = 10291, .function = "onButton_Apply_press",
    .layout = ErrorLayout::PLAIN, .detail = "There is no selected item in \"Action\" list",
    .result = 1, .title = "info"};
inline constexpr ErrorRow kApplyNoProfile{
    .source = &kSource_profiles, .site = 10304, .function = "onButton_Apply_press",
    .layout = ErrorLayout::PLAIN,
    .detail = "There is no selected item in \"Profile\" list.\nSelect or Load at least one Profile.",
    .result = 1, .title = "info"};
// clang-format on
