#include "sources/funcs_layout_windows/layout_windows_errors.h"

#include <array>

#include "sources/funcs_layout_windows/explorer_folders.h"
#include "sources/funcs_layout_windows/fonts_drawing.h"
#include "sources/funcs_layout_windows/scan_command.h"

namespace
{

using enum ErrorLayout;
using enum ErrorEncoding;

constexpr char kNullLParam[] = "error, incorrect input parameters\nlParam = %p";
constexpr char kModuleName[] = "ERROR <- GetModuleFileNameEx()";
constexpr char kNullRecord[] = "incorrect input parameters:pSTR_params = %p";
constexpr char kNoMemory[] = "ERROR <- VirtualAlloc()";
constexpr char kEnumeration[] = "ERROR <- EnumWindows()";
constexpr char kScan[] = "onButton_Scan_Clicked";

// clang-format off
constexpr std::array<ErrorSite, LAYOUT_WINDOWS_ROWS> kSites{{
    {.id = SITE_CREATE_FONT_NULL_FACE, .site = 2861, .handler = 2874, .function = "vex_CreateFont",
     .layout = INLINE,
     .detail = "incorrect input parameters, func vex_CreateFont()\npcTypeFaceName = %p",
     .result = kDrawing_bad_input},
    {.id = SITE_FIND_FONT_SIZE_INPUT, .site = 2912, .handler = 2990, .function = "FindFontSize",
     .layout = INLINE,
     .detail = "incorrect input parameters, func FindFontSize()\nhdc = %p, hREC = %d",
     .result = kDrawing_bad_input},
    {.id = SITE_FIT_FONT_SIZE_INPUT, .site = 3024, .handler = 3106, .function = "FindFontSize_fit_H_and_W",
     .layout = INLINE,
     .detail = "incorrect input parameters, func FindFontSize_fit_H_and_W()\n"
               "hdc = %p,hREC = %d,wREC = %d,ptc_Text = %p",
     .result = kDrawing_bad_input},
    {.id = SITE_DRAW_LINE_INPUT, .site = 3151, .handler = 3179, .function = "vex_DrawLine",
     .layout = SPACED_GAP,
     .detail = "incorrect input:\nhdc = %p, x0 = %d, y0 = %d, x1 = %d, y1 = %d",
     .result = kDrawing_bad_input},
    {.id = SITE_DRAW_FRAME_INPUT, .site = 3214, .handler = 3338, .function = "draw_wnd_frame",
     .layout = SPACED_GAP,
     .detail = "incorrect input:\nhwnd_MW = %p, hdc_MW = %p, h = %u, w = %u\nreturn code : %d",
     .result = kDrawing_bad_input},
    // Quirk: text and title are handed over as bytes; only a fault of the program shows them.
    {.id = SITE_MAIN_SIZE_INPUT, .site = 1491, .handler = 1713, .function = "on_WM_SIZE",
     .layout = SPACED,
     .detail = "incorrect input:\nhwnd_MW = %p, pSTR_GeomLt = %p, hWndBTN00 = %p, hWndBTN02 = %p",
     .result = kDrawing_bad_input, .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_DRAW_MAIN_INPUT, .site = 3552, .handler = 3560, .function = "draw_MainWindow",
     .layout = INLINE,
     .detail = "incorrect input parameters, func draw_arrows()\nINPUT PARAMETERS:\n"
               "hwnd_MW = %p, hdc_MW = %p, pSTR_GeomLt = %p, hFont_buttons = %p\npLoadedProfiles_STR = %p",
     .result = kDrawing_bad_input},

    {.id = SITE_CALC_NULL_LPARAM, .site = 118, .handler = 364, .function = "EnumWindowsProc_Calc",
     .layout = COMPACT, .detail = kNullLParam, .result = FALSE},
    {.id = SITE_CALC_MODULE_NAME, .site = 251, .handler = 391, .function = "EnumWindowsProc_Calc",
     .layout = COMPACT, .detail = kModuleName, .result = FALSE},
    {.id = SITE_CALC_02_NULL_LPARAM, .site = 437, .handler = 742, .function = "EnumWindowsProc_Calc_02",
     .layout = COMPACT, .detail = kNullLParam, .result = FALSE},
    {.id = SITE_CALC_02_MISSING_BLOCK, .site = 452, .handler = 771, .function = "EnumWindowsProc_Calc_02",
     .layout = COMPACT,
     .detail = "error, incorrect input parameters\narr1D_ui_LenPath = %p\narr1D_uc_flag_FP = %p\n"
               "pcTmpBuf_Prg_Folder_Path = %p\nuiSize_TmpBuf_Path = %u\npcDynMem_WinHndls = %p\n"
               "pcDynMem_GeomText = %p",
     .result = FALSE},
    {.id = SITE_CALC_02_MODULE_NAME, .site = 618, .handler = 805, .function = "EnumWindowsProc_Calc_02",
     .layout = COMPACT, .detail = kModuleName, .result = FALSE},

    {.id = SITE_FOLDERS_01_NULL_RECORD, .site = 1802, .handler = 1996,
     .function = "GetCurrentExplorerFolders_01",
     .layout = SPACED_GAP, .detail = kNullRecord, .result = kFolders_bad_input},
    {.id = SITE_FOLDERS_02_NULL_RECORD, .site = 2038, .handler = 2307,
     .function = "GetCurrentExplorerFolders_02",
     .layout = SPACED_GAP, .detail = kNullRecord, .result = kFolders_bad_input},
    {.id = SITE_FOLDERS_02_MISSING_BLOCK, .site = 2053, .handler = 2334,
     .function = "GetCurrentExplorerFolders_02",
     .layout = SPACED,
     .detail = "incorrect input parameters:pSTR_params->pcDynMem_WinHndls = %p\n"
               "pSTR_params->pcDynMem_FullPaths = %p\npSTR_params->arr1D_uc_flag_FP = %p",
     .result = kFolders_bad_input},
    {.id = SITE_FOLDERS_02_NO_LIST, .site = 2095, .handler = 2361, .function = "GetCurrentExplorerFolders_02",
     .layout = SPACED_GAP,
     .detail = "one of callable functions returned error\n\nfunction : CoCreateInstance()\n\n"
               "ret code hResult = %d",
     .result = kFolders_no_list_filling},
    {.id = SITE_FOLDERS_02_NO_HANDLE, .site = 2216, .handler = 2388, .function = "GetCurrentExplorerFolders_02",
     .layout = SPACED_GAP, .detail = "hwnd of folder = %p", .result = kFolders_no_handle},

    {.id = SITE_SCAN_INPUT, .site = 906, .handler = 1301, .function = kScan,
     .layout = COMPACT,
     .detail = "error, incorrect input parameters\nhwndThis = %p\npSTR = %p\np_hwnd_ScanListView = %p",
     .result = kScan_bad_input},
    {.id = SITE_SCAN_ZERO_SIZE, .site = 921, .handler = 1328, .function = kScan,
     .layout = COMPACT,
     .detail = "error, incorrect input parameters\npSTR->uiSize_TmpBuf_Path = %u\n",
     .result = kScan_bad_input},
    {.id = SITE_SCAN_MEMORY_SCRATCH, .site = 988, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_ENUM_COUNTING, .site = 1017, .handler = 1382, .function = kScan,
     .layout = COMPACT, .detail = kEnumeration, .result = kScan_enumeration_failed},
    {.id = SITE_SCAN_NOTHING_FOUND, .site = 1049, .handler = 0, .function = kScan,
     .layout = PLAIN,
     .detail = "Number of found valid windows = %d\nMax length of path to valid windows = %d",
     .result = 1, .title = "info"},
    {.id = SITE_SCAN_MEMORY_LENGTHS, .site = 1072, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_MEMORY_FLAGS, .site = 1089, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_MEMORY_GEOMETRY, .site = 1106, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_MEMORY_HANDLES, .site = 1123, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_MEMORY_PATHS, .site = 1140, .handler = 1355, .function = kScan,
     .layout = COMPACT, .detail = kNoMemory, .result = kScan_no_memory},
    {.id = SITE_SCAN_ENUM_FILLING, .site = 1168, .handler = 1382, .function = kScan,
     .layout = COMPACT, .detail = kEnumeration, .result = kScan_enumeration_failed},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

wchar_t message[kMessageCapacity_units];

} // namespace

std::uint32_t error_site_layout_windows;

const ErrorSource errors_layout_windows{.file = kFile_layout_windows,
                                        .error_site = &error_site_layout_windows,
                                        .message = message,
                                        .sites = kSites};
