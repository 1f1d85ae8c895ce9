#include "sources/funcs_layout_windows/profiles/loaded_profiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "tests/control/fixtures/profile_fixture.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::ProfileEncoder;

constexpr wchar_t kHandlesFull[] =
    L"\n\nerror, exceed amount of DynMem for storage arrays of hwnds of Profile windows\n"
    L"Profile will not be added\n";
constexpr wchar_t kFilesFull[] = L"\n\nerror, exceed amount of DynMem for storage files of Profile\n"
                                 L"Profile will not be added\n";
constexpr wchar_t kNoName[] = L"0 == flag_offset_PrfName_beg_found";

ExpectedBox limit_box(int site, const std::wstring& detail)
{
    return store_box(L"add_profile_data_to_DynMem", site, 5266, detail);
}

HWND handle(std::uintptr_t value)
{
    return reinterpret_cast<HWND>(value);
}

// A store of its own, set up and released.
struct Store {
    Store() { EXPECT_EQ(preInitOnce_onLoadProfile(&record), 1); }
    ~Store() { finishWork_onLoadProfile(&record); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    std::int32_t add(const Bytes& file, std::uint32_t n_folders, std::uint32_t n_programs)
    {
        std::vector<HWND> programs;
        std::vector<HWND> folders;
        for (std::uintptr_t i = 0; i < n_folders + n_programs; ++i) {
            programs.push_back(handle(0x1000 + i));
            folders.push_back(handle(0x2000 + i));
        }
        return add_profile_data_to_DynMem(&record, programs.data(), folders.data(),
                                          static_cast<std::uint32_t>(file.size()), file.data(), n_folders,
                                          n_programs);
    }
    HWND stored(std::size_t slot) const
    {
        HWND found = nullptr;
        std::memcpy(&found, record.pc_hwnds_wnds_of_prfl + slot * 8, sizeof(found));
        return found;
    }
    std::wstring name(std::uint32_t profile) const
    {
        const std::uint32_t begin = record.arr1D_ui_off_PrfName_beg[profile];
        const std::uint32_t end = record.arr1D_ui_off_PrfName_last[profile] + 2;
        std::wstring text((end - begin) / 2, L'\0');
        std::memcpy(text.data(), record.pc_raw_FilesProfile + begin, text.size() * 2);
        return text;
    }

    LoadedProfiles_STR record{};
};

Bytes small_profile(const std::u16string& name = u"A")
{
    return ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\a.exe").name(name).bytes();
}

} // namespace

TEST(LoadedProfiles, ClearTheirOffsetsBeforeTheFirstProfile)
{
    Store store;
    LoadedProfiles_STR& record = store.record;
    const auto offsets = {&record.arr1D_ui_off_hwnds_beg, &record.arr1D_ui_off_hwnds_end,
                          &record.arr1D_ui_off_file_beg, &record.arr1D_ui_off_file_end};
    for (PerProfile* offset : offsets)
        offset->fill(77);
    const Bytes file = small_profile();
    ASSERT_EQ(store.add(file, 0, 1), 1);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_beg[0], 0u);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_end[0], 7u);
    EXPECT_EQ(record.arr1D_ui_off_file_beg[0], 0u);
    EXPECT_EQ(record.arr1D_ui_off_file_end[0], file.size() - 1);
    for (const PerProfile* offset : offsets)
        EXPECT_EQ(std::count(offset->begin() + 1, offset->end(), 0u), 1023);
    // Only before the first one.
    record.arr1D_ui_off_file_end[9] = 77;
    ASSERT_EQ(store.add(file, 0, 1), 1);
    EXPECT_EQ(record.arr1D_ui_off_file_end[9], 77u);
}

