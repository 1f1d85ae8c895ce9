// The identity of the Modify Cell window: its class, and the message that names its cell.
#pragma once

#include <windows.h>

#include <cstdint>
#include <type_traits>

inline constexpr wchar_t kClass_ModifyCell[] = L"Modify Cell Window";

// The cell that the window is opened for: the payload of the WM_COPYDATA that follows its creation.
struct CellReference_STR {
    std::uint32_t uiRow;    // item of the list
    std::uint32_t uiColumn; // subitem that was clicked; kept, not used
    HWND hwndListView;
};
static_assert(sizeof(CellReference_STR) == 16 && std::is_trivially_copyable_v<CellReference_STR>);
