// Everything that can go wrong in the Modify Cell window.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_modify_cell;
extern wchar_t message_modify_cell[kMessageCapacity_units];
inline constexpr char kFile_modify_cell[] = "sources/wnd_ModifyCell";
inline constexpr ErrorSource kSource_modify_cell{
    .file = kFile_modify_cell, .error_site = &error_site_modify_cell, .message = message_modify_cell};

// clang-format off
inline constexpr ErrorRow kModifyCreateOk{
    .source = &kSource_modify_cell, .site = 118, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "error <- CreateWindow() btn Ok, func WndProc"};
inline constexpr ErrorRow kModifyCreateCancel{
    .source = &kSource_modify_cell, .site = 139, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "error <- CreateWindow(), btn Cancel, func WndProc"};
inline constexpr ErrorRow kModifyCreateX{
    .source = &kSource_modify_cell, .site = 162, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "err, hEdit = NULL, func WndProc"};
inline constexpr ErrorRow kModifyCreateY{
    .source = &kSource_modify_cell, .site = 185, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "err, hEdit_Ypos = NULL, func WndProc"};
inline constexpr ErrorRow kModifyCreateWidth{
    .source = &kSource_modify_cell, .site = 207, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "err, hEdit_Width = NULL, func WndProc"};
// Quirk: the text names the width's edit box; users compare reports between versions.
inline constexpr ErrorRow kModifyCreateHeight{
    .source = &kSource_modify_cell, .site = 229, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "error, hEdit_Width = NULL, func WndProc_ModifyCell"};
inline constexpr ErrorRow kModifyNoDc{
    .source = &kSource_modify_cell, .site = 251, .handler = 547, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::COMPACT, .detail = "one of callable functions returned error : GetDC()"};
inline constexpr ErrorRow kModifyFontSize{
    .source = &kSource_modify_cell, .site = 264, .handler = 569, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error : FindFontSize_fit_H_and_W()"};
inline constexpr ErrorRow kModifyFont{
    .source = &kSource_modify_cell, .site = 283, .handler = 591, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::COMPACT, .detail = "one of callable functions returned error : vex_CreateFont()"};
inline constexpr ErrorRow kModifySubclass{
    .source = &kSource_modify_cell, .site = 318, .function = "WndProc_ModifyCell",
    .layout = ErrorLayout::PLAIN, .detail = "error, SetWindowLongPtr, GWL_WNDPROC, TAB focus changing"};
inline constexpr ErrorRow kModifyOkInput{
    .source = &kSource_modify_cell, .site = 642, .handler = 801, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters:\nhwndThis = %p, hwndListView = %p, pSTR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kModifyOkNoScan{
    .source = &kSource_modify_cell, .site = 655, .handler = 823, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT,
    .detail = "incorrect input parameters:\npcDynMem_WinHndls = %p, pcDynMem_GeomText = %p",
    .result = -2};
inline constexpr ErrorRow kModifyOkNoList{
    .source = &kSource_modify_cell, .site = 661, .handler = 834, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT, .detail = "the list of windows is gone:\nhwndListView = %p",
    .result = -4};
inline constexpr ErrorRow kModifyOkNoRow{
    .source = &kSource_modify_cell, .site = 668, .handler = 845, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT, .detail = "incorrect input parameters:\nrow = %d, counter_valid = %u",
    .result = -3};
inline constexpr ErrorRow kModifyOkNoEdits{
    .source = &kSource_modify_cell, .site = 681, .handler = 867, .function = "on_Button_OK",
    .layout = ErrorLayout::COMPACT,
    .detail = "the edit boxes went with another window Modify Cell:\nhEdit = %p, hEdit_Ypos = %p, "
              "hEdit_Width = %p, hEdit_Height = %p",
    .result = -5};
inline constexpr ErrorRow kModifyNoParent{
    .source = &kSource_modify_cell, .site = 934, .function = "WndProc_ModifyCell_Button",
    .layout = ErrorLayout::PLAIN, .detail = "error <- GetParent()", .title = "dbg, error"};
// clang-format on
