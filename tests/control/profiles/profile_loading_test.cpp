#include "sources/funcs_layout_windows/profiles/profile_loading.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <utility>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/profiles/loading_boxes.h"

namespace
{

using namespace profile_tests;
using loading_boxes::load_box;
using loading_boxes::past_end_box;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::file_exists;
using test_support::ImportHook;
using test_support::kEveryCall;
using test_support::ProfileEncoder;

constexpr wchar_t kNotOpened[] =
    L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()";

struct BadFile {
    const char* what;
    Bytes bytes;
    std::int32_t result;
    ExpectedBox box;
};

std::vector<BadFile> bad_files()
{
    const auto seek =
        load_box(5601, 7139, L"one of callable functions returned error: error <- SetFilePointer( )");
    const auto signature = load_box(5629, 7183, L"invalid type of file, signature doesn't coincide");
    const auto no_windows =
        load_box(5701, 7272, L"error, 0 == number of windows in profile (data read from file)");
    const auto empty =
        load_box(5581, 7117, L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )");
    return {
        {"0 bytes", {}, -3, empty},
        {"1 byte", {0x0C}, -4, seek},
        {"2 bytes", {0x07, 0x0C}, -4, seek},
        {"3 bytes, no signature", {1, 2, 3}, -6, signature},
        {"3 bytes, the signature", {0x00, 0x07, 0x0C}, -11, past_end_box(0, L"number of windows")},
        {"first byte of signature", two_programs().signature(1, 7, 12).bytes(), -6, signature},
        {"second byte of signature", two_programs().signature(0, 8, 12).bytes(), -6, signature},
        {"third byte of signature", two_programs().signature(0, 7, 13).bytes(), -6, signature},
        {"count 0", two_programs().declare_count(0).bytes(), -10, no_windows},
        {"four zeros and the signature", {0, 0, 0, 0, 0x00, 0x07, 0x0C}, -10, no_windows},
        // 180 bytes: behind the count there is room for 176 flags.
        {"count 0xFFFFFFFF", two_programs().declare_count(0xFFFFFFFF).bytes(), -11,
         past_end_box(two_programs().bytes().size() - 4, L"kind flag")},
        // Count 02 00 00 07 and one flag, of signature bytes.
        {"ends in the flags", two_programs().cut_before_signature(2).bytes(), -11,
         past_end_box(1, L"kind flag")},
        {"ends in the X array", two_programs().cut_before_signature(4 + 2 + 4).bytes(), -11,
         past_end_box(1, L"x")},
        {"ends in the Y array", two_programs().cut_before_signature(4 + 2 + 8 + 4).bytes(), -11,
         past_end_box(1, L"y")},
        {"ends in the width array", two_programs().cut_before_signature(4 + 2 + 16 + 4).bytes(), -11,
         past_end_box(1, L"width")},
        {"ends in the height array", two_programs().cut_before_signature(4 + 2 + 24 + 4).bytes(), -11,
         past_end_box(1, L"height")},
        {"ends in the lengths", two_programs().cut_before_signature(4 + 2 + 32 + 4).bytes(), -11,
         past_end_box(1, L"path length")},
        {"ends in the first path", two_programs().cut_before_signature(4 + 42 + 10).bytes(), -11,
         past_end_box(0, L"path")},
        {"ends in the second path", two_programs().cut_before_signature(4 + 42 + 24 + 10).bytes(), -11,
         past_end_box(1, L"path")},
        {"first length 0xFFFFFFFF", two_programs().declare_path_length(0, 0xFFFFFFFF).bytes(), -11,
         past_end_box(0, L"path")},
        {"last length 0xFFFFFFFE", two_programs().declare_path_length(1, 0xFFFFFFFE).bytes(), -11,
         past_end_box(1, L"path")},
    };
}

} // namespace

TEST(ProfileLoading, RefusesEveryBadFileWithItsBoxAndStartsNothing)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    for (const BadFile& bad : bad_files()) {
        SCOPED_TRACE(bad.what);
        BoxWatcher boxes;
        EXPECT_EQ(fixture.load(bad.bytes), bad.result);
        boxes.expect_boxes({bad.box});
        EXPECT_EQ(boxes.boxes().at(0).owner, nullptr);
        EXPECT_EQ(starts.count(), 0);
        EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
        EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
        EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
    }
}

TEST(ProfileLoading, ABadFileLeavesTheProfilesLoadedBeforeAsTheyAre)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const Bytes good = ProfileEncoder().add_folder(1, 2, 300, 200, u"C:\\windows").name(u"Good").bytes();
    ASSERT_EQ(fixture.load(good), 1);
    const LoadedProfiles_STR before = fixture.store;

    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(two_programs().declare_count(3).bytes()), -11);
    EXPECT_EQ(boxes.count(), 1u);
    EXPECT_EQ(std::memcmp(&before, &fixture.store, sizeof(before)), 0);
    EXPECT_EQ(fixture.stored_file(0), good);
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"Good"});
}

