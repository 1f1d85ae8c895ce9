// Everything that can go wrong in the profile name window.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_profile_name;
extern wchar_t message_profile_name[kMessageCapacity_units];
inline constexpr char kFile_profile_name[] = "sources/wnd_ProfileName";
inline constexpr ErrorSource kSource_profile_name{
    .file = kFile_profile_name, .error_site = &error_site_profile_name, .message = message_profile_name};

// clang-format off
// The blanks at the end of this detail and of kNameOkFailed's belong to the texts.
inline constexpr ErrorRow kNameCreateParameter{
    .source = &kSource_profile_name, .site = 96, .handler = 348, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect parameters while WM_CREATE:\np_hwnd_ListWindows = %p "};
inline constexpr ErrorRow kNameCreateOk{
    .source = &kSource_profile_name, .site = 141, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::PLAIN, .detail = "error, CreateWindow(), func WndProc"};
inline constexpr ErrorRow kNameCreateCancel{
    .source = &kSource_profile_name, .site = 163, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::PLAIN, .detail = "error, CreateWindow(), func WndProc"};
inline constexpr ErrorRow kNameCreateEdit{
    .source = &kSource_profile_name, .site = 187, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::PLAIN, .detail = "error, CreateWindow(), EditBox, func WndProc"};
inline constexpr ErrorRow kNameOkInput{
    .source = &kSource_profile_name, .site = 421, .handler = 502, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters:\nhwnd_this_wnd = %p, hwnd_parent_wnd = %p, hEdit = %p",
    .result = kBadInput};
inline constexpr ErrorRow kNameOkFailed{
    .source = &kSource_profile_name, .site = 268, .handler = 371, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error, %d <- on_Button_OK() "};
inline constexpr ErrorRow kNameCancelInput{
    .source = &kSource_profile_name, .site = 548, .handler = 571, .function = "on_Button_CANCEL",
    .layout = ErrorLayout::COMPACT, .detail = "incorrect input parameters:\nhwndThis = %p",
    .result = kBadInput};
inline constexpr ErrorRow kNameCancelFailed{
    .source = &kSource_profile_name, .site = 289, .handler = 394, .function = "WndProc_wnd_ProfileName",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error, %d <- on_Button_CANCEL()"};
// clang-format on
