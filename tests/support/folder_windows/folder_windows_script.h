#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "tests/support/folder_windows/shell_windows_stand_in/missing.h"

// Drives the stand-in for the shell's list of folder windows, in whichever process it is at work.
// While a FolderWindowsScript lives, the list holds exactly the windows it names; without one, the
// list holds the folder windows that are really on the screen. Where a shell runs its own list is handed
// out then, and the stand-in counts nothing of it.

namespace test_support
{

struct FolderWindow {
    HWND window = nullptr; // null is given out as the handle 0
    std::wstring path;
    Missing missing = Missing::kNothing;
    HWND tab = nullptr; // the window that IShellBrowser tells; null: it tells none
    // From this pass on the path is later_path (0 = never). A pass is one creation of the list
    // object, counted from 1 since the script was made or cleared.
    int later_from_pass = 0;
    std::wstring later_path;
    // The window is in the list in these passes only.
    int first_pass = 1;
    int last_pass = 0x7FFFFFFF;
};

// References and lists that the stand-in has given out and got back since the script was made or cleared.
struct StandInCounts {
    int passes = 0;             // list objects created
    int interfaces_given = 0;   // references handed out over all interfaces
    int interfaces_live = 0;    // of these, not released yet
    int released_too_often = 0; // releases of an interface that had none left
    int id_lists_given = 0;     // item id lists handed out
    int id_lists_live = 0;      // of these, not freed yet
};

class FolderWindowsScript
{
public:
    // An empty list.
    FolderWindowsScript();
    ~FolderWindowsScript();
    FolderWindowsScript(const FolderWindowsScript&) = delete;
    FolderWindowsScript& operator=(const FolderWindowsScript&) = delete;

    FolderWindowsScript& add(const FolderWindow& window);
    FolderWindowsScript& add(HWND window, const std::wstring& path);
    // Empties the list and sets all counts to 0.
    void clear();

    // The list holds the real folder windows, yet the counts are kept.
    void show_real_windows();

    // Creating the list object fails with this result (S_OK: works).
    void fail_creation(HRESULT result);
    // Asking for the number of windows gives this result, and no number.
    void fail_count(HRESULT result);
    // The list claims so many windows more than it has; asked for, they are not there.
    void claim_more(int windows);

    StandInCounts counts() const;

private:
    struct Mapping;
    std::unique_ptr<Mapping> mapping_;
};

// Puts the stand-in in place of the system's list inside this process, as long as it lives. The
// calling thread needs COM as a single-threaded apartment.
class StandInRegistration
{
public:
    StandInRegistration();
    ~StandInRegistration();
    StandInRegistration(const StandInRegistration&) = delete;
    StandInRegistration& operator=(const StandInRegistration&) = delete;

private:
    DWORD cookie_ = 0;
};

// Does the same in the program of that window, until it ends, without anything registered for it: what is
// registered per user is passed over for a program that runs as administrator. The window's thread needs COM
// as a single-threaded apartment and has to handle messages. Throws a Failure when the program does not take
// it.
void lend_stand_in(HWND window);

} // namespace test_support
