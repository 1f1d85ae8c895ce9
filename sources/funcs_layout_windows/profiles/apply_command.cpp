#include "sources/funcs_layout_windows/profiles/apply_command.h"

#include "sources/funcs_layout_windows/profiles/profiles_errors.h"
#include "sources/funcs_layout_windows/profiles/profiles_notices.h"
#include "sources/profile_file/profile_file.h"
#include "sources/win32/foreign_window.h"

namespace
{

using profile_file::EntryIterator;

// Window `i` of the profile; false when there is none. Re-entrancy: asking and showing a window let messages
// in, and a main window that closes empties the store: it is looked at again after each.
bool read_window(const LoadedProfiles_STR* store, std::uint32_t index, std::uint32_t i, HWND* hwnd)
{
    if (index >= store->uiN_loaded_prfls || i >= window_count_of_profile(store, index))
        return false;
    *hwnd = handles_of_profile(store, index)[i];
    return true;
}

void minimise_windows(const LoadedProfiles_STR* store, std::uint32_t index)
{
    AskedWindows asked;
    HWND hwnd = nullptr;
    for (std::uint32_t i = 0; read_window(store, index, i, &hwnd); ++i) {
        const bool answers = asked.answers(hwnd);
        if (!read_window(store, index, i, &hwnd))
            return;
        show_foreign_window(hwnd, SW_MINIMIZE, answers);
    }
}

void close_windows(const LoadedProfiles_STR* store, std::uint32_t index)
{
    HWND hwnd = nullptr;
    for (std::uint32_t i = 0; read_window(store, index, i, &hwnd); ++i) {
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
        return report<kApplyInput>(p_CB_Profile_manage_STR, p_CB_Action_manage_STR, p_LoadedProfiles_STR);

    const LRESULT action = selected_position(p_CB_Action_manage_STR->hwnd_CB);
    if (action == CB_ERR)
        return report<kApplyNoAction>();
    const LRESULT position = selected_position(p_CB_Profile_manage_STR->hwnd_CB);
    if (position < 0 || position >= static_cast<LRESULT>(kProfileNames_max))
        return report<kApplyNoProfile>();

    const std::uint32_t k =
        p_CB_Profile_manage_STR->arr1D_ui_index_profile[static_cast<std::size_t>(position)];
    switch (action) {
    case ACTION_MINIMIZE:
        minimise_windows(p_LoadedProfiles_STR, k);
        break;
    case ACTION_RESTORE:
        Restore_Move_Size_wnds_Profile(p_LoadedProfiles_STR, k);
        break;
    case ACTION_CLOSE:
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
        return report<kRestoreInput>(store);
    if (store->pc_raw_FilesProfile == nullptr)
        return report<kRestoreNoFiles>();
    if (index_profile >= store->uiN_loaded_prfls)
        return 1;
    AskedWindows asked;
    EntryIterator next(store->pc_raw_FilesProfile + store->arr1D_ui_off_file_beg[index_profile]);
    HWND hwnd = nullptr;
    for (std::uint32_t i = 0; next != std::default_sentinel && read_window(store, index_profile, i, &hwnd);
         ++i) {
        const profile_file::Entry entry = *next;
        ++next; // Re-entrancy: the calls below let messages in, and the store may be gone after them.
        if (is_minimised(entry))
            continue;
        const bool answers = asked.answers(hwnd);
        if (!read_window(store, index_profile, i, &hwnd))
            break;
        show_foreign_window(hwnd, SW_RESTORE, answers);
        place_foreign_window(hwnd, {.x = entry.x, .y = entry.y, .height = entry.height, .width = entry.width},
                             answers);
    }
    return 1;
}
