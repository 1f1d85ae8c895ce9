#include "sources/funcs_layout_windows/scanning/window_enumeration.h"

#include <psapi.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/test_window.h"

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::own_image_path;
using scan_tests::path_of_slot;
using scan_tests::ScanFixture;
using scan_tests::title_of_slot;

namespace
{

LPARAM record()
{
    return reinterpret_cast<LPARAM>(&scan_record);
}

// The processes that are opened while it lives, and of these the ones that are not closed yet.
class OpenProcesses
{
public:
    OpenProcesses() = default;
    OpenProcesses(const OpenProcesses&) = delete;
    OpenProcesses& operator=(const OpenProcesses&) = delete;

    int opened = 0;
    std::vector<HANDLE> open;

private:
    ImportHook<"OpenProcess", decltype(OpenProcess)> open_process_{
        "kernel32.dll", [this](DWORD access, BOOL inherit, DWORD process) {
            EXPECT_EQ(access, 0x1010u);
            EXPECT_FALSE(inherit);
            ++opened;
            open.push_back(open_process_.call_original(access, inherit, process));
            return open.back();
        }};
    using CloseHook = ImportHook<"CloseHandle", decltype(CloseHandle)>;
    CloseHook close_{"kernel32.dll", [this](HANDLE handle) {
                         std::erase(open, handle);
                         return close_.call_original(handle);
                     }};
};

} // namespace

TEST(WindowEnumeration, GivesTwoWindowsOfOneProgramTwoSlotsWithTheSamePath)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow two(L"two");
    const Desktop desktop({one, two});
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.counter_filled, 2u);
    for (const std::uint32_t slot : {0u, 1u}) {
        EXPECT_EQ(path_of_slot(slot), own_image_path());
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[slot], 2 * own_image_path().size());
        EXPECT_EQ(scan_record.arr1D_uc_flag_FP[slot], 1);
    }
}

TEST(WindowEnumeration, SkipsExcludedClassesInAnyCaseOfTheirLetters)
{
    // The system may give a class's name in the case in which it was first registered, so names are given
    // here as another system would.
    const struct {
        const wchar_t* name;
        bool is_listed;
    } classes[] = {{L"ToolTips_Class32", false},
                   {L"toolTIPS_class", false},
                   {L"SysShadow", false},
                   {L"RegEdit_REGEDIT", false},
                   {L"#32770", false},
                   {L"TaskManagerWindow", false},
                   {L"ApplicationFrameWindow", false},
                   {L"Windows.UI.Core.CoreWindow", false},
                   {L"ProgMan", false},
                   {L"bUTTON", false},
                   {L"ToolTips_Class3", true},
                   {L"ToolTips_Class321", true},
                   {L"SysShadows", true},
                   {L"RegEdit-RegEdit", true},
                   {L"32770", true},
                   {L"TaskManager", true},
                   {L" ApplicationFrameWindow", true},
                   {L"Windows.UI.Core.Core", true},
                   {L"Program", true},
                   {L"B\u00DCTTON", true},
                   {L"\u017Fys\u017Fhadow", true}, // letters whose capital is an ASCII S
                   {L"", true}};
    ScanFixture fixture;
    const TestWindow named(L"named");
    const TestWindow listed(L"listed", {0, 0, 200, 100}, L"Buttons");
    const BoxWatcher boxes;
    for (const auto& given : classes) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(given.name)));
        const Desktop desktop({named, listed});
        ImportHook<"GetClassNameW", decltype(GetClassNameW)> class_name(
            "user32.dll", [&](HWND window, LPWSTR buffer, int units) -> int {
                if (window != named)
                    return class_name.call_original(window, buffer, units);
                EXPECT_EQ(units, 250);
                lstrcpynW(buffer, given.name, units);
                return lstrlenW(given.name);
            });
        ASSERT_EQ(fixture.scan(), 1);
        EXPECT_EQ(scan_record.counter_all, 2u);
        EXPECT_EQ(scan_record.counter_valid, given.is_listed ? 2u : 1u);
        EXPECT_EQ(title_of_slot(0), given.is_listed ? L"named" : L"listed");
    }
    const TestWindow button(L"excluded", {0, 0, 200, 100}, L"Button");
    const TestWindow dialog(L"excluded", {0, 0, 200, 100}, L"#32770");
    const Desktop desktop({button, dialog, listed});
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.counter_valid, 1u);
    boxes.expect_no_boxes();
}

