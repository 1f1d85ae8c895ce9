#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "tests/support/processes/wendlow_process.h"

// What the user of the demo does with Wendlow, by mouse and keyboard.

namespace demo
{

// Positions in the Action list.
enum Action { kMinimize, kRestore, kClose };

// Waits until a load has ended and the Profile list has that many names.
void wait_for_profile_names(const test_support::WendlowProcess& wendlow, std::size_t count);

// Right-clicks a cell of the list and returns the menu that comes up.
HWND open_cell_menu(const test_support::WendlowProcess& wendlow, int row, int column);
// Clicks the menu's item and returns the Modify Cell window.
HWND choose_modify_cell(const test_support::WendlowProcess& wendlow, HWND menu);

// Drops the Action list down with the mouse and chooses with the keyboard; the list stays down.
void choose_action(const test_support::WendlowProcess& wendlow, Action action);
// Closes the list and presses Apply.
void press_apply(const test_support::WendlowProcess& wendlow);
// Both.
void apply_action(const test_support::WendlowProcess& wendlow, Action action);

} // namespace demo
