#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>

#include "tests/support/basics/platform.h"
#include "tests/support/processes/counters.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/hostile_files.h"
#include "tests/support/profiles/loading_boxes.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;
using loading_boxes::programs_failed_box;

namespace
{

using Texts = std::vector<std::wstring>;

// Whether the program still has the file open: it lets others read such a file, but not write it.
bool is_held_open(const std::wstring& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

constexpr std::size_t kPage_bytes = 4096;

std::size_t whole_pages(std::size_t bytes)
{
    return (bytes + kPage_bytes - 1) / kPage_bytes * kPage_bytes;
}

// Folder windows on the screen, whatever the shell calls their class.
std::size_t folder_windows()
{
    std::size_t count = 0;
    for (const wchar_t* name : {L"CabinetWClass", L"ExplorerWClass"}) {
        for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, name, nullptr)) != nullptr;)
            count += IsWindowVisible(window) ? 1u : 0u;
    }
    return count;
}

// The beginnings of the blocks that a process has allocated for itself.
std::vector<Bytes> private_blocks(HANDLE process)
{
    constexpr std::size_t kBeginning_bytes = 4096;
    std::vector<Bytes> blocks;
    MEMORY_BASIC_INFORMATION region{};
    for (std::uintptr_t at = 0;
         VirtualQueryEx(process, reinterpret_cast<void*>(at), &region, sizeof(region)) != 0;
         at = reinterpret_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize) {
        if (region.State != MEM_COMMIT || region.Type != MEM_PRIVATE ||
            region.BaseAddress != region.AllocationBase)
            continue;
        Bytes beginning(std::min<std::size_t>(region.RegionSize, kBeginning_bytes));
        SIZE_T read = 0;
        if (ReadProcessMemory(process, region.BaseAddress, beginning.data(), beginning.size(), &read))
            blocks.push_back(beginning);
    }
    return blocks;
}

// How many of the blocks hold a copy of the file: its bytes, then zeros.
std::ptrdiff_t copies_among(const std::vector<Bytes>& blocks, const Bytes& file)
{
    return std::count_if(blocks.begin(), blocks.end(), [&](const Bytes& block) {
        return block.size() >= file.size() && std::equal(file.begin(), file.end(), block.begin()) &&
               std::all_of(block.begin() + static_cast<std::ptrdiff_t>(file.size()), block.end(),
                           [](std::uint8_t byte) { return byte == 0; });
    });
}

// The program with one profile loaded, and hostile files that name another program.
class HostileFiles : public testing::Test
{
protected:
    HostileFiles()
        : kept_program_(fixtures_.add(L"kept", {.title = L"Kept"})),
          unwanted_program_(fixtures_.add(L"unwanted", {.title = L"Unwanted"})),
          files_(hostile::hostile_files(units_of(unwanted_program_)))
    {
        const std::wstring path = folder_.file(L"kept.txt");
        write_file(
            path,
            ProfileEncoder().add_program(50, 60, 300, 200, units_of(kept_program_)).name(u"Kept").bytes());
        wendlow_.load_profile(path);
    }

    std::wstring write(const hostile::HostileFile& file)
    {
        const std::wstring path = folder_.file(L"hostile " + std::to_wstring(++written_) + L".txt");
        write_file(path, file.bytes);
        return path;
    }

    void expect_lists_unchanged() const
    {
        EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), Texts{L"Kept"});
        EXPECT_EQ(wendlow_.combo_selection(wendlow_.profile_combo()), 0);
        EXPECT_EQ(wendlow_.combo_texts(wendlow_.action_combo()), (Texts{L"Minimize", L"Restore", L"Close"}));
        EXPECT_EQ(wendlow_.combo_selection(wendlow_.action_combo()), -1);
    }

    // A program leaves a record of each start.
    void expect_nothing_started() const
    {
        EXPECT_FALSE(file_exists(fixtures_.folder().file(L"unwanted.startup")));
        EXPECT_FALSE(fixtures_.is_running(L"unwanted"));
        EXPECT_EQ(fixtures_.processes_of(L"kept").size(), 1u);
        EXPECT_EQ(folder_windows(), folder_windows_before_);
    }

    // The loaded profile still has its window, and the next one is stored behind it.
    void expect_store_unchanged()
    {
        const HWND window = fixtures_.wait_for_window(L"kept");
        wendlow_.apply(L"Minimize");
        EXPECT_TRUE(becomes_true([&] { return IsIconic(window) != FALSE; }));
        const std::wstring next_program = fixtures_.add(L"next", {.title = L"Next"});
        const std::wstring path = folder_.file(L"next.txt");
        write_file(
            path,
            ProfileEncoder().add_program(70, 80, 300, 200, units_of(next_program)).name(u"Next").bytes());
        wendlow_.load_profile(path);
        EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), (Texts{L"Kept", L"Next"}));
        wendlow_.select_profile(1);
        wendlow_.apply(L"Minimize");
        EXPECT_TRUE(becomes_true([&] { return IsIconic(fixtures_.wait_for_window(L"next")) != FALSE; }));
    }

    FixturePrograms fixtures_;
    std::wstring kept_program_;
    std::wstring unwanted_program_;
    std::vector<hostile::HostileFile> files_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
    std::size_t folder_windows_before_ = folder_windows();
    int written_ = 0;
};

