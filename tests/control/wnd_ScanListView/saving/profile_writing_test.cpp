#include "sources/wnd_ScanListView/saving/profile_writing.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::hex;
using test_support::ImportHook;
using test_support::TemporaryFolder;

HANDLE create(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The bytes of a profile of the scan's rows.
Bytes written(const std::vector<std::uint32_t>& rows, const std::wstring& name)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"profile.txt");
    const PreparedRecordFixture prepared(rows, name);
    const HANDLE file = create(path);
    DWORD error = 1;
    EXPECT_EQ(prepared.write(file, &error), 1);
    EXPECT_EQ(error, 0u);
    CloseHandle(file);
    return test_support::read_file(path);
}

// What the arrays of a record of one window hold; its path has at most 14 units.
std::string contents(const STR_RW_PRFL& record)
{
    std::string bytes;
    const std::vector<const void*> arrays = arrays_of(record);
    for (std::size_t i = 0; i < arrays.size(); ++i)
        bytes.append(static_cast<const char*>(arrays[i]), i == 1 ? 1 : i == 7 ? 30 : 4);
    return bytes;
}

constexpr int kFieldsThatFillingNeeds = 13;

// Sets one of the fields of the two records to zero without which the arrays are not filled.
void clear_field_that_filling_needs(int field, STR_RW_PRFL* record, STR_ENUM_WNDS_DATA* scanned)
{
    void** const pointers[kFieldsThatFillingNeeds - 1] = {
        reinterpret_cast<void**>(&record->p_arr1D_ui_indexes_wnds_profile),
        reinterpret_cast<void**>(&record->p_arr1D_uc_flag_Prg_or_Folder),
        reinterpret_cast<void**>(&record->p_arr1D_ui_x),
        reinterpret_cast<void**>(&record->p_arr1D_ui_y),
        reinterpret_cast<void**>(&record->p_arr1D_ui_w),
        reinterpret_cast<void**>(&record->p_arr1D_ui_h),
        reinterpret_cast<void**>(&record->p_arr1D_ui_len_path),
        reinterpret_cast<void**>(&record->p_arr_strz_paths),
        reinterpret_cast<void**>(&scanned->arr1D_uc_flag_FP),
        reinterpret_cast<void**>(&scanned->arr1D_ui_LenPath),
        reinterpret_cast<void**>(&scanned->pcDynMem_GeomText),
        reinterpret_cast<void**>(&scanned->pcDynMem_FullPaths)};
    if (field == kFieldsThatFillingNeeds - 1)
        record->N_wnds_in_profile = 0;
    else
        *pointers[field] = nullptr;
}

// The box that names those fields.
ExpectedBox not_filled_box(const STR_RW_PRFL& record, const STR_ENUM_WNDS_DATA& scanned)
{
    return save_box(
        L"PrepareData_Write_Profile", 1726, 1847,
        L"error, incorrect input parameters:\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = " +
            pointer(record.p_arr1D_ui_indexes_wnds_profile) +
            L"\npSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder = " +
            pointer(record.p_arr1D_uc_flag_Prg_or_Folder) + L"\npSTR_RW_PRFL->p_arr1D_ui_x = " +
            pointer(record.p_arr1D_ui_x) + L"\npSTR_RW_PRFL->p_arr1D_ui_y = " + pointer(record.p_arr1D_ui_y) +
            L"\npSTR_RW_PRFL->p_arr1D_ui_w = " + pointer(record.p_arr1D_ui_w) +
            L"\npSTR_RW_PRFL->p_arr1D_ui_h = " + pointer(record.p_arr1D_ui_h) +
            L"\npSTR_RW_PRFL->p_arr1D_ui_len_path = " + pointer(record.p_arr1D_ui_len_path) +
            L"\npSTR_RW_PRFL->p_arr_strz_paths = " + pointer(record.p_arr_strz_paths) +
            L"\npSTR_RW_PRFL->N_wnds_in_profile = " + std::to_wstring(record.N_wnds_in_profile) +
            L"\npSTR_ENUM_WNDS_DATA->arr1D_uc_flag_FP = " + pointer(scanned.arr1D_uc_flag_FP) +
            L"\npSTR_ENUM_WNDS_DATA->arr1D_ui_LenPath = " + pointer(scanned.arr1D_ui_LenPath) +
            L"\npSTR_ENUM_WNDS_DATA->pcDynMem_GeomText = " + pointer(scanned.pcDynMem_GeomText) +
            L"\npSTR_ENUM_WNDS_DATA->pcDynMem_FullPaths = " + pointer(scanned.pcDynMem_FullPaths));
}

} // namespace