TEST(WindowEnumeration, SkipsInvisibleAndUntitledWindowsAndListsToolWindows)
{
    ScanFixture fixture;
    const TestWindow hidden(L"hidden", {0, 0, 200, 100}, L"TestWindow", WS_OVERLAPPEDWINDOW);
    const TestWindow untitled(L"");
    const TestWindow tool(L"tool");
    SetWindowLongW(tool, GWL_EXSTYLE, WS_EX_TOOLWINDOW);
    const Desktop desktop({hidden, nullptr, untitled, tool});
    // A window is asked no more than it takes to pass it over.
    std::vector<HWND> asked;
    ImportHook<"GetClassNameW", decltype(GetClassNameW)> class_name(
        "user32.dll", [&](HWND window, LPWSTR buffer, int units) {
            asked.push_back(window);
            return class_name.call_original(window, buffer, units);
        });
    std::vector<HWND> asked_for_title;
    ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
                          PDWORD_PTR answer) {
            asked_for_title.push_back(target);
            return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.counter_all, 4u);
    EXPECT_EQ(scan_record.counter_valid, 1u);
    EXPECT_EQ(title_of_slot(0), L"tool");
    EXPECT_EQ(asked_for_title, (std::vector<HWND>{untitled, tool, untitled, tool}));
    EXPECT_EQ(asked, (std::vector<HWND>{untitled, tool, untitled, tool}));
}

// The class tells already that it is not listed: nothing is sent to a program that may be suspended.
TEST(WindowEnumeration, AsksNoWindowOfAnExcludedClassForItsTitle)
{
    ScanFixture fixture;
    const TestWindow frame(L"frame", RECT{10, 20, 310, 220}, L"ApplicationFrameWindow");
    const TestWindow core(L"core", RECT{10, 20, 310, 220}, L"Windows.UI.Core.CoreWindow");
    const TestWindow listed(L"listed");
    const Desktop desktop({frame, core, listed});
    std::vector<HWND> asked;
    ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
                          PDWORD_PTR answer) {
            asked.push_back(target);
            return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(asked, (std::vector<HWND>{listed, listed}));
    EXPECT_EQ(scan_record.counter_valid, 1u);
}

TEST(WindowEnumeration, KeepsAnExplorerWindowThatTheShellDoesNotListWithoutPath)
{
    FixturePrograms programs;
    programs.add(L"tools\\EXPLORER.exe", {.title = L"Folder"});
    const HWND folder = programs.start(L"tools\\EXPLORER.exe");
    ScanFixture fixture;
    const TestWindow program(L"program");
    const Desktop desktop({folder, program});
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.counter_filled, 2u);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 0);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 0u);
    EXPECT_EQ(path_of_slot(0), L"");
    EXPECT_EQ(title_of_slot(0), L"Folder");
    // Its image path is not measured either.
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_PrgPath, 2 * own_image_path().size());
}

TEST(WindowEnumeration, CountsAShortPathAsAProgram)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const ImportHook<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> path(
        "kernel32.dll", [&](HANDLE, HMODULE, LPWSTR buffer, DWORD units) -> DWORD {
            EXPECT_EQ(units, 32768u / 2 - 1);
            lstrcpyW(buffer, L"er.exe");
            return 6;
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 1);
    EXPECT_EQ(path_of_slot(0), L"er.exe");
}

TEST(WindowEnumeration, SkipsAWindowWithAnEmptyPath)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    const ImportHook<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> path(
        "kernel32.dll", [](HANDLE, HMODULE, LPWSTR, DWORD) -> DWORD { return 1; });
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    boxes.expect_boxes(
        {{L"info", L"Number of found valid windows = 1\nMax length of path to valid windows = 0"}});
}

TEST(WindowEnumeration, EndsInEitherPassWhenAPathCannotBeRead)
{
    const struct {
        int call;
        std::wstring function;
        int line;
        int handler;
        int line_of_command;
    } passes[] = {{1, L"EnumWindowsProc_Calc", 251, 391, 1017},
                  {3, L"EnumWindowsProc_Calc_02", 618, 805, 1168}};
    for (const auto& pass : passes) {
        SCOPED_TRACE(pass.call);
        ScanFixture fixture;
        const TestWindow window(L"window", {100, 120, 420, 360});
        const Desktop desktop({window, window});
        const FailingImport<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> fails(
            "kernel32.dll", pass.call, 0, ERROR_ACCESS_DENIED);
        const OpenProcesses processes;
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), -2);
        boxes.expect_boxes({system_error_box(ERROR_ACCESS_DENIED),
                            {L"error", compact_text({L"sources/funcs_layout_windows", pass.function,
                                                     pass.line, pass.handler},
                                                    L"ERROR <- GetModuleFileNameEx()")},
                            {L"error", compact_text({L"sources/funcs_layout_windows",
                                                     L"onButton_Scan_Clicked", pass.line_of_command, 1382},
                                                    L"ERROR <- EnumWindows()")}});
        EXPECT_EQ(fails.calls(), pass.call); // the enumeration has ended
        EXPECT_EQ(processes.opened, pass.call);
        // The handle of the process that could not be asked stays open.
        ASSERT_EQ(processes.open.size(), 1u);
        EXPECT_TRUE(CloseHandle(processes.open[0]));

        EXPECT_EQ(hwnd_ScanListView, nullptr);
        EXPECT_EQ(scan_record.counter_filled, 0u);
        if (pass.call == 1) {
            EXPECT_EQ(scan_record.counter_all, 1u);
            EXPECT_EQ(scan_record.counter_valid, 1u);
            EXPECT_EQ(scan_record.pcDynMem_WinHndls, nullptr);
            continue;
        }
        EXPECT_EQ(scan_record.counter_valid, 2u);
        // The window has its slot but for the path, and is not counted.
        EXPECT_EQ(scan_record.pcDynMem_WinHndls[0], static_cast<HWND>(window));
        EXPECT_EQ(title_of_slot(0), L"window");
        const GeomEntry_STR* entry = geometry_entry(&scan_record, 0);
        EXPECT_EQ(entry->x, 100);
        EXPECT_EQ(entry->y, 120);
        EXPECT_EQ(entry->width, 320);
        EXPECT_EQ(entry->height, 240);
        EXPECT_EQ(path_of_slot(0), L"");
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 0u);
        EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 0);
        EXPECT_EQ(scan_record.pcDynMem_WinHndls[1], nullptr);
    }
}

