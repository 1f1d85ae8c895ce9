#include "sources/funcs_layout_windows/profiles/profile_loading.h"

#include <array>
#include <cstddef>

#include <commdlg.h>

#include "sources/funcs_layout_windows/launching/launching.h"
#include "sources/funcs_layout_windows/profiles/profiles_errors.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/owners/com_ptr.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/win32/wait_cursor.h"

namespace
{

using PathBuffer = std::array<wchar_t, MAX_PATH>;

// The profile file that a command loads.
struct LoadedFile {
    HANDLE file;
    std::uint32_t size_bytes;
    std::uint8_t* bytes;
};

enum class FileChoice { CHOSEN, CANCELLED, FAILED };

// Asks the user for a file and stores its path in `path`.
FileChoice choose_file(HWND hwnd_MW, PathBuffer* path)
{
    PathBuffer directory{};
    GetCurrentDirectoryW(static_cast<DWORD>(directory.size()), directory.data());
    PathBuffer title{};
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = hwnd_MW;
    dialog.lpstrFilter = L"All Files\0*.*\0";
    dialog.lpstrFile = path->data();
    dialog.nMaxFile = static_cast<DWORD>(path->size());
    dialog.lpstrFileTitle = title.data();
    dialog.nMaxFileTitle = static_cast<DWORD>(title.size());
    dialog.lpstrInitialDir = directory.data();
    dialog.Flags = OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    const ComHold com; // Re-entrancy: the dialog lets messages in, also one that closes the main window.
    if (GetOpenFileNameW(&dialog) == TRUE)
        return FileChoice::CHOSEN;
    return CommDlgExtendedError() == 0 ? FileChoice::CANCELLED : FileChoice::FAILED;
}

// Opens the file and learns its size. A file that does not exist is created, empty, and then refused for
// that.
std::int32_t open_file(const wchar_t* path, LoadedFile* loaded)
{
    loaded->file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
    if (loaded->file == INVALID_HANDLE_VALUE)
        return report<kLoadCreateFile>();
    LARGE_INTEGER size{};
    GetFileSizeEx(loaded->file, &size);
    loaded->size_bytes = size.LowPart;
    return loaded->size_bytes == 0 ? report<kLoadZeroSize>() : 1;
}

// Reads the last bytes of the file before anything else of it.
std::int32_t check_signature(const LoadedFile* loaded)
{
    std::array<std::uint8_t, profile_file::kSignature.size()> signature{};
    if (SetFilePointer(loaded->file, -static_cast<LONG>(signature.size()), nullptr, FILE_END) ==
        INVALID_SET_FILE_POINTER)
        return report<kLoadSeek>();
    DWORD read_bytes = 0;
    if (ReadFile(loaded->file, signature.data(), static_cast<DWORD>(signature.size()), &read_bytes,
                 nullptr) == FALSE)
        return report<kLoadReadSignature>();
    return profile_file::is_signature(signature) ? 1 : report<kLoadSignature>();
}

// Reads the whole file into a block of its own. Its handle is closed only here: one of a refused file stays
// open.
std::int32_t read_file(LoadedFile* loaded)
{
    loaded->bytes = allocate_block<std::uint8_t>(loaded->size_bytes);
    if (loaded->bytes == nullptr)
        return report<kLoadFileMemory>();
    SetFilePointer(loaded->file, 0, nullptr, FILE_BEGIN);
    DWORD read_bytes = 0;
    if (ReadFile(loaded->file, loaded->bytes, loaded->size_bytes, &read_bytes, nullptr) == FALSE)
        return report<kLoadReadFile>();
    CloseHandle(loaded->file);
    return 1;
}

// Refuses a file without windows, and one whose parts run past its end.
std::int32_t check_contents(const LoadedFile* loaded)
{
    const std::span<const std::uint8_t> bytes(loaded->bytes, loaded->size_bytes);
    // The signature was found at the end of the file. A file beyond 32-bit sizes, or one that has changed
    // since, has other bytes at the end of what was read, and readers of the name rely on the signature
    // there.
    if (!profile_file::ends_with_signature(bytes))
        return report<kLoadSignatureOfCopy>();
    if (bytes.size() >= profile_file::kCount_bytes && profile_file::window_count(bytes) == 0)
        return report<kLoadNoWindows>();
    const profile_file::ExtentFault fault = profile_file::check_extent(bytes);
    if (fault.field == profile_file::Field::NONE)
        return 1;
    return report<kLoadPastEnd>(fault.entry, profile_file::name_of_field(fault.field));
}

// Appends the profile to the store and its name to the Profile list.
// Quirk: the name of the profile stored last is added also when this one was refused; kept so that a load
// means the same in every version. Without any stored profile there is none.
void store_and_name(const Launch_STR* launch, const LoadedFile* loaded, LoadedProfiles_STR* store,
                    CB_mng_STR* p_CB_Profile_mng_STR)
{
    const std::uint32_t next = store->uiN_loaded_prfls;
    const std::int32_t added = add_profile_data_to_DynMem(
        store, launch->pc_arr1D_hwnd_Programs_only, launch->pc_arr1D_hwnd_Folders_only, loaded->size_bytes,
        loaded->bytes, launch->uiN_Folders, launch->uiN_Programs);
    if (added < 0)
        report<kLoadAddProfile>();
    if (store->uiN_loaded_prfls == 0)
        return;
    // 1 is appended. Re-entrancy: while the box of a profile without a name was open another one may have
    // been loaded, which is the last now.
    const std::uint32_t k = added == 1 ? next : store->uiN_loaded_prfls - 1;
    if (CB_Profile_add_string(p_CB_Profile_mng_STR,
                              store->pc_raw_FilesProfile + store->arr1D_ui_off_PrfName_beg[k], k) < 0)
        report<kLoadAddName>();
}

// Finds the path to load: the one given, or the user's choice. 1 with a null path when the user cancelled.
std::int32_t find_path(HWND hwnd_MW, std::uint8_t uc_flag_path_given, const wchar_t* given,
                       PathBuffer* chosen, const wchar_t** path)
{
    *path = nullptr;
    if (uc_flag_path_given != 0) {
        *path = given;
        return 1;
    }
    const FileChoice choice = choose_file(hwnd_MW, chosen);
    if (choice == FileChoice::FAILED)
        return report<kLoadDialog>(); // Quirk: in CreateFile's words; the dialog has no text of its own.
    if (choice == FileChoice::CHOSEN)
        *path = chosen->data();
    return 1;
}

} // namespace

