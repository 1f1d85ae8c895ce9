#include "sources/wnd_ScanListView/scan_list_errors.h"

#include <array>

#include "sources/wnd_ScanListView/create_profile.h"
#include "sources/wnd_ScanListView/list_view.h"
#include "sources/wnd_ScanListView/move_command.h"
#include "sources/wnd_ScanListView/profile_name_arrival.h"
#include "sources/wnd_ScanListView/profile_writing.h"

namespace
{

using enum ErrorLayout;
using enum ErrorEncoding;

constexpr char kWndProc[] = "WndProc_ScanListView";
constexpr char kListView[] = "on_WM_CREATE_02_ListView";
constexpr char kCreateProfile[] = "onButton_Create_Profile";
constexpr char kNameArrival[] = "on_WM_COPYDATA_on_wnd_NameOfProfile";

// clang-format off
constexpr std::array<ErrorSite, SCAN_LIST_ROWS> kSites{{
    // Texts of the failing buttons are handed over as 8-bit bytes on purpose.
    {.id = SITE_LIST_CREATE_MOVE, .site = 152, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hWndBTN01=NULL, func WndProc", .result = 0, .title = "i", .encoding = BYTES},
    {.id = SITE_LIST_CREATE_PROFILE_BUTTON, .site = 171, .handler = 0, .function = kWndProc,
     .layout = PLAIN, .detail = "err, hWndBTN02=NULL, func WndProc", .result = 0, .title = "i", .encoding = BYTES},
    {.id = SITE_LIST_NO_DC, .site = 189, .handler = 431, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error, GetDC( )", .result = 0},
    {.id = SITE_LIST_FONT_SIZE, .site = 203, .handler = 453, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error, FindFontSize_fit_H_and_W()",
     .result = 0},
    {.id = SITE_LIST_FONT, .site = 218, .handler = 475, .function = kWndProc,
     .layout = COMPACT, .detail = "one of callable functions returned error, vex_CreateFont()", .result = 0},
    {.id = SITE_LIST_MOVE_FAILED, .site = 287, .handler = 497, .function = kWndProc,
     .layout = COMPACT, .detail = "iRetCode = %d <- onButton_Move()", .result = 0},
    {.id = SITE_LIST_CREATE_PROFILE_FAILED, .site = 304, .handler = 519, .function = kWndProc,
     .layout = COMPACT, .detail = "iRetCode = %d <- onButton_Create_Profile()", .result = 0},
    {.id = SITE_LIST_NAME_FAILED, .site = 358, .handler = 541, .function = kWndProc,
     .layout = COMPACT, .detail = "iRetCode = %d <- on_WM_COPYDATA_on_wnd_NameOfProfile()", .result = 0},

    // The reports on building the list are 8-bit bytes on purpose, and so are the titles "ERROR".
    {.id = SITE_LISTVIEW_INPUT, .site = 612, .handler = 803, .function = kListView,
     .layout = SPACED_END_OF_LINE, .detail = "incorrect input parameters", .result = kListView_bad_input,
     .encoding = BYTES},
    {.id = SITE_LISTVIEW_CREATE, .site = 641, .handler = 0, .function = kListView,
     .layout = SHOUTED,
     .detail = "NULL <- CreateWindowEx()\nw = %d\nh = %d\nuiCtlID = %u\nhwndThis = %p\nhInst = %p\n"
               "WC_LISTVIEW = %d",
     .result = 0, .title = "ERROR", .encoding = BYTES, .title_encoding = BYTES},
    // Only the title of this one is 8-bit.
    {.id = SITE_LISTVIEW_INSERT_ITEM, .site = 718, .handler = 0, .function = kListView,
     .layout = PLAIN, .detail = "-1 <-- InsertItem, cycle i", .result = 0, .title = "ERROR",
     .title_encoding = BYTES},
    {.id = SITE_LISTVIEW_INSERT_SUBITEM, .site = 746, .handler = 0, .function = kListView,
     .layout = PLAIN, .detail = "-1 <-- InsertItem, cycle j", .result = 0, .title = "ERROR",
     .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_LISTVIEW_NOTIFY_INPUT, .site = 871, .handler = 0, .function = "on_WM_NOTIFY_ListView",
     .layout = SHOUTED, .detail = "", .result = kListView_bad_input, .title = "ERROR",
     .encoding = BYTES, .title_encoding = BYTES},

    // File and function are shown as unconverted bytes on purpose.
    {.id = SITE_MOVE_INPUT, .site = 1018, .handler = 1127, .function = "onButton_Move",
     .layout = COMPACT, .detail = "ERROR, incorrect input parameters", .result = kMove_bad_input,
     .encoding = WIDE_BYTE_FIELDS},
    {.id = SITE_MOVE_IMPOSSIBLE, .site = 1083, .handler = 0, .function = "onButton_Move",
     .layout = PLAIN,
     .detail = "impossible to move one of windows:\nx = %d\ny = %d\nwidth = %d\nheight = %d\n"
               "Probably, it was closed. Try to SCAN again.",
     .result = 1, .style = MB_ICONINFORMATION},
    {.id = SITE_MOVE_NOTHING_TICKED, .site = 1102, .handler = 0, .function = "onButton_Move",
     .layout = PLAIN,
     .detail = "There are no selected items.\nSelect any item, change its position (or/and dimensions)\n"
               "and then press button Move.",
     .result = 1, .title = "info"},

    {.id = SITE_CREATE_PROFILE_INPUT, .site = 1214, .handler = 1391, .function = kCreateProfile,
     .layout = COMPACT,
     .detail = "incorrect input parameters:\nhwndThis = %p, hwndLV = %p, p_hwnd_ProfileName = %p, "
               "pSTR_RW_PRFL = %p, pSTR_ENUM_WNDS_DATA = %p\npSTR_ENUM_WNDS_DATA->counter_valid = %u",
     .result = kCreateProfile_bad_input},
    {.id = SITE_CREATE_PROFILE_ALLOCATION, .site = 1262, .handler = 1413, .function = kCreateProfile,
     .layout = COMPACT, .detail = "one of callable functions returned error, %d <- DynMemAlloc_wnds_Profile()",
     .result = kCreateProfile_callee_failed},
    {.id = SITE_CREATE_PROFILE_NO_INDEXES, .site = 1277, .handler = 1435, .function = kCreateProfile,
     .layout = COMPACT,
     .detail = "incorrect result after DynMemAlloc:\npSTR_RW_PRFL = %p\n"
               "pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = %p",
     .result = kCreateProfile_no_indexes},
    {.id = SITE_CREATE_PROFILE_PREPARATION, .site = 1304, .handler = 1457, .function = kCreateProfile,
     .layout = COMPACT, .detail = "one of callable functions returned error, %d <- PrepareData_Write_Profile()",
     .result = kCreateProfile_callee_failed},
    {.id = SITE_CREATE_PROFILE_NAME_WINDOW, .site = 1349, .handler = 0, .function = kCreateProfile,
     .layout = PLAIN, .detail = "error while creating window Name of Profile", .result = 1},
    {.id = SITE_CREATE_PROFILE_NOTHING_TICKED, .site = 1246, .handler = 0, .function = kCreateProfile,
     .layout = PLAIN,
     .detail = "There are no selected items.\nTo create profile - select items you want to include\n"
               "and then press button Create Profile.",
     .result = 1, .title = "info"},

    {.id = SITE_ALLOC_PROFILE_INPUT, .site = 1508, .handler = 1631, .function = "DynMemAlloc_wnds_Profile",
     .layout = COMPACT, .detail = "incorrect input parameters: pSTR_RW_PRFL = %p\npSTR_ENUM_WNDS_DATA = %p",
     .result = kAllocProfile_bad_input},
    {.id = SITE_ALLOC_PROFILE_EMPTY, .site = 1521, .handler = 1653, .function = "DynMemAlloc_wnds_Profile",
     .layout = COMPACT,
     .detail = "incorrect input parameters: pSTR_RW_PRFL->N_wnds_in_profile = %u\n"
               "pSTR_ENUM_WNDS_DATA->uiMaxLen_inBytes_AllPath = %u",
     .result = kAllocProfile_bad_input},
    {.id = SITE_ALLOC_PROFILE_MEMORY, .site = 1547, .handler = 1675, .function = "DynMemAlloc_wnds_Profile",
     .layout = COMPACT, .detail = "function VirtualAlloc() returned error\n\n", .result = kAllocProfile_no_memory},
    {.id = SITE_PREPARE_PROFILE_INPUT, .site = 1712, .handler = 1825, .function = "PrepareData_Write_Profile",
     .layout = COMPACT, .detail = "incorrect input parameters: pSTR_RW_PRFL = %p, pSTR_ENUM_WNDS_DATA = %p",
     .result = kPrepareProfile_bad_input},
    {.id = SITE_PREPARE_PROFILE_FIELD, .site = 1726, .handler = 1847, .function = "PrepareData_Write_Profile",
     .layout = COMPACT,
     .detail = "error, incorrect input parameters:\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = %p\n"
               "pSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder = %p\npSTR_RW_PRFL->p_arr1D_ui_x = %p\n"
               "pSTR_RW_PRFL->p_arr1D_ui_y = %p\npSTR_RW_PRFL->p_arr1D_ui_w = %p\n"
               "pSTR_RW_PRFL->p_arr1D_ui_h = %p\npSTR_RW_PRFL->p_arr1D_ui_len_path = %p\n"
               "pSTR_RW_PRFL->p_arr_strz_paths = %p\npSTR_RW_PRFL->N_wnds_in_profile = %u\n"
               "pSTR_ENUM_WNDS_DATA->arr1D_uc_flag_FP = %p\npSTR_ENUM_WNDS_DATA->arr1D_ui_LenPath = %p\n"
               "pSTR_ENUM_WNDS_DATA->pcDynMem_GeomText = %p\npSTR_ENUM_WNDS_DATA->pcDynMem_FullPaths = %p",
     .result = kPrepareProfile_bad_input},
    {.id = SITE_NAME_ARRIVAL_INPUT, .site = 1908, .handler = 2065, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "error, incorrect input parameters\nhwnd_wnd_ListOfWnds = %p, hwnd_wnd_NameProfile = %p, "
               "pSTR_ENUM_WNDS_DATA = %p, pSTR_RW_PRFL = %p",
     .result = kNameArrival_bad_input},
    {.id = SITE_NAME_ARRIVAL_FILE_EXISTS, .site = 1972, .handler = 0, .function = kNameArrival,
     .layout = PLAIN, .detail = "File already exists", .result = 1, .title = "information"},
    {.id = SITE_NAME_ARRIVAL_CREATE_FILE, .site = 1983, .handler = 2087, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "file of profile was not created, profile is not saved\nGetLastError = %u <- CreateFile()",
     .result = 1},
    {.id = SITE_NAME_ARRIVAL_WRITER_FAILED, .site = 1997, .handler = 2109, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "error, one of callable functions returned error, %d <- WriteData_Profile()",
     .result = kNameArrival_callee_failed},
    {.id = SITE_NAME_ARRIVAL_NOT_WRITTEN, .site = 2009, .handler = 2131, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "file of profile was not written, profile is not saved\n"
               "GetLastError = %u <- WriteFile() or FlushFileBuffers()",
     .result = 1},
    {.id = SITE_NAME_ARRIVAL_NOT_DELETED, .site = 2017, .handler = 2131, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "file of profile was not wholly written and cannot be deleted, profile is not saved\n"
               "GetLastError = %u <- WriteFile() or FlushFileBuffers()\nGetLastError = %u <- DeleteFile()",
     .result = 1},
    {.id = SITE_NAME_ARRIVAL_FREE_FAILED, .site = 2031, .handler = 2153, .function = kNameArrival,
     .layout = COMPACT,
     .detail = "error, one of callable functions returned error, %d <- FreeDynMem_wnds_Profile()",
     .result = kNameArrival_callee_failed},
    {.id = SITE_WRITE_PROFILE_INPUT, .site = 2204, .handler = 2318, .function = "WriteData_Profile",
     .layout = COMPACT,
     .detail = "error, incorrect INPUT parameters:\nhFile_wnds_profile = %p\npSTR_RW_PRFL = %p\nN_wnds = %u\n"
               "p_arr1D_uc_flag_Prg_or_Folder = %p\np_arr1D_ui_x = %p\np_arr1D_ui_y = %p\np_arr1D_ui_w = %p\n"
               "p_arr1D_ui_h = %p\np_arr1D_ui_len_path = %p\np_arr_strz_paths = %p",
     .result = kWriteProfile_bad_input},
    {.id = SITE_FREE_PROFILE_INPUT, .site = 2371, .handler = 2420, .function = "FreeDynMem_wnds_Profile",
     .layout = COMPACT, .detail = "incorrect input parameters: pSTR_RW_PRFL = %p",
     .result = kFreeProfile_bad_input},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

std::uint32_t error_site;
wchar_t message[kMessageCapacity_units];

} // namespace

const ErrorSource errors_scan_list{
    .file = "sources/wnd_ScanListView", .error_site = &error_site, .message = message, .sites = kSites};
