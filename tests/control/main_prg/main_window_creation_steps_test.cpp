#include <windows.h>

#include <objbase.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "sources/main_prg/main_window.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/test_window.h"

// What the main window asks of the system when it is created, step by step.

using namespace test_support;
using Steps = std::vector<std::string>;

namespace
{

template <typename... Values> std::string line(const char* format, Values... values)
{
    char text[120];
    snprintf(text, sizeof text, format, values...);
    return text;
}

// Sends WM_CREATE of the main window for a window of the test and takes down what follows. A font is as high
// as it says; the text of the buttons is as many pixels wide as its font is high and `text_margin` more.
class Creation
{
public:
    Creation(int screen_width, int screen_height, int text_margin)
        : screen_width_(screen_width), screen_height_(screen_height), text_margin_(text_margin)
    {
        main_window = {};
        main_window.CB_Profile.uiN_strs = main_window.CB_Profile.uiSelection = 9; // of a window before
        main_window.CB_Action.uiSelection = 9;
        CREATESTRUCTW creation{};
        creation.hInstance = instance_;
        result = WndProc(window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation));
    }
    ~Creation()
    {
        DeleteObject(main_window.hFont_controls);
        main_window = {};
    }
    Creation(const Creation&) = delete;
    Creation& operator=(const Creation&) = delete;

    const TestWindow window{L"stands for the main window"};
    Steps steps;
    LRESULT result = -1;

private:
    const HINSTANCE instance_ = GetModuleHandleW(L"kernel32.dll"); // any but the test's own
    int screen_width_;
    int screen_height_;
    int text_margin_;
    HDC dc_ = nullptr;

    ImportHook<"GetSystemMetrics", decltype(GetSystemMetrics)> screen_{
        "user32.dll", [this](int metric) {
            return metric == SM_CXSCREEN   ? screen_width_
                   : metric == SM_CYSCREEN ? screen_height_
                                           : screen_.call_original(metric);
        }};
    ImportHook<"GetSystemInfo", decltype(GetSystemInfo)> info_{"kernel32.dll", [this](SYSTEM_INFO* info) {
                                                                   steps.push_back("system info");
                                                                   info_.call_original(info);
                                                               }};
    ImportHook<"CreateWindowExW", decltype(CreateWindowExW)> create_{
        "user32.dll",
        [this](DWORD extended_style, LPCWSTR class_name, LPCWSTR text, DWORD style, int x, int y, int width,
               int height, HWND parent, HMENU id, HINSTANCE instance, LPVOID parameter) {
            EXPECT_EQ(extended_style, 0u);
            EXPECT_EQ(parent, window.get());
            EXPECT_EQ(instance, instance_);
            steps.push_back(line("%ls '%ls' %lX as %d at %d,%d %dx%d", class_name, text, style,
                                 static_cast<int>(reinterpret_cast<INT_PTR>(id)), x, y, width, height));
            return create_.call_original(extended_style, class_name, text, style, x, y, width, height, parent,
                                         id, instance, parameter);
        }};
    ImportHook<"MoveWindow", decltype(MoveWindow)> move_{
        "user32.dll", [this](HWND control, int x, int y, int width, int height, BOOL repaint) {
            steps.push_back(line("move %d to %d,%d %dx%d", GetDlgCtrlID(control), x, y, width, height));
            return move_.call_original(control, x, y, width, height, repaint);
        }};
    ImportHook<"GetDC", decltype(GetDC)> get_dc_{"user32.dll", [this](HWND from) {
                                                     EXPECT_EQ(from, window.get());
                                                     steps.push_back("context");
                                                     return dc_ = get_dc_.call_original(from);
                                                 }};
    ImportHook<"ReleaseDC", decltype(ReleaseDC)> release_dc_{"user32.dll", [this](HWND from, HDC dc) {
                                                                 EXPECT_EQ(from, window.get());
                                                                 EXPECT_EQ(dc, dc_);
                                                                 steps.push_back("context released");
                                                                 return release_dc_.call_original(from, dc);
                                                             }};
    ImportHook<"DrawTextW", decltype(DrawTextW)> draw_{
        "user32.dll", [this](HDC dc, LPCWSTR text, int units, LPRECT rect, UINT flags) -> int {
            EXPECT_EQ(dc, dc_);
            EXPECT_EQ(flags, 0x420u);
            LOGFONTW font{};
            GetObjectW(GetCurrentObject(dc, OBJ_FONT), sizeof font, &font);
            rect->bottom = font.lfHeight;
            if (units == -1) {
                // "Load Profile", two bytes to a unit.
                EXPECT_EQ(std::wstring(text), L"\x6F4C\x6461\x5020\x6F72\x6966\x656C");
                rect->right = font.lfHeight + text_margin_;
            }
            return font.lfHeight;
        }};
    ImportHook<"CreateFontIndirectW", decltype(CreateFontIndirectW)> font_{
        "gdi32.dll", [this](const LOGFONTW* font) {
            if (font->lfWeight == 700) {
                EXPECT_EQ(font->lfItalic + font->lfUnderline + font->lfStrikeOut, 0);
                EXPECT_EQ(font->lfPitchAndFamily, 16);
                EXPECT_EQ(std::wstring(font->lfFaceName),
                          L"\x6954\x656D\x2073\x654E\x2077\x6F52\x616D\x006E"); // "Times New Roman"
                steps.push_back(line("font of %ld", font->lfHeight));
            }
            return font_.call_original(font);
        }};
    ImportHook<"SendMessageW", decltype(SendMessageW)> send_{
        "user32.dll", [this](HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_SETFONT) {
                EXPECT_EQ(reinterpret_cast<HFONT>(wParam), main_window.hFont_controls);
                steps.push_back(line("font to %d, redraw %lld", GetDlgCtrlID(control), lParam));
            } else {
                steps.push_back(line("%X to %d: %ls", message, GetDlgCtrlID(control),
                                     reinterpret_cast<const wchar_t*>(lParam)));
            }
            return send_.call_original(control, message, wParam, lParam);
        }};
    ImportHook<"CoInitializeEx", decltype(CoInitializeEx)> com_{"ole32.dll", [this](void*, DWORD model) {
                                                                    steps.push_back(line("COM %lu", model));
                                                                    return S_OK;
                                                                }};
};

} // namespace

