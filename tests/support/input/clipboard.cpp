#include "tests/support/input/clipboard.h"

#include <windows.h>

#include <cstring>

#include "tests/support/basics/waiting.h"
#include "tests/support/windows/test_window.h"

namespace test_support
{

void put_on_clipboard(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(block), text.c_str(), bytes);
    GlobalUnlock(block);
    const TestWindow owner(L"", WS_OVERLAPPEDWINDOW);
    // Whoever looks at every change of the clipboard keeps it for a moment.
    wait_until([&] { return OpenClipboard(owner) != FALSE; }, kShortWait, "the clipboard");
    const bool taken = EmptyClipboard() != FALSE && SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    CloseClipboard();
    if (!taken)
        throw Failure("the clipboard does not take the text");
}

} // namespace test_support
