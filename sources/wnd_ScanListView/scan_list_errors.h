// Everything that can go wrong in the List of Windows window and its commands.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_scan_list;
extern wchar_t message_scan_list[kMessageCapacity_units];
inline constexpr ErrorSource kSource_scan_list{
    .file = "sources/wnd_ScanListView", .error_site = &error_site_scan_list, .message = message_scan_list};

// clang-format off
// Quirk: the texts of the next two are handed over as bytes; users compare reports between versions.
inline constexpr ErrorRow kListCreateMove{
    .source = &kSource_scan_list, .site = 152, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::PLAIN, .detail = "err, hWndBTN01=NULL, func WndProc",
    .title = "i", .encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kListCreateProfileButton{
    .source = &kSource_scan_list, .site = 171, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::PLAIN, .detail = "err, hWndBTN02=NULL, func WndProc",
    .title = "i", .encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kListNoDc{
    .source = &kSource_scan_list, .site = 189, .handler = 431, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT, .detail = "one of callable functions returned error, GetDC( )"};
inline constexpr ErrorRow kListFontSize{
    .source = &kSource_scan_list, .site = 203, .handler = 453, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error, FindFontSize_fit_H_and_W()"};
inline constexpr ErrorRow kListFont{
    .source = &kSource_scan_list, .site = 218, .handler = 475, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT, .detail = "one of callable functions returned error, vex_CreateFont()"};
inline constexpr ErrorRow kListMoveFailed{
    .source = &kSource_scan_list, .site = 287, .handler = 497, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT, .detail = "iRetCode = %d <- onButton_Move()"};
inline constexpr ErrorRow kListCreateProfileFailed{
    .source = &kSource_scan_list, .site = 304, .handler = 519, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT, .detail = "iRetCode = %d <- onButton_Create_Profile()"};
inline constexpr ErrorRow kListNameFailed{
    .source = &kSource_scan_list, .site = 358, .handler = 541, .function = "WndProc_ScanListView",
    .layout = ErrorLayout::COMPACT, .detail = "iRetCode = %d <- on_WM_COPYDATA_on_wnd_NameOfProfile()"};

// Quirk: the texts on building the list are handed over as bytes, but for one, and so are the titles "ERROR";
// users compare reports between versions.
inline constexpr ErrorRow kListviewInput{
    .source = &kSource_scan_list, .site = 612, .handler = 803, .function = "on_WM_CREATE_02_ListView",
    .layout = ErrorLayout::SPACED_END_OF_LINE, .detail = "incorrect input parameters",
    .result = kBadInput, .encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kListviewCreate{
    .source = &kSource_scan_list, .site = 641, .function = "on_WM_CREATE_02_ListView",
    .layout = ErrorLayout::SHOUTED,
    .detail = "NULL <- CreateWindowEx()\nw = %d\nh = %d\nuiCtlID = %u\nhwndThis = %p\nhInst = %p\n"
              "WC_LISTVIEW = %d",
    .title = "ERROR", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
// Of this one the title alone.
inline constexpr ErrorRow kListviewInsertItem{
    .source = &kSource_scan_list, .site = 718, .function = "on_WM_CREATE_02_ListView",
    .layout = ErrorLayout::PLAIN, .detail = "-1 <-- InsertItem, cycle i",
    .title = "ERROR", .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kListviewInsertSubitem{
    .source = &kSource_scan_list, .site = 746, .function = "on_WM_CREATE_02_ListView",
    .layout = ErrorLayout::PLAIN, .detail = "-1 <-- InsertItem, cycle j",
    .title = "ERROR", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kListviewNotifyInput{
    .source = &kSource_scan_list, .site = 871, .function = "on_WM_NOTIFY_ListView",
    .layout = ErrorLayout::SHOUTED, .detail = "",
    .result = kBadInput, .title = "ERROR", .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};

// Quirk: file and function are shown as bytes; users compare reports between versions.
inline constexpr ErrorRow kMoveInput{
    .source = &kSource_scan_list, .site = 1018, .handler = 1127, .function = "onButton_Move",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR, incorrect input parameters",
    .result = kBadInput, .encoding = ErrorEncoding::WIDE_BYTE_FIELDS};
inline constexpr ErrorRow kMoveImpossible{
    .source = &kSource_scan_list, .site = 1083, .function = "onButton_Move",
    .layout = ErrorLayout::PLAIN,
    .detail = "impossible to move one of windows:\nx = %d\ny = %d\nwidth = %d\nheight = %d\n"
              "Probably, it was closed. Try to SCAN again.",
    .result = 1, .style = MB_ICONINFORMATION};

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
