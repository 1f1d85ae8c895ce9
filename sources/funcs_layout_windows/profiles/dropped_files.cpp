#include "sources/funcs_layout_windows/profiles/dropped_files.h"

#include <shlobj.h>

#include <cstddef>
#include <cstring>

#include "sources/funcs_layout_windows/profiles/profile_loading.h"
#include "sources/funcs_layout_windows/profiles/profiles_errors.h"
#include "sources/win32/owners/memory_block.h"

namespace
{

constexpr UINT kDroppedPath_units = 2048;
constexpr UINT kCountFiles = 0xFFFFFFFF; // the position that asks for the number

// How many bytes from `address` on can be read at once.
std::size_t readable_bytes(const void* address)
{
    constexpr DWORD kUnreadable = PAGE_NOACCESS | PAGE_GUARD | PAGE_EXECUTE;
    MEMORY_BASIC_INFORMATION region{};
    if (VirtualQuery(address, &region, sizeof region) == 0 || region.State != MEM_COMMIT ||
        (region.Protect & kUnreadable) != 0)
        return 0;
    const auto* end = static_cast<const std::uint8_t*>(region.BaseAddress) + region.RegionSize;
    return static_cast<std::size_t>(end - static_cast<const std::uint8_t*>(address));
}

// How much of a list of dropped files can be read: nothing, its first path, or all up to its closing zero.
enum class ReadableList { NOTHING, FIRST_PATH, WHOLE };

ReadableList readable_list(const std::uint8_t* bytes)
{
    const std::size_t size_bytes = readable_bytes(bytes);
    DROPFILES header{};
    if (size_bytes < sizeof header)
        return ReadableList::NOTHING;
    std::memcpy(&header, bytes, sizeof header);
    const std::size_t unit_bytes = header.fWide != FALSE ? sizeof(wchar_t) : sizeof(char);
    ReadableList readable = ReadableList::NOTHING;
    bool begins_path = true;
    for (std::size_t offset = header.pFiles; offset + unit_bytes <= size_bytes; offset += unit_bytes) {
        const bool is_zero = bytes[offset] == 0 && bytes[offset + unit_bytes - 1] == 0;
        if (is_zero && begins_path)
            return ReadableList::WHOLE;
        if (is_zero)
            readable = ReadableList::FIRST_PATH;
        begins_path = is_zero;
    }
    return readable;
}

// Any process can post a WM_DROPFILES with any number for its handle, and the shell's routine does not check
// what it is given.
ReadableList look_at_drop(HDROP hDrop)
{
    const LockedMemory list(hDrop);
    if (list.get() == nullptr)
        return ReadableList::NOTHING;
    return readable_list(static_cast<const std::uint8_t*>(list.get()));
}

// What came of a drop.
enum class DropOutcome { LOADED, NO_MEMORY, NO_PATH, NOT_LOADED };

// Loads the first file of the list.
DropOutcome load_first_file(HWND hwnd_MW, HDROP hDrop, ReadableList list,
                            LoadedProfiles_STR* p_LoadedProfiles_STR, CB_mng_STR* p_CB_Profile_mng_STR)
{
    const MemoryBlock<wchar_t> path(kDroppedPath_units);
    if (!path)
        return DropOutcome::NO_MEMORY;
    if (list == ReadableList::NOTHING || DragQueryFileW(hDrop, 0, path.get(), kDroppedPath_units) == 0)
        return DropOutcome::NO_PATH;
    const std::int32_t loaded =
        onButton_LoadProfile_clicked(hwnd_MW, 1, path.get(), p_LoadedProfiles_STR, p_CB_Profile_mng_STR);
    return loaded < 0 ? DropOutcome::NOT_LOADED : DropOutcome::LOADED;
}

} // namespace

std::int32_t on_wm_dropfiles(HWND hwnd_MW, HDROP hDrop, LoadedProfiles_STR* p_LoadedProfiles_STR,
                             CB_mng_STR* p_CB_Profile_mng_STR)
{
    if (hwnd_MW == nullptr || hDrop == nullptr)
        return report<kDropInput>(hwnd_MW, hDrop);
    const ReadableList list = look_at_drop(hDrop);
    // Quirk: the number of files is asked for and not used; a drop loads one profile, however many it brings.
    [[maybe_unused]] UINT uiN_files = 0;
    if (list == ReadableList::WHOLE)
        uiN_files = DragQueryFileW(hDrop, kCountFiles, nullptr, 0);
    switch (load_first_file(hwnd_MW, hDrop, list, p_LoadedProfiles_STR, p_CB_Profile_mng_STR)) {
    case DropOutcome::NO_MEMORY:
        return report<kDropMemory>();
    case DropOutcome::NO_PATH:
        return report<kDropQuery>();
    case DropOutcome::NOT_LOADED:
        return report<kDropLoad>();
    default:
        return 1;
    }
}
