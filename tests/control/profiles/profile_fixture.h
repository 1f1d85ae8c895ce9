#pragma once

#include <windows.h>

#include <shellapi.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/profiles/combo_boxes.h"
#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/basics/files.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/test_window.h"

// What the tests of profiles share: a main window with its two lists and a store, and the system calls that
// start programs and folders.

namespace profile_tests
{

using test_support::compact_text;
using test_support::gap_text;
using test_support::handler_first_text;
using test_support::pointer;
using test_support::spaced_text;
using test_support::TestWindow;
using test_support::Where;

// "x,y widthxheight" of a window's rectangle.
std::string place_of(HWND window);
// The same once it is `expected`, or what it is after some seconds.
std::string place_once_it_is(HWND window, const std::string& expected);
bool becomes_iconic(HWND window);

// The texts of a combo box's list.
std::vector<std::wstring> combo_texts(HWND combo);

// A main window's part in profiles: an owner for the boxes, both lists with their records, and a
// store that is set up. COM is there, and the shell's list holds what `folders` says.
class ProfileFixture
{
public:
    ProfileFixture();
    ~ProfileFixture();
    ProfileFixture(const ProfileFixture&) = delete;
    ProfileFixture& operator=(const ProfileFixture&) = delete;

    // Writes the file and loads it as the Load Profile command does with a given path.
    std::int32_t load(const test_support::Bytes& file);
    std::int32_t load_path(const std::wstring& path);

    // Handle `entry` of profile `profile` as the store has it.
    HWND stored_handle(std::uint32_t profile, std::uint32_t entry) const;
    // The copy of a profile's file, by the size and offset stored for it.
    test_support::Bytes stored_file(std::uint32_t profile) const;

    void select_action(int position) { SendMessageW(action_combo, CB_SETCURSEL, wide(position), 0); }
    void select_profile(int position) { SendMessageW(profile_combo, CB_SETCURSEL, wide(position), 0); }

    test_support::ComApartment com;
    test_support::StandInRegistration stand_in;
    test_support::FolderWindowsScript folders;
    test_support::TemporaryFolder files;
    TestWindow window;
    HWND profile_combo;
    HWND action_combo;
    CB_mng_STR profiles{};
    CB_Action_mng_STR actions{};
    std::unique_ptr<LoadedProfiles_STR> store_memory;
    LoadedProfiles_STR& store;

private:
    static WPARAM wide(int position) { return static_cast<WPARAM>(position); }

    int files_made_ = 0;
};

// Pauses that are not waited for.
class RecordedSleeps
{
public:
    std::vector<DWORD> pauses;

private:
    test_support::ImportHook<"Sleep", decltype(Sleep)> hook_{"kernel32.dll",
                                                             [this](DWORD time) { pauses.push_back(time); }};
};

// Folders that are said to have been opened without being opened; those in `failing` fail.
class RecordedFolderStarts
{
public:
    struct Start {
        std::wstring verb;
        std::wstring path;
        DWORD size = 0;
        ULONG mask = 0;
        HWND owner = nullptr;
        bool bare = false; // neither parameters nor directory
        int show = 0;
    };
    std::vector<Start> starts;
    std::vector<std::wstring> failing;

private:
    BOOL start(const SHELLEXECUTEINFOW& info);

    test_support::ImportHook<"ShellExecuteExW", BOOL(SHELLEXECUTEINFOW*)> hook_{
        "shell32.dll", [this](SHELLEXECUTEINFOW* info) { return start(*info); }};
};

// Counts what a load starts, and starts nothing.
class NothingStarts
{
public:
    int programs = 0;
    RecordedFolderStarts folders;
    int count() const { return programs + static_cast<int>(folders.starts.size()); }

private:
    test_support::ImportHook<"CreateProcessW", decltype(CreateProcessW)> hook_{"kernel32.dll",
                                                                               [this](auto...) {
                                                                                   ++programs;
                                                                                   return FALSE;
                                                                               }};
};

} // namespace profile_tests
