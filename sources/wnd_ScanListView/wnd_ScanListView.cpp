#include "sources/wnd_ScanListView/wnd_ScanListView.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "resources/resource_ids.h"
#include "sources/funcs_layout_windows/drawing/fonts.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/win32/controls.h"
#include "sources/win32/own_window.h"
#include "sources/win32/owners/device_contexts.h"
#include "sources/win32/wait_cursor.h"
#include "sources/wnd_ModifyCell/modify_cell_window.h"
#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"
#include "sources/wnd_ScanListView/list_view.h"
#include "sources/wnd_ScanListView/move_command.h"
#include "sources/wnd_ScanListView/saving/create_profile.h"
#include "sources/wnd_ScanListView/saving/save_profile.h"
#include "sources/wnd_ScanListView/scan_list_errors.h"
#include "sources/wnd_ScanListView/scan_list_layout.h"
#include "sources/wnd_ScanListView/scan_list_state.h"

ScanList_STR scan_list;

namespace
{

enum ScanListControl : unsigned { ID_BTN_MOVE = 1, ID_BTN_CREATE_PROFILE = 2, ID_LISTVIEW = 4 };

// In GWLP_USERDATA of a window whose destruction has begun.
constexpr LONG_PTR kDestruction_begun = 1;

// A save uses the write record, whichever list has begun it: no other name is taken and no other profile
// gathered until it has ended.
bool save_under_way = false;

// Marks a save as under way up to the end of the scope.
class SaveUnderWay
{
public:
    SaveUnderWay() { save_under_way = true; }
    SaveUnderWay(const SaveUnderWay&) = delete;
    SaveUnderWay& operator=(const SaveUnderWay&) = delete;
    ~SaveUnderWay() { save_under_way = false; }
};

// Forgets everything but the write record, which lives as long as the program.
void reset_state(ScanList_STR* state)
{
    const STR_RW_PRFL kept = state->RW_PRFL;
    *state = {};
    state->RW_PRFL = kept;
}

HWND create_button(HWND hwnd, const wchar_t* text, ScanListControl id, const ScanList_STR* state,
                   FixedRow failure)
{
    const PixelRect unplaced{.x = 0,
                             .y = 0,
                             .height = scan_list_button_height(GetSystemMetrics(SM_CYSCREEN)),
                             .width = scan_list_button_width(GetSystemMetrics(SM_CXSCREEN))};
    const HWND button = create_control(hwnd, state->hInst, L"button", text, kButtonStyle, 0, unplaced, id);
    if (button == nullptr)
        report(failure);
    return button;
}

// False when the window was destroyed while a message box was up: the state is not its own any more.
bool create_buttons(HWND hwnd, ScanList_STR* state)
{
    const HWND move = create_button(hwnd, L"Move", ID_BTN_MOVE, state, kListCreateMove);
    if (state->hwnd != hwnd)
        return false;
    state->hwndMove = move;
    const HWND create_profile =
        create_button(hwnd, L"Create Profile", ID_BTN_CREATE_PROFILE, state, kListCreateProfileButton);
    if (state->hwnd != hwnd)
        return false;
    state->hwndCreateProfile = create_profile;
    return true;
}

// The font height for the buttons; the default one when no device context is there to search with.
// Quirk: the -1 of a failed search is handed on after its box; a tiny font still brings the list, none would
// not.
std::int32_t find_font_height(HWND hwnd)
{
    const auto height =
        find_button_font_size(hwnd, L"Create Profile", scan_list_button_height(GetSystemMetrics(SM_CYSCREEN)),
                              scan_list_button_width(GetSystemMetrics(SM_CXSCREEN)));
    if (!height)
        report<kListNoDc>();
    else if (*height < 0)
        report<kListFontSize>();
    return height.value_or(kFontHeight_default);
}

void on_WM_CREATE(HWND hwnd, const CREATESTRUCTW* creation, WPARAM wParam, ScanList_STR* state)
{
    reset_state(state);
    state->hwnd = hwnd;
    state->hInst = creation->hInstance;
    if (!create_buttons(hwnd, state))
        return;
    const std::int32_t font_height = find_font_height(hwnd);
    if (state->hwnd != hwnd)
        return; // Re-entrancy: destroyed while a message box was up.
    state->hFont = create_control_font(font_height);
    if (state->hFont == nullptr) {
        // Quirk: without a font the window stays with its two buttons; kept so that it means the same in
        // every version.
        report<kListFont>();
        return;
    }
    SendMessageW(state->hwndMove, WM_SETFONT, reinterpret_cast<WPARAM>(state->hFont), TRUE);
    SendMessageW(state->hwndCreateProfile, WM_SETFONT, reinterpret_cast<WPARAM>(state->hFont), TRUE);
    on_WM_CREATE_02_ListView(hwnd, wParam, reinterpret_cast<LPARAM>(creation), state->hInst, &state->hwndLV,
                             ID_LISTVIEW);
    if (state->hwnd != hwnd)
        return; // Destroyed: there is no scan to show, or it was closed while a message box was up.
    state->menu = LoadMenuW(state->hInst, L"menu_popup_ModifyCell");
    state->popup = GetSubMenu(state->menu, 0);
}

// Computes the layout for the new client area and moves buttons, list and columns.
void on_WM_SIZE_ScanListView(HWND /*hwndThis*/, WPARAM /*wParam*/, LPARAM lParam, HWND hwndMove,
                             HWND hwndCreateProfile, HWND hwndLV, ScanListLayout* layout)
{
    *layout = compute_scan_list_layout(LOWORD(lParam), HIWORD(lParam), GetSystemMetrics(SM_CXSCREEN),
                                       GetSystemMetrics(SM_CYSCREEN));
    move_control(hwndMove, layout->move);
    move_control(hwndCreateProfile, layout->create_profile);
    move_control(hwndLV, layout->list);
    set_column_widths(hwndLV, LOWORD(lParam));
}

void on_WM_PAINT(HWND hwnd)
{
    const PaintDC dc(hwnd); // the controls paint themselves
}

// True for a notification of the list, which is handled then.
bool on_WM_NOTIFY(HWND hwnd, WPARAM wParam, LPARAM lParam, ScanList_STR* state)
{
    const auto* notification = reinterpret_cast<const NMHDR*>(lParam);
    if (notification == nullptr || state->hwndLV == nullptr || notification->hwndFrom != state->hwndLV ||
        notification->idFrom != ID_LISTVIEW)
        return false;
    on_WM_NOTIFY_ListView(hwnd, state->hwndLV, wParam, lParam, notification);
    return true;
}

void on_Move(HWND hwnd, WPARAM wParam, LPARAM lParam, const ScanList_STR* state)
{
    const std::int32_t result = onButton_Move(hwnd, state->hwndLV, wParam, lParam,
                                              scan_record.pcDynMem_WinHndls, scan_record.counter_valid);
    if (result < 0)
        report<kListMoveFailed>(result);
}

void on_Create_Profile(HWND hwnd, ScanList_STR* state)
{
    if (save_under_way) // Re-entrancy: its dialog and boxes run message loops.
        return;
    // Arrays that are still there belong to a profile that is abandoned now.
    // Quirk: also when nothing is ticked, so that a name window that stays open has nothing to save and the
    // writer refuses; kept because rows ticked for an earlier press are never saved.
    FreeDynMem_wnds_Profile(&state->RW_PRFL);
    state->RW_PRFL = {};
    const std::int32_t result =
        onButton_Create_Profile(hwnd, state->hwndLV, &state->hwnd_ProfileName, &state->RW_PRFL, &scan_record);
    if (result < 0)
        report<kListCreateProfileFailed>(result);
}

void on_Modify_Cell(HWND hwnd, ScanList_STR* state)
{
    const HWND opened = create_wnd_ModifyCell(hwnd, state->hwndLV, &state->hit_cell);
    if (state->hwnd == hwnd)
        state->hwnd_ModifyCell = opened;
    else // Re-entrancy: the list went while a message box was up; its dialog goes with it.
        destroy_own_window_of_class(opened, kClass_ModifyCell);
}

void on_WM_COMMAND(HWND hwnd, WPARAM wParam, LPARAM lParam, ScanList_STR* state)
{
    if (HIWORD(wParam) != BN_CLICKED)
        return;
    const unsigned id = LOWORD(wParam);
    if (id == ID_BTN_MOVE)
        on_Move(hwnd, wParam, lParam, state);
    else if (id == ID_BTN_CREATE_PROFILE)
        on_Create_Profile(hwnd, state);
    else if (id == ID_MENU_MODIFY_CELL && lParam == 0)
        on_Modify_Cell(hwnd, state);
}

// Copies the name that arrived into the write record, at most as many units as it has room for. Without an
// address the name is empty.
void keep_profile_name(const COPYDATASTRUCT* data, STR_RW_PRFL* record)
{
    const std::size_t sent_units = data->lpData == nullptr ? 0 : data->cbData / sizeof(wchar_t);
    const std::size_t length_units = std::min(sent_units, record->tc_PrfName.size());
    if (length_units != 0)
        std::memcpy(record->tc_PrfName.data(), data->lpData, length_units * sizeof(wchar_t));
    record->ui_len_PrfName_bytes = static_cast<std::uint32_t>(length_units * sizeof(wchar_t));
}

// Saves the profile in the write record under the name that arrived. Returns 1, also when the user cancelled;
// a negative result after its box.
std::int32_t save_profile(HWND hwnd, HWND sender, const COPYDATASTRUCT* name, STR_RW_PRFL* record)
{
    const SaveUnderWay under_way;
    keep_profile_name(name, record);
    const std::int32_t result = on_WM_COPYDATA_on_wnd_NameOfProfile(hwnd, sender, &scan_record, record);
    return result == kSave_cancelled ? FreeDynMem_wnds_Profile(record) : result;
}

// A profile's name, from any window. Answered FALSE when the save ends with a negative result,
// and without taking the name while another save is under way.
LRESULT on_WM_COPYDATA(HWND hwnd, HWND sender, const COPYDATASTRUCT* data, ScanList_STR* state)
{
    state->hwnd_COPYDATA_from = sender;
    if (data == nullptr)
        return FALSE;
    if (static_cast<DWORD>(data->dwData) != kProfileName_dwData)
        return TRUE;
    if (save_under_way)
        return FALSE;
    const std::int32_t result = save_profile(hwnd, sender, data, &state->RW_PRFL);
    if (result >= 0)
        return TRUE;
    report<kListNameFailed>(result);
    return FALSE;
}

// Destroys and releases what belongs to the window, its scan included.
void clean_up(HWND hwnd, ScanList_STR* state)
{
    state->hwnd = nullptr;
    DestroyMenu(state->menu);
    // Both windows may be gone and their handles given to others; the profile name window that Create Profile
    // opened is owned by this one and goes with it.
    destroy_own_window_of_class(state->hwnd_ModifyCell, kClass_ModifyCell);
    destroy_own_window_of_class(state->hwnd_COPYDATA_from, kClass_ProfileName);
    release_scan_blocks(&scan_record);
    if (hwnd_ScanListView == hwnd)
        hwnd_ScanListView = nullptr;
    DeleteObject(state->hFont);
    reset_state(state);
}

void on_WM_DESTROY(HWND hwnd, ScanList_STR* state)
{
    // Re-entrancy: DestroyWindow sends the message once more; each part answers it once.
    if (state->hwnd == hwnd)
        clean_up(hwnd, state);
    // The message may have come from elsewhere, and would leave a window without a scan on the screen; during
    // the window's own destruction the repeated request is harmless.
    if (SetWindowLongPtrW(hwnd, GWLP_USERDATA, kDestruction_begun) != kDestruction_begun)
        DestroyWindow(hwnd);
}

} // namespace

