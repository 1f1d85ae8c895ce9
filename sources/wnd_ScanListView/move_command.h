// The Move command of the List of Windows window.
#pragma once

#include <windows.h>

#include <cstdint>

// Moves and sizes the real windows of all ticked rows to the numbers in their X, Y, Width and Height cells,
// in real pixels, and brings each to the top; a minimised window is restored first, and one that comes to a
// monitor of another scale, where it resizes itself, is asked twice. A row without a size is passed over. The
// call does not wait for the windows' threads. Row i is window i of the `counter_valid` handles in
// `pcDynMem_WinHndls`; `wParam` and `lParam` are not used. Returns 1, also when the list was closed while a
// box was up; a window that cannot be moved is shown in a box and the rest still move; an info box is shown
// when nothing is ticked. -1 after an error box for a null list or array.
std::int32_t onButton_Move(HWND hwndThis, HWND hwndLV, WPARAM wParam, LPARAM lParam,
                           const HWND* pcDynMem_WinHndls, std::uint32_t counter_valid);
