#include "sources/funcs_layout_windows/profiles/profile_loading.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <utility>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_blocks.h"
#include "tests/control/fixtures/saved_profile_fixture.h"
#include "tests/support/profiles/loading_boxes.h"

// System calls that fail while a file is loaded, and files that are not what they seemed to be: what is
// shown, and what of the file and of the memory is kept.

namespace
{

using namespace profile_tests;
using loading_boxes::load_box;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::read_file;

constexpr wchar_t kReadFailed[] = L"one of callable functions returned error: error <- ReadFileEx( )";
constexpr wchar_t kEmptyFile[] =
    L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )";
constexpr wchar_t kNoMemory[] = L"error while DynMemAlloc";
constexpr wchar_t kWrongSignature[] = L"invalid type of file, signature doesn't coincide";

// The program has opened the file and not closed it: others may read it, but not write to it.
bool is_still_open(const std::wstring& path)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

// Loads that go wrong, each of a good file unless another is given, with a name in the list before.
class RefusedLoads
{
public:
    RefusedLoads()
    {
        CB_Profile_add_string(&fixture_.profiles, L"Before", 0);
        store_before_ = std::make_unique<LoadedProfiles_STR>(fixture_.store);
    }

    // Every load has a file of its own, as a refused one may stay open.
    void new_file(const Bytes& bytes = two_programs().bytes())
    {
        path_ = fixture_.files.file(L"file " + std::to_wstring(++files_made_) + L".txt");
        test_support::write_file(path_, bytes);
    }
    std::int32_t load() { return fixture_.load_path(path_); }

    void expect_nothing_but_the_box(bool file_still_open) const
    {
        EXPECT_EQ(is_still_open(path_), file_still_open);
        EXPECT_EQ(starts_.count(), 0);
        EXPECT_EQ(std::memcmp(store_before_.get(), &fixture_.store, sizeof fixture_.store), 0);
        EXPECT_EQ(fixture_.profiles.uiN_strs, 1u);
        EXPECT_EQ(combo_texts(fixture_.profile_combo), std::vector<std::wstring>{L"Before"});
    }

private:
    ProfileFixture fixture_;
    const NothingStarts starts_;
    std::unique_ptr<LoadedProfiles_STR> store_before_;
    std::wstring path_;
    int files_made_ = 0;
};

constexpr int kParts = 10; // of a profile as it is saved, the signature the last

// Writes the profile's parts up to the one of that number, which is the first that is missing.
void save_up_to(int missing_part, const PreparedRecordFixture& record, const std::wstring& path)
{
    int part = 0;
    const ImportHook<"WriteFile", decltype(WriteFile)> ended(
        "kernel32.dll",
        [&](HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped) -> BOOL {
            if (++part < missing_part)
                return ended.call_original(file, bytes, size, written, overlapped);
            *written = size;
            return TRUE;
        });
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(record.write(file), 1);
    EXPECT_EQ(part, kParts);
    CloseHandle(file);
}

} // namespace

TEST(ProfileLoading, ReportsAReadThatFails)
{
    RefusedLoads loads;
    for (const int call : {1, 2}) {
        SCOPED_TRACE(call);
        loads.new_file();
        const FailingImport<"ReadFile", decltype(ReadFile)> fails("kernel32.dll", call, FALSE, ERROR_CRC);
        const RecordedBlocks blocks;
        BoxWatcher boxes;
        EXPECT_EQ(loads.load(), -5);
        boxes.expect_boxes({load_box(call == 1 ? 5617 : 5676, 7161, kReadFailed)});
        EXPECT_EQ(fails.calls(), call);
        // The second call reads into the block for the file, which is kept.
        EXPECT_EQ(blocks.taken.size(), call == 1 ? 0u : 1u);
        EXPECT_EQ(blocks.given_back.size(), 0u);
        loads.expect_nothing_but_the_box(true);
    }
}

