#include "sources/wnd_ScanListView/saving/profile_writing.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "sources/profile_file/profile_file.h"
#include "sources/win32/owners/memory_block.h"
#include "sources/wnd_ScanListView/saving/saving_errors.h"

namespace
{

// Writes parts one after the other and remembers the first failure.
struct FileWriter {
    HANDLE file;
    DWORD error; // of the first part that failed
};

void write_part(FileWriter* writer, const void* bytes, std::size_t size_bytes)
{
    const auto wanted = static_cast<DWORD>(size_bytes);
    DWORD written = 0;
    DWORD error = ERROR_SUCCESS;
    if (WriteFile(writer->file, bytes, wanted, &written, nullptr) == FALSE)
        error = GetLastError();
    else if (written != wanted)
        error = ERROR_DISK_FULL; // A short write leaves no code of its own.
    if (writer->error == ERROR_SUCCESS)
        writer->error = error;
}

// A file system that has no flushing is no failure.
void flush(FileWriter* writer)
{
    if (FlushFileBuffers(writer->file) != FALSE)
        return;
    const DWORD error = GetLastError();
    if (writer->error == ERROR_SUCCESS && error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED)
        writer->error = error;
}

bool arrays_present(const STR_RW_PRFL* record)
{
    return record->p_arr1D_ui_indexes_wnds_profile != nullptr &&
           record->p_arr1D_uc_flag_Prg_or_Folder != nullptr && record->p_arr1D_ui_x != nullptr &&
           record->p_arr1D_ui_y != nullptr && record->p_arr1D_ui_w != nullptr &&
           record->p_arr1D_ui_h != nullptr && record->p_arr1D_ui_len_path != nullptr &&
           record->p_arr_strz_paths != nullptr;
}

// Copies window `k` of the scan into element `i` of the record, its path to `offset` bytes in the path area.
// Returns the offset after it.
std::size_t copy_window(const STR_RW_PRFL* record, std::uint32_t i, const STR_ENUM_WNDS_DATA* scan,
                        std::uint32_t k, std::size_t offset)
{
    const GeomEntry_STR* entry = geometry_entry(scan, k);
    const std::uint32_t path_bytes = scan->arr1D_ui_LenPath[k];
    record->p_arr1D_uc_flag_Prg_or_Folder[i] = scan->arr1D_uc_flag_FP[k];
    record->p_arr1D_ui_x[i] = static_cast<std::uint32_t>(entry->x);
    record->p_arr1D_ui_y[i] = static_cast<std::uint32_t>(entry->y);
    record->p_arr1D_ui_w[i] = static_cast<std::uint32_t>(entry->width);
    record->p_arr1D_ui_h[i] = static_cast<std::uint32_t>(entry->height);
    record->p_arr1D_ui_len_path[i] = path_bytes;
    // Quirk: only one byte of the terminator is copied, so the copy and the advance differ; the other byte is
    // the area's zero fill, and the file is the same.
    std::memcpy(record->p_arr_strz_paths + offset, path_slot(scan, k), std::size_t{path_bytes} + 1);
    return offset + path_bytes + profile_file::kTerminator_bytes;
}

} // namespace

std::int32_t DynMemAlloc_wnds_Profile(STR_RW_PRFL* pSTR_RW_PRFL,
                                      const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA)
{
    if (pSTR_RW_PRFL == nullptr || pSTR_ENUM_WNDS_DATA == nullptr)
        return report<kAllocProfileInput>(pSTR_RW_PRFL, pSTR_ENUM_WNDS_DATA);
    if (pSTR_RW_PRFL->N_wnds_in_profile == 0 || pSTR_ENUM_WNDS_DATA->uiMaxLen_inBytes_AllPath == 0)
        return report<kAllocProfileEmpty>(pSTR_RW_PRFL->N_wnds_in_profile,
                                          pSTR_ENUM_WNDS_DATA->uiMaxLen_inBytes_AllPath);

    const std::size_t n = pSTR_RW_PRFL->N_wnds_in_profile;
    const std::size_t numbers_bytes = n * sizeof(std::uint32_t);
    const auto allocate = [](auto*& block, std::size_t size_bytes) {
        block = allocate_block<std::remove_reference_t<decltype(*block)>>(size_bytes);
        return block != nullptr;
    };
    const bool allocated = allocate(pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder, n) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_ui_x, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_ui_y, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_ui_w, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_ui_h, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr1D_ui_len_path, numbers_bytes) &&
                           allocate(pSTR_RW_PRFL->p_arr_strz_paths, n * path_slot_bytes(pSTR_ENUM_WNDS_DATA));
    return allocated ? 1 : report<kAllocProfileMemory>();
}

