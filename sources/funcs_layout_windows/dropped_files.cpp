#include "sources/funcs_layout_windows/dropped_files.h"

#include "sources/funcs_layout_windows/profile_loading.h"
#include "sources/funcs_layout_windows/profiles_errors.h"
#include "sources/win32/memory_block.h"

namespace
{

constexpr UINT kDroppedPath_units = 2048;

} // namespace

std::int32_t on_wm_dropfiles(HWND hwnd_MW, HDROP hDrop, LoadedProfiles_STR* p_LoadedProfiles_STR,
                             CB_mng_STR* p_CB_Profile_mng_STR)
{
    if (hwnd_MW == nullptr || hDrop == nullptr)
        return report(errors_profiles, SITE_DROP_INPUT, hwnd_MW, hDrop);
    auto* path = allocate_block<wchar_t>(kDroppedPath_units * sizeof(wchar_t));
    if (path == nullptr)
        return report(errors_profiles, SITE_DROP_MEMORY);
    // One profile per drop, however many files were dropped.
    if (DragQueryFileW(hDrop, 0, path, kDroppedPath_units) == 0) {
        release_block(path);
        return report(errors_profiles, SITE_DROP_QUERY);
    }
    const std::int32_t loaded =
        onButton_LoadProfile_clicked(hwnd_MW, 1, path, p_LoadedProfiles_STR, p_CB_Profile_mng_STR);
    release_block(path);
    return loaded < 0 ? report(errors_profiles, SITE_DROP_LOAD) : 1;
}
