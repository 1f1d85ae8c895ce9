#include "tests/demo/demo_for_user.h"

#include <windows.h>

#include "tests/demo/demo_desktop.h"
#include "tests/demo/demo_script.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/wendlow_process.h"

namespace demo
{

using namespace test_support;

namespace
{

const std::wstring kFolder = L"C:\\wendlow-demo";

// The part of the screen that windows may take.
RECT work_area()
{
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

// A place by percentages of the work area.
Place part_of_screen(int left, int top, int width, int height)
{
    const RECT area = work_area();
    const int full_width = area.right - area.left;
    const int full_height = area.bottom - area.top;
    return {.x = area.left + full_width * left / 100,
            .y = area.top + full_height * top / 100,
            .width = full_width * width / 100,
            .height = full_height * height / 100};
}

// Two columns that leave the right half to Wendlow; the list it opens lies over all of them.
std::vector<DesktopWindow> windows_beside_wendlow()
{
    return {
        {.name = "Notepad",
         .path = L"C:\\windows\\system32\\notepad.exe",
         .class_name = L"Notepad",
         .place = part_of_screen(1, 4, 32, 42)},
        {.name = "Folder",
         .path = kFolder,
         .is_folder = true,
         .class_name = L"ExplorerWClass",
         .place = part_of_screen(1, 52, 32, 42)},
        {.name = "Clock",
         .path = L"C:\\windows\\system32\\clock.exe",
         .class_name = L"CLClass",
         .place = part_of_screen(35, 4, 15, 30)},
        {.name = "WineMine",
         .path = L"C:\\windows\\system32\\winemine.exe",
         .class_name = L"WineMine",
         .place = part_of_screen(35, 52, 0, 0)},
    };
}

void show_in_front(HWND window)
{
    const Place place = part_of_screen(52, 24, 0, 0);
    SetWindowPos(window, HWND_TOP, place.x, place.y, 0, 0, SWP_NOSIZE);
    SetForegroundWindow(window);
}

} // namespace

void open_for_user()
{
    CreateDirectoryW(kFolder.c_str(), nullptr);
    Desktop desktop(windows_beside_wendlow());
    step("Opening three programs and a folder window");
    desktop.open_beside_user();
    const WendlowProcess wendlow;
    show_in_front(wendlow.main_window());
    step("Wendlow is open: press Scan, tick windows, Create Profile; later Load Profile");
    WaitForSingleObject(wendlow.process(), INFINITE);
}

} // namespace demo
