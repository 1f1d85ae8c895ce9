// Everything that can go wrong in the List of Windows window, its list and Move.
#pragma once

#include "errors/error_box.h"
#include "sources/wnd_ScanListView/saving/scan_list_error_source.h"

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
// clang-format on
