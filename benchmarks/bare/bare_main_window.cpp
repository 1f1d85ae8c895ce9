#include "benchmarks/bare/bare_main_window.h"

#include <commctrl.h>

#include <initializer_list>

#include "resources/resource_ids.h"
#include "tests/support/windows/control_ids.h"

namespace bare
{

namespace
{

constexpr DWORD kButton_style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kCombo_style = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_HASSTRINGS;

struct Control {
    const wchar_t* class_name;
    const wchar_t* text;
    DWORD style;
    int id;
    int y;
};
constexpr Control kControls[] = {
    {L"button", L"Scan", kButton_style, main_control::kScan, 10},
    {L"button", L"Load Profile", kButton_style, main_control::kLoadProfile, 70},
    {L"ComboBox", L"", kCombo_style, main_control::kProfile, 130},
    {L"ComboBox", L"", kCombo_style, main_control::kAction, 190},
    {L"button", L"Apply", kButton_style, main_control::kApply, 250},
};

void create_controls(HWND window, HINSTANCE instance)
{
    LOGFONTW description{};
    description.lfHeight = 20;
    description.lfWeight = FW_BOLD;
    description.lfPitchAndFamily = FF_ROMAN;
    const HFONT font = CreateFontIndirectW(&description);
    for (const Control& control : kControls) {
        const HWND made = CreateWindowExW(
            0, control.class_name, control.text, control.style, 10, control.y, 150, 40, window,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), instance, nullptr);
        SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
    const HWND action = GetDlgItem(window, main_control::kAction);
    for (const wchar_t* name : {L"Minimize", L"Restore", L"Close"})
        SendMessageW(action, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
}

} // namespace

HWND open_main_window(HINSTANCE instance, const wchar_t* class_name, WNDPROC procedure)
{
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&controls);

    WNDCLASSEXW main_class{};
    main_class.cbSize = sizeof main_class;
    main_class.style = CS_HREDRAW | CS_VREDRAW;
    main_class.lpfnWndProc = procedure;
    main_class.hInstance = instance;
    main_class.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(ID_ICON_32));
    main_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    main_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    main_class.lpszMenuName = L"menu_main";
    main_class.lpszClassName = class_name;
    RegisterClassExW(&main_class);

    const HWND window =
        CreateWindowExW(0, class_name, class_name, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                        CW_USEDEFAULT, GetSystemMetrics(SM_CXSCREEN) * 2 / 5,
                        GetSystemMetrics(SM_CYSCREEN) * 9 / 20, nullptr, nullptr, instance, nullptr);
    create_controls(window, instance);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    return window;
}

int run_message_loop()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

} // namespace bare
