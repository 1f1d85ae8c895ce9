#pragma once

#include "sources/funcs_layout_windows/main_view/main_layout.h"

namespace main_view_tests
{

// The main window's geometry as WM_CREATE leaves it, with a font of 15 units.
inline STR_GeomLt created_geometry()
{
    STR_GeomLt record{};
    record.f_initial_width = 0.4F;
    record.f_initial_height = 0.45F;
    record.f_Scan_height = record.f_LoadProfile_height = 0.035F;
    record.f_Scan_width = record.f_LoadProfile_width = 0.06F;
    record.f_frame_height = 0.85F;
    record.f_frame_width = 0.7F;
    record.i_gap = 5;
    record.i_font_size = 15;
    return record;
}

} // namespace main_view_tests
