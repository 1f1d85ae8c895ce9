// Everything that can go wrong in scanning.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kCalcNullLParam{
    .source = &kSource_layout_windows, .site = 118, .handler = 364, .function = "EnumWindowsProc_Calc",
    .layout = ErrorLayout::COMPACT, .detail = "error, incorrect input parameters\nlParam = %p",
    .result = FALSE};
inline constexpr ErrorRow kCalcModuleName{
    .source = &kSource_layout_windows, .site = 251, .handler = 391, .function = "EnumWindowsProc_Calc",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- GetModuleFileNameEx()", .result = FALSE};
inline constexpr ErrorRow kCalc02NullLParam{
    .source = &kSource_layout_windows, .site = 437, .handler = 742, .function = "EnumWindowsProc_Calc_02",
    .layout = ErrorLayout::COMPACT, .detail = "error, incorrect input parameters\nlParam = %p",
    .result = FALSE};
inline constexpr ErrorRow kCalc02MissingBlock{
    .source = &kSource_layout_windows, .site = 452, .handler = 771, .function = "EnumWindowsProc_Calc_02",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters\narr1D_ui_LenPath = %p\narr1D_uc_flag_FP = %p\n"
              "pcTmpBuf_Prg_Folder_Path = %p\nuiSize_TmpBuf_Path = %u\npcDynMem_WinHndls = %p\n"
              "pcDynMem_GeomText = %p",
    .result = FALSE};
inline constexpr ErrorRow kCalc02ModuleName{
    .source = &kSource_layout_windows, .site = 618, .handler = 805, .function = "EnumWindowsProc_Calc_02",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- GetModuleFileNameEx()", .result = FALSE};

inline constexpr ErrorRow kFolders01NullRecord{
    .source = &kSource_layout_windows, .site = 1802, .handler = 1996, .function = "GetCurrentExplorerFolders_01",
    .layout = ErrorLayout::SPACED_GAP, .detail = "incorrect input parameters:pSTR_params = %p",
    .result = kBadInput};
inline constexpr ErrorRow kFolders02NullRecord{
    .source = &kSource_layout_windows, .site = 2038, .handler = 2307, .function = "GetCurrentExplorerFolders_02",
    .layout = ErrorLayout::SPACED_GAP, .detail = "incorrect input parameters:pSTR_params = %p",
    .result = kBadInput};
inline constexpr ErrorRow kFolders02MissingBlock{
    .source = &kSource_layout_windows, .site = 2053, .handler = 2334, .function = "GetCurrentExplorerFolders_02",
    .layout = ErrorLayout::SPACED,
    .detail = "incorrect input parameters:pSTR_params->pcDynMem_WinHndls = %p\n"
              "pSTR_params->pcDynMem_FullPaths = %p\npSTR_params->arr1D_uc_flag_FP = %p",
    .result = kBadInput};
inline constexpr ErrorRow kFolders02NoList{
    .source = &kSource_layout_windows, .site = 2095, .handler = 2361, .function = "GetCurrentExplorerFolders_02",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error\n\nfunction : CoCreateInstance()\n\n"
              "ret code hResult = %d",
    .result = -4};
inline constexpr ErrorRow kFolders02NoHandle{
    .source = &kSource_layout_windows, .site = 2216, .handler = 2388, .function = "GetCurrentExplorerFolders_02",
    .layout = ErrorLayout::SPACED_GAP, .detail = "hwnd of folder = %p", .result = -5};

inline constexpr ErrorRow kScanInput{
    .source = &kSource_layout_windows, .site = 906, .handler = 1301, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters\nhwndThis = %p\npSTR = %p\np_hwnd_ScanListView = %p",
    .result = kBadInput};
inline constexpr ErrorRow kScanZeroSize{
    .source = &kSource_layout_windows, .site = 921, .handler = 1328, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters\npSTR->uiSize_TmpBuf_Path = %u\n",
    .result = kBadInput};
inline constexpr ErrorRow kScanMemoryScratch{
    .source = &kSource_layout_windows, .site = 988, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanEnumCounting{
    .source = &kSource_layout_windows, .site = 1017, .handler = 1382, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- EnumWindows()", .result = -2};
inline constexpr ErrorRow kScanMemoryLengths{
    .source = &kSource_layout_windows, .site = 1072, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanMemoryFlags{
    .source = &kSource_layout_windows, .site = 1089, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanMemoryGeometry{
    .source = &kSource_layout_windows, .site = 1106, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanMemoryHandles{
    .source = &kSource_layout_windows, .site = 1123, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanMemoryPaths{
    .source = &kSource_layout_windows, .site = 1140, .handler = 1355, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- VirtualAlloc()", .result = -3};
inline constexpr ErrorRow kScanEnumFilling{
    .source = &kSource_layout_windows, .site = 1168, .handler = 1382, .function = "onButton_Scan_Clicked",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- EnumWindows()", .result = -2};
// clang-format on
