#include <windows.h>

#include <commdlg.h>
#include <objbase.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/main_prg/main_window.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/quit_message.h"
#include "tests/support/windows/test_window.h"

// What the main window gives back when it is destroyed, step by step.

using namespace test_support;
using main_tests::MainWindowFixture;
using Steps = std::vector<std::string>;

namespace
{

// Takes down what is given back, from now on.
class TakingDown
{
public:
    // Blocks by their addresses, as they will be called.
    std::map<const void*, std::string> blocks;
    HFONT font = main_window.hFont_controls;
    HWND list = hwnd_ScanListView;
    Steps steps;

    void name_blocks_of_the_scan()
    {
        blocks[scan_record.arr1D_ui_LenPath] = "path lengths";
        blocks[scan_record.arr1D_uc_flag_FP] = "flags";
        blocks[scan_record.pcTmpBuf_Prg_Folder_Path] = "path buffer";
        blocks[scan_record.pcDynMem_FullPaths] = "paths";
        blocks[scan_record.pcDynMem_GeomText] = "geometry";
        blocks[scan_record.pcDynMem_WinHndls] = "windows";
    }

private:
    ImportHook<"DeleteObject", decltype(DeleteObject)> delete_{
        "gdi32.dll", [this](HGDIOBJ object) {
            const BOOL done = delete_.call_original(object);
            if (object == font)
                steps.push_back("font " + std::to_string(done));
            return done;
        }};
    ImportHook<"VirtualFree", decltype(VirtualFree)> free_{
        "kernel32.dll", [this](LPVOID block, SIZE_T size, DWORD type) {
            const auto found = blocks.find(block);
            EXPECT_EQ(size, 0u);
            EXPECT_EQ(type, 0x8000u);
            steps.push_back(found == blocks.end() ? "another block" : found->second);
            return free_.call_original(block, size, type);
        }};
    ImportHook<"DestroyWindow", decltype(DestroyWindow)> destroy_{
        "user32.dll", [this](HWND window) {
            if (window == list) {
                steps.push_back("list");
                list = nullptr; // what it does itself is its own affair
            }
            return destroy_.call_original(window);
        }};
    ImportHook<"CoUninitialize", decltype(CoUninitialize)> com_{"ole32.dll", [this] {
                                                                    steps.push_back("COM");
                                                                    com_.call_original();
                                                                }};
    ImportHook<"PostQuitMessage", decltype(PostQuitMessage)> quit_{
        "user32.dll", [this](int code) { steps.push_back("quit " + std::to_string(code)); }};
};

template <typename Type> void take_block(Type*& block)
{
    block = static_cast<Type*>(VirtualAlloc(nullptr, 4096, MEM_COMMIT, PAGE_READWRITE));
}

} // namespace

TEST(MainWindowDestruction, ReleasesEverythingInOrder)
{
    scan_tests::ScanFixture fixture; // registers the list's class
    const TestWindow other(L"other");
    const scan_tests::Desktop desktop({other});
    const MainWindowFixture main;
    {
        // Sets the two areas of the store up; the dialog is cancelled.
        const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall,
                                                                                FALSE, 0);
        main.press(main_control::kLoadProfile);
    }
    main.press(main_control::kScan);
    const HWND list = hwnd_ScanListView;
    ASSERT_NE(list, nullptr);
    TakingDown seen;
    seen.name_blocks_of_the_scan();
    seen.blocks[main_window.LoadedProfiles.pc_hwnds_wnds_of_prfl] = "handles of the profiles";
    seen.blocks[main_window.LoadedProfiles.pc_raw_FilesProfile] = "files of the profiles";
    DestroyWindow(main.window);
    EXPECT_EQ(seen.steps, (Steps{"font 1", "path lengths", "path buffer", "paths", "geometry", "windows",
                                 "handles of the profiles", "files of the profiles", "list",
                                 "flags", // by the list
                                 "COM", "quit 0"}));
    EXPECT_FALSE(IsWindow(list));
}

TEST(MainWindowDestruction, KeepsTheFlagBlockOfAScanWithoutAList)
{
    const TestWindow window(L"stands for the main window");
    main_window = {};
    main_window.hFont_controls = CreateFontW(15, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 16, L"");
    hwnd_ScanListView = nullptr;
    scan_record = {};
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    take_block(scan_record.arr1D_uc_flag_FP);
    take_block(scan_record.pcDynMem_GeomText);
    TakingDown seen;
    seen.name_blocks_of_the_scan();
    seen.blocks[nullptr] = "null"; // of the store, which was never set up
    EXPECT_EQ(WndProc(window, WM_DESTROY, 0, 0), 0);
    EXPECT_EQ(seen.steps, (Steps{"font 1", "geometry", "null", "null", "COM", "quit 0"}));
    ASSERT_NE(scan_record.arr1D_uc_flag_FP, nullptr);
    EXPECT_EQ(*scan_record.arr1D_uc_flag_FP, 0); // it can still be read
    VirtualFree(scan_record.arr1D_uc_flag_FP, 0, MEM_RELEASE);
    scan_record = {};
}

TEST(MainWindowDestruction, ReleasesEachBlockOnce)
{
    scan_tests::ScanFixture fixture; // registers the list's class
    const TestWindow other(L"other");
    const scan_tests::Desktop desktop({other});
    const MainWindowFixture main;
    {
        // Sets the two areas of the store up; the dialog is cancelled.
        const FailingImport<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> cancelled("comdlg32.dll", kEveryCall,
                                                                                FALSE, 0);
        main.press(main_control::kLoadProfile);
        ASSERT_EQ(cancelled.calls(), 1);
    }
    main.press(main_control::kScan);
    const HWND list = hwnd_ScanListView;
    ASSERT_NE(list, nullptr);
    int released = 0;
    ImportHook<"VirtualFree", decltype(VirtualFree)> release(
        "kernel32.dll", [&](LPVOID block, SIZE_T size, DWORD type) {
            const BOOL done = release.call_original(block, size, type);
            ++released;
            EXPECT_TRUE(done);
            return done;
        });
    const BoxWatcher boxes;
    DestroyWindow(main.window);
    boxes.expect_no_boxes();
    EXPECT_FALSE(IsWindow(list));
    EXPECT_EQ(released, 6 + 2); // of the scan and of the store, each block once
    WPARAM exit_code = 1;
    EXPECT_TRUE(test_support::take_quit_message(&exit_code));
    EXPECT_EQ(exit_code, 0u);
}
