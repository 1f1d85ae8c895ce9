#include "tests/support/input/real_input.h"

#include <vector>

#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

void send(std::vector<INPUT> inputs)
{
    const auto count = static_cast<UINT>(inputs.size());
    if (SendInput(count, inputs.data(), sizeof(INPUT)) != count)
        throw Failure("the system takes no input");
}

// The system divides the screen into 65536 parts each way; rounded up, the part lies on the pixel.
LONG absolute(LONG pixel, int screen_size)
{
    return static_cast<LONG>((pixel * 65536LL + screen_size - 1) / screen_size);
}

// Every event says its place, so that nothing that moves the pointer comes in between.
INPUT mouse_input(POINT point, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = absolute(point.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = absolute(point.y, GetSystemMetrics(SM_CYSCREEN));
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    return input;
}

INPUT key_input(WORD key, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

INPUT unit_input(wchar_t unit, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = unit;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    return input;
}

// Two clicks in quick succession would be a double click.
void let_double_click_time_pass()
{
    static ULONGLONG last_click = 0;
    const ULONGLONG end = last_click + GetDoubleClickTime();
    becomes_true([&] { return GetTickCount64() > end; }, GetDoubleClickTime() + 100);
    last_click = GetTickCount64();
}

// Makes this program the one that had the last input, with an event that does nothing.
void have_last_input()
{
    INPUT nothing{};
    nothing.type = INPUT_MOUSE;
    SendInput(1, &nothing, sizeof(nothing));
}

bool belongs_to_this_thread(HWND window)
{
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

} // namespace

void let_started_programs_come_to_front()
{
    if (under_wine())
        return;
    have_last_input();
    AllowSetForegroundWindow(ASFW_ANY);
}

void bring_to_front(HWND window)
{
    const auto in_front = [&] {
        if (GetForegroundWindow() == window)
            return true;
        if (!SetForegroundWindow(window))
            have_last_input();
        return false;
    };
    const std::string what = "the window \"" + printable(title_of(window)) + "\" to come to the front";
    if (belongs_to_this_thread(window))
        pump_until(in_front, kShortWait, what);
    else
        wait_until(in_front, kShortWait, what);
}

void move_mouse(POINT point)
{
    // Asked for again while it is not there: the display refuses as long as another program holds the mouse.
    wait_until(
        [&] {
            SetCursorPos(point.x, point.y);
            POINT now{};
            GetCursorPos(&now);
            return now.x == point.x && now.y == point.y;
        },
        kShortWait, "the mouse to be at its place");
}

void click(POINT point)
{
    move_mouse(point);
    let_double_click_time_pass();
    send({mouse_input(point, MOUSEEVENTF_LEFTDOWN), mouse_input(point, MOUSEEVENTF_LEFTUP)});
}

void double_click(POINT point)
{
    move_mouse(point);
    send({mouse_input(point, MOUSEEVENTF_LEFTDOWN), mouse_input(point, MOUSEEVENTF_LEFTUP),
          mouse_input(point, MOUSEEVENTF_LEFTDOWN), mouse_input(point, MOUSEEVENTF_LEFTUP)});
}

void right_click(POINT point)
{
    move_mouse(point);
    send({mouse_input(point, MOUSEEVENTF_RIGHTDOWN), mouse_input(point, MOUSEEVENTF_RIGHTUP)});
}

POINT centre_of(HWND window)
{
    const RECT rectangle = rectangle_of(window);
    return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
}

void click(HWND control)
{
    bring_to_front(GetAncestor(control, GA_ROOT));
    const POINT point = centre_of(control);
    // A window of another thread is raised a moment after it has become the foreground window.
    HWND there = nullptr;
    const auto is_there = [&] {
        there = WindowFromPoint(point);
        return there == control || IsChild(control, there) != FALSE;
    };
    if (!(belongs_to_this_thread(control) ? becomes_true_pumping(is_there) : becomes_true(is_there)))
        throw Failure("the control cannot be clicked: a window of class \"" + printable(class_of(there)) +
                      "\" is in front of it");
    click(point);
}

void press_key(WORD key)
{
    send({key_input(key, 0), key_input(key, KEYEVENTF_KEYUP)});
}

void press_key_with(WORD held, WORD key)
{
    send({key_input(held, 0), key_input(key, 0), key_input(key, KEYEVENTF_KEYUP),
          key_input(held, KEYEVENTF_KEYUP)});
}

void type_text(const std::wstring& text)
{
    std::vector<INPUT> inputs;
    for (const wchar_t unit : text) {
        inputs.push_back(unit_input(unit, 0));
        inputs.push_back(unit_input(unit, KEYEVENTF_KEYUP));
    }
    send(inputs);
}

} // namespace test_support
