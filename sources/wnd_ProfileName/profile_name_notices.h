// Notices of the profile name window: boxes that report no failure.
#pragma once

#include "sources/wnd_ProfileName/profile_name_errors.h"

// clang-format off
inline constexpr ErrorRow kNameOkEmpty{
    .source = &kSource_profile_name, .site = 446, .function = "on_Button_OK",
    .layout = ErrorLayout::PLAIN, .detail = "Please enter Name of Profile, e.g. \"work docs 01\"",
    .result = 1, .title = "warning"};
// clang-format on
