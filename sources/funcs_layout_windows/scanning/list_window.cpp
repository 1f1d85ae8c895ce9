#include "sources/funcs_layout_windows/scanning/list_window.h"

#include <windows.h>

HWND hwnd_ScanListView;
