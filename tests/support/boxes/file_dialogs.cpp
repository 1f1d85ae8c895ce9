#include "tests/support/boxes/file_dialogs.h"

#include "tests/support/basics/text.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

constexpr int kFileNameId = 1148;
constexpr UINT kAnswerMilliseconds = 5'000;

// The innermost control that holds the file name: the edit box inside the combo box where there is
// one.
HWND name_edit_of(HWND dialog)
{
    HWND found = nullptr;
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM result) -> BOOL {
            if (class_of(child) != L"Edit")
                return TRUE;
            for (HWND control = child; control; control = GetParent(control)) {
                if (GetDlgCtrlID(control) == kFileNameId) {
                    *reinterpret_cast<HWND*>(result) = child;
                    return FALSE;
                }
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

std::wstring text_of(HWND control)
{
    wchar_t text[2048] = {};
    DWORD_PTR units = 0;
    SendMessageTimeoutW(control, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                        kAnswerMilliseconds, &units);
    return text;
}

void press(HWND dialog, int id)
{
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void enter_name(HWND dialog, const std::wstring& path)
{
    const HWND edit = name_edit_of(dialog);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()), SMTO_NORMAL,
                        kAnswerMilliseconds, &result);
    wait_until([&] { return text_of(edit) == path; }, kShortWait,
               "the file dialog to take the name " + printable(path));
}

void wait_until_closed(HWND dialog, unsigned milliseconds)
{
    wait_until([&] { return !is_file_dialog(dialog); }, milliseconds, "the file dialog to close");
}

// The question a save dialog asks: a dialog of the same process with a Yes and a No button.
HWND question_of(DWORD process_id)
{
    for (const HWND window : top_level_windows_of(process_id))
        if (IsWindowVisible(window) && class_of(window) == L"#32770" && GetDlgItem(window, IDYES) &&
            GetDlgItem(window, IDNO))
            return window;
    return nullptr;
}

} // namespace

bool is_file_dialog(HWND window)
{
    return IsWindowVisible(window) && class_of(window) == L"#32770" && name_edit_of(window);
}

HWND file_dialog_of(DWORD process_id)
{
    for (const HWND window : top_level_windows_of(process_id))
        if (is_file_dialog(window))
            return window;
    return nullptr;
}

HWND wait_for_file_dialog(DWORD process_id, unsigned milliseconds)
{
    return wait_for([&] { return file_dialog_of(process_id); }, milliseconds, "a file dialog");
}

std::wstring file_dialog_title(HWND dialog)
{
    return title_of(dialog);
}

std::wstring file_dialog_name(HWND dialog)
{
    return text_of(name_edit_of(dialog));
}

void enter_file_name(DWORD process_id, const std::wstring& path, unsigned milliseconds)
{
    enter_name(wait_for_file_dialog(process_id, milliseconds), path);
}

void choose_file(DWORD process_id, const std::wstring& path, unsigned milliseconds)
{
    const HWND dialog = wait_for_file_dialog(process_id, milliseconds);
    enter_name(dialog, path);
    press(dialog, IDOK);
    wait_until_closed(dialog, milliseconds);
}

void cancel_file_dialog(DWORD process_id, unsigned milliseconds)
{
    const HWND dialog = wait_for_file_dialog(process_id, milliseconds);
    press(dialog, IDCANCEL);
    wait_until_closed(dialog, milliseconds);
}

void choose_existing_file(DWORD process_id, const std::wstring& path, Overwrite answer, unsigned milliseconds)
{
    const HWND dialog = wait_for_file_dialog(process_id, milliseconds);
    enter_name(dialog, path);
    press(dialog, IDOK);
    const HWND question = wait_for([&] { return question_of(process_id); }, milliseconds,
                                   "the question whether to replace the file");
    press(question, answer == Overwrite::kYes ? IDYES : IDNO);
    wait_until([&] { return !IsWindow(question) || !IsWindowVisible(question); }, milliseconds,
               "the question whether to replace the file to close");
    if (answer == Overwrite::kYes)
        wait_until_closed(dialog, milliseconds);
}

} // namespace test_support
