// The profile name window: asks for the name under which a new profile is saved.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

inline constexpr wchar_t kClass_ProfileName[] = L"Name of Profile Window";

// The longest name that is ever handed on, in UTF-16 units. The edit box takes no more.
inline constexpr std::size_t kProfileName_max_units = 256;

// dwData of the WM_COPYDATA that carries the name.
inline constexpr ULONG_PTR kProfileName_dwData = 0;

// Creates the window 70 pixels right of and below `hwnd_ListWindows`, its owner, without showing it.
// Registers the class at the first call. Null when it cannot be created; GetLastError tells why. When the
// user confirms a name, the owner is sent WM_COPYDATA: wParam = this window, dwData = 0, cbData = the name's
// bytes, lpData = its units. The owner destroys the window then; Cancel and the close box destroy it without
// a message.
HWND create_wnd_ProfileName(HWND hwnd_ListWindows);

// The window's procedure. The creation parameter points to the owner's handle.
LRESULT CALLBACK WndProc_wnd_ProfileName(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Sends the edit box's text to `hwnd_parent_wnd`; a warning is shown instead when it is empty. Returns 1 in
// both cases; -1 after an error box when a handle is missing.
std::int32_t on_Button_OK(HWND hwnd_this_wnd, HWND hwnd_parent_wnd, HWND hEdit);

// Destroys the window. Returns 1; -1 after an error box when the handle is missing.
std::int32_t on_Button_CANCEL(HWND hwndThis);