TEST(ProfileLoading, CreatesAFileThatIsNotThereAndRefusesItAsEmpty)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const std::wstring path = fixture.files.file(L"not there.txt");
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load_path(path), -3);
    boxes.expect_boxes({load_box(
        5581, 7117, L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )")});
    EXPECT_TRUE(file_exists(path));
    EXPECT_EQ(starts.count(), 0);
}

TEST(ProfileLoading, ReportsAFolderALockedFileAndAMissingFolderAsNotOpened)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const std::wstring locked = fixture.files.file(L"locked.txt");
    test_support::write_file(locked, two_programs().bytes());
    const HANDLE lock = CreateFileW(locked.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    for (const std::wstring& path :
         {fixture.files.make_folder(L"folder"), locked, fixture.files.file(L"no folder\\file.txt")}) {
        BoxWatcher boxes;
        EXPECT_EQ(fixture.load_path(path), -2);
        boxes.expect_boxes({load_box(5570, 7095, kNotOpened)});
    }
    CloseHandle(lock);
    EXPECT_EQ(starts.count(), 0);
}

TEST(ProfileLoading, OpensTheFileForReadingSharedWithReadersOnly)
{
    ProfileFixture fixture;
    std::wstring opened;
    const ImportHook<"CreateFileW", decltype(CreateFileW)> hook(
        "kernel32.dll", [&](LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                            DWORD disposition, DWORD attributes, HANDLE pattern) {
            opened = path;
            EXPECT_EQ(access, 0x80000000u);
            EXPECT_EQ(share, 1u);
            EXPECT_EQ(security, nullptr);
            EXPECT_EQ(disposition, 4u);
            EXPECT_EQ(attributes, 0x80u);
            EXPECT_EQ(pattern, nullptr);
            return INVALID_HANDLE_VALUE;
        });
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load_path(L"C:\\some\\profile.txt"), -2);
    EXPECT_EQ(boxes.count(), 1u);
    EXPECT_EQ(opened, L"C:\\some\\profile.txt");
}

TEST(ProfileLoading, RefusesMissingArgumentsNamingThem)
{
    ProfileFixture fixture;
    const HWND window = fixture.window;
    struct {
        HWND window;
        const wchar_t* path;
        LoadedProfiles_STR* store;
        CB_mng_STR* combo;
    } const calls[] = {
        {nullptr, L"x", &fixture.store, &fixture.profiles},
        {window, nullptr, &fixture.store, &fixture.profiles},
        {window, L"x", nullptr, &fixture.profiles},
        {window, L"x", &fixture.store, nullptr},
    };
    for (const auto& call : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(onButton_LoadProfile_clicked(call.window, 1, call.path, call.store, call.combo), -1);
        boxes.expect_boxes({{L"error", spaced_text({L"sources/funcs_layout_windows",
                                                    L"onButton_LoadProfile_clicked", 5470, 7073},
                                                   L"incorrect input:\nhwnd_MW = " + pointer(call.window) +
                                                       L", ptcFilePath_Profile = " + pointer(call.path) +
                                                       L"\np_LoadedProfiles_STR = " + pointer(call.store) +
                                                       L"\np_CB_Profile_mng_STR = " + pointer(call.combo))}});
    }
}

TEST(ProfileLoading, ReadsNothingButTheSignatureOfAFileWithAWrongOne)
{
    ProfileFixture fixture;
    std::vector<DWORD> reads;
    const ImportHook<"ReadFile", decltype(ReadFile)> read(
        "kernel32.dll", [&](HANDLE file, LPVOID bytes, DWORD size, LPDWORD done, LPOVERLAPPED overlapped) {
            reads.push_back(size);
            return read.call_original(file, bytes, size, done, overlapped);
        });
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> blocks("kernel32.dll", kEveryCall, nullptr,
                                                                       ERROR_NOT_ENOUGH_MEMORY);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(two_programs().signature(0, 7, 13).bytes()), -6);
    boxes.expect_boxes({load_box(5629, 7183, L"invalid type of file, signature doesn't coincide")});
    EXPECT_EQ(reads, std::vector<DWORD>{3});
    EXPECT_EQ(blocks.calls(), 0);
}