TEST(ProfileWriting, WritesOneProgramIn64Bytes)
{
    const FilledScanFixture scan(
        {{.flag = 1, .x = 1, .y = 2, .width = 3, .height = 4, .path = L"C:\\a.exe"}});
    EXPECT_EQ(hex(written({0}, L"A")),
              "01 00 00 00 01 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00 10 00 00 00 "
              "43 00 3A 00 5C 00 61 00 2E 00 65 00 78 00 65 00 00 00 "
              "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 41 00 00 07 0C");
}

TEST(ProfileWriting, WritesUnalignedFieldsOfThreeWindowsAndNegativeCoordinates)
{
    const std::vector<ScannedWindow> windows{
        {.flag = 1, .x = -8, .y = -1, .width = 640, .height = 480, .path = L"C:\\one.exe"},
        {.flag = 0, .x = 5, .y = 6, .width = 7, .height = 8, .path = L"C:\\folder"},
        {.flag = 1, .path = L"C:\\minimised.exe"}};
    const FilledScanFixture scan(windows);
    const Bytes file = written({0, 1, 2}, L"Three windows");
    EXPECT_EQ(hex(file), hex(profile_of(windows, {0, 1, 2}, u"Three windows")));
    EXPECT_EQ(hex({file.begin() + 4, file.begin() + 11}), "01 00 01 F8 FF FF FF");
}

TEST(ProfileWriting, WritesTheRowsThatTheIndexesName)
{
    const FilledScanFixture scan(ten_windows());
    EXPECT_EQ(hex(written({1, 4, 7, 9}, L"Some")), hex(profile_of(ten_windows(), {1, 4, 7, 9}, u"Some")));
}

TEST(ProfileWriting, WritesAWindowWhosePathWasNotFoundWithAnEmptyOne)
{
    const std::vector<ScannedWindow> windows{{.flag = 1, .x = 1, .path = L"C:\\one.exe"},
                                             {.flag = 0, .x = 2, .path = L""},
                                             {.flag = 1, .x = 3, .path = L"C:\\three.exe"},
                                             {.flag = 0, .x = 4, .path = L""}};
    const FilledScanFixture scan(windows);
    EXPECT_EQ(hex(written({0, 1, 2, 3}, L"N")), hex(profile_of(windows, {0, 1, 2, 3}, u"N")));
    EXPECT_EQ(
        hex(written({1}, L"N")),
        "01 00 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 4E 00 00 07 0C");
}

TEST(ProfileWriting, WritesANameOf256UnitsWhole)
{
    const FilledScanFixture scan(ten_windows());
    const Bytes file = written({2}, std::wstring(256, L'\x0416'));
    EXPECT_EQ(hex(file), hex(profile_of(ten_windows(), {2}, std::u16string(256, u'\x0416'))));
    EXPECT_EQ(file.size(), 7u + 23u + 2u * 2u * std::wstring(L"C:\\p\\xx2.exe").size() + 512u);
}

TEST(ProfileWriting, ChangesNothingButNameAndSizeForAnotherName)
{
    const FilledScanFixture scan(ten_windows());
    const Bytes first = written({0, 1, 2}, L"One");
    const Bytes second = written({0, 1, 2}, L"Another");
    EXPECT_EQ(second.size(), first.size() + 8);
    EXPECT_EQ(hex({first.begin(), first.end() - 9}), hex({second.begin(), second.end() - 17}));
}

