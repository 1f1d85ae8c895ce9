#include "sources/main_prg/main_window.h"

#include <objbase.h>

#include <array>

#include "resources/resource_ids.h"
#include "sources/funcs_layout_windows/drawing/figures.h"
#include "sources/funcs_layout_windows/main_view/main_painting.h"
#include "sources/funcs_layout_windows/main_view/main_resizing.h"
#include "sources/funcs_layout_windows/profiles/apply_command.h"
#include "sources/funcs_layout_windows/profiles/dropped_files.h"
#include "sources/funcs_layout_windows/profiles/profile_loading.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/main_prg/main_errors.h"
#include "sources/main_prg/main_notices.h"
#include "sources/main_prg/main_window_creation.h"
#include "sources/win32/own_window.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/win32/wait_cursor.h"

MainWindow_STR main_window;

namespace
{

void on_WM_GETMINMAXINFO(MINMAXINFO* info)
{
    info->ptMinTrackSize.x = initial_main_width(GetSystemMetrics(SM_CXSCREEN));
    info->ptMinTrackSize.y = initial_main_height(GetSystemMetrics(SM_CYSCREEN));
}

void on_WM_PAINT(HWND hwnd, MainWindow_STR* state)
{
    const PaintDC dc(hwnd);
    fill_background(hwnd, dc.get());
    draw_MainWindow(hwnd, dc.get(), &state->STR_GeomLt_MW, state->hFont_controls, &state->LoadedProfiles);
}

// Scans, unless a scan is using the record. Returns the command's result.
std::int32_t scan_when_free(HWND hwnd, WPARAM wParam, LPARAM lParam)
{
    const ScanUse use;
    if (!use.is_taken())
        return 1;
    scan_record.counter_all = 0;
    scan_record.counter_valid = 0;
    scan_record.counter_filled = 0;
    scan_record.uiSize_TmpBuf_Path = kScanPathBuffer_bytes;
    return onButton_Scan_Clicked(hwnd, &hwnd_ScanListView, wParam, lParam, &scan_record);
}

void on_Scan(HWND hwnd, WPARAM wParam, LPARAM lParam)
{
    const std::int32_t result = scan_when_free(hwnd, wParam, lParam);
    if (result < 0)
        report<kScanFailed>(result);
}

// Sets the loaded-profiles store up at the first load or drop. One attempt only: the command goes on after a
// failure, which is shown as row `failure`, and later ones do not try again.
void set_up_store_once(HWND owner, MainWindow_STR* state, FixedRow failure)
{
    if (state->flag_store_initialised)
        return;
    state->flag_store_initialised = true;
    if (preInitOnce_onLoadProfile(&state->LoadedProfiles) < 0)
        report_owned(owner, failure);
}

void on_LoadProfile(HWND hwnd, MainWindow_STR* state)
{
    set_up_store_once(nullptr, state, kStoreSetUpCommand);
    const std::int32_t result =
        onButton_LoadProfile_clicked(hwnd, 0, nullptr, &state->LoadedProfiles, &state->CB_Profile);
    if (result < 0)
        report<kLoadFailed>(result);
}

// Commands of the menu: a code of 0 and no control.
void on_menu_command(HWND hwnd, unsigned id)
{
    static constexpr std::array<FixedRow, kReservedCommand_last - kReservedCommand_first + 1> kReserved{
        kMenuFileNew, kMenuFileOpen, kMenuFileSave, kMenuFileSaveAs, kMenuExit, kMenuHelp};
    if (id == ID_MENU_ABOUT)
        report_owned<kAbout>(hwnd);
    else if (id >= kReservedCommand_first && id <= kReservedCommand_last)
        report_owned(hwnd, kReserved[id - kReservedCommand_first]);
}

void on_WM_COMMAND(HWND hwnd, WPARAM wParam, LPARAM lParam, MainWindow_STR* state)
{
    const unsigned id = LOWORD(wParam);
    const unsigned code = HIWORD(wParam);
    const auto control = reinterpret_cast<HWND>(lParam);

    if (id == ID_BTN_SCAN && code == BN_CLICKED)
        on_Scan(hwnd, wParam, lParam);
    else if (id == ID_BTN_LOAD_PROFILE && code == BN_CLICKED)
        on_LoadProfile(hwnd, state);
    else if (code == BN_CLICKED && control == nullptr)
        on_menu_command(hwnd, id);
    else if (id == ID_CB_PROFILE && code == CBN_SELCHANGE && control == state->hwnd_CB_Profile)
        onWM_COMMAND_CB_Profile(code, id, control, &state->CB_Profile);
    else if (id == ID_CB_ACTION && code == CBN_SELCHANGE && control == state->hwnd_CB_Action)
        onWM_COMMAND_CB_Action(code, id, control, &state->CB_Action);
    else if (id == ID_BTN_APPLY && code == BN_CLICKED && control == state->hWndBTN_Apply)
        onButton_Apply_press(&state->CB_Profile, &state->CB_Action, &state->LoadedProfiles);
}

void on_WM_DROPFILES(HWND hwnd, HDROP hDrop, MainWindow_STR* state)
{
    state->hDrop = hDrop;
    set_up_store_once(hwnd, state, kStoreSetUpDrop);
    on_wm_dropfiles(hwnd, hDrop, &state->LoadedProfiles, &state->CB_Profile);
}

void on_WM_DESTROY(MainWindow_STR* state)
{
    DeleteObject(state->hFont_controls);
    state->hFont_controls = nullptr;
    abandon_scans();
    release_block(scan_record.arr1D_ui_LenPath);
    release_block(scan_record.pcTmpBuf_Prg_Folder_Path);
    release_block(scan_record.pcDynMem_FullPaths);
    release_block(scan_record.pcDynMem_GeomText);
    release_block(scan_record.pcDynMem_WinHndls);
    // Quirk: the flag array is released with the list, so without a list it stays; the process ends.
    finishWork_onLoadProfile(&state->LoadedProfiles);
    // Re-entrancy: a load whose message box is up goes on after this; it must find no areas to write into.
    state->LoadedProfiles = {};
    destroy_own_window_of_class(hwnd_ScanListView, kClass_ScanListView);
    CoUninitialize();
    PostQuitMessage(0);
}

} // namespace

LRESULT CALLBACK WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    MainWindow_STR* state = &main_window;
    switch (message) {
    case WM_CREATE:
        on_WM_CREATE(hwnd, reinterpret_cast<const CREATESTRUCTW*>(lParam), state);
        return 0;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            on_WM_SIZE(hwnd, wParam, lParam, &state->STR_GeomLt_MW, state->hWndBTN00,
                       state->hWndBTN_LoadProfile, state->hWndBTN_Apply, state->hwnd_CB_Profile,
                       state->hwnd_CB_Action);
        return 0;
    case WM_GETMINMAXINFO:
        on_WM_GETMINMAXINFO(reinterpret_cast<MINMAXINFO*>(lParam));
        return 0;
    case WM_SETCURSOR:
        if (keep_wait_cursor(LOWORD(lParam)))
            return TRUE;
        return DefWindowProcW(hwnd, message, wParam, lParam);
    case WM_ERASEBKGND:
        return 1; // painting covers the whole client area
    case WM_PAINT:
        on_WM_PAINT(hwnd, state);
        return 0;
    case WM_COMMAND:
        on_WM_COMMAND(hwnd, wParam, lParam, state);
        return 0;
    case WM_DROPFILES:
        on_WM_DROPFILES(hwnd, reinterpret_cast<HDROP>(wParam), state);
        return 0;
    case WM_DESTROY:
        on_WM_DESTROY(state);
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}
