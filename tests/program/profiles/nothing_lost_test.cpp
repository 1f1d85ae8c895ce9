#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/remote_imports.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/loading_boxes.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

// Saves that do not succeed: whatever was there before stays as it was, and the user is told.

using namespace test_support;

namespace
{

constexpr int kPage_bytes = 4096;

ExpectedBox save_box(int site, int handler, const std::wstring& detail)
{
    return {L"error",
            compact_text({L"sources/wnd_ScanListView", L"on_WM_COPYDATA_on_wnd_NameOfProfile", site, handler},
                         detail)};
}

ExpectedBox not_created_box(DWORD code)
{
    return save_box(1983, 2087,
                    L"file of profile was not created, profile is not saved\nGetLastError = " +
                        std::to_wstring(code) + L" <- CreateFile()");
}

const ExpectedBox kDiskFullBox = save_box(2009, 2131,
                                          L"file of profile was not written, profile is not saved\n"
                                          L"GetLastError = 112 <- WriteFile() or FlushFileBuffers()");
const ExpectedBox kFileExists{L"information", L"File already exists"};

// Runs a program of the system that Wine runs on.
void run_on_host(const std::wstring& command)
{
    std::wstring line = command;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        return;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

// A disk of two pages, one of them taken by a profile of the user's. Only there where the tests may mount
// one.
class SmallDisk
{
public:
    explicit SmallDisk(const std::wstring& folder) : folder_(folder)
    {
        const std::wstring host = host_path();
        if (host.empty())
            return;
        run_on_host(L"Z:\\bin\\mount -t tmpfs -o size=8k tmpfs " + host);
        there_ = becomes_true([&] { return size_bytes() == 2 * kPage_bytes; }, 2000);
    }
    ~SmallDisk()
    {
        if (!there_)
            return;
        // Taken away at once, though the program's save dialog has made it the current folder.
        run_on_host(L"Z:\\bin\\umount -l " + host_path());
        EXPECT_TRUE(becomes_true([&] { return size_bytes() != 2 * kPage_bytes; })) << "still mounted";
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool is_there() const { return there_; }

private:
    // "Z:\tmp\x" as the system that Wine runs on names it; empty on other drives.
    std::wstring host_path() const
    {
        if (!folder_.starts_with(L"Z:\\"))
            return {};
        std::wstring path = folder_.substr(2);
        for (wchar_t& unit : path) {
            if (unit == L'\\')
                unit = L'/';
        }
        return path;
    }

    std::uint64_t size_bytes() const
    {
        ULARGE_INTEGER all{};
        return GetDiskFreeSpaceExW(folder_.c_str(), nullptr, &all, nullptr) ? all.QuadPart : 0;
    }

    std::wstring folder_;
    bool there_ = false;
};

// The program ends at once when it makes this system call, as if it were killed there.
void end_program_in(const char* function, const WendlowProcess& program)
{
    RemoteImports(program.process()).replace({L"kernel32.dll", function}, {L"kernel32.dll", "ExitProcess"});
}

class NothingLost : public testing::Test
{
protected:
    // Shows windows of one program and ticks them; entries_ is what a profile has of them.
    void show_and_tick(int windows)
    {
        const std::wstring path = fixtures_.add(
            L"One",
            {.title = L"One", .x = 10, .y = 20, .width = 300, .height = 200, .window_count = windows});
        fixtures_.start(L"One");
        fixtures_.wait_for_windows(L"One", static_cast<std::size_t>(windows));
        const RemoteListView list = wendlow_.scan();
        for (int row = 0; row < list.row_count(); ++row) {
            if (list.cell(row, 1).starts_with(L"One"))
                list.set_ticked(row, true);
        }
    }

    // A profile of the user's, saved earlier.
    Bytes put_earlier_profile(const std::wstring& path)
    {
        const Bytes bytes =
            ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\gone\\earlier.exe").name(u"Earlier").bytes();
        write_file(path, bytes);
        return bytes;
    }

    void start_saving(const std::wstring& name)
    {
        wendlow_.press_create_profile();
        wendlow_.enter_name(name);
        wendlow_.press_name_ok();
    }

    void save_onto(const std::wstring& path)
    {
        start_saving(L"Later");
        choose_existing_file(wendlow_.process_id(), path, Overwrite::kYes);
    }

    // The last save did not succeed, the next one does.
    void expect_next_save_succeeds()
    {
        wendlow_.wait_until_idle();
        const std::wstring path = folder_.file(L"next.txt");
        wendlow_.create_profile(L"Next", path);
        const Bytes saved = read_file(path);
        ASSERT_GE(saved.size(), 3u);
        EXPECT_EQ(hex({saved.end() - 3, saved.end()}), "00 07 0C");
    }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
};

TEST_F(NothingLost, ProfilesThatExistAreNeverChanged)
{
    show_and_tick(1);
    const BoxWatcher boxes = wendlow_.watch_boxes();
    std::vector<ExpectedBox> expected;
    for (const DWORD attributes : {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_HIDDEN}) {
        const std::wstring path = folder_.file(L"earlier " + std::to_wstring(attributes) + L".txt");
        const Bytes before = put_earlier_profile(path);
        SetFileAttributesW(path.c_str(), attributes);
        save_onto(path);
        expected.push_back(kFileExists);
        boxes.expect_boxes(expected);
        wendlow_.wait_until_idle();
        EXPECT_EQ(hex(read_file(path)), hex(before));
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    expect_next_save_succeeds();
    EXPECT_EQ(boxes.count(), expected.size());
}

TEST_F(NothingLost, AProfileThatAnotherProgramHoldsOpenStaysAsItIs)
{
    ONLY_UNDER_WINE("the save dialog of Windows refuses a file that is in use by itself");
    show_and_tick(1);
    const BoxWatcher boxes = wendlow_.watch_boxes();
    const std::wstring path = folder_.file(L"held.txt");
    const Bytes before = put_earlier_profile(path);
    const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    save_onto(path);
    boxes.expect_boxes({kFileExists});
    CloseHandle(held);
    wendlow_.wait_until_idle();
    EXPECT_EQ(hex(read_file(path)), hex(before));
    expect_next_save_succeeds();
}

TEST_F(NothingLost, AFolderWithoutRightsIsReportedAndLeftAsItIs)
{
    ONLY_UNDER_WINE("the save dialog of Windows refuses a folder without rights by itself");
    // A folder that not even an administrator may write to.
    const std::wstring folder = windows_path("/sys/kernel");
    const std::wstring path = folder + L"\\profile.txt";
    if (!folder_exists(folder))
        GTEST_SKIP() << "no folder without rights on this system";
    show_and_tick(1);
    const BoxWatcher boxes = wendlow_.watch_boxes();
    start_saving(L"Later");
    choose_file(wendlow_.process_id(), path);
    boxes.expect_boxes({not_created_box(ERROR_ACCESS_DENIED)});
    EXPECT_FALSE(file_exists(path));
    expect_next_save_succeeds();
    EXPECT_EQ(boxes.count(), 1u);
}

TEST_F(NothingLost, AFullDiskIsReportedAndNoHalfProfileStaysOnIt)
{
    ONLY_UNDER_WINE("the small disk is one of the system that Wine runs on");
    const std::wstring disk =
        windows_path("/tmp/wendlow-small-disk-" + std::to_string(GetCurrentProcessId()));
    CreateDirectoryW(disk.c_str(), nullptr);
    {
        const SmallDisk small(disk);
        if (!small.is_there()) {
            RemoveDirectoryW(disk.c_str());
            GTEST_SKIP() << "no small disk can be mounted here";
        }
        const std::wstring earlier = disk + L"\\earlier.txt";
        const Bytes before = put_earlier_profile(earlier);
        // More than the one page that is left: every window brings its whole path.
        show_and_tick(40);
        const BoxWatcher boxes = wendlow_.watch_boxes();
        const std::wstring path = disk + L"\\later.txt";
        start_saving(L"Later");
        choose_file(wendlow_.process_id(), path);
        boxes.expect_boxes({kDiskFullBox});
        wendlow_.wait_until_idle();
        EXPECT_FALSE(file_exists(path));
        EXPECT_EQ(hex(read_file(earlier)), hex(before));
        expect_next_save_succeeds();
        EXPECT_GT(read_file(folder_.file(L"next.txt")).size(), static_cast<std::size_t>(kPage_bytes));
        EXPECT_EQ(boxes.count(), 1u);
    }
    RemoveDirectoryW(disk.c_str());
}

TEST_F(NothingLost, EndedWhileTheSaveDialogIsUpItLeavesNoFile)
{
    show_and_tick(1);
    const std::wstring earlier = folder_.file(L"earlier.txt");
    const Bytes before = put_earlier_profile(earlier);
    start_saving(L"Later");
    const std::wstring later = folder_.file(L"later.txt");
    enter_file_name(wendlow_.process_id(), later);
    terminate_process(wendlow_.process_id());
    EXPECT_EQ(hex(read_file(earlier)), hex(before));
    EXPECT_FALSE(file_exists(later));
}

TEST_F(NothingLost, EndedInTheMiddleOfASaveItLeavesEarlierProfilesAsTheyWere)
{
    show_and_tick(1);
    const std::wstring earlier = folder_.file(L"earlier.txt");
    const Bytes before = put_earlier_profile(earlier);
    end_program_in("WriteFile", wendlow_);
    const std::wstring later = folder_.file(L"later.txt");
    start_saving(L"Later");
    choose_file(wendlow_.process_id(), later);
    wendlow_.wait_for_exit();
    EXPECT_EQ(hex(read_file(earlier)), hex(before));
    // What is left is empty, and whoever loads it is told so.
    EXPECT_EQ(hex(read_file(later)), "");
    const WendlowProcess again;
    const BoxWatcher boxes = again.watch_boxes();
    again.start_load_profile(later);
    boxes.expect_boxes({loading_boxes::empty_file_box(), loading_boxes::command_box(-3)});
    again.wait_until_idle();
    EXPECT_EQ(again.combo_texts(again.profile_combo()).size(), 0u);
}

TEST_F(NothingLost, EndedBeforeTheSaveIsFlushedItsProfileIsComplete)
{
    show_and_tick(1);
    end_program_in("FlushFileBuffers", wendlow_);
    const std::wstring later = folder_.file(L"later.txt");
    start_saving(L"Later");
    choose_file(wendlow_.process_id(), later);
    wendlow_.wait_for_exit();
    EXPECT_EQ(hex(read_file(later)),
              hex(ProfileEncoder()
                      .add_program(10, 20, 300, 200, units_of(fixtures_.path_of(L"One")))
                      .name(u"Later")
                      .bytes()));
}

} // namespace
