// One walk over the shell's list of open folder windows.
#pragma once

#include <windows.h>

#include <exdisp.h>

#include <string_view>

#include "sources/win32/owners/com_ptr.h"

// Called for each folder window that shows a file-system folder, with its window and the folder's path (at
// most 259 units, zero-terminated, valid during the call). False ends the walk.
using FolderVisitor = bool (*)(HWND hwnd, std::wstring_view path, void* context);

// The shell's list of open windows. Messages come in during calls to it, also one that closes the main
// window, which uninitialises COM: the hold outlives the list.
struct ShellWindowsList {
    ComHold com;
    Variant item;                  // the number of the window that is asked for
    ComPtr<IShellWindows> windows; // empty when there is no list
};

// Creates the list on this thread, which must be initialised for COM. Returns the system's result.
HRESULT open_shell_windows(ShellWindowsList* list);

// The number of windows in the list; 0 when it cannot be asked.
long count_shell_windows(const ShellWindowsList& list);

// Visits the first `count` windows of the list in order. Windows that do not answer for one of the interfaces
// on the way, or show a virtual folder, are passed over, and so is a tab while another of its window is
// shown. Every interface and list obtained is released, last obtained first, before the visitor is called: a
// release lets messages in, and the visitor has to see what they did.
void walk_shell_windows(ShellWindowsList* list, long count, FolderVisitor visitor, void* context);