TEST(LoadedProfiles, KeepTheHandleSlotsOfEntriesOfAnotherKindAndOfNoEntry)
{
    Store store;
    // The left edge of the first, which stands behind the kind flags, looks like a program's.
    const Bytes file = ProfileEncoder()
                           .add({.flag = 7, .x = 1, .path = u"C:\\o"})
                           .add_program(0, 0, 1, 1, u"C:\\p.exe")
                           .name(u"N")
                           .bytes();
    const HWND kept = handle(0x7777);
    for (const std::size_t slot : {0u, 1u, 2u})
        std::memcpy(store.record.pc_hwnds_wnds_of_prfl + slot * 8, &kept, sizeof kept);
    const HWND programs[] = {handle(0x1000), handle(0x1001), handle(0x1002)};
    const HWND folders[] = {handle(0x2000), handle(0x2001), handle(0x2002)};
    ASSERT_EQ(add_profile_data_to_DynMem(&store.record, programs, folders,
                                         static_cast<std::uint32_t>(file.size()), file.data(), 0, 2),
              1);
    EXPECT_EQ(store.stored(0), kept);
    EXPECT_EQ(store.stored(1), handle(0x1001));
    EXPECT_EQ(store.stored(2), kept);
}

TEST(LoadedProfiles, AreStoredOneBehindTheOtherWithoutGaps)
{
    Store store;
    const Bytes first = ProfileEncoder()
                            .add_folder(0, 0, 1, 1, u"C:\\f")
                            .add_program(0, 0, 1, 1, u"C:\\p.exe")
                            .add({.flag = 7, .path = u"C:\\o"})
                            .name(u"First")
                            .bytes();
    const Bytes second = small_profile(u"2nd");
    EXPECT_EQ(store.add(first, 1, 2), 1);
    EXPECT_EQ(store.add(second, 0, 1), 1);

    const LoadedProfiles_STR& record = store.record;
    EXPECT_EQ(record.uiN_loaded_prfls, 2u);
    EXPECT_EQ(record.arr1D_ui_size_file[0], first.size());
    EXPECT_EQ(record.arr1D_ui_N_Folders[0], 1u);
    EXPECT_EQ(record.arr1D_ui_N_Programs[0], 2u);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_beg[0], 0u);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_end[0], 23u);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_beg[1], 24u);
    EXPECT_EQ(record.arr1D_ui_off_hwnds_end[1], 31u);
    EXPECT_EQ(record.arr1D_ui_off_file_beg[0], 0u);
    EXPECT_EQ(record.arr1D_ui_off_file_end[0], first.size() - 1);
    EXPECT_EQ(record.arr1D_ui_off_file_beg[1], first.size());
    EXPECT_EQ(record.arr1D_ui_off_file_end[1], first.size() + second.size() - 1);
    EXPECT_EQ(Bytes(record.pc_raw_FilesProfile, record.pc_raw_FilesProfile + first.size()), first);
    EXPECT_EQ(Bytes(record.pc_raw_FilesProfile + first.size(),
                    record.pc_raw_FilesProfile + first.size() + second.size()),
              second);
    // The folder's handle, the program's, none for the other kind, then the second profile's.
    EXPECT_EQ(store.stored(0), handle(0x2000));
    EXPECT_EQ(store.stored(1), handle(0x1001));
    EXPECT_EQ(store.stored(2), nullptr);
    EXPECT_EQ(store.stored(3), handle(0x1000));
    EXPECT_EQ(store.name(0), L"First");
    EXPECT_EQ(store.name(1), L"2nd");
    EXPECT_EQ(record.arr1D_ui_off_PrfName_last[1], first.size() + second.size() - 5);
}

TEST(LoadedProfiles, FindTheNameBehindAFileOfOddSize)
{
    Store store;
    // 23 bytes per entry: one entry makes an odd size, and the next copy starts at an odd offset.
    const Bytes odd = ProfileEncoder()
                          .add_folder(0, 0, 1, 1, u"C:\\f")
                          .add_folder(0, 0, 1, 1, u"C:\\g")
                          .name(u"Odd")
                          .bytes();
    ASSERT_EQ(odd.size() % 2, 1u);
    EXPECT_EQ(store.add(odd, 2, 0), 1);
    EXPECT_EQ(store.add(odd, 2, 0), 1);
    EXPECT_EQ(store.name(0), L"Odd");
    EXPECT_EQ(store.name(1), L"Odd");
}

