// The commands of the program as the bare system calls that they are made of, behind the same controls.
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include "benchmarks/bare/bare_load.h"
#include "benchmarks/bare/bare_main_window.h"
#include "benchmarks/bare/bare_scan.h"
#include "tests/support/windows/control_ids.h"

namespace
{

void load_dropped(HDROP drop)
{
    wchar_t path[MAX_PATH] = {};
    if (DragQueryFileW(drop, 0, path, MAX_PATH) != 0)
        bare::load(path);
}

void on_button(HWND window, int id)
{
    if (id == main_control::kScan)
        bare::scan(reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(window, GWLP_HINSTANCE)));
    else if (id == main_control::kApply)
        bare::apply(
            static_cast<int>(SendMessageW(GetDlgItem(window, main_control::kAction), CB_GETCURSEL, 0, 0)));
}

LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
{
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wide) == BN_CLICKED)
            on_button(window, LOWORD(wide));
        return 0;
    case WM_DROPFILES:
        load_dropped(reinterpret_cast<HDROP>(wide));
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wide, narrow);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR /*command_line*/, int /*show*/)
{
    bare::register_list_class(instance);
    const HWND window = bare::open_main_window(instance, L"Bare calls", window_procedure);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    DragAcceptFiles(window, TRUE);
    const int result = bare::run_message_loop();
    CoUninitialize();
    return result;
}
