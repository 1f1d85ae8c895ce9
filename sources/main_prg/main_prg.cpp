// Start-up: one instance, the window classes, the main window, the message loop.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include "errors/system_error_box.h"
#include "resources/resource_ids.h"
#include "sources/funcs_layout_windows/main_view/main_layout.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/main_prg/main_errors.h"
#include "sources/main_prg/main_window.h"
#include "sources/win32/window_classes.h"
#include "sources/wnd_ScanListView/wnd_ScanListView.h"

namespace
{

// Undocumented in the headers: carries the data of a drop between processes.
constexpr UINT kWM_COPYGLOBALDATA = 0x49;

// Brings a running instance to the front. False when there is none.
bool show_running_instance()
{
    const HWND running = FindWindowW(kClass_MainWindow, nullptr);
    if (running == nullptr)
        return false;
    if (IsIconic(running) != FALSE)
        ShowWindowAsync(running, SW_RESTORE); // It may be busy with a load.
    SetForegroundWindow(running);
    return true;
}

void initialise_common_controls()
{
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS |
                     ICC_DATE_CLASSES | ICC_USEREX_CLASSES | ICC_COOL_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&controls);
}

void register_main_class(HINSTANCE instance)
{
    WNDCLASSEXW main_class = common_window_class(instance, kClass_MainWindow, WndProc);
    main_class.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(ID_ICON_32));
    // Quirk: the small icon is the large picture; kept so that the window looks the same in every version.
    main_class.hIconSm = static_cast<HICON>(
        LoadImageW(instance, MAKEINTRESOURCEW(ID_ICON_32), IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
    main_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    main_class.lpszMenuName = L"menu_main";
    RegisterClassExW(&main_class);
}

// Null after the system's error text, with which the program does not end.
HWND create_main_window(HINSTANCE instance)
{
    const int width = initial_main_width(GetSystemMetrics(SM_CXSCREEN));
    const int height = initial_main_height(GetSystemMetrics(SM_CYSCREEN));
    const HWND hwnd =
        CreateWindowExW(0, kClass_MainWindow, kTitle_MainWindow, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        CW_USEDEFAULT, CW_USEDEFAULT, width, height, nullptr, nullptr, instance, nullptr);
    if (hwnd == nullptr)
        show_system_error(GetLastError());
    return hwnd;
}

// Lets files be dropped, also from processes of lower integrity.
void accept_drops(HWND hwnd)
{
    DragAcceptFiles(hwnd, TRUE);
    for (const UINT message :
         {static_cast<UINT>(WM_DROPFILES), static_cast<UINT>(WM_COPYDATA), kWM_COPYGLOBALDATA})
        ChangeWindowMessageFilterEx(hwnd, message, MSGFLT_ALLOW, nullptr);
}

// Returns the exit code that WM_QUIT carries.
int run_message_loop()
{
    MSG message{};
    for (;;) {
        const BOOL result = GetMessageW(&message, nullptr, 0, 0);
        if (result == 0)
            return static_cast<int>(message.wParam);
        if (result == -1) {
            // Quirk: a failure does not end the loop; the windows go on working with the next message.
            report<kGetMessage>();
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE /*hPrevInstance*/, LPWSTR /*lpCmdLine*/, int nShowCmd)
{
    // Before any call that may load a library: none is taken from beside the program or the current folder.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    // Windows would offer to end the program while a load waits for the programs that it has started.
    DisableProcessWindowsGhosting();
    if (show_running_instance())
        return 0;
    initialise_common_controls();
    register_main_class(hInstance);
    // The Scan command opens the list by its class name.
    register_secondary_window_class(hInstance, kClass_ScanListView, WndProc_ScanListView);
    const HWND hwnd = create_main_window(hInstance);
    accept_drops(hwnd);
    ShowWindow(hwnd, nShowCmd);
    UpdateWindow(hwnd);
    return run_message_loop();
}