TEST_F(HostileFiles, AreRefusedOneByOneWithTheirBoxesAndLeaveNothingBehind)
{
    ASSERT_GE(files_.size(), 200u);
    std::vector<std::wstring> paths;
    BoxWatcher boxes = wendlow_.watch_boxes();
    std::size_t handles_kept = 0;
    std::size_t bytes_kept = 0;
    const Holdings before = holdings_of(wendlow_.process());
    for (const hostile::HostileFile& file : files_) {
        SCOPED_TRACE(file.what);
        boxes.forget();
        paths.push_back(write(file));
        wendlow_.drop_files({paths.back()});
        boxes.expect_boxes({file.refusal.box, loading_boxes::drop_box()});
        wendlow_.wait_until_idle();
        ASSERT_FALSE(HasFailure());
        handles_kept += file.refusal.keeps_handle ? 1u : 0u;
        bytes_kept += file.refusal.keeps_buffer ? whole_pages(file.bytes.size()) : 0u;
        bytes_kept +=
            under_wine() ? kPage_bytes : 0u; // the list of the dropped files, which this test put there
    }
    const Holdings after = holdings_of(wendlow_.process());
    EXPECT_LE(after.handles, before.handles + handles_kept + kHandlesOfSystem);
    EXPECT_GE(after.handles + kHandlesOfSystem, before.handles + handles_kept);
    EXPECT_EQ(after.gdi_objects, before.gdi_objects);
    EXPECT_EQ(after.user_objects, before.user_objects);
    EXPECT_LE(after.private_bytes, before.private_bytes + bytes_kept + kHeapPieces_bytes);
    EXPECT_GE(after.private_bytes + kHeapPieces_bytes, before.private_bytes + bytes_kept);

    expect_nothing_started();
    expect_lists_unchanged();
    const std::vector<Bytes> blocks = private_blocks(wendlow_.process());
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const hostile::HostileFile& file = files_[i];
        SCOPED_TRACE(file.what);
        EXPECT_EQ(is_held_open(paths[i]), file.refusal.keeps_handle);
        EXPECT_EQ(read_file(paths[i]), file.bytes);
        // Shorter contents may stand in other blocks by chance.
        if (file.bytes.size() >= 16) {
            EXPECT_EQ(copies_among(blocks, file.bytes), file.refusal.keeps_buffer ? 1 : 0);
        }
    }
    expect_store_unchanged();
}

TEST_F(HostileFiles, AreRefusedWithTheirResultsThroughTheOpenDialog)
{
    BoxWatcher boxes = wendlow_.watch_boxes();
    std::map<std::int32_t, int> tried;
    for (const hostile::HostileFile& file : files_) {
        if (++tried[file.refusal.result] > 3)
            continue;
        SCOPED_TRACE(file.what);
        boxes.forget();
        const std::wstring path = write(file);
        wendlow_.start_load_profile(path);
        boxes.expect_boxes({file.refusal.box, loading_boxes::command_box(file.refusal.result)});
        wendlow_.wait_until_idle();
        EXPECT_EQ(is_held_open(path), file.refusal.keeps_handle);
        expect_lists_unchanged();
    }
    for (const std::int32_t result : {-3, -4, -6, -10, -11})
        EXPECT_GT(tried[result], 0) << result;
    expect_nothing_started();
    expect_store_unchanged();
}

// What is odd but whole is taken. None of it names a program that exists.
TEST_F(HostileFiles, ThatAreUnusualButCompleteAreLoaded)
{
    const ProfileEntry neither{
        .flag = 7, .x = 1, .y = 2, .width = 3, .height = 4, .path = u"C:\\neither\\one"};
    const ProfileEntry last_kind{.flag = 255, .path = u"C:\\neither\\one"};
    const ProfileEncoder plain({neither, neither}, u"Odd");
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    const auto gone = [](std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
        return ProfileEncoder().add_program(x, y, width, height, u"C:\\gone\\program.exe").name(u"Odd");
    };
    const struct {
        const char* what;
        Bytes bytes;
        bool names_a_program = false;
    } odd[] = {
        {"another kind", plain.bytes()},
        {"the last kind", ProfileEncoder({last_kind, last_kind}, u"Odd").bytes()},
        {"no zero tail", ProfileEncoder(plain).without_zero_tail().bytes()},
        {"surplus bytes", ProfileEncoder(plain).surplus_before_name(Bytes(999, 0)).bytes()},
        {"odd lengths", ProfileEncoder(plain).declare_path_length(0, 1).declare_path_length(1, 27).bytes()},
        {"empty paths", ProfileEncoder(plain).declare_path_length(0, 0).declare_path_length(1, 0).bytes()},
        {"least numbers", gone(least, least, least, least).bytes(), true},
        {"greatest numbers", gone(most, most, most, most).bytes(), true},
        {"zeros", gone(0, 0, 0, 0).bytes(), true},
        {"ones", gone(1, 1, 1, 1).bytes(), true},
        {"ones below zero", gone(-1, -1, -1, -1).bytes(), true},
    };
    const BoxWatcher boxes = wendlow_.watch_boxes();
    const Holdings before = holdings_of(wendlow_.process());
    std::vector<ExpectedBox> expected;
    Texts names{L"Kept"};
    for (const auto& file : odd) {
        SCOPED_TRACE(file.what);
        ASSERT_FALSE(hostile::refusal_of(file.bytes));
        const std::wstring path = folder_.file(L"odd " + std::to_wstring(++written_) + L".txt");
        write_file(path, file.bytes);
        wendlow_.drop_files({path});
        names.push_back(L"Odd");
        ASSERT_TRUE(
            becomes_true([&] { return wendlow_.combo_texts(wendlow_.profile_combo()) == names; }, kLongWait));
        if (file.names_a_program)
            expected.push_back(programs_failed_box(1, 1));
        boxes.expect_boxes(expected);
        EXPECT_FALSE(is_held_open(path));
        EXPECT_EQ(copies_among(private_blocks(wendlow_.process()), file.bytes), 0);
    }
    expect_nothing_started();
    EXPECT_LE(holdings_of(wendlow_.process()).handles, before.handles + kHandlesOfSystem);
}

} // namespace
