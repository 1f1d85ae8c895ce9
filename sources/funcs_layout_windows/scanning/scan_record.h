// The scan record: the result of the last scan, one slot per qualifying window.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

#include "sources/funcs_layout_windows/open_windows/window_filter.h"

// Process-wide; every block comes from VirtualAlloc and is zero-filled. Slots are numbered from 0 in the
// order of the second enumeration pass. Slots from counter_filled on are empty; the first of them may hold
// the handle, geometry and title of a window whose process could not be read, or whose path was longer than
// measured.
struct STR_ENUM_WNDS_DATA {
    std::uint32_t* arr1D_ui_LenPath;   // per slot: bytes of its path without terminator, 0 = no path
    std::uint8_t* arr1D_uc_flag_FP;    // per slot: 1 program window, 0 folder window or unfilled
    std::uint32_t counter_filled;      // write index of the second pass, then the number of filled slots
    wchar_t* pcTmpBuf_Prg_Folder_Path; // receives one image path at a time
    std::uint32_t uiSize_TmpBuf_Path;  // its size in bytes
    std::uint8_t* pcDynMem_FullPaths;  // per slot: its path, in path_slot_bytes bytes, filled up with zeros
    std::uint32_t uiMaxLen_inBytes_PrgPath;    // longest image path of a program, bytes
    std::uint32_t uiMaxLen_inBytes_FolderPath; // longest folder path, bytes
    std::uint32_t uiMaxLen_inBytes_AllPath;    // the greater of the two
    HWND* pcDynMem_WinHndls;                   // per slot: the window
    std::uint8_t* pcDynMem_GeomText;           // the geometry entries, then the title slots
    std::uint32_t counter_all;     // top-level windows of the first pass; unread: how much was looked at
    std::uint32_t counter_valid;   // windows that qualified in the first pass = number of slots
    std::uint32_t counter_folders; // folder windows with a path while counting; unread likewise
};
static_assert(std::is_trivially_copyable_v<STR_ENUM_WNDS_DATA>);

// A slot's geometry entry.
struct GeomEntry_STR {
    wchar_t* title; // the slot's title, zero-terminated, inside the same block; null in a slot never written
    std::int32_t x;
    std::int32_t y;
    // Height precedes width, as in PixelRect.
    std::int32_t height;
    std::int32_t width;
};
static_assert(sizeof(GeomEntry_STR) == 24 && std::is_trivially_copyable_v<GeomEntry_STR>);
static_assert(offsetof(GeomEntry_STR, x) == 8 && offsetof(GeomEntry_STR, y) == 12 &&
              offsetof(GeomEntry_STR, height) == 16 && offsetof(GeomEntry_STR, width) == 20);

// Bytes of the geometry and title block per slot.
inline constexpr std::size_t kGeomText_slot_bytes =
    sizeof(GeomEntry_STR) + kTitle_slot_units * sizeof(wchar_t);
static_assert(kGeomText_slot_bytes == 122);

// The one scan record.
extern STR_ENUM_WNDS_DATA scan_record;

// The geometry entry of slot `slot`, which must be below counter_valid.
GeomEntry_STR* geometry_entry(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot);

// The title slot of slot `slot`.
std::span<wchar_t, kTitle_slot_units> title_slot(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot);

// Bytes from one path slot to the next.
std::size_t path_slot_bytes(const STR_ENUM_WNDS_DATA* pSTR);

// The path slot of slot `slot`: path_slot_bytes bytes, zero-terminated.
std::uint8_t* path_slot(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot);

// Stores `length_units` units of `path` and its length as slot `slot`'s path and clears the rest of the slot.
// Nothing is stored and false is returned when the path is longer than uiMaxLen_inBytes_AllPath, the longest
// that was measured and that a profile has room for, or there are no slots.
bool store_path(const STR_ENUM_WNDS_DATA* pSTR, std::uint32_t slot, const wchar_t* path,
                std::size_t length_units);

// Releases the record's six blocks and sets their pointers to null. The counters stay.
void release_scan_blocks(STR_ENUM_WNDS_DATA* pSTR);