TEST(ProfileLoading, AllocatesItsBlocksInOrderAndReleasesThem)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const Bytes file = ProfileEncoder()
                           .add_folder(1, 2, 300, 200, u"C:\\windows")
                           .add_folder(1, 2, 300, 200, u"C:\\windows")
                           .add_folder(1, 2, 300, 200, u"C:\\windows")
                           .name(u"Three")
                           .bytes();
    std::vector<SIZE_T> sizes;
    int live = 0;
    ImportHook<"VirtualAlloc", decltype(VirtualAlloc)>* allocations = nullptr;
    ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> allocate(
        "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
            sizes.push_back(size);
            EXPECT_EQ(type, 0x1000u);
            EXPECT_EQ(protection, 4u);
            ++live;
            return allocations->call_original(address, size, type, protection);
        });
    allocations = &allocate;
    ImportHook<"VirtualFree", decltype(VirtualFree)>* releases = nullptr;
    ImportHook<"VirtualFree", decltype(VirtualFree)> release(
        "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type) {
            --live;
            EXPECT_EQ(type, 0x8000u);
            return releases->call_original(address, size, type);
        });
    releases = &release;
    EXPECT_EQ(fixture.load(file), 1);
    EXPECT_EQ(live, 0);
    // The last one holds a path of 32767 units and its terminator.
    EXPECT_EQ(sizes, (std::vector<SIZE_T>{file.size(), 24, 4096, 134'217'728, 24, 24, 24, 12, 65'536}));
}

TEST(ProfileLoading, StoresTheSameFileTwiceWhenItIsLoadedTwice)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const Bytes file = ProfileEncoder().add_folder(1, 2, 300, 200, u"C:\\windows").name(u"Again").bytes();
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), 1);
    EXPECT_EQ(fixture.load(file), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 2u);
    EXPECT_EQ(fixture.stored_file(0), file);
    EXPECT_EQ(fixture.stored_file(1), file);
    EXPECT_EQ(fixture.stored_handle(0, 0), folder.get());
    EXPECT_EQ(fixture.stored_handle(1, 0), folder.get());
    EXPECT_EQ(combo_texts(fixture.profile_combo), (std::vector<std::wstring>{L"Again", L"Again"}));
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[1], 1u);
}

TEST(ProfileLoading, AddsTheLastStoredNameOnceMoreWhenTheStoreIsFull)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    ASSERT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"Last").bytes()), 1);
    fixture.store.uiMax_num_loaded_prfls = 1;

    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"New").bytes()), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text({L"sources/funcs_layout_windows", L"add_profile_data_to_DynMem", 4845, 5266},
                             L"\n\nerror, exceed amount of loaded Profiles, max = 1, already loaded = 1\n"
                             L"Profile will not be added\n")}});
    EXPECT_EQ(starts.starts.size(), 2u);
    EXPECT_EQ(combo_texts(fixture.profile_combo), (std::vector<std::wstring>{L"Last", L"Last"}));
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[1], 0u);
}

TEST(ProfileLoading, AddsTheNameOfThe1024thProfileOnceMoreInsteadOfThe1025th)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    const auto profile = [](const std::u16string& name) {
        return ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(name).bytes();
    };
    const HWND handle = folder;
    const Bytes other = profile(u"Other");
    for (int i = 0; i < 1023; ++i)
        ASSERT_EQ(add_profile_data_to_DynMem(&fixture.store, &handle, &handle,
                                             static_cast<std::uint32_t>(other.size()), other.data(), 1, 0),
                  1);
    ASSERT_EQ(fixture.load(profile(u"The 1024th")), 1);
    const auto before = std::make_unique<LoadedProfiles_STR>(fixture.store);

    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(profile(u"One more")), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text({L"sources/funcs_layout_windows", L"add_profile_data_to_DynMem", 4845, 5266},
                             L"\n\nerror, exceed amount of loaded Profiles, max = 1024, already loaded = "
                             L"1024\nProfile will not be added\n")}});
    EXPECT_EQ(starts.starts.size(), 2u);
    EXPECT_EQ(std::memcmp(before.get(), &fixture.store, sizeof fixture.store), 0);
    EXPECT_EQ(combo_texts(fixture.profile_combo), (std::vector<std::wstring>{L"The 1024th", L"The 1024th"}));
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[0], 1023u);
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[1], 1023u);
}

TEST(ProfileLoading, AddsNoNameWhenTheVeryFirstProfileIsRefused)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    fixture.store.uiSize_DynMem_files = 20;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"New").bytes()), 1);
    EXPECT_EQ(boxes.count(), 1u);
    EXPECT_EQ(starts.starts.size(), 1u);
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(ProfileLoading, StartsTheProfileEvenWhenTheStoreWasNeverSetUp)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"stand-in folder");
    fixture.folders.add(folder, L"C:\\windows");
    std::uint8_t* const area = std::exchange(fixture.store.pc_raw_FilesProfile, nullptr);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"New").bytes()), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text({L"sources/funcs_layout_windows", L"add_profile_data_to_DynMem", 4826, 5234},
                             L"error, incorrect input parameters (fields of STRUCTURE):\n\n"
                             L"uiMax_num_loaded_prfls = 1024, uiSize_DynMem_hwnds_wnds_prfl = 4194304, "
                             L"uiSize_DynMem_files = 33554432, pc_hwnds_wnds_of_prfl = " +
                                 pointer(fixture.store.pc_hwnds_wnds_of_prfl) +
                                 L", pc_raw_FilesProfile = 0000000000000000")},
         {L"error", L"error <- add_profile_data_to_DynMem()"}});
    EXPECT_EQ(boxes.boxes().at(1).owner, nullptr);
    EXPECT_EQ(starts.starts.size(), 1u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
    fixture.store.pc_raw_FilesProfile = area;
}
