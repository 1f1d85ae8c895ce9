#include "sources/wnd_ModifyCell/modify_cell_applying.h"

#include <commctrl.h>

#include <array>
#include <cstddef>

#include "sources/win32/list_view_cells.h"
#include "sources/win32/own_window.h"
#include "sources/win32/text_in.h"
#include "sources/wnd_ModifyCell/modify_cell_errors.h"
#include "sources/wnd_ModifyCell/modify_cell_rules.h"
#include "sources/wnd_ModifyCell/modify_cell_state.h"

namespace
{

bool is_alphanumeric(wchar_t unit)
{
    return IsCharAlphaNumericW(unit) != FALSE;
}
bool is_alphabetic(wchar_t unit)
{
    return IsCharAlphaW(unit) != FALSE;
}

// The texts of the edit boxes, at most 49 units each.
using EditTexts = std::array<EditText, kModifyCell_edits>;

// False when edit boxes are gone: a second window had taken the state over and was closed. One that could not
// be created is empty.
bool read_edits(EditTexts* texts)
{
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        const HWND edit = modify_cell.controls[i];
        if (edit == nullptr)
            continue;
        if (!is_own_window_of_class(edit, WC_EDITW))
            return false;
        GetWindowTextW(edit, (*texts)[i].data(), static_cast<int>(kEditText_max_units));
    }
    return true;
}

// Shows the texts that are valid in the row.
void show_valid_texts(HWND hwndListView, std::uint32_t row, EditTexts* texts)
{
    for (std::size_t i = 0; i < kModifyCell_edits; ++i) {
        EditText& text = (*texts)[i];
        if (is_edit_valid(text_in(text), is_alphanumeric, is_alphabetic))
            set_cell_text(hwndListView, row, kModifyCell_columns[i], text);
    }
}

} // namespace

std::int32_t on_Button_OK(HWND hwndThis, HWND hwndListView, std::uint32_t row, STR_ENUM_WNDS_DATA* pSTR)
{
    if (hwndThis == nullptr || hwndListView == nullptr || pSTR == nullptr)
        return report<kModifyOkInput>(hwndThis, hwndListView, pSTR);
    if (pSTR->pcDynMem_WinHndls == nullptr || pSTR->pcDynMem_GeomText == nullptr)
        return report<kModifyOkNoScan>(pSTR->pcDynMem_WinHndls, pSTR->pcDynMem_GeomText);
    if (!is_own_window_of_class(hwndListView, WC_LISTVIEWW))
        return report<kModifyOkNoList>(hwndListView);
    if (row >= pSTR->counter_valid)
        return report<kModifyOkNoRow>(row, pSTR->counter_valid);
    EditTexts texts{};
    if (!read_edits(&texts)) {
        const auto& [hEdit, hEdit_Ypos, hEdit_Width, hEdit_Height, hBtn_Ok, hBtn_Cancel] =
            modify_cell.controls;
        return report<kModifyOkNoEdits>(hEdit, hEdit_Ypos, hEdit_Width, hEdit_Height);
    }

    show_valid_texts(hwndListView, row, &texts);
    // Quirk: a text that the row refused changes the geometry all the same; kept so that a profile holds the
    // same numbers whichever version saves it.
    GeomEntry_STR* entry = geometry_entry(pSTR, row);
    entry->x = leading_number(texts[MODIFY_CELL_X].data());
    entry->y = leading_number(texts[MODIFY_CELL_Y].data());
    entry->height = leading_number(texts[MODIFY_CELL_HEIGHT].data());
    entry->width = leading_number(texts[MODIFY_CELL_WIDTH].data());
    destroy_own_window_of_class(hwndThis, kClass_ModifyCell);
    return 1;
}
