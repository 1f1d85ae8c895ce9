#include "tests/support/windows/messages.h"

#include "tests/support/basics/waiting.h"

namespace test_support
{

LRESULT answer_of(HWND window, UINT message, WPARAM wide, LPARAM narrow, unsigned milliseconds)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wide, narrow, SMTO_NORMAL, milliseconds, &answer))
        throw Failure("no answer to message " + std::to_string(message) + ", " + std::to_string(wide) + ", " +
                      std::to_string(narrow));
    return static_cast<LRESULT>(answer);
}

bool answers(HWND window, UINT message)
{
    wchar_t text[64] = {};
    DWORD_PTR result = 0;
    return SendMessageTimeoutW(window, message, 64, reinterpret_cast<LPARAM>(text), SMTO_NORMAL, 300,
                               &result) != 0;
}

std::wstring text_of(HWND window)
{
    std::wstring text(8192, L'\0');
    DWORD_PTR units = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                        kShortWait, &units);
    text.resize(units < text.size() ? units : text.size());
    return text;
}

} // namespace test_support
