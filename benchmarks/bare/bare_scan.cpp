#include "benchmarks/bare/bare_scan.h"

#include <commctrl.h>
#include <exdisp.h>
#include <psapi.h>
#include <stdio.h>

namespace bare
{

namespace
{

constexpr int kTitle_units = 1000;
constexpr UINT kTitle_milliseconds = 5000;

struct Found {
    HWND window;
    RECT rectangle;
    wchar_t title[50];
    wchar_t path[MAX_PATH];
};

struct Pass {
    Found* found; // null in the first pass
    unsigned room;
    unsigned count;
};

// The folder windows are asked for as the program does; the benchmark opens none.
void ask_for_folder_windows()
{
    static constexpr CLSID kShell_windows{
        0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};
    static constexpr IID kInterface{
        0x85CB6900, 0x4D95, 0x11CF, {0x96, 0x0C, 0x00, 0x80, 0xC7, 0xF4, 0xEE, 0x85}};
    IShellWindows* windows = nullptr;
    if (FAILED(CoCreateInstance(kShell_windows, nullptr, CLSCTX_ALL, kInterface,
                                reinterpret_cast<void**>(&windows))))
        return;
    long count = 0;
    windows->get_Count(&count);
    windows->Release();
}

void read_path(HWND window, wchar_t* path)
{
    DWORD process_id = 0;
    GetWindowThreadProcessId(window, &process_id);
    const HANDLE process =
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, process_id);
    K32GetModuleFileNameExW(process, nullptr, path, MAX_PATH);
    CloseHandle(process);
}

void read_rectangle(HWND window, RECT* rectangle)
{
    const DPI_AWARENESS_CONTEXT before =
        SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    GetWindowRect(window, rectangle);
    SetThreadDpiAwarenessContext(before);
    if (IsIconic(window))
        *rectangle = {};
}

BOOL CALLBACK visit(HWND window, LPARAM context)
{
    auto* pass = reinterpret_cast<Pass*>(context);
    wchar_t title[kTitle_units];
    wchar_t class_name[250];
    DWORD_PTR length = 0;
    if (!IsWindowVisible(window) ||
        !SendMessageTimeoutW(window, WM_GETTEXT, kTitle_units, reinterpret_cast<LPARAM>(title),
                             SMTO_ABORTIFHUNG, kTitle_milliseconds, &length) ||
        length == 0)
        return TRUE;
    GetClassNameW(window, class_name, 250);
    wchar_t path[MAX_PATH] = {};
    read_path(window, path);
    if (pass->found && pass->count < pass->room) {
        Found& found = pass->found[pass->count];
        found.window = window;
        GetWindowTextLengthW(window);
        read_rectangle(window, &found.rectangle);
        lstrcpynW(found.title, title, 50);
        lstrcpynW(found.path, path, MAX_PATH);
    }
    ++pass->count;
    return TRUE;
}

void set_cell(HWND list, int row, int column, const wchar_t* text)
{
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void set_number(HWND list, int row, int column, long number)
{
    wchar_t text[16] = {};
    _snwprintf(text, 15, L"%ld", number);
    set_cell(list, row, column, text);
}

void fill(HWND list, const Pass& pass)
{
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (unsigned i = 0; i < pass.count; ++i) {
        const Found& found = pass.found[i];
        const int row = static_cast<int>(i);
        set_number(list, row, 0, row + 1);
        set_cell(list, row, 1, found.title);
        set_number(list, row, 2, found.rectangle.left);
        set_number(list, row, 3, found.rectangle.top);
        set_number(list, row, 4, found.rectangle.right - found.rectangle.left);
        set_number(list, row, 5, found.rectangle.bottom - found.rectangle.top);
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

void create_list(HWND window, HINSTANCE instance, const Pass& pass)
{
    RECT client{};
    GetClientRect(window, &client);
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      client.right, client.bottom, window, nullptr, instance, nullptr);
    for (int i = 0; i < 6; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
        column.cx = client.right / 6;
        column.pszText = const_cast<wchar_t*>(L"Heading");
        column.iSubItem = i;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    fill(list, pass);
}

LRESULT CALLBACK list_window_procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
{
    if (message == WM_CREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(narrow);
        create_list(window, creation->hInstance, *static_cast<const Pass*>(creation->lpCreateParams));
        return 0;
    }
    return DefWindowProcW(window, message, wide, narrow);
}

} // namespace

void register_list_class(HINSTANCE instance)
{
    WNDCLASSEXW list_class{};
    list_class.cbSize = sizeof list_class;
    list_class.lpfnWndProc = list_window_procedure;
    list_class.hInstance = instance;
    list_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    list_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    list_class.lpszClassName = kList_class;
    RegisterClassExW(&list_class);
}

void scan(HINSTANCE instance)
{
    Pass pass{};
    EnumWindows(visit, reinterpret_cast<LPARAM>(&pass));
    ask_for_folder_windows();
    pass.room = pass.count;
    pass.count = 0;
    pass.found =
        static_cast<Found*>(VirtualAlloc(nullptr, pass.room * sizeof(Found), MEM_COMMIT, PAGE_READWRITE));
    EnumWindows(visit, reinterpret_cast<LPARAM>(&pass));
    ask_for_folder_windows();
    pass.count = pass.count < pass.room ? pass.count : pass.room;
    CreateWindowExW(0, kList_class, L"Bare list", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 30, 30,
                    GetSystemMetrics(SM_CXSCREEN) * 3 / 4, GetSystemMetrics(SM_CYSCREEN) * 3 / 4, nullptr,
                    nullptr, instance, &pass);
    VirtualFree(pass.found, 0, MEM_RELEASE);
}

} // namespace bare
