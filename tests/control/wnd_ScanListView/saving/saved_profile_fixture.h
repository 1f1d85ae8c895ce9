#pragma once

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "sources/wnd_ScanListView/saving/profile_writing.h"
#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"

// What the tests of saving profiles share: a scan to save from, the List of Windows window that
// shows it, and the save dialog's answer.

namespace profile_tests
{

// The error boxes of the list's commands, and those of the save among them.
test_support::ExpectedBox save_box(const std::wstring& function, int site, int handler,
                                   const std::wstring& detail);
test_support::ExpectedBox arrival_box(int site, int handler, const std::wstring& detail);
// The address of the list's write record, which only the boxes of its commands tell.
std::wstring record_named_in(const std::wstring& text);

struct ScannedWindow {
    std::uint8_t flag = 1;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::wstring path;
};

// The process-wide scan record filled as a scan leaves it: the blocks are written byte by byte.
class FilledScan
{
public:
    explicit FilledScan(const std::vector<ScannedWindow>& windows);
    ~FilledScan();
    FilledScan(const FilledScan&) = delete;
    FilledScan& operator=(const FilledScan&) = delete;
};

// Ten windows: number i at X = -i, Y = 10 i, (100 + i) x (200 + i), C:\p\<i>.exe; every third a folder.
std::vector<ScannedWindow> ten_windows();

// The profile of some of these windows.
test_support::Bytes profile_of(const std::vector<ScannedWindow>& windows,
                               const std::vector<std::size_t>& rows, const std::u16string& name);

// The List of Windows window with the scan's rows; closed at the end.
class ListOfWindows
{
public:
    ListOfWindows();
    ~ListOfWindows();
    ListOfWindows(const ListOfWindows&) = delete;
    ListOfWindows& operator=(const ListOfWindows&) = delete;

    void tick(int row) const { set_state(row, 0x2000, LVIS_STATEIMAGEMASK_value); }
    void untick(int row) const { set_state(row, 0x1000, LVIS_STATEIMAGEMASK_value); }
    void highlight(int row) const { set_state(row, 2, 2); }
    bool is_highlighted(int row) const
    {
        return SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    }
    void press_create_profile() const { SendMessageW(window, WM_COMMAND, list_control::kCreateProfile, 0); }
    // Ticks the rows, presses Create Profile and returns the name window.
    HWND ask_name_for(const std::vector<int>& rows) const;

    HWND window = nullptr;
    HWND list = nullptr;

private:
    static constexpr UINT LVIS_STATEIMAGEMASK_value = 0xF000;
    void set_state(int row, UINT state, UINT mask) const;
};

// The name window of this process, null when there is none.
HWND name_window();
// Types the name into the name window's box at once and presses Ok.
void enter_name(HWND window, const std::wstring& name);

// Sends the name to the list as the name window does; returns what the list answers.
LRESULT send_name(const ListOfWindows& list, HWND sender, ULONG_PTR data, const std::wstring& name,
                  DWORD bytes);
// The same with any address in the place of the name's.
LRESULT send_name_at(const ListOfWindows& list, HWND sender, ULONG_PTR data, const void* name, DWORD bytes);

// A save dialog that is answered with a path, or cancelled with an empty one.
class AnsweredSaveDialog
{
public:
    explicit AnsweredSaveDialog(std::wstring path) : path_(std::move(path)) {}
    // Called with what the program asked for.
    std::function<void(const OPENFILENAMEW&)> look;
    int asked = 0;

private:
    BOOL answer(OPENFILENAMEW* settings);

    std::wstring path_;
    test_support::ImportHook<"GetSaveFileNameW", BOOL(OPENFILENAMEW*)> hook_{
        "comdlg32.dll", [this](OPENFILENAMEW* settings) { return answer(settings); }};
};

// A list of ten scanned windows, and a save dialog that is answered with a path in a folder of its own.
struct Saving {
    explicit Saving(const std::wstring& file_name = L"saved.txt") : path(folder.file(file_name)), dialog(path)
    {
    }

    const FilledScan scan{ten_windows()};
    const ListOfWindows list;
    const test_support::TemporaryFolder folder;
    const std::wstring path;
    AnsweredSaveDialog dialog;
};

// The record's eight arrays, in the order in which they are allocated.
std::vector<const void*> arrays_of(const STR_RW_PRFL& record);
bool has_arrays(const STR_RW_PRFL& record);

// Counts the blocks that the program releases while it lives.
using Releases = test_support::FailingImport<"VirtualFree", decltype(VirtualFree)>;

// A write record with arrays of its own for the scan's rows; released at the end.
class PreparedRecord
{
public:
    PreparedRecord(const std::vector<std::uint32_t>& rows, const std::wstring& name);
    ~PreparedRecord() { FreeDynMem_wnds_Profile(&record); }
    PreparedRecord(const PreparedRecord&) = delete;
    PreparedRecord& operator=(const PreparedRecord&) = delete;

    // `error` takes the code of the first part that failed.
    std::int32_t write(HANDLE file, DWORD* error = nullptr) const;

    STR_RW_PRFL record{};
};

} // namespace profile_tests
