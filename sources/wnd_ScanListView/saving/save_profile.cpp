#include "sources/wnd_ScanListView/saving/save_profile.h"

#include <array>

#include <commdlg.h>

#include "sources/win32/own_window.h"
#include "sources/win32/owners/com_ptr.h"
#include "sources/wnd_ScanListView/saving/saving_errors.h"
#include "sources/wnd_ScanListView/saving/saving_notices.h"

namespace
{

// Twice what the dialog is told of: MAX_PATH.
using SavePath = std::array<wchar_t, std::size_t{2} * MAX_PATH>;

// Asks the user where to save. False when there is no answer.
bool choose_file(HWND owner, SavePath* path)
{
    std::array<wchar_t, MAX_PATH> title{};
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFile = path->data();
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrFileTitle = title.data();
    dialog.nMaxFileTitle = static_cast<DWORD>(title.size());
    dialog.lpstrTitle = L"Save Profile";
    dialog.lpstrDefExt = L"txt";
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_EXPLORER;
    const ComHold com; // Re-entrancy: the dialog lets messages in, also one that closes the main window.
    return GetSaveFileNameW(&dialog) != FALSE;
}

// Creates the file; a failure is told to the user and gives INVALID_HANDLE_VALUE.
HANDLE create_file(const wchar_t* path)
{
    const HANDLE file = CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return file;
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_EXISTS)
        report<kSaveFileExists>();
    else
        report<kSaveCreateFile>(error);
    return INVALID_HANDLE_VALUE;
}

// Why a file that was created holds no profile; ERROR_SUCCESS where there was no failure.
struct SaveErrors {
    DWORD write;
    DWORD remove;
};

// Closes the file; one that was created but not wholly written is emptied and deleted. Where it cannot be
// deleted the emptied file is left: no reader takes it for a profile.
SaveErrors close_file(HANDLE file, const wchar_t* path, DWORD write_error)
{
    if (file == INVALID_HANDLE_VALUE)
        return {};
    SaveErrors errors{.write = write_error, .remove = ERROR_SUCCESS};
    if (write_error != ERROR_SUCCESS) {
        SetFilePointer(file, 0, nullptr, FILE_BEGIN);
        SetEndOfFile(file);
    }
    CloseHandle(file);
    if (write_error != ERROR_SUCCESS && DeleteFileW(path) == FALSE)
        errors.remove = GetLastError();
    return errors;
}

// Tells the user when the new file holds no profile.
void report_outcome(const SaveErrors& errors)
{
    if (errors.remove != ERROR_SUCCESS)
        report<kSaveNotDeleted>(errors.write, errors.remove);
    else if (errors.write != ERROR_SUCCESS)
        report<kSaveNotWritten>(errors.write);
}

} // namespace

std::int32_t on_WM_COPYDATA_on_wnd_NameOfProfile(HWND hwnd_wnd_ListOfWnds, HWND hwnd_wnd_NameProfile,
                                                 const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA,
                                                 STR_RW_PRFL* pSTR_RW_PRFL)
{
    if (hwnd_wnd_ListOfWnds == nullptr || hwnd_wnd_NameProfile == nullptr || pSTR_ENUM_WNDS_DATA == nullptr ||
        pSTR_RW_PRFL == nullptr)
        return report<kSaveInput>(hwnd_wnd_ListOfWnds, hwnd_wnd_NameProfile, pSTR_ENUM_WNDS_DATA,
                                  pSTR_RW_PRFL);
    destroy_own_window_of_class(hwnd_wnd_NameProfile, kClass_ProfileName);

    SavePath path{L"Profile_01"};
    if (!choose_file(hwnd_wnd_ListOfWnds, &path))
        return kSave_cancelled;
    // Quirk: the writer runs without a file as well; what it has to refuse is then still told.
    const HANDLE file = create_file(path.data());
    DWORD write_error = ERROR_SUCCESS;
    const std::int32_t written =
        WriteData_Profile(file, pSTR_RW_PRFL, pSTR_RW_PRFL->N_wnds_in_profile,
                          pSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder, pSTR_RW_PRFL->p_arr1D_ui_x,
                          pSTR_RW_PRFL->p_arr1D_ui_y, pSTR_RW_PRFL->p_arr1D_ui_w, pSTR_RW_PRFL->p_arr1D_ui_h,
                          pSTR_RW_PRFL->p_arr1D_ui_len_path, pSTR_RW_PRFL->p_arr_strz_paths, &write_error);
    // Quirk: after a refusal the file stays open and the arrays stay; the next Create Profile releases the
    // arrays.
    if (written < 0)
        return report<kSaveWriterFailed>(written);
    const SaveErrors errors = close_file(file, path.data(), write_error);
    const std::int32_t freed = FreeDynMem_wnds_Profile(pSTR_RW_PRFL);
    report_outcome(errors);
    if (freed < 0)
        return report<kSaveFreeFailed>(freed);
    return 1;
}
