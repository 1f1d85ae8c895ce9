#include "sources/funcs_layout_windows/scanning/window_enumeration.h"

#include <psapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/test_window.h"

// The image paths that a scan reads: of which windows, into what, and where they are kept.

using namespace test_support;
using scan_tests::Desktop;
using scan_tests::path_of_slot;
using scan_tests::ScanFixture;
using scan_tests::title_of_slot;

namespace
{

constexpr std::size_t kPathBuffer_units = 32768 / 2;

// Gives the image paths, one per query, in this order.
class ImagePaths
{
public:
    explicit ImagePaths(std::vector<std::wstring> paths) : paths_(std::move(paths)) {}
    std::size_t queries = 0;

private:
    std::vector<std::wstring> paths_;
    ImportHook<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)> hook_{
        "kernel32.dll", [this](HANDLE, HMODULE module, LPWSTR buffer, DWORD units) -> DWORD {
            EXPECT_EQ(module, nullptr);
            EXPECT_EQ(units, kPathBuffer_units - 1);
            const std::size_t written = static_cast<std::size_t>(
                std::count_if(buffer, buffer + kPathBuffer_units, [](wchar_t unit) { return unit != 0; }));
            EXPECT_EQ(written, 0u) << "units left over at query " << queries;
            // What stands behind a path is of no account.
            std::fill_n(buffer, units, L'x');
            const std::wstring& path = paths_.at(queries++);
            lstrcpyW(buffer, path.c_str());
            return static_cast<DWORD>(path.size());
        }};
};

// Refuses to open the processes of the windows at these places of the desktop, in either pass.
class RefusedProcesses
{
public:
    RefusedProcesses(std::size_t windows, std::vector<std::size_t> refused)
        : windows_(windows), refused_(std::move(refused))
    {
    }

private:
    std::size_t windows_;
    std::vector<std::size_t> refused_;
    std::size_t opened_ = 0;
    ImportHook<"OpenProcess", decltype(OpenProcess)> hook_{
        "kernel32.dll", [this](DWORD access, BOOL inherit, DWORD process) -> HANDLE {
            if (std::count(refused_.begin(), refused_.end(), opened_++ % windows_) == 0)
                return hook_.call_original(access, inherit, process);
            SetLastError(ERROR_ACCESS_DENIED);
            return nullptr;
        }};
};

void expect_slot_empty(std::uint32_t slot)
{
    SCOPED_TRACE(slot);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[slot], nullptr);
    const GeomEntry_STR* entry = geometry_entry(&scan_record, slot);
    EXPECT_EQ(entry->title, nullptr);
    EXPECT_EQ(entry->x, 0);
    EXPECT_EQ(entry->y, 0);
    EXPECT_EQ(entry->height, 0);
    EXPECT_EQ(entry->width, 0);
}

void expect_no_path(std::uint32_t slot)
{
    SCOPED_TRACE(slot);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[slot], 0);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[slot], 0u);
    const std::uint8_t* path = path_slot(&scan_record, slot);
    EXPECT_EQ(std::count(path, path + path_slot_bytes(&scan_record), 0),
              static_cast<std::ptrdiff_t>(path_slot_bytes(&scan_record)));
}

void expect_program(std::uint32_t slot, HWND window, const std::wstring& title, const std::wstring& path)
{
    SCOPED_TRACE(slot);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[slot], window);
    EXPECT_EQ(title_of_slot(slot), title);
    EXPECT_EQ(path_of_slot(slot), path);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[slot], 2 * path.size());
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[slot], 1);
}

// That the slot holds a window that was passed over once its place had been written.
void expect_left_behind(std::uint32_t slot, HWND window, const std::wstring& title)
{
    SCOPED_TRACE(slot);
    EXPECT_EQ(scan_record.pcDynMem_WinHndls[slot], window);
    EXPECT_EQ(title_of_slot(slot), title);
    EXPECT_EQ(geometry_entry(&scan_record, slot)->x, 100);
    expect_no_path(slot);
}

} // namespace

TEST(WindowEnumeration, ReadsEachPathIntoAClearedBuffer)
{
    ScanFixture fixture;
    const TestWindow one(L"one");
    const TestWindow two(L"two");
    const Desktop desktop({one, two});
    const std::wstring longer = L"C:\\a longer path\\program.exe";
    const ImagePaths paths({longer, L"C:\\p.exe", longer, L"C:\\p.exe"});
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(paths.queries, 4u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_PrgPath, 2 * longer.size());
    expect_program(0, one, L"one", longer);
    expect_program(1, two, L"two", L"C:\\p.exe");
}

