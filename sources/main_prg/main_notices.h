// Notices of start-up and the main window: boxes that report no failure.
#pragma once

#include "sources/main_prg/main_errors.h"

// clang-format off
inline constexpr ErrorRow kAbout{
    .source = &kSource_main, .site = 1001, .function = "WndProc",
    .layout = ErrorLayout::PLAIN,
    .detail = "This small software utility \"Wendlow\" is intended for keeping your folders and programs layout "
              "organized.\n\nThe Wendlow project\nhttps://wendlow.example\nwendlow@wendlow.example\n\n"
              "release date: 2020-05-18",
    .title = "About"};
// Quirk: the reserved commands' texts and titles are handed over as bytes; kept so that they look the same in
// every version.
inline constexpr ErrorRow kMenuFileNew{
    .source = &kSource_main, .site = 1015, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item FILE NEW",
    .title = "", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kMenuFileOpen{
    .source = &kSource_main, .site = 1022, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item FILE OPEN",
    .title = "", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kMenuFileSave{
    .source = &kSource_main, .site = 1029, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item FILE SAVE",
    .title = "", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kMenuFileSaveAs{
    .source = &kSource_main, .site = 1036, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item FILE SAVE AS",
    .title = "", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kMenuExit{
    .source = &kSource_main, .site = 1043, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item EXIT",
    .title = "", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kMenuHelp{
    .source = &kSource_main, .site = 1050, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "menu item HELP",
    .title = "Help", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
// clang-format on
