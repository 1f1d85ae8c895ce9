// Everything that can go wrong from Create Profile to the saved file.
#pragma once

#include "errors/error_box.h"
#include "sources/wnd_ScanListView/saving/scan_list_error_source.h"

// clang-format off
inline constexpr ErrorRow kCreateProfileInput{
    .source = &kSource_scan_list, .site = 1214, .handler = 1391, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters:\nhwndThis = %p, hwndLV = %p, p_hwnd_ProfileName = %p, "
              "pSTR_RW_PRFL = %p, pSTR_ENUM_WNDS_DATA = %p\npSTR_ENUM_WNDS_DATA->counter_valid = %u",
    .result = kBadInput};
inline constexpr ErrorRow kCreateProfileAllocation{
    .source = &kSource_scan_list, .site = 1262, .handler = 1413, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error, %d <- DynMemAlloc_wnds_Profile()",
    .result = -4};
inline constexpr ErrorRow kCreateProfileNoIndexes{
    .source = &kSource_scan_list, .site = 1277, .handler = 1435, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect result after DynMemAlloc:\npSTR_RW_PRFL = %p\n"
              "pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = %p",
    .result = -3};
inline constexpr ErrorRow kCreateProfilePreparation{
    .source = &kSource_scan_list, .site = 1304, .handler = 1457, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error, %d <- PrepareData_Write_Profile()",
    .result = -4};
inline constexpr ErrorRow kCreateProfileNameWindow{
    .source = &kSource_scan_list, .site = 1349, .function = "onButton_Create_Profile",
    .layout = ErrorLayout::PLAIN, .detail = "error while creating window Name of Profile", .result = 1};

inline constexpr ErrorRow kAllocProfileInput{
    .source = &kSource_scan_list, .site = 1508, .handler = 1631, .function = "DynMemAlloc_wnds_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters: pSTR_RW_PRFL = %p\npSTR_ENUM_WNDS_DATA = %p",
    .result = kBadInput};
inline constexpr ErrorRow kAllocProfileEmpty{
    .source = &kSource_scan_list, .site = 1521, .handler = 1653, .function = "DynMemAlloc_wnds_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters: pSTR_RW_PRFL->N_wnds_in_profile = %u\n"
              "pSTR_ENUM_WNDS_DATA->uiMaxLen_inBytes_AllPath = %u",
    .result = kBadInput};
inline constexpr ErrorRow kAllocProfileMemory{
    .source = &kSource_scan_list, .site = 1547, .handler = 1675, .function = "DynMemAlloc_wnds_Profile",
    .layout = ErrorLayout::COMPACT, .detail = "function VirtualAlloc() returned error\n\n", .result = -2};
inline constexpr ErrorRow kPrepareProfileInput{
    .source = &kSource_scan_list, .site = 1712, .handler = 1825, .function = "PrepareData_Write_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters: pSTR_RW_PRFL = %p, pSTR_ENUM_WNDS_DATA = %p",
    .result = kBadInput};
inline constexpr ErrorRow kPrepareProfileField{
    .source = &kSource_scan_list, .site = 1726, .handler = 1847, .function = "PrepareData_Write_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters:\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = %p\n"
              "pSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder = %p\npSTR_RW_PRFL->p_arr1D_ui_x = %p\n"
              "pSTR_RW_PRFL->p_arr1D_ui_y = %p\npSTR_RW_PRFL->p_arr1D_ui_w = %p\n"
              "pSTR_RW_PRFL->p_arr1D_ui_h = %p\npSTR_RW_PRFL->p_arr1D_ui_len_path = %p\n"
              "pSTR_RW_PRFL->p_arr_strz_paths = %p\npSTR_RW_PRFL->N_wnds_in_profile = %u\n"
              "pSTR_ENUM_WNDS_DATA->arr1D_uc_flag_FP = %p\npSTR_ENUM_WNDS_DATA->arr1D_ui_LenPath = %p\n"
              "pSTR_ENUM_WNDS_DATA->pcDynMem_GeomText = %p\npSTR_ENUM_WNDS_DATA->pcDynMem_FullPaths = %p",
    .result = kBadInput};
inline constexpr ErrorRow kSaveInput{
    .source = &kSource_scan_list, .site = 1908, .handler = 2065, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters\nhwnd_wnd_ListOfWnds = %p, hwnd_wnd_NameProfile = %p, "
              "pSTR_ENUM_WNDS_DATA = %p, pSTR_RW_PRFL = %p",
    .result = kBadInput};
inline constexpr ErrorRow kSaveCreateFile{
    .source = &kSource_scan_list, .site = 1983, .handler = 2087, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "file of profile was not created, profile is not saved\nGetLastError = %u <- CreateFile()",
    .result = 1};
inline constexpr ErrorRow kSaveWriterFailed{
    .source = &kSource_scan_list, .site = 1997, .handler = 2109, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, one of callable functions returned error, %d <- WriteData_Profile()",
    .result = -2};
inline constexpr ErrorRow kSaveNotWritten{
    .source = &kSource_scan_list, .site = 2009, .handler = 2131, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "file of profile was not written, profile is not saved\n"
              "GetLastError = %u <- WriteFile() or FlushFileBuffers()",
    .result = 1};
inline constexpr ErrorRow kSaveNotDeleted{
    .source = &kSource_scan_list, .site = 2017, .handler = 2131, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "file of profile was not wholly written and cannot be deleted, profile is not saved\n"
              "GetLastError = %u <- WriteFile() or FlushFileBuffers()\nGetLastError = %u <- DeleteFile()",
    .result = 1};
inline constexpr ErrorRow kSaveFreeFailed{
    .source = &kSource_scan_list, .site = 2031, .handler = 2153, .function = "on_WM_COPYDATA_on_wnd_NameOfProfile",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, one of callable functions returned error, %d <- FreeDynMem_wnds_Profile()",
    .result = -2};
inline constexpr ErrorRow kWriteProfileInput{
    .source = &kSource_scan_list, .site = 2204, .handler = 2318, .function = "WriteData_Profile",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect INPUT parameters:\nhFile_wnds_profile = %p\npSTR_RW_PRFL = %p\nN_wnds = %u\n"
              "p_arr1D_uc_flag_Prg_or_Folder = %p\np_arr1D_ui_x = %p\np_arr1D_ui_y = %p\np_arr1D_ui_w = %p\n"
              "p_arr1D_ui_h = %p\np_arr1D_ui_len_path = %p\np_arr_strz_paths = %p",
    .result = kBadInput};
inline constexpr ErrorRow kFreeProfileInput{
    .source = &kSource_scan_list, .site = 2371, .handler = 2420, .function = "FreeDynMem_wnds_Profile",
    .layout = ErrorLayout::COMPACT, .detail = "incorrect input parameters: pSTR_RW_PRFL = %p",
    .result = kBadInput};
// clang-format on