TEST(WindowEnumeration, LeavesOutAProgramWhosePathIsLongerThanAnyMeasured)
{
    ScanFixture fixture;
    const TestWindow grown(L"grown");
    const TestWindow after(L"after");
    const Desktop desktop({grown, after});
    const std::wstring measured = L"C:\\measured.exe";
    const ImagePaths paths({L"C:\\short.exe", measured, measured + L"x", measured});
    const BoxWatcher boxes;
    ASSERT_EQ(fixture.scan(), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(paths.queries, 4u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_AllPath, 2 * measured.size());
    EXPECT_EQ(scan_record.counter_valid, 2u);
    EXPECT_EQ(scan_record.counter_filled, 1u);
    expect_program(0, after, L"after", measured);
    expect_slot_empty(1);
    expect_no_path(1);
}

TEST(WindowEnumeration, ShowsARowWithoutPathForALastProgramWhosePathHasGrown)
{
    ScanFixture fixture;
    const TestWindow before(L"before");
    const TestWindow grown(L"grown");
    const Desktop desktop({before, grown});
    const std::wstring measured = L"C:\\measured.exe";
    const ImagePaths paths({measured, measured, measured, measured + L"x"});
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(scan_record.counter_filled, 1u);
    expect_program(0, before, L"before", measured);
    expect_left_behind(1, grown, L"grown");
    EXPECT_EQ(fixture.list().cell(1, 1), L"grown");
}

TEST(WindowEnumeration, PutsTheLastOfSeveralRefusedWindowsIntoTheFirstSlotThatIsLeft)
{
    ScanFixture fixture;
    const TestWindow first_shut(L"first shut");
    const TestWindow second_shut(L"second shut");
    const TestWindow one(L"one");
    const TestWindow third_shut(L"third shut");
    const TestWindow two(L"two");
    const TestWindow fourth_shut(L"fourth shut");
    const TestWindow last_shut(L"last shut");
    const Desktop desktop({first_shut, second_shut, one, third_shut, two, fourth_shut, last_shut});
    {
        const RefusedProcesses refused(7, {0, 1, 3, 5, 6});
        const BoxWatcher boxes;
        ASSERT_EQ(fixture.scan(), 1);
        boxes.expect_no_boxes();
    }
    EXPECT_EQ(scan_record.counter_valid, 7u);
    EXPECT_EQ(scan_record.counter_filled, 2u);
    expect_program(0, one, L"one", scan_tests::own_image_path());
    expect_program(1, two, L"two", scan_tests::own_image_path());
    expect_left_behind(2, last_shut, L"last shut");
    for (const std::uint32_t slot : {3u, 4u, 5u, 6u}) {
        expect_slot_empty(slot);
        expect_no_path(slot);
    }
    const RemoteListView list = fixture.list();
    ASSERT_EQ(list.row_count(), 7);
    EXPECT_EQ(list.cell(2, 1), L"last shut");
    EXPECT_EQ(list.row(3), (std::vector<std::wstring>{L"4", L"", L"0", L"0", L"0", L"0"}));
    EXPECT_EQ(list.row(6), (std::vector<std::wstring>{L"7", L"", L"0", L"0", L"0", L"0"}));
}

TEST(WindowEnumeration, MakesRoomForTheLongerOfTheProgramsAndTheFoldersPaths)
{
    const std::wstring program_path = L"C:\\p.exe";
    const struct {
        std::wstring folder;
        std::uint32_t folder_bytes;
        std::uint32_t longest_bytes;
    } cases[] = {{L"C:\\windows\\system32\\drivers", 54, 54}, {L"C:\\", 6, 16}};
    for (const auto& given : cases) {
        SCOPED_TRACE(testing::PrintToString(given.folder));
        ScanFixture fixture;
        const TestWindow program(L"program");
        const TestWindow folder(L"folder");
        fixture.folders.add(folder, given.folder);
        const Desktop desktop({program, folder});
        const std::wstring explorer = L"C:\\windows\\explorer.exe";
        const ImagePaths paths({program_path, explorer, program_path, explorer});
        const BoxWatcher boxes;
        ASSERT_EQ(fixture.scan(), 1);
        boxes.expect_no_boxes();
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_PrgPath, 16u);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, given.folder_bytes);
        EXPECT_EQ(scan_record.uiMaxLen_inBytes_AllPath, given.longest_bytes);
        expect_program(0, program, L"program", program_path);
        EXPECT_EQ(scan_record.pcDynMem_WinHndls[1], static_cast<HWND>(folder));
        EXPECT_EQ(scan_record.arr1D_uc_flag_FP[1], 0);
        EXPECT_EQ(scan_record.arr1D_ui_LenPath[1], given.folder_bytes);
        EXPECT_EQ(path_of_slot(1), given.folder);
    }
}

TEST(WindowEnumeration, LeavesOutProgramsWhenThereAreNoPathSlots)
{
    ScanFixture fixture;
    const TestWindow window(L"window");
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    scan_record.counter_filled = 0;
    scan_record.arr1D_uc_flag_FP[0] = 0;
    scan_record.arr1D_ui_LenPath[0] = 0;
    std::uint8_t* const paths = std::exchange(scan_record.pcDynMem_FullPaths, nullptr);
    const BoxWatcher boxes;
    EXPECT_TRUE(EnumWindowsProc_Calc_02(window, reinterpret_cast<LPARAM>(&scan_record)));
    scan_record.pcDynMem_FullPaths = paths;
    boxes.expect_no_boxes();
    EXPECT_EQ(scan_record.counter_filled, 0u);
    EXPECT_EQ(scan_record.arr1D_uc_flag_FP[0], 0);
    EXPECT_EQ(scan_record.arr1D_ui_LenPath[0], 0u);
}
