#include "errors/system_error_box.h"

#include "sources/win32/bytes_as_wide.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/win32/wait_cursor.h"

DWORD last_system_error;

void show_system_error(DWORD code, ErrorEncoding title_encoding)
{
    static constexpr auto kTitle_bytes = bytes_as_wide("GetLastError");

    last_system_error = code;
    LocalText text;
    FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<wchar_t*>(text.out()), 0, nullptr);
    const WaitCursorPause pause;
    MessageBoxW(nullptr, text.get(),
                title_encoding == ErrorEncoding::BYTES ? kTitle_bytes.data() : L"GetLastError",
                MB_ICONINFORMATION);
}
