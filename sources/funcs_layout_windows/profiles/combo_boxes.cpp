#include "sources/funcs_layout_windows/profiles/combo_boxes.h"

#include <algorithm>

#include "sources/funcs_layout_windows/profiles/profiles_errors.h"
#include "sources/funcs_layout_windows/profiles/profiles_notices.h"
#include "sources/profile_file/profile_file.h"

namespace
{

constexpr std::array<const wchar_t*, ACTION_COUNT> kActions{L"Minimize", L"Restore", L"Close"};

// A name as it is shown: at most 201 characters, in a buffer that is zero from there on.
constexpr std::size_t kShownName_max_units = 201;
using ShownName = std::array<wchar_t, 520>;

bool is_insert_error(LRESULT result)
{
    return result == CB_ERR || result == CB_ERRSPACE;
}

// True when the name ends at `bytes`: a zero unit, or the signature that follows a name in a profile file. It
// is looked for byte by byte: the name has no terminator of its own there. The third byte is read only behind
// a signature's first two, so a zero-terminated text is never read past its zero.
bool is_name_end(const std::uint8_t* bytes)
{
    if (bytes[0] != profile_file::kSignature[0])
        return false;
    return bytes[1] == 0 ||
           (bytes[1] == profile_file::kSignature[1] && bytes[2] == profile_file::kSignature[2]);
}

// Quirk: only the low byte of each unit is shown; kept so that a name reads the same in every version.
void copy_shown_name(const std::uint8_t* name, ShownName* shown)
{
    for (std::size_t i = 0; i < kShownName_max_units && !is_name_end(name + 2 * i); ++i)
        (*shown)[i] = static_cast<wchar_t>(name[2 * i]);
}

// What both lists do on CBN_SELCHANGE. Messages of other controls and codes change nothing.
template <typename Record> void keep_selection(unsigned code, unsigned uiCtlID, HWND hwndCtl, Record* record)
{
    if (record->uiCtlID == uiCtlID && record->hwnd_CB == hwndCtl && code == CBN_SELCHANGE)
        record->uiSelection = static_cast<std::uint32_t>(SendMessageW(hwndCtl, CB_GETCURSEL, 0, 0));
}

} // namespace

LRESULT selected_position(HWND hwnd_CB)
{
    return IsWindow(hwnd_CB) == FALSE ? CB_ERR : SendMessageW(hwnd_CB, CB_GETCURSEL, 0, 0);
}

void CB_Profile_init(HWND hwnd_CB, std::uint32_t uiCtlID, CB_mng_STR* pCB_mng_STR)
{
    *pCB_mng_STR = {};
    pCB_mng_STR->hwnd_CB = hwnd_CB;
    pCB_mng_STR->uiCtlID = uiCtlID;
    pCB_mng_STR->uiMax_N_strs = kProfileNames_max;
}

std::int32_t CB_Action_init(HWND hwnd_CB_Action, std::uint32_t uiCtlID, CB_Action_mng_STR* pCB_Action_mng_STR)
{
    if (hwnd_CB_Action == nullptr || pCB_Action_mng_STR == nullptr)
        return report<kActionInitInput>(hwnd_CB_Action, pCB_Action_mng_STR);
    for (WPARAM position = 0; position < kActions.size(); ++position) {
        const auto text = reinterpret_cast<LPARAM>(kActions[position]);
        if (is_insert_error(SendMessageW(hwnd_CB_Action, CB_INSERTSTRING, position, text)))
            report<kActionInitInsert>();
    }
    *pCB_Action_mng_STR = {
        .hwnd_CB = hwnd_CB_Action, .uiCtlID = uiCtlID, .uiN_items = ACTION_COUNT, .uiSelection = 0};
    return 1;
}

std::int32_t onWM_COMMAND_CB_Profile(unsigned code, unsigned uiCtlID, HWND hwndCtl, CB_mng_STR* pCB_mng_STR)
{
    if (hwndCtl == nullptr || pCB_mng_STR == nullptr)
        return report<kCbProfileInput>(hwndCtl, pCB_mng_STR);
    keep_selection(code, uiCtlID, hwndCtl, pCB_mng_STR);
    return 1;
}

std::int32_t onWM_COMMAND_CB_Action(unsigned code, unsigned uiCtlID, HWND hwndCtl,
                                    CB_Action_mng_STR* pCB_Action_mng_STR)
{
    if (hwndCtl == nullptr || pCB_Action_mng_STR == nullptr)
        return report<kCbActionInput>(hwndCtl, pCB_Action_mng_STR);
    keep_selection(code, uiCtlID, hwndCtl, pCB_Action_mng_STR);
    return 1;
}

std::int32_t CB_Profile_add_string(CB_mng_STR* p_CB_mng_STR, const void* p_tc_sz_name,
                                   std::uint32_t index_profile)
{
    if (p_CB_mng_STR == nullptr || p_tc_sz_name == nullptr)
        return report<kAddStringInput>(p_CB_mng_STR, p_tc_sz_name);
    if (p_CB_mng_STR->uiN_strs + 1 > p_CB_mng_STR->uiMax_N_strs)
        return report<kAddStringFull>();

    const std::uint32_t position = p_CB_mng_STR->uiN_strs++;
    p_CB_mng_STR->arr1D_ui_index_profile[position] = index_profile;
    p_CB_mng_STR->arr1D_p_names[position] = p_tc_sz_name;

    ShownName shown{};
    copy_shown_name(static_cast<const std::uint8_t*>(p_tc_sz_name), &shown);
    const auto text = reinterpret_cast<LPARAM>(shown.data());
    if (is_insert_error(SendMessageW(p_CB_mng_STR->hwnd_CB, CB_INSERTSTRING, position, text)))
        report<kAddStringInsert>();
    // Quirk: an earlier name that begins the same is selected; kept so that it means the same in every
    // version.
    SendMessageW(p_CB_mng_STR->hwnd_CB, CB_SELECTSTRING, static_cast<WPARAM>(-1), text);
    return 1;
}

std::int32_t CB_Profile_del_string(CB_mng_STR* p_CB_mng_STR)
{
    if (p_CB_mng_STR == nullptr)
        return report<kDelStringInput>(p_CB_mng_STR);

    // No selection is CB_ERR, which is above any count when unsigned.
    const auto ind = static_cast<std::uint32_t>(selected_position(p_CB_mng_STR->hwnd_CB));
    if (ind > p_CB_mng_STR->uiN_strs || p_CB_mng_STR->uiN_strs == 0)
        return report<kDelStringSelection>();
    if (ind >= kProfileNames_max || SendMessageW(p_CB_mng_STR->hwnd_CB, CB_DELETESTRING, ind, 0) == CB_ERR)
        return report<kDelStringDelete>();

    auto& indexes = p_CB_mng_STR->arr1D_ui_index_profile;
    p_CB_mng_STR->arr1D_p_names[ind] = nullptr; // Quirk: those behind it are not moved; nothing reads them.
    if (p_CB_mng_STR->uiN_strs == 1) {
        p_CB_mng_STR->uiN_strs = 0;
        indexes[ind] = 0;
        return 1;
    }
    // Quirk: the indexes are counted up, not moved; the same as long as profile k stands at position k.
    const std::uint32_t remaining = --p_CB_mng_STR->uiN_strs;
    for (std::uint32_t position = ind; position < remaining; ++position)
        ++indexes[position];
    std::fill(indexes.begin() + remaining, indexes.end(), 0U);
    return 1;
}
