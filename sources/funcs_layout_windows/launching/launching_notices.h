// Notices of launching: boxes that report no failure.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kLaunchProgramsFailed{
    .source = &kSource_profiles, .site = 6391, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN,
    .detail = "Not all Programs were loaded\n\nNumber of Programs failed to load = %u\n"
              "Number of Programs in Profile = %u\nPossible reasons:\n"
              "Some Programs were deleted, renamed or check your access permissions",
    .result = 1, .title = "info", .style = MB_SETFOREGROUND};
inline constexpr ErrorRow kLaunchFoldersFailed{
    .source = &kSource_profiles, .site = 6412, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN,
    .detail = "Not all Directories were loaded\n\nNumber of Directories failed to load = %u\n"
              "Number of Directories in Profile = %u\nPossible reasons:\n"
              "Some Directories were deleted, renamed or check your access permissions",
    .result = 1, .title = "info", .style = MB_SETFOREGROUND};
inline constexpr ErrorRow kLaunchProgramsNotDetected{
    .source = &kSource_profiles, .site = 6433, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN, .detail = "Not all Programs of Profile were detected after launching\n",
    .result = 1, .title = "info", .style = MB_SETFOREGROUND};
inline constexpr ErrorRow kLaunchFoldersNotDetected{
    .source = &kSource_profiles, .site = 6454, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN, .detail = "Not all Folders of Profile were detected after launching\n",
    .result = 1, .title = "info", .style = MB_SETFOREGROUND};
// clang-format on