TEST(MainWindowCreation, TakesItsStepsInOrder)
{
    const BoxWatcher boxes;
    // Buttons are 70 by 180 pixels, so the text may be 59 (59.5) high and 144 wide.
    const Creation creation(3000, 2000, 96);
    EXPECT_EQ(creation.result, 0);
    EXPECT_EQ(creation.steps, (Steps{"system info",
                                     "button 'Scan' 50000300 as 1 at 0,0 5x5",
                                     "move 1 to 0,0 2700x1700",
                                     "button 'Load Profile' 50000300 as 2 at 0,0 5x5",
                                     "move 2 to 0,0 2700x1700",
                                     "ComboBox '' 50000243 as 4 at 10,10 10x10",
                                     "ComboBox '' 50000203 as 5 at 10,10 10x10",
                                     "button 'Apply' 50000300 as 6 at 10,10 10x10",
                                     "14A to 5: Minimize",
                                     "14A to 5: Restore",
                                     "14A to 5: Close",
                                     "context",
                                     "context released",
                                     "font of 48", // 48 + 96 is as wide as it may be
                                     "font to 1, redraw 1",
                                     "font to 2, redraw 1",
                                     "font to 6, redraw 1",
                                     "font to 4, redraw 1",
                                     "font to 5, redraw 1",
                                     "COM 2"}));
    EXPECT_EQ(main_window.STR_GeomLt_MW.i_font_size, 48);
    boxes.expect_no_boxes();
}

TEST(MainWindowCreation, TakesTheFontsHeightFromTheButtonsWhenTheTextIsShort)
{
    const Creation creation(3000, 2000, 0);
    EXPECT_EQ(main_window.STR_GeomLt_MW.i_font_size, 59);
    LOGFONTW font{};
    GetObjectW(main_window.hFont_controls, sizeof font, &font);
    EXPECT_EQ(font.lfHeight, 59);
}

TEST(MainWindowCreation, ReleasesItsDeviceContextWhenNoFontFits)
{
    const BoxWatcher boxes;
    // A button without height.
    const Creation creation(3000, 20, 0);
    ASSERT_EQ(boxes.count(), 2u);
    EXPECT_EQ(boxes.boxes().at(1).text, compact_text({L"sources/main_prg", L"WndProc", 580, 1248},
                                                     L"ERROR while get font size for buttons"));
    EXPECT_EQ(creation.result, 0);
    EXPECT_EQ(creation.steps.at(creation.steps.size() - 2), "context");
    EXPECT_EQ(creation.steps.back(), "context released");
    EXPECT_EQ(main_window.STR_GeomLt_MW.i_font_size, -1);
}

TEST(MainWindowCreation, SetsUpTheRecordsOfTheLists)
{
    const Creation creation(3000, 2000, 0);
    const CB_mng_STR& profiles = main_window.CB_Profile;
    EXPECT_EQ(profiles.hwnd_CB, GetDlgItem(creation.window, main_control::kProfile));
    EXPECT_EQ(profiles.uiCtlID, 4u);
    EXPECT_EQ(profiles.uiN_strs, 0u);
    EXPECT_EQ(profiles.uiMax_N_strs, 32u);
    EXPECT_EQ(profiles.uiSelection, 0u);
    const CB_Action_mng_STR& actions = main_window.CB_Action;
    EXPECT_EQ(actions.hwnd_CB, GetDlgItem(creation.window, main_control::kAction));
    EXPECT_EQ(actions.uiCtlID, 5u);
    EXPECT_EQ(actions.uiN_items, 3u);
    EXPECT_EQ(actions.uiSelection, 0u);
}

TEST(MainWindowCreation, SetsTheConstantsOfTheLayout)
{
    const Creation creation(3000, 2000, 0);
    const STR_GeomLt& geometry = main_window.STR_GeomLt_MW;
    EXPECT_EQ(geometry.f_initial_width, 0.4F);
    EXPECT_EQ(geometry.f_initial_height, 0.45F);
    EXPECT_EQ(geometry.f_Scan_height, 0.035F);
    EXPECT_EQ(geometry.f_Scan_width, 0.06F);
    EXPECT_EQ(geometry.f_LoadProfile_height, 0.035F);
    EXPECT_EQ(geometry.f_LoadProfile_width, 0.06F);
    EXPECT_EQ(geometry.i_gap, 5);
    EXPECT_EQ(geometry.f_frame_height, 0.85F);
    EXPECT_EQ(geometry.f_frame_width, 0.7F);
    EXPECT_EQ(main_window.hInst, GetModuleHandleW(L"kernel32.dll"));
    EXPECT_EQ(main_window.hwnd_MW, creation.window.get());
}
