#include "sources/main_prg/main_errors.h"

#include <array>

namespace
{

using enum ErrorLayout;
using enum ErrorEncoding;

constexpr char kWndProc[] = "WndProc";

// clang-format off
constexpr std::array<ErrorSite, MAIN_ROWS> kSites{{
    {.id = SITE_GET_MESSAGE, .site = 241, .handler = 0, .function = "wWinMain",
     .layout = PLAIN, .detail = "-1 <- GetMessage()", .result = 0, .style = MB_ICONINFORMATION},
    {.id = SITE_CREATE_SCAN_BUTTON, .site = 402, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hWndBTN00=NULL, func WndProc", .result = 0},
    {.id = SITE_CREATE_LOAD_BUTTON, .site = 431, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error, hWndBTN_LoadProfile==NULL, func WndProc", .result = 0},
    {.id = SITE_CREATE_COMBOS, .site = 512, .handler = 0, .function = kWndProc,
     .layout = PLAIN,
     .detail = "error while creating ComboBox Profile | ComboBox Action | Button Apply, main window WndProc()",
     .result = 0},
    {.id = SITE_CREATE_NO_DC, .site = 563, .handler = 1228, .function = kWndProc,
     .layout = COMPACT, .detail = "ERROR <- GetDC() of Main Window", .result = 0},
    {.id = SITE_CREATE_FONT_SIZE, .site = 580, .handler = 1248, .function = kWndProc,
     .layout = COMPACT, .detail = "ERROR while get font size for buttons", .result = 0},
    {.id = SITE_CREATE_FONT, .site = 604, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error <- vex_CreateFont while WM_CREATE", .result = 0},
    {.id = SITE_CREATE_COM, .site = 652, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "error <- CoInitializeEx(), impossible init COM", .result = 0},
    {.id = SITE_SCAN_FAILED, .site = 888, .handler = 1187, .function = kWndProc,
     .layout = COMPACT, .detail = "ERROR <- onButton_Scan_Click()\nret code = %d", .result = 0},
    {.id = SITE_LOAD_FAILED, .site = 951, .handler = 1269, .function = kWndProc,
     .layout = COMPACT,
     .detail = "one of callable functions returned error onButton_LoadProfile_clicked(), RetCode = %d",
     .result = 0},
    {.id = SITE_STORE_SET_UP_COMMAND, .site = 934, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "WndProc, WM_COMMAND, error <- preInitOnce_onLoadProfile()", .result = 0},
    {.id = SITE_STORE_SET_UP_DROP, .site = 1107, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "WndProc, WM_DROPFILES, error <- preInitOnce_onLoadProfile()", .result = 0},
    {.id = SITE_ABOUT, .site = 1001, .handler = 0, .function = kWndProc,
     .layout = PLAIN,
     .detail = "This small software utility \"Wendlow\" is intended for keeping your folders and programs layout "
               "organized.\n\nThe Wendlow project\nhttps://wendlow.example\nwendlow@wendlow.example\n\n"
               "release date: 2020-05-18",
     .result = 0, .title = "About"},
    // Quirk: the reserved commands' texts and titles are handed over as bytes; no item of the menu shows them.
    {.id = SITE_MENU_FILE_NEW, .site = 1015, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item FILE NEW", .result = 0, .title = "",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_MENU_FILE_OPEN, .site = 1022, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item FILE OPEN", .result = 0, .title = "",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_MENU_FILE_SAVE, .site = 1029, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item FILE SAVE", .result = 0, .title = "",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_MENU_FILE_SAVE_AS, .site = 1036, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item FILE SAVE AS", .result = 0, .title = "",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_MENU_EXIT, .site = 1043, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item EXIT", .result = 0, .title = "",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_MENU_HELP, .site = 1050, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "menu item HELP", .result = 0, .title = "Help",
     .encoding = BYTES, .title_encoding = BYTES},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

std::uint32_t error_site;
wchar_t message[kMessageCapacity_units];

} // namespace

const ErrorSource errors_main{
    .file = "sources/main_prg", .error_site = &error_site, .message = message, .sites = kSites};