TEST(ProfileLoading, ReportsEachBlockThatCannotBeAllocated)
{
    RefusedLoads loads;
    // Block 1 is the file, block 2 the folder windows, which nobody tests as long as no entry is a folder.
    struct {
        std::size_t call;
        std::int32_t result;
        ExpectedBox box;
        bool file_still_open;
    } const rows[] = {
        {1, -7, load_box(5647, 7205, L"error <- DynMemAlloc for file's data"), true},
        {3, -9, load_box(5754, 7249, kNoMemory), false},
        {4, -9, load_box(5768, 7249, kNoMemory), false},
        {5, -9, load_box(5783, 7249, kNoMemory), false},
        {6, -9, load_box(5797, 7249, kNoMemory), false},
        {7, -9, load_box(5812, 7249, kNoMemory), false},
        {8, -9, load_box(5843, 7249, kNoMemory), false},
        {9, -9, load_box(5858, 7249, kNoMemory), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.call);
        loads.new_file();
        const RecordedBlocks blocks(row.call);
        BoxWatcher boxes;
        EXPECT_EQ(loads.load(), row.result);
        boxes.expect_boxes({row.box});
        // Nothing is asked for any more, and what was there before is kept.
        EXPECT_EQ(blocks.taken.size(), row.call);
        EXPECT_EQ(blocks.given_back.size(), 0u);
        loads.expect_nothing_but_the_box(row.file_still_open);
    }
}

TEST(ProfileLoading, RefusesAFileWhoseEndHasChangedSinceItsSignatureWasRead)
{
    RefusedLoads loads;
    for (const std::size_t from_end : {1u, 2u, 3u}) {
        SCOPED_TRACE(from_end);
        loads.new_file();
        int reads = 0;
        const ImportHook<"ReadFile", decltype(ReadFile)> read(
            "kernel32.dll",
            [&](HANDLE file, LPVOID bytes, DWORD size, LPDWORD done, LPOVERLAPPED overlapped) {
                const BOOL answer = read.call_original(file, bytes, size, done, overlapped);
                if (++reads == 2)
                    static_cast<std::uint8_t*>(bytes)[size - from_end] ^= 0x01;
                return answer;
            });
        const RecordedBlocks blocks;
        BoxWatcher boxes;
        EXPECT_EQ(loads.load(), -6);
        boxes.expect_boxes({load_box(5689, 7183, kWrongSignature)});
        EXPECT_EQ(reads, 2);
        EXPECT_EQ(blocks.taken.size(), 1u);
        EXPECT_EQ(blocks.given_back.size(), 0u);
        loads.expect_nothing_but_the_box(false);
    }
}

TEST(ProfileLoading, RefusesAFileWhoseSavingEndedHalfway)
{
    const FilledScanFixture scan(ten_windows());
    const PreparedRecordFixture record({1, 3, 5}, L"Half");
    ProfileFixture fixture;
    const NothingStarts nothing;
    std::size_t size = 0;
    for (int missing_part = 1; missing_part <= kParts; ++missing_part) {
        SCOPED_TRACE(missing_part);
        const std::wstring path = fixture.files.file(L"half " + std::to_wstring(missing_part) + L".txt");
        save_up_to(missing_part, record, path);
        const Bytes half = read_file(path);
        EXPECT_TRUE(missing_part == 1 ? half.empty() : half.size() > size);
        size = half.size();
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.load_path(path), half.empty() ? -3 : -6);
        boxes.expect_boxes(
            {half.empty() ? load_box(5581, 7117, kEmptyFile) : load_box(5629, 7183, kWrongSignature)});
        EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
    }
    EXPECT_EQ(nothing.count(), 0);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

// One rule for all that is refused: what was taken is kept.
TEST(ProfileLoading, KeepsTheCopyOfAFileWhoseContentsAreRefused)
{
    RefusedLoads loads;
    const ProfileEncoder whole = ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\a.exe").name(u"N");
    const std::pair<Bytes, std::int32_t> files[] = {
        {ProfileEncoder(whole).declare_count(0).bytes(), -10},
        {ProfileEncoder(whole).declare_count(9).bytes(), -11},
        {ProfileEncoder(whole).declare_path_length(0, 999).bytes(), -11},
    };
    for (const auto& [bytes, result] : files) {
        SCOPED_TRACE(result);
        loads.new_file(bytes);
        const RecordedBlocks blocks;
        BoxWatcher boxes;
        EXPECT_EQ(loads.load(), result);
        EXPECT_EQ(boxes.count(), 1u);
        ASSERT_EQ(blocks.taken.size(), 1u);
        EXPECT_EQ(blocks.given_back.size(), 0u);
        EXPECT_EQ(std::memcmp(blocks.taken.front(), bytes.data(), bytes.size()), 0);
        loads.expect_nothing_but_the_box(false);
    }
}