std::int32_t onButton_LoadProfile_clicked(HWND hwnd_MW, std::uint8_t uc_flag_path_given,
                                          const wchar_t* ptcFilePath_Profile,
                                          LoadedProfiles_STR* p_LoadedProfiles_STR,
                                          CB_mng_STR* p_CB_Profile_mng_STR)
{
    if (hwnd_MW == nullptr || (uc_flag_path_given != 0 && ptcFilePath_Profile == nullptr) ||
        p_LoadedProfiles_STR == nullptr || p_CB_Profile_mng_STR == nullptr)
        return report<kLoadInput>(hwnd_MW, ptcFilePath_Profile, p_LoadedProfiles_STR, p_CB_Profile_mng_STR);

    PathBuffer chosen{};
    const wchar_t* path = nullptr;
    std::int32_t result = find_path(hwnd_MW, uc_flag_path_given, ptcFilePath_Profile, &chosen, &path);
    if (result < 0 || path == nullptr)
        return result;

    const WaitCursor wait;
    LoadedFile loaded{};
    result = open_file(path, &loaded);
    if (result > 0)
        result = check_signature(&loaded);
    if (result > 0)
        result = read_file(&loaded);
    if (result > 0)
        result = check_contents(&loaded);
    if (result < 0)
        return result;

    Launch_STR launch{};
    result = prepare_launch(&launch, hwnd_MW, {loaded.bytes, loaded.size_bytes},
                            p_LoadedProfiles_STR->uiSize_DynMem_hwnds_wnds_prfl);
    if (result > 0)
        result = launch_profile(&launch);
    if (result < 0)
        return result;

    if (result != kLaunch_abandoned)
        store_and_name(&launch, &loaded, p_LoadedProfiles_STR, p_CB_Profile_mng_STR);
    release_block(loaded.bytes);
    release_launch(&launch);
    return 1;
}
