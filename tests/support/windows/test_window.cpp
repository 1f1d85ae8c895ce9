#include "tests/support/windows/test_window.h"

#include "tests/support/basics/waiting.h"

namespace test_support
{

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