TEST(LoadedProfiles, KeepANameOf256Units)
{
    Store store;
    EXPECT_EQ(store.add(small_profile(std::u16string(256, u'n')), 0, 1), 1);
    EXPECT_EQ(store.name(0), std::wstring(256, L'n'));
}

TEST(LoadedProfiles, WarnWhenAFileIsTooShortToHoldAName)
{
    // Sizes of 7 and fewer: the search comes to the start of the area. Below 4 even the last byte is missing.
    for (const std::uint32_t size : {1u, 2u, 3u, 4u, 5u, 6u, 7u}) {
        SCOPED_TRACE(size);
        Store store;
        const Bytes file(size, 0x41);
        BoxWatcher boxes;
        EXPECT_EQ(store.add(file, 1, 0), 1);
        std::vector<ExpectedBox> expected;
        if (size < 4)
            expected.push_back({L"warning,error", L"uiOff_LastByte < 3"});
        expected.push_back({L"warning,error", kNoName});
        boxes.expect_boxes(expected);
        EXPECT_EQ(store.record.arr1D_ui_off_PrfName_beg[0], 0u);
        EXPECT_EQ(store.record.uiN_loaded_prfls, 1u);
    }
}

TEST(LoadedProfiles, SearchForTheNameBeyondTheirOwnCopy)
{
    Store store;
    ASSERT_EQ(store.add(small_profile(u"ab"), 0, 1), 1);
    const auto first_size = static_cast<std::uint32_t>(small_profile(u"ab").size());
    // Without any zero unit of its own: the search runs back into the first profile's copy.
    BoxWatcher boxes;
    EXPECT_EQ(store.add(Bytes(40, 0x41), 1, 0), 1);
    boxes.expect_no_boxes();
    EXPECT_LT(store.record.arr1D_ui_off_PrfName_beg[1], first_size);
    EXPECT_GT(store.record.arr1D_ui_off_PrfName_beg[1], 0u);
}

TEST(LoadedProfiles, RefuseTheProfileBeyondTheLast)
{
    Store store;
    const Bytes file = small_profile();
    for (int i = 0; i < 1024; ++i)
        ASSERT_EQ(store.add(file, 0, 1), 1);
    EXPECT_EQ(store.name(1023), L"A");
    const auto before = std::make_unique<LoadedProfiles_STR>(store.record);
    BoxWatcher boxes;
    EXPECT_EQ(store.add(file, 0, 1), 2);
    boxes.expect_boxes(
        {limit_box(4845, L"\n\nerror, exceed amount of loaded Profiles, max = 1024, already loaded = 1024\n"
                         L"Profile will not be added\n")});
    EXPECT_EQ(std::memcmp(before.get(), &store.record, sizeof(store.record)), 0);
}