TEST(ProfileWriting, WritesEachPartWithOneCallAndFlushesOnce)
{
    const FilledScanFixture scan(ten_windows());
    const PreparedRecordFixture prepared({0, 1, 2}, L"Parts");
    const TemporaryFolder folder;
    const HANDLE file = create(folder.file(L"parts.txt"));
    std::vector<DWORD> parts;
    std::vector<bool> flushed_after_all;
    {
        const ImportHook<"WriteFile", decltype(WriteFile)> write(
            "kernel32.dll", [&](HANDLE, LPCVOID, DWORD bytes, LPDWORD done, LPOVERLAPPED) {
                parts.push_back(bytes);
                *done = bytes;
                return TRUE;
            });
        const ImportHook<"FlushFileBuffers", decltype(FlushFileBuffers)> flush("kernel32.dll", [&](HANDLE) {
            flushed_after_all.push_back(parts.size() == 10);
            return TRUE;
        });
        EXPECT_EQ(prepared.write(file), 1);
    }
    CloseHandle(file);
    const DWORD sum = 2 * (10 + 11 + 12); // C:\p\0.exe, C:\p\x1.exe, C:\p\xx2.exe
    EXPECT_EQ(parts, (std::vector<DWORD>{4, 3, 12, 12, 12, 12, 12, 2 * (sum + 3), 10, 3}));
    EXPECT_EQ(flushed_after_all, std::vector<bool>{true});
}

TEST(ProfileWriting, GoesOnAfterAPartThatFailsAndKeepsTheFirstError)
{
    const FilledScanFixture scan(ten_windows());
    const PreparedRecordFixture prepared({0}, L"x");
    const TemporaryFolder folder;
    const HANDLE file = create(folder.file(L"failing.txt"));
    BoxWatcher boxes;
    {
        int calls = 0;
        const ImportHook<"WriteFile", decltype(WriteFile)> write(
            "kernel32.dll", [&](HANDLE, LPCVOID, DWORD bytes, LPDWORD done, LPOVERLAPPED) -> BOOL {
                *done = bytes;
                SetLastError(++calls == 3 ? ERROR_DISK_FULL : ERROR_CRC);
                return calls != 3 && calls != 5;
            });
        DWORD error = 1;
        EXPECT_EQ(prepared.write(file, &error), 1);
        EXPECT_EQ(error, 112u);
        EXPECT_EQ(calls, 10);
    }
    {
        const ImportHook<"WriteFile", decltype(WriteFile)> write(
            "kernel32.dll", [&](HANDLE, LPCVOID, DWORD bytes, LPDWORD done, LPOVERLAPPED) -> BOOL {
                SetLastError(ERROR_CRC); // left over: a short write has no error of its own
                *done = bytes - 1;
                return TRUE;
            });
        DWORD error = 1;
        EXPECT_EQ(prepared.write(file, &error), 1);
        EXPECT_EQ(error, 112u);
    }
    {
        const FailingImport<"FlushFileBuffers", decltype(FlushFileBuffers)> flush("kernel32.dll", 1, FALSE,
                                                                                  ERROR_WRITE_FAULT);
        DWORD error = 1;
        EXPECT_EQ(prepared.write(file, &error), 1);
        EXPECT_EQ(error, 29u);
    }
    CloseHandle(file);
    DWORD error = 1;
    EXPECT_EQ(prepared.write(INVALID_HANDLE_VALUE, &error), 1);
    EXPECT_EQ(error, 6u);
    boxes.expect_no_boxes();
}