std::int32_t PrepareData_Write_Profile(STR_RW_PRFL* pSTR_RW_PRFL,
                                       const STR_ENUM_WNDS_DATA* pSTR_ENUM_WNDS_DATA)
{
    STR_RW_PRFL* record = pSTR_RW_PRFL;
    const STR_ENUM_WNDS_DATA* scan = pSTR_ENUM_WNDS_DATA;
    if (record == nullptr || scan == nullptr)
        return report<kPrepareProfileInput>(record, scan);
    if (!arrays_present(record) || record->N_wnds_in_profile == 0 || scan->arr1D_uc_flag_FP == nullptr ||
        scan->arr1D_ui_LenPath == nullptr || scan->pcDynMem_GeomText == nullptr ||
        scan->pcDynMem_FullPaths == nullptr)
        return report<kPrepareProfileField>(
            record->p_arr1D_ui_indexes_wnds_profile, record->p_arr1D_uc_flag_Prg_or_Folder,
            record->p_arr1D_ui_x, record->p_arr1D_ui_y, record->p_arr1D_ui_w, record->p_arr1D_ui_h,
            record->p_arr1D_ui_len_path, record->p_arr_strz_paths, record->N_wnds_in_profile,
            scan->arr1D_uc_flag_FP, scan->arr1D_ui_LenPath, scan->pcDynMem_GeomText,
            scan->pcDynMem_FullPaths);

    std::size_t offset = 0;
    for (std::uint32_t i = 0; i < record->N_wnds_in_profile; ++i)
        offset = copy_window(record, i, scan, record->p_arr1D_ui_indexes_wnds_profile[i], offset);
    return 1;
}

std::int32_t WriteData_Profile(HANDLE hFile_wnds_profile, const STR_RW_PRFL* pSTR_RW_PRFL,
                               std::uint32_t N_wnds, const std::uint8_t* p_arr1D_uc_flag_Prg_or_Folder,
                               const std::uint32_t* p_arr1D_ui_x, const std::uint32_t* p_arr1D_ui_y,
                               const std::uint32_t* p_arr1D_ui_w, const std::uint32_t* p_arr1D_ui_h,
                               const std::uint32_t* p_arr1D_ui_len_path, const std::uint8_t* p_arr_strz_paths,
                               DWORD* p_error)
{
    if (hFile_wnds_profile == nullptr || pSTR_RW_PRFL == nullptr || N_wnds == 0 ||
        p_arr1D_uc_flag_Prg_or_Folder == nullptr || p_arr1D_ui_x == nullptr || p_arr1D_ui_y == nullptr ||
        p_arr1D_ui_w == nullptr || p_arr1D_ui_h == nullptr || p_arr1D_ui_len_path == nullptr ||
        p_arr_strz_paths == nullptr)
        return report<kWriteProfileInput>(hFile_wnds_profile, pSTR_RW_PRFL, N_wnds,
                                          p_arr1D_uc_flag_Prg_or_Folder, p_arr1D_ui_x, p_arr1D_ui_y,
                                          p_arr1D_ui_w, p_arr1D_ui_h, p_arr1D_ui_len_path, p_arr_strz_paths);

    std::uint64_t sum_len_bytes = 0;
    for (std::uint32_t i = 0; i < N_wnds; ++i)
        sum_len_bytes += p_arr1D_ui_len_path[i];
    const std::size_t numbers_bytes = std::size_t{N_wnds} * profile_file::kNumber_bytes;

    FileWriter writer{.file = hFile_wnds_profile, .error = ERROR_SUCCESS};
    write_part(&writer, &N_wnds, sizeof N_wnds);
    write_part(&writer, p_arr1D_uc_flag_Prg_or_Folder, N_wnds);
    for (const std::uint32_t* numbers :
         {p_arr1D_ui_x, p_arr1D_ui_y, p_arr1D_ui_w, p_arr1D_ui_h, p_arr1D_ui_len_path})
        write_part(&writer, numbers, numbers_bytes);
    write_part(&writer, p_arr_strz_paths, profile_file::size_of_path_area(N_wnds, sum_len_bytes));
    write_part(&writer, pSTR_RW_PRFL->tc_PrfName.data(), pSTR_RW_PRFL->ui_len_PrfName_bytes);
    write_part(&writer, profile_file::kSignature.data(), profile_file::kSignature.size());
    flush(&writer);
    if (p_error != nullptr)
        *p_error = writer.error;
    return 1;
}

std::int32_t FreeDynMem_wnds_Profile(STR_RW_PRFL* pSTR_RW_PRFL)
{
    if (pSTR_RW_PRFL == nullptr)
        return report<kFreeProfileInput>(pSTR_RW_PRFL);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile);
    release_block(pSTR_RW_PRFL->p_arr1D_uc_flag_Prg_or_Folder);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_x);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_y);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_w);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_h);
    release_block(pSTR_RW_PRFL->p_arr1D_ui_len_path);
    release_block(pSTR_RW_PRFL->p_arr_strz_paths);
    return 1;
}
