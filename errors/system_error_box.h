// The system error box: the system's own text for a failed call.
#pragma once

#include <windows.h>

#include "errors/error_box.h"

// The code that the system error box was shown for last. Unread: for a debugger, after the box is gone.
extern DWORD last_system_error;

// Shows the system's text for `code` (a value of GetLastError, taken before any clean-up) in a modal box
// without owner, titled "GetLastError", with the information icon. `title_encoding` BYTES hands the title
// over as unconverted 8-bit text. A code that the system has no text for shows an empty box.
void show_system_error(DWORD code, ErrorEncoding title_encoding = ErrorEncoding::WIDE);