TEST(ProfileWriting, RefusesMissingArgumentsNamingThem)
{
    const FilledScanFixture scan(ten_windows());
    const PreparedRecordFixture prepared({0}, L"x");
    const STR_RW_PRFL& all = prepared.record;
    const auto file = reinterpret_cast<HANDLE>(std::uintptr_t{0x1234});
    const FailingImport<"WriteFile", decltype(WriteFile)> writes("kernel32.dll", -1, TRUE, 0);
    for (int missing = 0; missing < 10; ++missing) {
        SCOPED_TRACE(missing);
        const auto given = [&](int argument, auto value) { return argument == missing ? nullptr : value; };
        const std::uint32_t n = missing == 2 ? 0 : 1;
        const HANDLE handle = given(0, file);
        const STR_RW_PRFL* record = given(1, &all);
        const std::uint8_t* flags = given(3, all.p_arr1D_uc_flag_Prg_or_Folder);
        const std::uint32_t* x = given(4, all.p_arr1D_ui_x);
        const std::uint32_t* y = given(5, all.p_arr1D_ui_y);
        const std::uint32_t* w = given(6, all.p_arr1D_ui_w);
        const std::uint32_t* h = given(7, all.p_arr1D_ui_h);
        const std::uint32_t* lengths = given(8, all.p_arr1D_ui_len_path);
        const std::uint8_t* paths = given(9, all.p_arr_strz_paths);
        BoxWatcher boxes;
        EXPECT_EQ(WriteData_Profile(handle, record, n, flags, x, y, w, h, lengths, paths), -1);
        boxes.expect_boxes(
            {save_box(L"WriteData_Profile", 2204, 2318,
                      L"error, incorrect INPUT parameters:\nhFile_wnds_profile = " + pointer(handle) +
                          L"\npSTR_RW_PRFL = " + pointer(record) + L"\nN_wnds = " + std::to_wstring(n) +
                          L"\np_arr1D_uc_flag_Prg_or_Folder = " + pointer(flags) + L"\np_arr1D_ui_x = " +
                          pointer(x) + L"\np_arr1D_ui_y = " + pointer(y) + L"\np_arr1D_ui_w = " + pointer(w) +
                          L"\np_arr1D_ui_h = " + pointer(h) + L"\np_arr1D_ui_len_path = " + pointer(lengths) +
                          L"\np_arr_strz_paths = " + pointer(paths))});
    }
    EXPECT_EQ(writes.calls(), 0);
}

TEST(ProfileArrays, AreAllocatedInOrderWithTheirSizes)
{
    const FilledScanFixture scan(ten_windows());
    STR_RW_PRFL record{};
    record.N_wnds_in_profile = 7;
    std::vector<SIZE_T> sizes;
    {
        ImportHook<"VirtualAlloc", decltype(VirtualAlloc)>* original = nullptr;
        ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> hook(
            "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
                sizes.push_back(size);
                EXPECT_EQ(type, 0x1000u);
                EXPECT_EQ(protection, 4u);
                return original->call_original(address, size, type, protection);
            });
        original = &hook;
        EXPECT_EQ(DynMemAlloc_wnds_Profile(&record, &scan_record), 1);
    }
    // The longest path has 19 units, 38 bytes.
    EXPECT_EQ(sizes, (std::vector<SIZE_T>{28, 7, 28, 28, 28, 28, 28, 7 * (38 + 1) * 2}));
    EXPECT_EQ(FreeDynMem_wnds_Profile(&record), 1);
}

TEST(ProfileArrays, AreKeptUpToTheOneThatCannotBeAllocated)
{
    const FilledScanFixture scan(ten_windows());
    for (int call = 1; call <= 8; ++call) {
        SCOPED_TRACE(call);
        STR_RW_PRFL record{};
        record.N_wnds_in_profile = 2;
        {
            const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", call, nullptr,
                                                                              ERROR_NOT_ENOUGH_MEMORY);
            BoxWatcher boxes;
            EXPECT_EQ(DynMemAlloc_wnds_Profile(&record, &scan_record), -2);
            boxes.expect_boxes({save_box(L"DynMemAlloc_wnds_Profile", 1547, 1675,
                                         L"function VirtualAlloc() returned error\n\n")});
            EXPECT_EQ(fails.calls(), call);
        }
        const std::vector<const void*> arrays = arrays_of(record);
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(arrays[static_cast<std::size_t>(i)] != nullptr, i < call - 1) << "array " << i;
        FreeDynMem_wnds_Profile(&record);
    }
}

