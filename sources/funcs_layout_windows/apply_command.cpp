#include "sources/funcs_layout_windows/apply_command.h"

#include <span>

#include "sources/funcs_layout_windows/profiles_errors.h"
#include "sources/profile_file/profile_file.h"

namespace
{

std::span<const HWND> windows_of_profile(const LoadedProfiles_STR* store, std::uint32_t index)
{
    return {handles_of_profile(store, index), window_count_of_profile(store, index)};
}

void minimise_windows(const LoadedProfiles_STR* store, std::uint32_t index)
{
    for (const HWND hwnd : windows_of_profile(store, index))
        ShowWindow(hwnd, SW_MINIMIZE);
}

void close_windows(const LoadedProfiles_STR* store, std::uint32_t index)
{
    for (const HWND hwnd : windows_of_profile(store, index)) {
        // A message posted to no window would go to this thread's own queue.
        if (hwnd != nullptr)
            PostMessageW(hwnd, WM_CLOSE, 0, 0);
    }
}

} // namespace

std::int32_t onButton_Apply_press(CB_mng_STR* p_CB_Profile_manage_STR,
                                  const CB_Action_mng_STR* p_CB_Action_manage_STR,
                                  const LoadedProfiles_STR* p_LoadedProfiles_STR)
{
    if (p_CB_Profile_manage_STR == nullptr || p_CB_Action_manage_STR == nullptr ||
        p_LoadedProfiles_STR == nullptr)
        return report(errors_profiles, SITE_APPLY_INPUT, p_CB_Profile_manage_STR, p_CB_Action_manage_STR,
                      p_LoadedProfiles_STR);

    const LRESULT action = SendMessageW(p_CB_Action_manage_STR->hwnd_CB, CB_GETCURSEL, 0, 0);
    if (action == CB_ERR)
        return report(errors_profiles, SITE_APPLY_NO_ACTION);
    const LRESULT position = SendMessageW(p_CB_Profile_manage_STR->hwnd_CB, CB_GETCURSEL, 0, 0);
    if (position < 0 || position >= static_cast<LRESULT>(kProfileNames_max))
        return report(errors_profiles, SITE_APPLY_NO_PROFILE);

    const std::uint32_t k =
        p_CB_Profile_manage_STR->arr1D_ui_index_profile[static_cast<std::size_t>(position)];
    // A list position may outrun the store; such a profile has no windows.
    if (k >= p_LoadedProfiles_STR->uiN_loaded_prfls && action != ACTION_CLOSE)
        return 1;
    switch (action) {
    case ACTION_MINIMIZE:
        minimise_windows(p_LoadedProfiles_STR, k);
        break;
    case ACTION_RESTORE:
        Restore_Move_Size_wnds_Profile(p_LoadedProfiles_STR, k);
        break;
    case ACTION_CLOSE:
        if (k < p_LoadedProfiles_STR->uiN_loaded_prfls)
            close_windows(p_LoadedProfiles_STR, k);
        CB_Profile_del_string(p_CB_Profile_manage_STR);
        break;
    default:
        break;
    }
    return 1;
}

std::int32_t Restore_Move_Size_wnds_Profile(const LoadedProfiles_STR* p_LoadedProfiles_STR,
                                            std::uint32_t index_profile)
{
    const LoadedProfiles_STR* store = p_LoadedProfiles_STR;
    if (store == nullptr)
        return report(errors_profiles, SITE_RESTORE_INPUT, store);
    if (store->pc_raw_FilesProfile == nullptr)
        return report(errors_profiles, SITE_RESTORE_NO_FILES);
    if (index_profile >= store->uiN_loaded_prfls)
        return 1;
    const std::uint8_t* file = store->pc_raw_FilesProfile + store->arr1D_ui_off_file_beg[index_profile];
    const std::span<const HWND> windows = windows_of_profile(store, index_profile);
    for (profile_file::EntryCursor cursor(file); cursor.valid(); cursor.next()) {
        const profile_file::Entry entry = cursor.get();
        if (entry.index >= windows.size() || entry.width == 0 || entry.height == 0)
            continue;
        ShowWindow(windows[entry.index], SW_RESTORE);
        MoveWindow(windows[entry.index], entry.x, entry.y, entry.width, entry.height, TRUE);
    }
    return 1;
}
