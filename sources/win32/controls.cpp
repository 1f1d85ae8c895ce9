#include "sources/win32/controls.h"

HWND create_control(HWND parent, HINSTANCE instance, const wchar_t* class_name, const wchar_t* text,
                    DWORD style, DWORD extended_style, const PixelRect& rect, unsigned id)
{
    return CreateWindowExW(extended_style, class_name, text, style, rect.x, rect.y, rect.width, rect.height,
                           parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), instance, nullptr);
}

void move_control(HWND control, const PixelRect& rect)
{
    MoveWindow(control, rect.x, rect.y, rect.width, rect.height, TRUE);
}

RECT to_RECT(const PixelRect& rect)
{
    return {.left = rect.x, .top = rect.y, .right = rect.x + rect.width, .bottom = rect.y + rect.height};
}
