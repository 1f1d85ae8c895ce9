#pragma once

#include <windows.h>

#include <string>

#include "tests/support/basics/waiting.h"

// Answering the system's open and save dialogs of a process (this one too, from a Background
// thread). Every routine waits for the dialog, acts and waits for the dialog to be gone.

namespace test_support
{

bool is_file_dialog(HWND window);

// The open or save dialog that is on the screen, null when there is none.
HWND file_dialog_of(DWORD process_id);
HWND wait_for_file_dialog(DWORD process_id, unsigned milliseconds = kLongWait);

std::wstring file_dialog_title(HWND dialog);
// The file name the dialog proposes.
std::wstring file_dialog_name(HWND dialog);

// Enters the path and leaves the dialog on the screen.
void enter_file_name(DWORD process_id, const std::wstring& path, unsigned milliseconds = kLongWait);

// Enters the path and presses Open or Save.
void choose_file(DWORD process_id, const std::wstring& path, unsigned milliseconds = kLongWait);
void cancel_file_dialog(DWORD process_id, unsigned milliseconds = kLongWait);

enum class Overwrite { kYes, kNo };

// Enters the path of a file that exists, presses Save and answers the question whether to replace
// it. With kNo the save dialog stays on the screen.
void choose_existing_file(DWORD process_id, const std::wstring& path, Overwrite answer,
                          unsigned milliseconds = kLongWait);

} // namespace test_support
