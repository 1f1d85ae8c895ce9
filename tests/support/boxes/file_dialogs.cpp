#include "tests/support/boxes/file_dialogs.h"

#include <commctrl.h>

#include <functional>

#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

// The file name's box: everywhere but in the save dialog of Windows, which has one among the controls that
// the shell lays out itself.
constexpr int kFileNameId = 1148;
constexpr wchar_t kHostOfSaveName[] = L"FloatNotifySink";
constexpr UINT kAnswerMilliseconds = 5'000;
constexpr unsigned kActAgainMilliseconds = 5'000;

bool holds_file_name(HWND edit)
{
    for (HWND control = edit; control; control = GetParent(control))
        if (GetDlgCtrlID(control) == kFileNameId || class_of(control) == kHostOfSaveName)
            return true;
    return false;
}

// The innermost control that holds the file name: the edit box inside the combo box where there is
// one.
HWND name_edit_of(HWND dialog)
{
    HWND found = nullptr;
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM result) -> BOOL {
            if (class_of(child) != L"Edit" || !holds_file_name(child))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
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
    wait_until([&] { return text_of(edit) == path || !IsWindow(edit); }, kShortWait,
               "the file dialog to take the name " + printable(path));
}

void wait_until_closed(HWND dialog, unsigned milliseconds)
{
    wait_until([&] { return !is_file_dialog(dialog); }, milliseconds, "the file dialog to close");
}

// Does what a user does until it shows. A dialog of Windows goes on building itself after it is on the
// screen, and may pass over what is pressed meanwhile or put its own proposal in the place of the name: there
// it is done again, unless the dialog is asking something.
void act_until(HWND dialog, const std::function<void()>& act, const Condition& shows, unsigned milliseconds,
               const std::string& what)
{
    const ULONGLONG deadline = GetTickCount64() + milliseconds;
    act();
    while (!becomes_true(shows, under_wine() ? milliseconds : kActAgainMilliseconds)) {
        if (GetTickCount64() >= deadline)
            throw Failure("waited " + std::to_string(milliseconds) + " ms in vain for " + what);
        if (IsWindowEnabled(dialog))
            act();
    }
}

// The question a save dialog asks: another dialog that it owns.
HWND question_of(HWND dialog)
{
    for (const HWND window : top_level_windows_of(process_of(dialog)))
        if (IsWindowVisible(window) && class_of(window) == L"#32770" && GetWindow(window, GW_OWNER) == dialog)
            return window;
    return nullptr;
}

// Message boxes have their buttons for children; the task dialogs that Windows asks with are told.
void answer_question(HWND question, int id)
{
    if (GetDlgItem(question, id))
        press(question, id);
    else
        PostMessageW(question, TDM_CLICK_BUTTON, static_cast<WPARAM>(id), 0);
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
    const auto choose = [&] {
        enter_name(dialog, path);
        press(dialog, IDOK);
    };
    act_until(
        dialog, choose, [&] { return !is_file_dialog(dialog); }, milliseconds, "the file dialog to close");
}

void cancel_file_dialog(DWORD process_id, unsigned milliseconds)
{
    const HWND dialog = wait_for_file_dialog(process_id, milliseconds);
    act_until(
        dialog, [&] { press(dialog, IDCANCEL); }, [&] { return !is_file_dialog(dialog); }, milliseconds,
        "the file dialog to close");
}

void choose_existing_file(DWORD process_id, const std::wstring& path, Overwrite answer, unsigned milliseconds)
{
    const HWND dialog = wait_for_file_dialog(process_id, milliseconds);
    HWND question = nullptr;
    const auto choose = [&] {
        enter_name(dialog, path);
        press(dialog, IDOK);
    };
    act_until(
        dialog, choose, [&] { return (question = question_of(dialog)) != nullptr; }, milliseconds,
        "the question whether to replace the file");
    act_until(
        question, [&] { answer_question(question, answer == Overwrite::kYes ? IDYES : IDNO); },
        [&] { return !IsWindow(question) || !IsWindowVisible(question); }, milliseconds,
        "the question whether to replace the file to close");
    if (answer == Overwrite::kYes)
        wait_until_closed(dialog, milliseconds);
}

} // namespace test_support