TEST(ProfileArrays, AreRefusedForMissingOrEmptyRecords)
{
    const FilledScanFixture scan(ten_windows());
    STR_RW_PRFL record{};
    record.N_wnds_in_profile = 1;
    STR_ENUM_WNDS_DATA empty{};
    STR_RW_PRFL none{};
    const std::wstring function = L"DynMemAlloc_wnds_Profile";
    const auto null_box = [&](const void* write, const void* read) {
        return save_box(function, 1508, 1631,
                        L"incorrect input parameters: pSTR_RW_PRFL = " + pointer(write) +
                            L"\npSTR_ENUM_WNDS_DATA = " + pointer(read));
    };
    const auto zero_box = [&](const std::wstring& n, const std::wstring& longest) {
        return save_box(function, 1521, 1653,
                        L"incorrect input parameters: pSTR_RW_PRFL->N_wnds_in_profile = " + n +
                            L"\npSTR_ENUM_WNDS_DATA->uiMaxLen_inBytes_AllPath = " + longest);
    };
    BoxWatcher boxes;
    EXPECT_EQ(DynMemAlloc_wnds_Profile(nullptr, &scan_record), -1);
    EXPECT_EQ(DynMemAlloc_wnds_Profile(&record, nullptr), -1);
    EXPECT_EQ(DynMemAlloc_wnds_Profile(&none, &scan_record), -1);
    EXPECT_EQ(DynMemAlloc_wnds_Profile(&record, &empty), -1);
    boxes.expect_boxes({null_box(nullptr, &scan_record), null_box(&record, nullptr), zero_box(L"0", L"38"),
                        zero_box(L"1", L"0")});
    EXPECT_FALSE(has_arrays(record));
}

TEST(ProfileArrays, AreFilledOnlyWithBothRecords)
{
    const FilledScanFixture scan(ten_windows());
    const BoxWatcher boxes;
    STR_RW_PRFL record{};
    EXPECT_EQ(PrepareData_Write_Profile(nullptr, &scan_record), -1);
    EXPECT_EQ(PrepareData_Write_Profile(&record, nullptr), -1);
    const auto box = [&](const void* write, const void* read) {
        return save_box(L"PrepareData_Write_Profile", 1712, 1825,
                        L"incorrect input parameters: pSTR_RW_PRFL = " + pointer(write) +
                            L", pSTR_ENUM_WNDS_DATA = " + pointer(read));
    };
    boxes.expect_boxes({box(nullptr, &scan_record), box(&record, nullptr)});
}

TEST(ProfileArrays, AreFilledOnlyWhenEverythingIsThere)
{
    const FilledScanFixture scan(ten_windows());
    const PreparedRecordFixture prepared({3}, L"x");
    // Another row, so that filling the arrays once more would be seen.
    prepared.record.p_arr1D_ui_indexes_wnds_profile[0] = 4;
    const std::string before = contents(prepared.record);
    for (int field = 0; field < kFieldsThatFillingNeeds; ++field) {
        SCOPED_TRACE(field);
        STR_RW_PRFL record = prepared.record;
        STR_ENUM_WNDS_DATA scanned = scan_record;
        clear_field_that_filling_needs(field, &record, &scanned);
        const BoxWatcher boxes;
        EXPECT_EQ(PrepareData_Write_Profile(&record, &scanned), -1);
        boxes.expect_boxes({not_filled_box(record, scanned)});
        EXPECT_TRUE(contents(prepared.record) == before);
    }
}

TEST(ProfileArrays, AreReleasedAndTheirPointersCleared)
{
    const FilledScanFixture scan(ten_windows());
    PreparedRecordFixture prepared({0, 1}, L"Kept");
    int released = 0;
    {
        ImportHook<"VirtualFree", decltype(VirtualFree)>* original = nullptr;
        ImportHook<"VirtualFree", decltype(VirtualFree)> hook(
            "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type) {
                ++released;
                EXPECT_EQ(type, 0x8000u);
                return original->call_original(address, size, type);
            });
        original = &hook;
        EXPECT_EQ(FreeDynMem_wnds_Profile(&prepared.record), 1);
        EXPECT_EQ(FreeDynMem_wnds_Profile(&prepared.record), 1);
    }
    EXPECT_EQ(released, 8);
    EXPECT_FALSE(has_arrays(prepared.record));
    EXPECT_EQ(prepared.record.N_wnds_in_profile, 2u);
    EXPECT_EQ(prepared.record.ui_len_PrfName_bytes, 8u);
    EXPECT_EQ(std::wstring(prepared.record.tc_PrfName.data(), 4), L"Kept");

    BoxWatcher boxes;
    EXPECT_EQ(FreeDynMem_wnds_Profile(nullptr), -1);
    boxes.expect_boxes({save_box(L"FreeDynMem_wnds_Profile", 2371, 2420,
                                 L"incorrect input parameters: pSTR_RW_PRFL = 0000000000000000")});
}
