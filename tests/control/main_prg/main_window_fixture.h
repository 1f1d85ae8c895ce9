#pragma once

#include <windows.h>

#include <optional>

#include "sources/main_prg/main_window.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/quit_message.h"

namespace main_tests
{

// The main window in this process. With its COM the stand-in for the shell's list is there.
class MainWindow
{
public:
    MainWindow()
    {
        WNDCLASSEXW main_class{};
        main_class.cbSize = sizeof main_class;
        main_class.lpfnWndProc = WndProc;
        main_class.hInstance = GetModuleHandleW(nullptr);
        main_class.lpszMenuName = L"menu_main";
        main_class.lpszClassName = L"prg_wnds_layout";
        RegisterClassExW(&main_class);
        window = CreateWindowExW(0, L"prg_wnds_layout", L"Wendlow", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 50,
                                 60, 700, 500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        if (test_support::has_com_apartment())
            stand_in_.emplace();
    }
    ~MainWindow()
    {
        stand_in_.reset();
        DestroyWindow(window);
        // A message box would not come up any more with the end of the program waiting in the queue.
        test_support::take_quit_message();
    }
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    void menu_command(WORD id) const { SendMessageW(window, WM_COMMAND, id, 0); }
    HWND control(int id) const { return GetDlgItem(window, id); }
    // Presses the button: 1 Scan, 2 Load Profile, 6 Apply.
    void press(WORD button) const
    {
        SendMessageW(window, WM_COMMAND, button, reinterpret_cast<LPARAM>(control(button)));
    }
    LRESULT profiles() const { return SendMessageW(control(main_control::kProfile), CB_GETCOUNT, 0, 0); }

    HWND window;

private:
    std::optional<test_support::StandInRegistration> stand_in_;
};

} // namespace main_tests
