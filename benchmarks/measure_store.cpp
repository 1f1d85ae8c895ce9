#include "benchmarks/measures.h"

#include <cstring>
#include <string>

#include "benchmarks/bare/bare_store.h"
#include "benchmarks/results.h"
#include "sources/funcs_layout_windows/scanning/scan_record.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/wnd_ScanListView/saving/profile_writing.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/waiting.h"

using namespace test_support;

// A scan of 5,000 windows cannot be driven from outside, so this measures the program's own routines, from
// the ticked rows to the closed file, in this process.

namespace benchmark
{

namespace
{

constexpr wchar_t kPath[] = L"C:\\Program Files\\Some Company\\Some Program\\program.exe";
constexpr std::size_t kPath_units = std::size(kPath) - 1;

// A scan of that many windows.
class Scanned
{
public:
    explicit Scanned(std::uint32_t windows)
    {
        record_.counter_valid = windows;
        record_.counter_filled = windows;
        record_.uiMaxLen_inBytes_PrgPath = kPath_units * sizeof(wchar_t);
        record_.uiMaxLen_inBytes_AllPath = record_.uiMaxLen_inBytes_PrgPath;
        record_.arr1D_ui_LenPath = allocate_block<std::uint32_t>(windows * sizeof(std::uint32_t));
        record_.arr1D_uc_flag_FP = allocate_block<std::uint8_t>(windows);
        record_.pcDynMem_GeomText = allocate_block<std::uint8_t>(windows * kGeomText_slot_bytes);
        record_.pcDynMem_WinHndls = allocate_block<HWND>(windows * sizeof(HWND));
        record_.pcDynMem_FullPaths = allocate_block<std::uint8_t>(windows * path_slot_bytes(&record_));
        for (std::uint32_t slot = 0; slot < windows; ++slot) {
            *geometry_entry(&record_,
                            slot) = {.title = nullptr, .x = 20, .y = 30, .height = 300, .width = 400};
            store_path(&record_, slot, kPath, kPath_units);
            record_.arr1D_uc_flag_FP[slot] = 1;
        }
    }
    ~Scanned() { release_scan_blocks(&record_); }
    Scanned(const Scanned&) = delete;
    Scanned& operator=(const Scanned&) = delete;

    const STR_ENUM_WNDS_DATA* record() const { return &record_; }

private:
    STR_ENUM_WNDS_DATA record_{};
};

bool store(const STR_ENUM_WNDS_DATA* scan, const std::wstring& path)
{
    STR_RW_PRFL profile{};
    profile.N_wnds_in_profile = scan->counter_valid;
    constexpr wchar_t kName[] = L"Office";
    std::memcpy(profile.tc_PrfName.data(), kName, sizeof kName);
    profile.ui_len_PrfName_bytes = 6 * sizeof(wchar_t);
    DynMemAlloc_wnds_Profile(&profile, scan);
    for (std::uint32_t i = 0; i < scan->counter_valid; ++i)
        profile.p_arr1D_ui_indexes_wnds_profile[i] = i;
    PrepareData_Write_Profile(&profile, scan);
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD error = 0;
    WriteData_Profile(file, &profile, profile.N_wnds_in_profile, profile.p_arr1D_uc_flag_Prg_or_Folder,
                      profile.p_arr1D_ui_x, profile.p_arr1D_ui_y, profile.p_arr1D_ui_w, profile.p_arr1D_ui_h,
                      profile.p_arr1D_ui_len_path, profile.p_arr_strz_paths, &error);
    CloseHandle(file);
    FreeDynMem_wnds_Profile(&profile);
    return error == ERROR_SUCCESS;
}

template <typename Work> void measure_side(const char* side, std::size_t entries, Work work)
{
    const Stopwatch watch;
    const bool stored = work();
    print_sample("store_ms", entries, side, watch.milliseconds());
    if (!stored)
        throw Failure("a profile was not stored");
}

} // namespace

void measure_store(const std::vector<Extent>& extents)
{
    for (const auto& [size, repetitions] : extents) {
        print_progress("storing of " + std::to_string(size) + " entries");
        const auto entries = static_cast<std::uint32_t>(size);
        const Scanned scanned(entries);
        const TemporaryFolder folder;
        const std::wstring one = folder.file(L"one.txt");
        const std::wstring other = folder.file(L"other.txt");
        for (unsigned repetition = 0; repetition < repetitions; ++repetition) {
            for (unsigned turn = 0; turn < 2; ++turn) {
                if ((repetition + turn) % 2 == 0)
                    measure_side("wendlow", entries, [&] { return store(scanned.record(), one); });
                else
                    measure_side("bare", entries, [&] { return bare::store(other.c_str(), entries, kPath); });
            }
            if (read_file(one) != read_file(other))
                throw Failure("the two files differ");
            DeleteFileW(one.c_str());
            DeleteFileW(other.c_str());
        }
    }
}

} // namespace benchmark
