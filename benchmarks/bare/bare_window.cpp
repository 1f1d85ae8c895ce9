// A window and its controls and nothing else: what any program of this look costs.
#include "benchmarks/bare/bare_main_window.h"

namespace
{

LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
{
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, wide, narrow);
}

} // namespace

// Words of the command line name libraries that are loaded first, to see what each of them costs.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR command_line, int /*show*/)
{
    for (wchar_t* word = command_line; *word != L'\0';) {
        wchar_t* end = word;
        while (*end != L'\0' && *end != L' ')
            ++end;
        wchar_t* next = *end == L'\0' ? end : end + 1;
        *end = L'\0';
        LoadLibraryExW(word, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        word = next;
    }
    bare::open_main_window(instance, L"Bare window", window_procedure);
    return bare::run_message_loop();
}
