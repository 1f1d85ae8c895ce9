#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/main_prg/main_window.h"
#include "sources/win32/wait_cursor.h"
#include "sources/wnd_ScanListView/saving/profile_writing.h"
#include "sources/wnd_ScanListView/scan_list_state.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/basics/text.h"
#include "tests/support/windows/quit_message.h"
#include "tests/support/windows/windows_lookup.h"

// Many tests may share a process. Each gives back what it has taken from it, or fails; and each begins with
// the records of a program that has just been started.

using namespace test_support;

namespace
{

BOOL CALLBACK add_window(HWND window, LPARAM windows)
{
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

HMODULE module_of_class(HWND window)
{
    return reinterpret_cast<HMODULE>(GetClassLongPtrW(window, GCLP_HMODULE));
}

// Windows that the system makes for a thread, for input methods, COM or the shell, and keeps until it ends.
bool is_kept_by_the_system(HWND window)
{
    const HMODULE module = module_of_class(window);
    const bool may_be_of_a_test = module == GetModuleHandleW(nullptr) ||
                                  module == GetModuleHandleW(L"user32.dll") ||
                                  module == GetModuleHandleW(L"comctl32.dll");
    return !may_be_of_a_test || class_of(window) == L"IME";
}

void expect_no_windows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), add_window, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, is_kept_by_the_system);
    for (const HWND window : windows) {
        ADD_FAILURE() << "left behind: a window of the class " << printable(class_of(window));
        DestroyWindow(window);
    }
}

void expect_no_end_of_the_thread()
{
    if (take_quit_message())
        ADD_FAILURE() << "left behind: WM_QUIT";
}

void expect_no_com()
{
    if (has_com_apartment())
        ADD_FAILURE() << "left behind: COM";
    // A test registers a stand-in of its own. This one comes with the list that Wine's session has
    // registered.
    if (GetModuleHandleW(L"shell_windows_stand_in.dll") != nullptr)
        ADD_FAILURE() << "left behind: the library of the stand-in for the shell's list";
}

void expect_no_blocks(const char* record, const std::vector<const void*>& blocks)
{
    const auto kept = std::ranges::count_if(blocks, [](const void* block) { return block != nullptr; });
    if (kept != 0)
        ADD_FAILURE() << "left behind: " << kept << " blocks of the " << record;
}

void expect_no_memory()
{
    expect_no_blocks("scan record", {scan_record.arr1D_ui_LenPath, scan_record.arr1D_uc_flag_FP,
                                     scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.pcDynMem_FullPaths,
                                     scan_record.pcDynMem_WinHndls, scan_record.pcDynMem_GeomText});
    expect_no_blocks("store", {main_window.LoadedProfiles.pc_hwnds_wnds_of_prfl,
                               main_window.LoadedProfiles.pc_raw_FilesProfile});
}

void expect_no_work_under_way()
{
    if (keep_wait_cursor(HTCLIENT))
        ADD_FAILURE() << "left behind: the wait cursor";
    const ScanUse use; // also ends what a closing main window has asked of scans
    if (!use.is_taken())
        ADD_FAILURE() << "left behind: a scan that uses the record";
    end_scan_use();
}

void clear_records()
{
    main_window = {};
    scan_record = {};
    FreeDynMem_wnds_Profile(&scan_list.RW_PRFL); // They may wait for the next Create Profile.
    scan_list = {};
    hwnd_ScanListView = nullptr;
}

class LeftBehind : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo&) override
    {
        expect_no_windows();
        expect_no_end_of_the_thread();
        expect_no_com();
        expect_no_memory();
        expect_no_work_under_way();
        clear_records();
    }
};

[[maybe_unused]] const bool listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new LeftBehind); // owned by GoogleTest
    return true;
}();

} // namespace
