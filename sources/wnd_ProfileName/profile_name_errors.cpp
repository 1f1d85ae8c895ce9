#include "sources/wnd_ProfileName/profile_name_errors.h"

#include <array>

#include "sources/wnd_ProfileName/wnd_ProfileName.h"

namespace
{

using enum ErrorLayout;

constexpr char kWndProc[] = "WndProc_wnd_ProfileName";

// clang-format off
constexpr std::array<ErrorSite, PROFILE_NAME_ROWS> kSites{{
    // The blank at the end of the detail belongs to the text.
    {.id = SITE_NAME_CREATE_PARAMETER, .site = 96, .handler = 348, .function = kWndProc,
     .layout = COMPACT, .detail = "incorrect parameters while WM_CREATE:\np_hwnd_ListWindows = %p ", .result = 0},
    {.id = SITE_NAME_CREATE_OK, .site = 141, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, CreateWindow(), func WndProc", .result = 0},
    {.id = SITE_NAME_CREATE_CANCEL, .site = 163, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, CreateWindow(), func WndProc", .result = 0},
    {.id = SITE_NAME_CREATE_EDIT, .site = 187, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, CreateWindow(), EditBox, func WndProc", .result = 0},
    {.id = SITE_NAME_OK_INPUT, .site = 421, .handler = 502, .function = "on_Button_OK",
     .layout = COMPACT,
     .detail = "incorrect input parameters:\nhwnd_this_wnd = %p, hwnd_parent_wnd = %p, hEdit = %p",
     .result = kProfileName_bad_input},
    {.id = SITE_NAME_OK_EMPTY, .site = 446, .handler = 0, .function = "on_Button_OK",
     .layout = PLAIN, .detail = "Please enter Name of Profile, e.g. \"work docs 01\"", .result = 1,
     .title = "warning"},
    {.id = SITE_NAME_OK_FAILED, .site = 268, .handler = 371, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error, %d <- on_Button_OK() ", .result = 0},
    {.id = SITE_NAME_CANCEL_INPUT, .site = 548, .handler = 571, .function = "on_Button_CANCEL",
     .layout = COMPACT, .detail = "incorrect input parameters:\nhwndThis = %p", .result = kProfileName_bad_input},
    {.id = SITE_NAME_CANCEL_FAILED, .site = 289, .handler = 394, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error, %d <- on_Button_CANCEL()",
     .result = 0},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

std::uint32_t error_site;
wchar_t message[kMessageCapacity_units];

} // namespace

const ErrorSource errors_profile_name{
    .file = "sources/wnd_ProfileName", .error_site = &error_site, .message = message, .sites = kSites};
