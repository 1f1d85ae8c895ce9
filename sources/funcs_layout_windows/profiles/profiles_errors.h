// Everything that can go wrong in the Profile and Action lists, loading, dropping and Apply.
#pragma once

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"

// clang-format off
// Quirk: the text is handed over as bytes, its title is not; users compare reports between versions.
inline constexpr ErrorRow kCbProfileInput{
    .source = &kSource_profiles, .site = 9672, .handler = 9711, .function = "onWM_COMMAND_CB_Profile",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\nhwndCtl = %p, pCB_mng_STR = %p",
    .result = kBadInput, .encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kAddStringInput{
    .source = &kSource_profiles, .site = 9777, .handler = 9874, .function = "CB_Profile_add_string",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\np_CB_mng_STR = %p, p_tc_sz_name = %p",
    .result = kBadInput};
inline constexpr ErrorRow kAddStringInsert{
    .source = &kSource_profiles, .site = 9841, .function = "CB_Profile_add_string",
    .layout = ErrorLayout::PLAIN, .detail = "error while inserting string to ComboBox Profile", .result = 1};
inline constexpr ErrorRow kDelStringInput{
    .source = &kSource_profiles, .site = 9907, .handler = 10002, .function = "CB_Profile_del_string",
    .layout = ErrorLayout::HANDLER_FIRST, .detail = "error, incorrect input parameters:\np_CB_mng_STR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kDelStringSelection{
    .source = &kSource_profiles, .site = 9925, .function = "CB_Profile_del_string",
    .layout = ErrorLayout::PLAIN,
    .detail = "error while deleting string from ComboBox Profile\nind > uiN_strs or 0 == uiN_strs",
    .result = 2};
inline constexpr ErrorRow kDelStringDelete{
    .source = &kSource_profiles, .site = 9938, .function = "CB_Profile_del_string",
    .layout = ErrorLayout::PLAIN, .detail = "error while deleting string from ComboBox Profile", .result = 2};
inline constexpr ErrorRow kActionInitInput{
    .source = &kSource_profiles, .site = 10044, .handler = 10121, .function = "CB_Action_init",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\nhwnd_CB_Action = %p, pCB_Action_mng_STR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kActionInitInsert{
    .source = &kSource_profiles, .site = 10063, .function = "CB_Action_init",
    .layout = ErrorLayout::PLAIN, .detail = "error while inserting string to ComboBox Action", .result = 1};
inline constexpr ErrorRow kCbActionInput{
    .source = &kSource_profiles, .site = 10182, .handler = 10219, .function = "onWM_COMMAND_CB_Action",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\nhwndCtl = %p, pCB_Action_mng_STR = %p",
    .result = kBadInput};

inline constexpr ErrorRow kApplyInput{
    .source = &kSource_profiles, .site = 10278, .handler = 10402, .function = "onButton_Apply_press",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n"
              "p_CB_Profile_manage_STR = %p, p_CB_Action_manage_STR = %p, p_LoadedProfiles_STR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kRestoreInput{
    .source = &kSource_profiles, .site = 10472, .handler = 10560, .function = "Restore_Move_Size_wnds_Profile",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\np_LoadedProfiles_STR = %p",
    .result = kBadInput};
// Quirk: the text names the files area without its value; users compare reports between versions.
inline constexpr ErrorRow kRestoreNoFiles{
    .source = &kSource_profiles, .site = 10480, .handler = 10587, .function = "Restore_Move_Size_wnds_Profile",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\np_LoadedProfiles_STR->pc_raw_FilesProfile",
    .result = kBadInput};

inline constexpr ErrorRow kStoreInitInput{
    .source = &kSource_profiles, .site = 4505, .handler = 4588, .function = "preInitOnce_onLoadProfile",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\nptr_LoadedProfiles_STR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kStoreInitHandles{
    .source = &kSource_profiles, .site = 4539, .handler = 4613, .function = "preInitOnce_onLoadProfile",
    .layout = ErrorLayout::HANDLER_FIRST, .detail = "\nerror <- VirtualAlloc()", .result = -2};
inline constexpr ErrorRow kStoreInitFiles{
    .source = &kSource_profiles, .site = 4557, .handler = 4613, .function = "preInitOnce_onLoadProfile",
    .layout = ErrorLayout::HANDLER_FIRST, .detail = "\nerror <- VirtualAlloc()", .result = -2};
inline constexpr ErrorRow kStoreFinishInput{
    .source = &kSource_profiles, .site = 4666, .handler = 4714, .function = "finishWork_onLoadProfile",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\nptr_LoadedProfiles_STR = %p",
    .result = kBadInput};
inline constexpr ErrorRow kAddProfileInput{
    .source = &kSource_profiles, .site = 4809, .handler = 5202, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters:\n\np_LoadedProfiles_STR = %p, "
              "pc_arr1D_hwnd_Programs_only = %p, pc_arr1D_hwnd_Folders_only = %p, pc_raw_FileProfile = %p, "
              "size_FileProfile = %d, uiN_Folders = %d, uiN_Programs = %d",
    .result = kBadInput};
inline constexpr ErrorRow kAddProfileNotSetUp{
    .source = &kSource_profiles, .site = 4826, .handler = 5234, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "error, incorrect input parameters (fields of STRUCTURE):\n\nuiMax_num_loaded_prfls = %d, "
              "uiSize_DynMem_hwnds_wnds_prfl = %d, uiSize_DynMem_files = %d, pc_hwnds_wnds_of_prfl = %p, "
              "pc_raw_FilesProfile = %p",
    .result = -2};
inline constexpr ErrorRow kAddProfileMax{
    .source = &kSource_profiles, .site = 4845, .handler = 5266, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "\n\nerror, exceed amount of loaded Profiles, max = %d, already loaded = %d\n"
              "Profile will not be added\n",
    .result = 2};
inline constexpr ErrorRow kAddProfileHandlesFirst{
    .source = &kSource_profiles, .site = 4869, .handler = 5266, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "\n\nerror, exceed amount of DynMem for storage arrays of hwnds of Profile windows\n"
              "Profile will not be added\n",
    .result = 2};
inline constexpr ErrorRow kAddProfileHandlesNext{
    .source = &kSource_profiles, .site = 4890, .handler = 5266, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "\n\nerror, exceed amount of DynMem for storage arrays of hwnds of Profile windows\n"
              "Profile will not be added\n",
    .result = 2};
inline constexpr ErrorRow kAddProfileFilesFirst{
    .source = &kSource_profiles, .site = 4912, .handler = 5266, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "\n\nerror, exceed amount of DynMem for storage files of Profile\n"
              "Profile will not be added\n",
    .result = 2};
inline constexpr ErrorRow kAddProfileFilesNext{
    .source = &kSource_profiles, .site = 4933, .handler = 5266, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::HANDLER_FIRST,
    .detail = "\n\nerror, exceed amount of DynMem for storage files of Profile\n"
              "Profile will not be added\n",
    .result = 2};
inline constexpr ErrorRow kAddProfileLastByte{
    .source = &kSource_profiles, .site = 5087, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::PLAIN, .detail = "uiOff_LastByte < 3", .result = 1, .title = "warning,error"};
inline constexpr ErrorRow kAddProfileNoName{
    .source = &kSource_profiles, .site = 5131, .function = "add_profile_data_to_DynMem",
    .layout = ErrorLayout::PLAIN, .detail = "0 == flag_offset_PrfName_beg_found",
    .result = 1, .title = "warning,error"};

inline constexpr ErrorRow kLoadInput{
    .source = &kSource_profiles, .site = 5470, .handler = 7073, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED,
    .detail = "incorrect input:\nhwnd_MW = %p, ptcFilePath_Profile = %p\np_LoadedProfiles_STR = %p\n"
              "p_CB_Profile_mng_STR = %p",
    .result = kBadInput};
// Quirk: the dialog's failure has the text of CreateFile's; users compare reports between versions.
inline constexpr ErrorRow kLoadDialog{
    .source = &kSource_profiles, .site = 5521, .handler = 7095, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()",
    .result = -2};
inline constexpr ErrorRow kLoadCreateFile{
    .source = &kSource_profiles, .site = 5570, .handler = 7095, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()",
    .result = -2};
inline constexpr ErrorRow kLoadZeroSize{
    .source = &kSource_profiles, .site = 5581, .handler = 7117, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error: zero_file_size <- GetFileSizeEx( )",
    .result = -3};
inline constexpr ErrorRow kLoadSeek{
    .source = &kSource_profiles, .site = 5601, .handler = 7139, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error: error <- SetFilePointer( )",
    .result = -4};
// Quirk: this text and that of kLoadReadFile name ReadFileEx for ReadFile; users compare reports between
// versions.
inline constexpr ErrorRow kLoadReadSignature{
    .source = &kSource_profiles, .site = 5617, .handler = 7161, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error: error <- ReadFileEx( )",
    .result = -5};
inline constexpr ErrorRow kLoadSignature{
    .source = &kSource_profiles, .site = 5629, .handler = 7183, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "invalid type of file, signature doesn't coincide",
    .result = -6};
inline constexpr ErrorRow kLoadFileMemory{
    .source = &kSource_profiles, .site = 5647, .handler = 7205, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error <- DynMemAlloc for file's data", .result = -7};
inline constexpr ErrorRow kLoadReadFile{
    .source = &kSource_profiles, .site = 5676, .handler = 7161, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "one of callable functions returned error: error <- ReadFileEx( )",
    .result = -5};
inline constexpr ErrorRow kLoadSignatureOfCopy{
    .source = &kSource_profiles, .site = 5689, .handler = 7183, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP, .detail = "invalid type of file, signature doesn't coincide",
    .result = -6};
inline constexpr ErrorRow kLoadNoWindows{
    .source = &kSource_profiles, .site = 5701, .handler = 7272, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "error, 0 == number of windows in profile (data read from file)",
    .result = -10};
inline constexpr ErrorRow kLoadPastEnd{
    .source = &kSource_profiles, .site = 5713, .handler = 7294, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "error, file is damaged: data of profile run past end of file\nentry = %u, field = %s",
    .result = -11};
inline constexpr ErrorRow kLoadAddProfile{
    .source = &kSource_profiles, .site = 6987, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN, .detail = "error <- add_profile_data_to_DynMem()", .result = 1};
inline constexpr ErrorRow kLoadAddName{
    .source = &kSource_profiles, .site = 7003, .function = "onButton_LoadProfile_clicked",
    .layout = ErrorLayout::PLAIN, .detail = "error <- CB_Profile_add_string()", .result = 1};

// Quirk: texts and titles of dropped files are handed over as bytes; users compare reports between versions.
inline constexpr ErrorRow kDropInput{
    .source = &kSource_profiles, .site = 9102, .handler = 9207, .function = "on_wm_dropfiles",
    .layout = ErrorLayout::SPACED, .detail = "incorrect input:\nhwnd_MW = %p, hDrop = %p",
    .result = kBadInput, .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kDropMemory{
    .source = &kSource_profiles, .site = 9120, .handler = 9229, .function = "on_wm_dropfiles",
    .layout = ErrorLayout::SPACED_GAP, .detail = "error while DynMemAlloc()",
    .result = -2, .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kDropQuery{
    .source = &kSource_profiles, .site = 9142, .handler = 9251, .function = "on_wm_dropfiles",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "error, one of callable functions returned error, DragQueryFile( )",
    .result = -3, .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
inline constexpr ErrorRow kDropLoad{
    .source = &kSource_profiles, .site = 9168, .handler = 9273, .function = "on_wm_dropfiles",
    .layout = ErrorLayout::SPACED_GAP,
    .detail = "error, one of callable functions returned error, onButton_LoadProfile_clicked()",
    .result = -4, .encoding = ErrorEncoding::BYTES, .title_encoding = ErrorEncoding::BYTES};
// clang-format on
