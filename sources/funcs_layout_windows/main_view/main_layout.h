// The main window's layout: every rectangle as a function of client size, screen size and font size.
#pragma once

#include <array>
#include <cstdint>

#include "sources/win32/pixel_rect.h"

// The painted labels of the two lists, and their names for screen readers.
inline constexpr wchar_t kLabel_Profile[] = L"Profile:";
inline constexpr wchar_t kLabel_Action[] = L"Action:";

// The main window's geometry record. Pixels; fractions are of the length named beside them.
struct STR_GeomLt {
    std::int32_t i_client_width;
    std::int32_t i_client_height;

    // Of the screen; also the smallest size. Unread: the window is sized before its record is set up.
    float f_initial_width;
    float f_initial_height;

    PixelRect rect_Scan;
    float f_Scan_height; // of the screen's height
    float f_Scan_width;  // of the screen's width

    PixelRect rect_LoadProfile;
    float f_LoadProfile_height;
    float f_LoadProfile_width;

    std::int32_t i_font_size; // height of the control font

    PixelRect rect_count_line; // laid out, but nothing is drawn in it
    PixelRect rect_label_Profile;
    PixelRect rect_CB_Profile;
    PixelRect rect_label_Action;
    PixelRect rect_CB_Action;
    PixelRect rect_Apply;

    PixelRect rect_frame; // the area of the picture
    float f_frame_height; // of the client area's height
    float f_frame_width;  // of the client area's width

    PixelPoint pt_axis_origin;
    std::int32_t i_x_axis_length;
    std::int32_t i_y_axis_length;
    std::array<PixelRect, 5> arr1D_rect_miniatures; // A to E
    std::int32_t i_label_font_size; // set when painting: twice the control font's; unread later
    PixelPoint pt_label_Y;
    PixelPoint pt_label_X;

    std::int32_t i_gap;
};

// The width or height in pixels at which the main window opens, and below which it cannot be sized.
std::int32_t initial_main_width(std::int32_t screen_width);
std::int32_t initial_main_height(std::int32_t screen_height);

// Sets the record's constants: fractions and gap.
void set_layout_constants(STR_GeomLt* pSTR_GeomLt);

// Computes every rectangle, axis and corner of the record from its client size, fractions, gap and font size.
void compute_main_layout(STR_GeomLt* pSTR_GeomLt, std::int32_t screen_width, std::int32_t screen_height);