TEST(ProfileLoading, IgnoresAFailureToReturnToTheBeginningOfTheFile)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const RecordedSleeps sleeps;
    int seeks = 0;
    const ImportHook<"SetFilePointer", decltype(SetFilePointer)> seek(
        "kernel32.dll", [&](HANDLE file, LONG distance, PLONG high, DWORD from) {
            const DWORD place = seek.call_original(file, distance, high, from);
            return ++seeks == 2 ? INVALID_SET_FILE_POINTER : place;
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(two_programs().bytes()), 1);
    EXPECT_EQ(seeks, 2);
    EXPECT_EQ(starts.count(), 2);
    EXPECT_EQ(fixture.stored_file(0), two_programs().bytes());
}

TEST(ProfileLoading, UsesOnlyTheLowHalfOfTheFileSize)
{
    RefusedLoads loads;
    const auto size = static_cast<DWORD>(two_programs().bytes().size());
    struct {
        const char* what;
        BOOL answer;
        LARGE_INTEGER size;
        std::int32_t result;
        ExpectedBox box;
        std::vector<DWORD> reads;
    } const rows[] = {
        {"no answer", FALSE, {}, -3, load_box(5581, 7117, kEmptyFile), {}},
        {"4 GiB", TRUE, {.u = {0, 1}}, -3, load_box(5581, 7117, kEmptyFile), {}},
        // The signature is found at the real end, but not at the end of what is read.
        {"beyond 4 GiB",
         TRUE,
         {.u = {size - 5, 1}},
         -6,
         load_box(5689, 7183, kWrongSignature),
         {3, size - 5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        loads.new_file();
        const ImportHook<"GetFileSizeEx", decltype(GetFileSizeEx)> measure("kernel32.dll",
                                                                           [&](HANDLE, PLARGE_INTEGER told) {
                                                                               if (row.answer != FALSE)
                                                                                   *told = row.size;
                                                                               return row.answer;
                                                                           });
        std::vector<DWORD> reads;
        const ImportHook<"ReadFile", decltype(ReadFile)> read(
            "kernel32.dll",
            [&](HANDLE file, LPVOID bytes, DWORD wanted, LPDWORD done, LPOVERLAPPED overlapped) {
                reads.push_back(wanted);
                return read.call_original(file, bytes, wanted, done, overlapped);
            });
        const RecordedBlocks blocks;
        BoxWatcher boxes;
        EXPECT_EQ(loads.load(), row.result);
        boxes.expect_boxes({row.box});
        EXPECT_EQ(reads, row.reads);
        EXPECT_EQ(blocks.given_back.size(), 0u);
        loads.expect_nothing_but_the_box(row.result == -3);
    }
}

TEST(ProfileLoading, ReportsThatTheStoreHasNoNameToShow)
{
    ProfileFixture fixture;
    const NothingStarts nothing;
    const RecordedSleeps sleeps;
    // A store that has lost its files.
    std::uint8_t* const files = std::exchange(fixture.store.pc_raw_FilesProfile, nullptr);
    fixture.store.uiN_loaded_prfls = 1;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add({.flag = 7, .path = u"C:\\x"}).name(u"F").bytes()), 1);
    fixture.store.pc_raw_FilesProfile = files;
    boxes.expect_boxes(
        {{L"error",
          handler_first_text(
              {L"sources/funcs_layout_windows", L"add_profile_data_to_DynMem", 4826, 5234},
              L"error, incorrect input parameters (fields of STRUCTURE):\n\nuiMax_num_loaded_prfls = "
              L"1024, uiSize_DynMem_hwnds_wnds_prfl = 4194304, uiSize_DynMem_files = 33554432, "
              L"pc_hwnds_wnds_of_prfl = " +
                  pointer(fixture.store.pc_hwnds_wnds_of_prfl) +
                  L", pc_raw_FilesProfile = 0000000000000000")},
         {L"error", L"error <- add_profile_data_to_DynMem()"},
         {L"error",
          handler_first_text({L"sources/funcs_layout_windows", L"CB_Profile_add_string", 9777, 9874},
                             L"error, incorrect input parameters:\np_CB_mng_STR = " +
                                 pointer(&fixture.profiles) + L", p_tc_sz_name = 0000000000000000")},
         {L"error", L"error <- CB_Profile_add_string()"}});
    EXPECT_EQ(boxes.boxes().at(3).owner, nullptr);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
}
