// Everything that scanning and drawing can report.
#pragma once

#include "errors/error_box.h"

// The rows of the table, in its order. The values that each report takes are those of its detail's
// placeholders.
enum LayoutWindowsRow : unsigned {
    SITE_CREATE_FONT_NULL_FACE,
    SITE_FIND_FONT_SIZE_INPUT,
    SITE_FIT_FONT_SIZE_INPUT,
    SITE_DRAW_LINE_INPUT,
    SITE_DRAW_FRAME_INPUT,
    SITE_MAIN_SIZE_INPUT,
    SITE_DRAW_MAIN_INPUT,
    SITE_CALC_NULL_LPARAM,
    SITE_CALC_MODULE_NAME,
    SITE_CALC_02_NULL_LPARAM,
    SITE_CALC_02_MISSING_BLOCK,
    SITE_CALC_02_MODULE_NAME,
    SITE_FOLDERS_01_NULL_RECORD,
    SITE_FOLDERS_02_NULL_RECORD,
    SITE_FOLDERS_02_MISSING_BLOCK,
    SITE_FOLDERS_02_NO_LIST,
    SITE_FOLDERS_02_NO_HANDLE,
    SITE_SCAN_INPUT,
    SITE_SCAN_ZERO_SIZE,
    SITE_SCAN_MEMORY_SCRATCH,
    SITE_SCAN_ENUM_COUNTING,
    SITE_SCAN_NOTHING_FOUND,
    SITE_SCAN_MEMORY_LENGTHS,
    SITE_SCAN_MEMORY_FLAGS,
    SITE_SCAN_MEMORY_GEOMETRY,
    SITE_SCAN_MEMORY_HANDLES,
    SITE_SCAN_MEMORY_PATHS,
    SITE_SCAN_ENUM_FILLING,
    LAYOUT_WINDOWS_ROWS // how many
};

extern const ErrorSource errors_layout_windows;

// The error-site variable of sources/funcs_layout_windows, shared with the profile routines' reports.
extern std::uint32_t error_site_layout_windows;

// The module's path as printed.
inline constexpr char kFile_layout_windows[] = "sources/funcs_layout_windows";
