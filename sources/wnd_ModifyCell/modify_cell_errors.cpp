#include "sources/wnd_ModifyCell/modify_cell_errors.h"

#include <array>

#include "sources/wnd_ModifyCell/wnd_ModifyCell.h"

namespace
{

using enum ErrorLayout;

constexpr char kWndProc[] = "WndProc_ModifyCell";

// clang-format off
constexpr std::array<ErrorSite, MODIFY_CELL_ROWS> kSites{{
    {.id = SITE_MODIFY_CREATE_OK, .site = 118, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error <- CreateWindow() btn Ok, func WndProc", .result = 0},
    {.id = SITE_MODIFY_CREATE_CANCEL, .site = 139, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error <- CreateWindow(), btn Cancel, func WndProc", .result = 0},
    {.id = SITE_MODIFY_CREATE_X, .site = 162, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hEdit = NULL, func WndProc", .result = 0},
    {.id = SITE_MODIFY_CREATE_Y, .site = 185, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hEdit_Ypos = NULL, func WndProc", .result = 0},
    {.id = SITE_MODIFY_CREATE_WIDTH, .site = 207, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hEdit_Width = NULL, func WndProc", .result = 0},
    // Worded as the width's on purpose.
    {.id = SITE_MODIFY_CREATE_HEIGHT, .site = 229, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, hEdit_Width = NULL, func WndProc_ModifyCell", .result = 0},
    {.id = SITE_MODIFY_NO_DC, .site = 251, .handler = 547, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error : GetDC()", .result = 0},
    {.id = SITE_MODIFY_FONT_SIZE, .site = 264, .handler = 569, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error : FindFontSize_fit_H_and_W()",
     .result = 0},
    {.id = SITE_MODIFY_FONT, .site = 283, .handler = 591, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error : vex_CreateFont()", .result = 0},
    {.id = SITE_MODIFY_SUBCLASS, .site = 318, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, SetWindowLongPtr, GWL_WNDPROC, TAB focus changing", .result = 0},
    {.id = SITE_MODIFY_OK_INPUT, .site = 642, .handler = 801, .function = "on_Button_OK",
     .layout = COMPACT,
     .detail = "incorrect input parameters:\nhwndThis = %p, hwndListView = %p, pSTR = %p",
     .result = kModifyCell_bad_input},
    {.id = SITE_MODIFY_OK_NO_SCAN, .site = 655, .handler = 823, .function = "on_Button_OK",
     .layout = COMPACT,
     .detail = "incorrect input parameters:\npcDynMem_WinHndls = %p, pcDynMem_GeomText = %p",
     .result = kModifyCell_no_scan},
    {.id = SITE_MODIFY_OK_NO_LIST, .site = 661, .handler = 834, .function = "on_Button_OK",
     .layout = COMPACT, .detail = "the list of windows is gone:\nhwndListView = %p",
     .result = kModifyCell_no_list},
    {.id = SITE_MODIFY_OK_NO_ROW, .site = 668, .handler = 845, .function = "on_Button_OK",
     .layout = COMPACT,
     .detail = "incorrect input parameters:\nrow = %d, counter_valid = %u",
     .result = kModifyCell_no_row},
    {.id = SITE_MODIFY_OK_NO_EDITS, .site = 681, .handler = 867, .function = "on_Button_OK",
     .layout = COMPACT,
     .detail = "the edit boxes went with another window Modify Cell:\nhEdit = %p, hEdit_Ypos = %p, "
               "hEdit_Width = %p, hEdit_Height = %p",
     .result = kModifyCell_no_edits},
    {.id = SITE_MODIFY_NO_PARENT, .site = 934, .handler = 0, .function = "WndProc_ModifyCell_Button",
     .layout = PLAIN, .detail = "error <- GetParent()", .result = 0, .title = "dbg, error"},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

std::uint32_t error_site;
wchar_t message[kMessageCapacity_units];

} // namespace

const ErrorSource errors_modify_cell{
    .file = "sources/wnd_ModifyCell", .error_site = &error_site, .message = message, .sites = kSites};