TEST(LoadedProfiles, RefuseWhatTheAreasCannotTake)
{
    const Bytes file = small_profile();
    const auto size = static_cast<std::uint32_t>(file.size());
    struct {
        const char* what;
        bool one_stored;
        std::uint32_t handles_bytes;
        std::uint32_t files_bytes;
        int site; // 0 = fits
        const wchar_t* detail;
    } const rows[] = {
        {"handles, first", false, 7, size, 4869, kHandlesFull},
        {"handles before files", false, 7, 1, 4869, kHandlesFull},
        {"files, first", false, 8, size - 1, 4912, kFilesFull},
        {"both just fit, first", false, 8, size, 0, nullptr},
        {"handles, next", true, 15, 2 * size, 4890, kHandlesFull},
        {"files, next", true, 16, 2 * size - 1, 4933, kFilesFull},
        {"both just fit, next", true, 16, 2 * size, 0, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Store store;
        if (row.one_stored) {
            ASSERT_EQ(store.add(file, 0, 1), 1);
        }
        store.record.uiSize_DynMem_hwnds_wnds_prfl = row.handles_bytes;
        store.record.uiSize_DynMem_files = row.files_bytes;
        const auto before = std::make_unique<LoadedProfiles_STR>(store.record);
        BoxWatcher boxes;
        EXPECT_EQ(store.add(file, 0, 1), row.site == 0 ? 1 : 2);
        if (row.site == 0) {
            boxes.expect_no_boxes();
            continue;
        }
        boxes.expect_boxes({limit_box(row.site, row.detail)});
        EXPECT_EQ(std::memcmp(before.get(), &store.record, sizeof(store.record)), 0);
    }
}

TEST(LoadedProfiles, RefuseAFileLargerThanTheFreePartOfTheWholeArea)
{
    Store store;
    Bytes file = ProfileEncoder().add_folder(0, 0, 1, 1, u"C:\\f").name(u"Big").bytes();
    file.insert(file.end() - 9, 33'554'432 - file.size(), 0);
    ASSERT_EQ(file.size(), 33'554'432u);
    EXPECT_EQ(store.add(file, 1, 0), 1);
    EXPECT_EQ(store.name(0), L"Big");
    BoxWatcher boxes;
    EXPECT_EQ(store.add(small_profile(), 0, 1), 2);
    boxes.expect_boxes({limit_box(4933, kFilesFull)});
    EXPECT_EQ(store.record.uiN_loaded_prfls, 1u);
}

TEST(LoadedProfiles, RefuseMissingArgumentsNamingThem)
{
    Store store;
    HWND handles[1] = {};
    const std::uint8_t file[10] = {};
    struct {
        LoadedProfiles_STR* store;
        const HWND* programs;
        const HWND* folders;
        std::uint32_t size;
        const std::uint8_t* file;
        std::uint32_t n_folders;
        std::uint32_t n_programs;
    } const calls[] = {
        {nullptr, handles, handles, 10, file, 1, 0},
        {&store.record, nullptr, handles, 10, file, 1, 0},
        {&store.record, handles, nullptr, 10, file, 1, 0},
        {&store.record, handles, handles, 0, file, 1, 0},
        {&store.record, handles, handles, 10, nullptr, 0, 1},
        {&store.record, handles, handles, 10, file, 0, 0},
    };
    for (const auto& call : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(add_profile_data_to_DynMem(call.store, call.programs, call.folders, call.size, call.file,
                                             call.n_folders, call.n_programs),
                  -1);
        boxes.expect_boxes({store_box(
            L"add_profile_data_to_DynMem", 4809, 5202,
            L"error, incorrect input parameters:\n\np_LoadedProfiles_STR = " + pointer(call.store) +
                L", pc_arr1D_hwnd_Programs_only = " + pointer(call.programs) +
                L", pc_arr1D_hwnd_Folders_only = " + pointer(call.folders) + L", pc_raw_FileProfile = " +
                pointer(call.file) + L", size_FileProfile = " + std::to_wstring(call.size) +
                L", uiN_Folders = " + std::to_wstring(call.n_folders) + L", uiN_Programs = " +
                std::to_wstring(call.n_programs))});
    }
    EXPECT_EQ(store.record.uiN_loaded_prfls, 0u);
}

TEST(LoadedProfiles, RefuseAProfileBeforeTheyAreSetUp)
{
    LoadedProfiles_STR never{};
    HWND handles[1] = {};
    const std::uint8_t file[10] = {};
    BoxWatcher boxes;
    EXPECT_EQ(add_profile_data_to_DynMem(&never, handles, handles, 10, file, 1, 0), -2);
    boxes.expect_boxes(
        {store_box(L"add_profile_data_to_DynMem", 4826, 5234,
                   L"error, incorrect input parameters (fields of STRUCTURE):\n\nuiMax_num_loaded_prfls = 0, "
                   L"uiSize_DynMem_hwnds_wnds_prfl = 0, uiSize_DynMem_files = 0, pc_hwnds_wnds_of_prfl = "
                   L"0000000000000000, pc_raw_FilesProfile = 0000000000000000")});
}
