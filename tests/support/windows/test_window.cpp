#include "tests/support/windows/test_window.h"

#include "tests/support/basics/waiting.h"

namespace test_support
{

namespace
{

// Windows shows the first window of a program in the way that the program was started with, and not as the
// program asks: not at all for one that ctest starts. Here that is some window that no test is about.
[[maybe_unused]] const bool first_show_is_used_up = [] {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    if ((startup.dwFlags & STARTF_USESHOWWINDOW) == 0)
        return false;
    const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, L"Static", L"", WS_POPUP | WS_CAPTION, 0, 0, 0, 0,
                                        nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(window, SW_SHOWNORMAL);
    return DestroyWindow(window) != FALSE;
}();

} // namespace

void register_class(const wchar_t* name, WNDPROC procedure)
{
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    if (GetClassInfoExW(GetModuleHandleW(nullptr), name, &window_class) != FALSE)
        return;
    window_class = {};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    window_class.lpszClassName = name;
    RegisterClassExW(&window_class);
}

TestWindow::TestWindow(const std::wstring& title, RECT place, const std::wstring& class_name, DWORD style)
{
    register_class(class_name.c_str(), DefWindowProcW);
    window_ = CreateWindowExW(0, class_name.c_str(), title.c_str(), style, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr)
        throw Failure("a window of the test could not be created");
}

TestWindow::TestWindow(const std::wstring& title, DWORD style, RECT place, const std::wstring& class_name)
    : TestWindow(title, place, class_name, style)
{
}

} // namespace test_support
