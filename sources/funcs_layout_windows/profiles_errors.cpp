#include "sources/funcs_layout_windows/profiles_errors.h"

#include <array>

#include "sources/funcs_layout_windows/apply_command.h"
#include "sources/funcs_layout_windows/combo_boxes.h"
#include "sources/funcs_layout_windows/dropped_files.h"
#include "sources/funcs_layout_windows/launching.h"
#include "sources/funcs_layout_windows/layout_windows_errors.h"
#include "sources/funcs_layout_windows/loaded_profiles.h"
#include "sources/funcs_layout_windows/profile_loading.h"
#include "sources/funcs_layout_windows/window_matching.h"

namespace
{

using enum ErrorLayout;
using enum ErrorEncoding;

constexpr char kLoad[] = "onButton_LoadProfile_clicked";
constexpr char kAdd[] = "add_profile_data_to_DynMem";
constexpr char kInit[] = "preInitOnce_onLoadProfile";
constexpr char kDrop[] = "on_wm_dropfiles";
constexpr char kReadFile[] = "one of callable functions returned error: error <- ReadFileEx( )";
constexpr char kCreateFile[] =
    "one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()";
constexpr char kSignature[] = "invalid type of file, signature doesn't coincide";
constexpr char kWorkingMemory[] = "error while DynMemAlloc";
// These begin with a line feed of their own: the reports have an empty line where others of their layout have
// none.
constexpr char kStoreMemory[] = "\nerror <- VirtualAlloc()";
constexpr char kStoreArgument[] = "error, incorrect input parameters:\n\nptr_LoadedProfiles_STR = %p";
constexpr char kHandlesLimit[] =
    "\n\nerror, exceed amount of DynMem for storage arrays of hwnds of Profile windows\n"
    "Profile will not be added\n";
constexpr char kFilesLimit[] = "\n\nerror, exceed amount of DynMem for storage files of Profile\n"
                               "Profile will not be added\n";

// clang-format off
constexpr std::array<ErrorSite, PROFILES_ROWS> kSites{{
    // The text is handed over as 8-bit bytes on purpose, its title is not.
    {.id = SITE_CB_PROFILE_INPUT, .site = 9672, .handler = 9711, .function = "onWM_COMMAND_CB_Profile",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\nhwndCtl = %p, pCB_mng_STR = %p",
     .result = kCombo_bad_input, .encoding = BYTES},
    {.id = SITE_ADD_STRING_INPUT, .site = 9777, .handler = 9874, .function = "CB_Profile_add_string",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\np_CB_mng_STR = %p, p_tc_sz_name = %p",
     .result = kCombo_bad_input},
    {.id = SITE_ADD_STRING_FULL, .site = 9792, .handler = 0, .function = "CB_Profile_add_string",
     .layout = PLAIN, .detail = "impossible to add string to ComboBox, max number exceeded",
     .result = kCombo_refused, .title = "warning"},
    {.id = SITE_ADD_STRING_INSERT, .site = 9841, .handler = 0, .function = "CB_Profile_add_string",
     .layout = PLAIN, .detail = "error while inserting string to ComboBox Profile", .result = 1},
    {.id = SITE_DEL_STRING_INPUT, .site = 9907, .handler = 10002, .function = "CB_Profile_del_string",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\np_CB_mng_STR = %p",
     .result = kCombo_bad_input},
    {.id = SITE_DEL_STRING_SELECTION, .site = 9925, .handler = 0, .function = "CB_Profile_del_string",
     .layout = PLAIN,
     .detail = "error while deleting string from ComboBox Profile\nind > uiN_strs or 0 == uiN_strs",
     .result = kCombo_refused},
    {.id = SITE_DEL_STRING_DELETE, .site = 9938, .handler = 0, .function = "CB_Profile_del_string",
     .layout = PLAIN, .detail = "error while deleting string from ComboBox Profile", .result = kCombo_refused},
    {.id = SITE_ACTION_INIT_INPUT, .site = 10044, .handler = 10121, .function = "CB_Action_init",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\nhwnd_CB_Action = %p, pCB_Action_mng_STR = %p",
     .result = kCombo_bad_input},
    {.id = SITE_ACTION_INIT_INSERT, .site = 10063, .handler = 0, .function = "CB_Action_init",
     .layout = PLAIN, .detail = "error while inserting string to ComboBox Action", .result = 1},
    {.id = SITE_CB_ACTION_INPUT, .site = 10182, .handler = 10219, .function = "onWM_COMMAND_CB_Action",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\nhwndCtl = %p, pCB_Action_mng_STR = %p",
     .result = kCombo_bad_input},

    {.id = SITE_APPLY_INPUT, .site = 10278, .handler = 10402, .function = "onButton_Apply_press",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\n"
               "p_CB_Profile_manage_STR = %p, p_CB_Action_manage_STR = %p, p_LoadedProfiles_STR = %p",
     .result = kApply_bad_input},
    {.id = SITE_APPLY_NO_ACTION, .site = 10291, .handler = 0, .function = "onButton_Apply_press",
     .layout = PLAIN, .detail = "There is no selected item in \"Action\" list", .result = 1, .title = "info"},
    {.id = SITE_APPLY_NO_PROFILE, .site = 10304, .handler = 0, .function = "onButton_Apply_press",
     .layout = PLAIN,
     .detail = "There is no selected item in \"Profile\" list.\nSelect or Load at least one Profile.",
     .result = 1, .title = "info"},
    {.id = SITE_RESTORE_INPUT, .site = 10472, .handler = 10560, .function = "Restore_Move_Size_wnds_Profile",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\np_LoadedProfiles_STR = %p",
     .result = kApply_bad_input},
    {.id = SITE_RESTORE_NO_FILES, .site = 10480, .handler = 10587, .function = "Restore_Move_Size_wnds_Profile",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\n\np_LoadedProfiles_STR->pc_raw_FilesProfile",
     .result = kApply_bad_input},

    {.id = SITE_STORE_INIT_INPUT, .site = 4505, .handler = 4588, .function = kInit,
     .layout = HANDLER_FIRST, .detail = kStoreArgument, .result = kStore_bad_input},
    {.id = SITE_STORE_INIT_HANDLES, .site = 4539, .handler = 4613, .function = kInit,
     .layout = HANDLER_FIRST, .detail = kStoreMemory, .result = kStore_no_memory},
    {.id = SITE_STORE_INIT_FILES, .site = 4557, .handler = 4613, .function = kInit,
     .layout = HANDLER_FIRST, .detail = kStoreMemory, .result = kStore_no_memory},
    {.id = SITE_STORE_FINISH_INPUT, .site = 4666, .handler = 4714, .function = "finishWork_onLoadProfile",
     .layout = HANDLER_FIRST, .detail = kStoreArgument, .result = kStore_bad_input},
    {.id = SITE_ADD_PROFILE_INPUT, .site = 4809, .handler = 5202, .function = kAdd,
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\n\np_LoadedProfiles_STR = %p, "
               "pc_arr1D_hwnd_Programs_only = %p, pc_arr1D_hwnd_Folders_only = %p, pc_raw_FileProfile = %p, "
               "size_FileProfile = %d, uiN_Folders = %d, uiN_Programs = %d",
     .result = kStore_bad_input},
    {.id = SITE_ADD_PROFILE_NOT_SET_UP, .site = 4826, .handler = 5234, .function = kAdd,
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters (fields of STRUCTURE):\n\nuiMax_num_loaded_prfls = %d, "
               "uiSize_DynMem_hwnds_wnds_prfl = %d, uiSize_DynMem_files = %d, pc_hwnds_wnds_of_prfl = %p, "
               "pc_raw_FilesProfile = %p",
     .result = kStore_not_set_up},
    {.id = SITE_ADD_PROFILE_MAX, .site = 4845, .handler = 5266, .function = kAdd,
     .layout = HANDLER_FIRST,
     .detail = "\n\nerror, exceed amount of loaded Profiles, max = %d, already loaded = %d\n"
               "Profile will not be added\n",
     .result = kStore_limit},
    {.id = SITE_ADD_PROFILE_HANDLES_FIRST, .site = 4869, .handler = 5266, .function = kAdd,
     .layout = HANDLER_FIRST, .detail = kHandlesLimit, .result = kStore_limit},
    {.id = SITE_ADD_PROFILE_HANDLES_NEXT, .site = 4890, .handler = 5266, .function = kAdd,
     .layout = HANDLER_FIRST, .detail = kHandlesLimit, .result = kStore_limit},
    {.id = SITE_ADD_PROFILE_FILES_FIRST, .site = 4912, .handler = 5266, .function = kAdd,
     .layout = HANDLER_FIRST, .detail = kFilesLimit, .result = kStore_limit},
    {.id = SITE_ADD_PROFILE_FILES_NEXT, .site = 4933, .handler = 5266, .function = kAdd,
     .layout = HANDLER_FIRST, .detail = kFilesLimit, .result = kStore_limit},
    {.id = SITE_ADD_PROFILE_LAST_BYTE, .site = 5087, .handler = 0, .function = kAdd,
     .layout = PLAIN, .detail = "uiOff_LastByte < 3", .result = 1, .title = "warning,error"},
    {.id = SITE_ADD_PROFILE_NO_NAME, .site = 5131, .handler = 0, .function = kAdd,
     .layout = PLAIN, .detail = "0 == flag_offset_PrfName_beg_found", .result = 1, .title = "warning,error"},

    {.id = SITE_LOAD_INPUT, .site = 5470, .handler = 7073, .function = kLoad,
     .layout = SPACED,
     .detail = "incorrect input:\nhwnd_MW = %p, ptcFilePath_Profile = %p\np_LoadedProfiles_STR = %p\n"
               "p_CB_Profile_mng_STR = %p",
     .result = kLoad_bad_input},
    {.id = SITE_LOAD_DIALOG, .site = 5521, .handler = 7095, .function = kLoad,
     .layout = SPACED_GAP, .detail = kCreateFile, .result = kLoad_not_opened},
    {.id = SITE_LOAD_CREATE_FILE, .site = 5570, .handler = 7095, .function = kLoad,
     .layout = SPACED_GAP, .detail = kCreateFile, .result = kLoad_not_opened},
    {.id = SITE_LOAD_ZERO_SIZE, .site = 5581, .handler = 7117, .function = kLoad,
     .layout = SPACED_GAP, .detail = "one of callable functions returned error: zero_file_size <- GetFileSizeEx( )",
     .result = kLoad_empty_file},
    {.id = SITE_LOAD_SEEK, .site = 5601, .handler = 7139, .function = kLoad,
     .layout = SPACED_GAP, .detail = "one of callable functions returned error: error <- SetFilePointer( )",
     .result = kLoad_seek_failed},
    {.id = SITE_LOAD_READ_SIGNATURE, .site = 5617, .handler = 7161, .function = kLoad,
     .layout = SPACED_GAP, .detail = kReadFile, .result = kLoad_read_failed},
    {.id = SITE_LOAD_SIGNATURE, .site = 5629, .handler = 7183, .function = kLoad,
     .layout = SPACED_GAP, .detail = kSignature, .result = kLoad_wrong_signature},
    {.id = SITE_LOAD_FILE_MEMORY, .site = 5647, .handler = 7205, .function = kLoad,
     .layout = SPACED_GAP, .detail = "error <- DynMemAlloc for file's data", .result = kLoad_no_file_memory},
    {.id = SITE_LOAD_READ_FILE, .site = 5676, .handler = 7161, .function = kLoad,
     .layout = SPACED_GAP, .detail = kReadFile, .result = kLoad_read_failed},
    {.id = SITE_LOAD_SIGNATURE_OF_COPY, .site = 5689, .handler = 7183, .function = kLoad,
     .layout = SPACED_GAP, .detail = kSignature, .result = kLoad_wrong_signature},
    {.id = SITE_LOAD_NO_WINDOWS, .site = 5701, .handler = 7272, .function = kLoad,
     .layout = SPACED_GAP, .detail = "error, 0 == number of windows in profile (data read from file)",
     .result = kLoad_no_windows},
    {.id = SITE_LOAD_PAST_END, .site = 5713, .handler = 7294, .function = kLoad,
     .layout = SPACED_GAP,
     .detail = "error, file is damaged: data of profile run past end of file\nentry = %u, field = %s",
     .result = kLoad_past_end},
    {.id = SITE_LOAD_MEMORY_PATHS, .site = 5754, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_RECORDS, .site = 5768, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_PROGRAMS, .site = 5783, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_PROGRAMS_RESULT, .site = 5797, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_FOLDERS_COPY, .site = 5812, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_FAILED, .site = 5843, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_MEMORY_ENTRY_PATH, .site = 5858, .handler = 7249, .function = kLoad,
     .layout = SPACED_GAP, .detail = kWorkingMemory, .result = kLoad_no_memory},
    {.id = SITE_LOAD_ADD_PROFILE, .site = 6987, .handler = 0, .function = kLoad,
     .layout = PLAIN, .detail = "error <- add_profile_data_to_DynMem()", .result = 1},
    {.id = SITE_LOAD_ADD_NAME, .site = 7003, .handler = 0, .function = kLoad,
     .layout = PLAIN, .detail = "error <- CB_Profile_add_string()", .result = 1},

    {.id = SITE_LAUNCH_CHECK_FOLDERS, .site = 6147, .handler = 7383, .function = kLoad,
     .layout = SPACED_GAP,
     .detail = "error, one of callable functions returned error, check_folders_loaded()",
     .result = kLaunch_folder_check_failed},
    {.id = SITE_LAUNCH_FIND_PROGRAMS, .site = 6258, .handler = 0, .function = kLoad,
     .layout = PLAIN, .detail = "error <- find_hwnds_Programs_fill_array()", .result = 1},
    {.id = SITE_LAUNCH_PROGRAMS_FAILED, .site = 6391, .handler = 0, .function = kLoad,
     .layout = PLAIN,
     .detail = "Not all Programs were loaded\n\nNumber of Programs failed to load = %u\n"
               "Number of Programs in Profile = %u\nPossible reasons:\n"
               "Some Programs were deleted, renamed or check your access permissions",
     .result = 1, .title = "info", .style = MB_SETFOREGROUND},
    {.id = SITE_LAUNCH_FOLDERS_FAILED, .site = 6412, .handler = 0, .function = kLoad,
     .layout = PLAIN,
     .detail = "Not all Directories were loaded\n\nNumber of Directories failed to load = %u\n"
               "Number of Directories in Profile = %u\nPossible reasons:\n"
               "Some Directories were deleted, renamed or check your access permissions",
     .result = 1, .title = "info", .style = MB_SETFOREGROUND},
    {.id = SITE_LAUNCH_PROGRAMS_NOT_DETECTED, .site = 6433, .handler = 0, .function = kLoad,
     .layout = PLAIN, .detail = "Not all Programs of Profile were detected after launching\n",
     .result = 1, .title = "info", .style = MB_SETFOREGROUND},
    {.id = SITE_LAUNCH_FOLDERS_NOT_DETECTED, .site = 6454, .handler = 0, .function = kLoad,
     .layout = PLAIN, .detail = "Not all Folders of Profile were detected after launching\n",
     .result = 1, .title = "info", .style = MB_SETFOREGROUND},

    {.id = SITE_FIND_PROGRAMS_INPUT, .site = 7466, .handler = 7562, .function = "find_hwnds_Programs_fill_array",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR = %p, "
               "pc_arr1D_hwnd_Programs_only = %p, uiN_wnds = %u\n",
     .result = kMatch_bad_input},
    {.id = SITE_FIND_PROGRAMS_FIELD, .site = 7480, .handler = 7590, .function = "find_hwnds_Programs_fill_array",
     .layout = HANDLER_FIRST,
     .detail = "error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR->p_hwnd_arr = %p, "
               "p_HWNDs_loadedPrgsProfile_STR->ptcBuf = %p, p_HWNDs_loadedPrgsProfile_STR->pcFileData = %p, "
               "p_HWNDs_loadedPrgsProfile_STR->uiSize_chars = %d, "
               "p_HWNDs_loadedPrgsProfile_STR->uiSize_bytes = %d\n",
     .result = kMatch_bad_record},
    // The two reports of the folder matcher show file and function as unconverted bytes on purpose.
    {.id = SITE_LOADED_FOLDERS_INPUT, .site = 7698, .handler = 7976, .function = "GetHWNDS_of_LoadedFolders",
     .layout = SPACED,
     .detail = "incorrect input parameters: pcFileData = %p, p_arr1D_hwnd = %p",
     .result = kMatch_bad_input, .encoding = WIDE_BYTE_FIELDS},
    {.id = SITE_LOADED_FOLDERS_NO_LIST, .site = 7756, .handler = 8025, .function = "GetHWNDS_of_LoadedFolders",
     .layout = SPACED_GAP,
     .detail = "one of callable functions returned error\n\nfunction : CoCreateInstance()\n\n"
               "ret code hResult = %d",
     .result = kMatch_no_shell_list, .encoding = WIDE_BYTE_FIELDS},
    {.id = SITE_MATCH_NULL_LPARAM, .site = 8119, .handler = 8645, .function = "GetHWNDS_of_LoadedPrograms",
     .layout = COMPACT, .detail = "error, incorrect input parameters\nlParam = %p", .result = FALSE},
    // The line for uiSize_bytes has no value on purpose.
    {.id = SITE_MATCH_NULL_FIELD, .site = 8136, .handler = 8674, .function = "GetHWNDS_of_LoadedPrograms",
     .layout = COMPACT,
     .detail = "error, incorrect input parameters\npParams_STR->p_hwnd_arr = %p\npParams_STR->ptcBuf = %p\n"
               "pParams_STR->uiSize_chars = %u\npParams_STR->uiSize_bytes\npParams_STR->pcFileData = %p\n"
               "pParams_STR->pc_arr_STRs_InfoLoadedPrg = %p\npParams_STR->N_prgs = %u",
     .result = FALSE},
    {.id = SITE_MATCH_MODULE_NAME, .site = 8405, .handler = 8713, .function = "GetHWNDS_of_LoadedPrograms",
     .layout = COMPACT, .detail = "ERROR <- GetModuleFileNameEx()", .result = FALSE},
    {.id = SITE_CHECK_FOLDERS_INPUT, .site = 9337, .handler = 9460, .function = "check_folders_loaded",
     .layout = SPACED_GAP,
     .detail = "incorrect input parameters: pcFileData = %p, pc_arr1D_hwnd = %p, uiN_wnds = %u",
     .result = kMatch_bad_input},

    // The reports of dropped files are 8-bit throughout and handed over unconverted on purpose.
    {.id = SITE_DROP_INPUT, .site = 9102, .handler = 9207, .function = kDrop,
     .layout = SPACED, .detail = "incorrect input:\nhwnd_MW = %p, hDrop = %p",
     .result = kDrop_bad_input, .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_DROP_MEMORY, .site = 9120, .handler = 9229, .function = kDrop,
     .layout = SPACED_GAP, .detail = "error while DynMemAlloc()",
     .result = kDrop_no_memory, .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_DROP_QUERY, .site = 9142, .handler = 9251, .function = kDrop,
     .layout = SPACED_GAP, .detail = "error, one of callable functions returned error, DragQueryFile( )",
     .result = kDrop_no_path, .encoding = BYTES, .title_encoding = BYTES},
    {.id = SITE_DROP_LOAD, .site = 9168, .handler = 9273, .function = kDrop,
     .layout = SPACED_GAP,
     .detail = "error, one of callable functions returned error, onButton_LoadProfile_clicked()",
     .result = kDrop_load_failed, .encoding = BYTES, .title_encoding = BYTES},
}};
// clang-format on

static_assert(rows_are_in_order(kSites));

wchar_t message[kMessageCapacity_units];

} // namespace

const ErrorSource errors_profiles{.file = kFile_layout_windows,
                                  .error_site = &error_site_layout_windows,
                                  .message = message,
                                  .sites = kSites};