TEST(WindowEnumeration, RefusesANullRecord)
{
    const TestWindow window(L"window");
    const BoxWatcher boxes;
    EXPECT_FALSE(EnumWindowsProc_Calc(window, 0));
    EXPECT_FALSE(EnumWindowsProc_Calc_02(window, 0));
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/funcs_layout_windows", L"EnumWindowsProc_Calc", 118, 364},
                                 L"error, incorrect input parameters\nlParam = 0000000000000000")},
         {L"error", compact_text({L"sources/funcs_layout_windows", L"EnumWindowsProc_Calc_02", 437, 742},
                                 L"error, incorrect input parameters\nlParam = 0000000000000000")}});
}

TEST(WindowEnumeration, RefusesARecordWithAMissingBlock)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    const STR_ENUM_WNDS_DATA kept = scan_record;
    for (int block = 0; block < 6; ++block) {
        scan_record = kept;
        scan_record.counter_filled = 0;
        if (block == 0)
            scan_record.arr1D_ui_LenPath = nullptr;
        if (block == 1)
            scan_record.arr1D_uc_flag_FP = nullptr;
        if (block == 2)
            scan_record.pcTmpBuf_Prg_Folder_Path = nullptr;
        if (block == 3)
            scan_record.uiSize_TmpBuf_Path = 0;
        if (block == 4)
            scan_record.pcDynMem_WinHndls = nullptr;
        if (block == 5)
            scan_record.pcDynMem_GeomText = nullptr;
        const BoxWatcher boxes;
        EXPECT_FALSE(EnumWindowsProc_Calc_02(window, record()));
        boxes.expect_boxes(
            {{L"error",
              compact_text({L"sources/funcs_layout_windows", L"EnumWindowsProc_Calc_02", 452, 771},
                           L"error, incorrect input parameters\narr1D_ui_LenPath = " +
                               pointer(scan_record.arr1D_ui_LenPath) + L"\narr1D_uc_flag_FP = " +
                               pointer(scan_record.arr1D_uc_flag_FP) + L"\npcTmpBuf_Prg_Folder_Path = " +
                               pointer(scan_record.pcTmpBuf_Prg_Folder_Path) + L"\nuiSize_TmpBuf_Path = " +
                               std::to_wstring(scan_record.uiSize_TmpBuf_Path) + L"\npcDynMem_WinHndls = " +
                               pointer(scan_record.pcDynMem_WinHndls) + L"\npcDynMem_GeomText = " +
                               pointer(scan_record.pcDynMem_GeomText))}});
        EXPECT_EQ(scan_record.counter_filled, 0u);
    }
    scan_record = kept;
}

TEST(WindowEnumeration, AsksForTitlesWithALimitOfLengthAndTime)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    std::vector<WPARAM> asked;
    ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
                          PDWORD_PTR answer) {
            EXPECT_EQ(message, static_cast<UINT>(WM_GETTEXT));
            EXPECT_EQ(flags, 0x22u); // given up when it hangs, and when it ends
            EXPECT_EQ(timeout, 5000u);
            asked.push_back(wParam);
            return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
        });
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(asked, (std::vector<WPARAM>{512, 1000}));
}

TEST(WindowEnumeration, OpensEachProcessOncePerPassAndClosesIt)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow two(L"two");
    const Desktop desktop({one, two});
    const OpenProcesses processes;
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(processes.opened, 4);
    EXPECT_TRUE(processes.open.empty());
}