LRESULT CALLBACK WndProc_ScanListView(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ScanList_STR* state = &scan_list;
    switch (message) {
    case WM_CREATE:
        on_WM_CREATE(hwnd, reinterpret_cast<const CREATESTRUCTW*>(lParam), wParam, state);
        break;
    case WM_SIZE:
        on_WM_SIZE_ScanListView(hwnd, wParam, lParam, state->hwndMove, state->hwndCreateProfile,
                                state->hwndLV, &state->layout);
        return 0;
    case WM_PAINT:
        on_WM_PAINT(hwnd);
        return 0;
    case WM_NOTIFY:
        if (on_WM_NOTIFY(hwnd, wParam, lParam, state))
            return 0;
        break;
    case WM_COMMAND:
        on_WM_COMMAND(hwnd, wParam, lParam, state);
        return 0;
    case WM_COPYDATA:
        return on_WM_COPYDATA(hwnd, reinterpret_cast<HWND>(wParam),
                              reinterpret_cast<const COPYDATASTRUCT*>(lParam), state);
    case WM_SETCURSOR:
        if (keep_wait_cursor(LOWORD(lParam)))
            return TRUE;
        break;
    case WM_DESTROY:
        on_WM_DESTROY(hwnd, state);
        break;
    default:
        break;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}
