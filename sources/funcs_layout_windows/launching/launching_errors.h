// Everything that can go wrong in launching a profile and in matching windows to its entries.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
inline constexpr ErrorRow kLaunchMemoryImagePath{
    .source = &kSource_profiles, .site = 5754, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryRecords{
    .source = &kSource_profiles, .site = 5768, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryPrograms{
    .source = &kSource_profiles, .site = 5783, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryProgramsResult{
    .source = &kSource_profiles, .site = 5797, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryFoldersResult{
    .source = &kSource_profiles, .site = 5812, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryFailed{
    .source = &kSource_profiles, .site = 5843, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchMemoryEntryPath{
    .source = &kSource_profiles, .site = 5858, .handler = 7249, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc", .result = -9};
inline constexpr ErrorRow kLaunchCheckFolders{
    .source = &kSource_profiles, .site = 6147, .handler = 7383, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "error, one of callable functions returned error, check_folders_loaded()",
    .result = -15};
inline constexpr ErrorRow kLaunchFindPrograms{
    .source = &kSource_profiles, .site = 6258, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN, .detail = "error <- find_hwnds_Programs_fill_array()", .result = 1};

inline constexpr ErrorRow kFindProgramsInput{
    .source = &kSource_profiles, .site = 7466, .handler = 7562, .function = "find_hwnds_Programs_fill_array",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR = %p, "
              "pc_arr1D_hwnd_Programs_only = %p, uiN_wnds = %u\n",
    .result = kBadInput};
inline constexpr ErrorRow kFindProgramsField{
    .source = &kSource_profiles, .site = 7480, .handler = 7590, .function = "find_hwnds_Programs_fill_array",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR->p_hwnd_arr = %p, "
              "p_HWNDs_loadedPrgsProfile_STR->ptcBuf = %p, p_HWNDs_loadedPrgsProfile_STR->pcFileData = %p, "
              "p_HWNDs_loadedPrgsProfile_STR->uiSize_chars = %d, "
              "p_HWNDs_loadedPrgsProfile_STR->uiSize_bytes = %d\n",
    .result = -2};
// Quirk: file and function are shown as bytes in the next two; users compare reports between versions.
inline constexpr ErrorRow kLoadedFoldersInput{
    .source = &kSource_profiles, .site = 7698, .handler = 7976, .function = "GetHWNDS_of_LoadedFolders",
    .layout = ErrorLayout::SPACED,
    .detail = "incorrect input parameters: pcFileData = %p, p_arr1D_hwnd = %p",
    .result = kBadInput, .encoding = ErrorEncoding::WIDE_BYTE_FIELDS};
inline constexpr ErrorRow kLoadedFoldersNoList{
    .source = &kSource_profiles, .site = 7756, .handler = 8025, .function = "GetHWNDS_of_LoadedFolders",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error\n\nfunction : CoCreateInstance()\n\n"
              "ret code hResult = %d",
    .result = -4, .encoding = ErrorEncoding::WIDE_BYTE_FIELDS};
inline constexpr ErrorRow kMatchNullLParam{
    .source = &kSource_profiles, .site = 8119, .handler = 8645, .function = "GetHWNDS_of_LoadedPrograms",
    .layout = ErrorLayout::COMPACT, .detail = "error, incorrect input parameters\nlParam = %p",
    .result = FALSE};
// Quirk: the line for uiSize_bytes has no value; users compare reports between versions.
inline constexpr ErrorRow kMatchNullField{
    .source = &kSource_profiles, .site = 8136, .handler = 8674, .function = "GetHWNDS_of_LoadedPrograms",
    .layout = ErrorLayout::COMPACT,
    .detail = "error, incorrect input parameters\npParams_STR->p_hwnd_arr = %p\npParams_STR->ptcBuf = %p\n"
              "pParams_STR->uiSize_chars = %u\npParams_STR->uiSize_bytes\npParams_STR->pcFileData = %p\n"
              "pParams_STR->pc_arr_STRs_InfoLoadedPrg = %p\npParams_STR->N_prgs = %u",
    .result = FALSE};
inline constexpr ErrorRow kMatchModuleName{
    .source = &kSource_profiles, .site = 8405, .handler = 8713, .function = "GetHWNDS_of_LoadedPrograms",
    .layout = ErrorLayout::COMPACT, .detail = "ERROR <- GetModuleFileNameEx()", .result = FALSE};
inline constexpr ErrorRow kCheckFoldersInput{
    .source = &kSource_profiles, .site = 9337, .handler = 9460, .function = "check_folders_loaded",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "incorrect input parameters: pcFileData = %p, pc_arr1D_hwnd = %p, uiN_wnds = %u",
    .result = kBadInput};
// clang-format on
