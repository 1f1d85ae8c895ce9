// Everything that can go wrong in start-up and the main window.
#pragma once

#include "errors/error_box.h"

extern std::uint32_t error_site_main;
extern wchar_t message_main[kMessageCapacity_units];
inline constexpr char kFile_main[] = "sources/main_prg";
inline constexpr ErrorSource kSource_main{
    .file = kFile_main, .error_site = &error_site_main, .message = message_main};

// clang-format off
inline constexpr ErrorRow kGetMessage{
    .source = &kSource_main, .site = 241, .function = "wWinMain",
    .layout = ErrorLayout::PLAIN, .detail = "-1 <- GetMessage()", .style = MB_ICONINFORMATION};
inline constexpr ErrorRow kCreateScanButton{
    .source = &kSource_main, .site = 402, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "err, hWndBTN00=NULL, func WndProc"};
inline constexpr ErrorRow kCreateLoadButton{
    .source = &kSource_main, .site = 431, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "error, hWndBTN_LoadProfile==NULL, func WndProc"};
inline constexpr ErrorRow kCreateCombos{
    .source = &kSource_main, .site = 512, .function = "WndProc",
    .layout = ErrorLayout::PLAIN,
    .detail = "error while creating ComboBox Profile | ComboBox Action | Button Apply, main window WndProc()"};
inline constexpr ErrorRow kCreateNoDc{
    .source = &kSource_main, .site = 563, .handler = 1228, .function = "WndProc",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- GetDC() of Main Window"};
inline constexpr ErrorRow kCreateFontSize{
    .source = &kSource_main, .site = 580, .handler = 1248, .function = "WndProc",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR while get font size for buttons"};
inline constexpr ErrorRow kCreateFont{
    .source = &kSource_main, .site = 604, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "error <- vex_CreateFont while WM_CREATE"};
inline constexpr ErrorRow kCreateCom{
    .source = &kSource_main, .site = 652, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "error <- CoInitializeEx(), impossible init COM"};
// Quirk: the text says Click for Clicked; users compare reports between versions.
inline constexpr ErrorRow kScanFailed{
    .source = &kSource_main, .site = 888, .handler = 1187, .function = "WndProc",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- onButton_Scan_Click()\nret code = %d"};
inline constexpr ErrorRow kStoreSetUpCommand{
    .source = &kSource_main, .site = 934, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "WndProc, WM_COMMAND, error <- preInitOnce_onLoadProfile()"};
inline constexpr ErrorRow kLoadFailed{
    .source = &kSource_main, .site = 951, .handler = 1269, .function = "WndProc",
    .layout = ErrorLayout::COMPACT,
    .detail = "one of callable functions returned error onButton_LoadProfile_clicked(), RetCode = %d"};
inline constexpr ErrorRow kStoreSetUpDrop{
    .source = &kSource_main, .site = 1107, .function = "WndProc",
    .layout = ErrorLayout::PLAIN, .detail = "WndProc, WM_DROPFILES, error <- preInitOnce_onLoadProfile()"};
// clang-format on
