#include "sources/win32/window_classes.h"

WNDCLASSEXW common_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure)
{
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.style = CS_HREDRAW | CS_VREDRAW;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = class_name;
    return window_class;
}

bool register_secondary_window_class(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure)
{
    WNDCLASSEXW window_class = common_window_class(instance, class_name, procedure);
    window_class.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    window_class.hIconSm = LoadIconW(nullptr, IDI_APPLICATION);
    window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    return RegisterClassExW(&window_class) != 0;
}

void register_secondary_window_class_once(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure,
                                          bool* registered)
{
    if (!*registered)
        *registered = register_secondary_window_class(instance, class_name, procedure);
}
