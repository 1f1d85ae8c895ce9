#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "tests/support/basics/waiting.h"

namespace test_support
{

// A window of this process with an edit box, a button and a list view with check boxes, for the self tests of
// what works them.
class ControlsWindow
{
public:
    ControlsWindow()
    {
        clicks = 0;
        right_clicks = 0;
        INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        WNDCLASSW description{};
        description.lpfnWndProc = &ControlsWindow::procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"InputSelfTest";
        RegisterClassW(&description);
        frame_ = CreateWindowExW(0, L"InputSelfTest", L"input", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 50, 500,
                                 400, nullptr, nullptr, nullptr, nullptr);
        edit_ = make(L"Edit", WS_BORDER, 10, 40, 200, 24);
        button_ = make(L"Button", 0, 10, 70, 100, 30);
        list_ = make(WC_LISTVIEWW, LVS_REPORT | LVS_SHOWSELALWAYS, 10, 110, 450, 200);
        ListView_SetExtendedListViewStyle(list_, LVS_EX_CHECKBOXES | LVS_EX_GRIDLINES);
        ListView_SetImageList(list_, ImageList_Create(16, 16, ILC_MASK, 12, 1), LVSIL_SMALL);
        add_column(0, L"#", 60);
        add_column(1, L"Window name", 250);
        for (int i = 0; i < 40; ++i)
            add_row(i);
        UpdateWindow(frame_);
        pump_messages();
    }
    ~ControlsWindow() { DestroyWindow(frame_); }
    ControlsWindow(const ControlsWindow&) = delete;
    ControlsWindow& operator=(const ControlsWindow&) = delete;

    HWND frame() const { return frame_; }
    HWND edit() const { return edit_; }
    HWND button() const { return button_; }
    HWND list() const { return list_; }

    inline static int clicks = 0;
    inline static int right_clicks = 0;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        if (message == WM_COMMAND && HIWORD(wide) == BN_CLICKED)
            ++clicks;
        if (message == WM_RBUTTONUP)
            ++right_clicks;
        return DefWindowProcW(window, message, wide, narrow);
    }

    HWND make(const wchar_t* name, DWORD style, int x, int y, int width, int height) const
    {
        return CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, x, y, width, height, frame_,
                               nullptr, nullptr, nullptr);
    }

    void add_column(int index, const wchar_t* heading, int width) const
    {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = const_cast<wchar_t*>(heading);
        column.cx = width;
        column.iSubItem = index;
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
    }

    void add_row(int index) const
    {
        std::wstring text = std::to_wstring(index + 1);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = index;
        item.pszText = text.data();
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        text.insert(0, L"window ");
        item.iSubItem = 1;
        item.pszText = text.data();
        SendMessageW(list_, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }

    HWND frame_ = nullptr;
    HWND edit_ = nullptr;
    HWND button_ = nullptr;
    HWND list_ = nullptr;
};

} // namespace test_support
