// The Profile and Action lists of the main window, and the records that mirror them.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

// The most names that the Profile list takes.
inline constexpr std::uint32_t kProfileNames_max = 32;

// The Profile list: which profile of the loaded-profiles store stands at which position.
struct CB_mng_STR {
    HWND hwnd_CB;
    std::uint32_t uiCtlID;
    std::uint32_t uiN_strs;     // names in the list
    std::uint32_t uiMax_N_strs; // kProfileNames_max
    std::uint32_t uiSelection;  // last CB_GETCURSEL seen on CBN_SELCHANGE; unread: see selected_position
    // The text passed in for each position, not owned. Unread: the list has copies; kept as its mirror.
    std::array<const void*, kProfileNames_max> arr1D_p_names;
    std::array<std::uint32_t, kProfileNames_max> arr1D_ui_index_profile; // of the store, per position
};
static_assert(std::is_trivially_copyable_v<CB_mng_STR>);

// The actions by their position in the Action list.
enum ActionPosition : unsigned { ACTION_MINIMIZE, ACTION_RESTORE, ACTION_CLOSE, ACTION_COUNT };

// The Action list.
struct CB_Action_mng_STR {
    HWND hwnd_CB;
    std::uint32_t uiCtlID;
    std::uint32_t uiN_items;   // unread: the actions are fixed; kept as the list's mirror
    std::uint32_t uiSelection; // as for the Profile list
};
static_assert(std::is_trivially_copyable_v<CB_Action_mng_STR>);

// The position selected in a list; CB_ERR when none is, or there is no such list. The list is asked and not
// its record: a selection made by the program sends no CBN_SELCHANGE.
LRESULT selected_position(HWND hwnd_CB);

// Clears the Profile list's record and sets it up for the empty list `hwnd_CB`.
void CB_Profile_init(HWND hwnd_CB, std::uint32_t uiCtlID, CB_mng_STR* pCB_mng_STR);

// Fills the Action list with "Minimize", "Restore" and "Close", none of them selected, and sets up its
// record. Each text that cannot be inserted is shown in a box. Returns 1; -1 after an error box for a null
// argument.
std::int32_t CB_Action_init(HWND hwnd_CB_Action, std::uint32_t uiCtlID,
                            CB_Action_mng_STR* pCB_Action_mng_STR);

// WM_COMMAND of a list: on CBN_SELCHANGE from the record's own list its selection is kept in the record. Both
// return 1; -1 after an error box for a null argument.
std::int32_t onWM_COMMAND_CB_Profile(unsigned code, unsigned uiCtlID, HWND hwndCtl, CB_mng_STR* pCB_mng_STR);
std::int32_t onWM_COMMAND_CB_Action(unsigned code, unsigned uiCtlID, HWND hwndCtl,
                                    CB_Action_mng_STR* pCB_Action_mng_STR);

// Adds a name at the end of the Profile list and selects the first name in the list that begins with it.
// `p_tc_sz_name` points to UTF-16 units of any alignment that end in a zero unit or, inside a profile file,
// in the file's signature; at most 201 units are read. `index_profile` is the profile's index in the
// loaded-profiles store. Returns 1 (also when the list refused the text, after a box); 2 after a box when the
// list is full, nothing changed; -1 after an error box for a null argument.
std::int32_t CB_Profile_add_string(CB_mng_STR* p_CB_mng_STR, const void* p_tc_sz_name,
                                   std::uint32_t index_profile);

// Removes the selected name from the Profile list; the store indexes of the positions behind it are raised by
// 1, which is right while profile k stands at position k. Returns 1; 2 after a box when nothing is selected
// or the list refused, the record unchanged; -1 after an error box for a null record.
std::int32_t CB_Profile_del_string(CB_mng_STR* p_CB_mng_STR);
