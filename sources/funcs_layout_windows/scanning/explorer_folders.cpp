#include "sources/funcs_layout_windows/scanning/explorer_folders.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "sources/funcs_layout_windows/open_windows/shell_folder_walk.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/funcs_layout_windows/scanning/scanning_errors.h"

namespace
{

struct FolderMeasure {
    std::uint32_t count;
    std::size_t longest_units;
};

bool measure_folder(HWND, std::wstring_view path, void* context)
{
    if (is_scan_abandoned()) // Re-entrancy: a call to the shell lets messages in.
        return false;
    auto* measure = static_cast<FolderMeasure*>(context);
    ++measure->count;
    measure->longest_units = std::max(measure->longest_units, path.size());
    return true;
}

struct FolderFilling {
    STR_ENUM_WNDS_DATA* record;
    std::int32_t result;
};

bool blocks_present(const STR_ENUM_WNDS_DATA* pSTR)
{
    return pSTR->pcDynMem_WinHndls != nullptr && pSTR->pcDynMem_FullPaths != nullptr &&
           pSTR->arr1D_uc_flag_FP != nullptr;
}

bool fill_folder(HWND hwnd, std::wstring_view path, void* context)
{
    if (is_scan_abandoned()) // Re-entrancy: a call to the shell lets messages in.
        return false;
    auto* filling = static_cast<FolderFilling*>(context);
    if (hwnd == nullptr) {
        filling->result = report<kFolders02NoHandle>(hwnd);
        return false;
    }
    for (std::uint32_t slot = 0; slot < filling->record->counter_valid; ++slot) {
        if (filling->record->pcDynMem_WinHndls[slot] == hwnd)
            store_path(filling->record, slot, path.data(), path.size());
    }
    return true;
}

} // namespace

std::int32_t GetCurrentExplorerFolders_01(STR_ENUM_WNDS_DATA* pSTR_params)
{
    if (pSTR_params == nullptr)
        return report<kFolders01NullRecord>(pSTR_params);

    ShellWindowsList list;
    const HRESULT created = open_shell_windows(&list);
    if (!list.windows)
        return kFolders_no_list_counting;

    FolderMeasure measure{};
    if (SUCCEEDED(created))
        walk_shell_windows(&list, count_shell_windows(list), measure_folder, &measure);
    pSTR_params->counter_folders = measure.count;
    pSTR_params->uiMaxLen_inBytes_FolderPath =
        static_cast<std::uint32_t>(measure.longest_units * sizeof(wchar_t));
    return 1;
}

std::int32_t GetCurrentExplorerFolders_02(STR_ENUM_WNDS_DATA* pSTR_params)
{
    if (pSTR_params == nullptr)
        return report<kFolders02NullRecord>(pSTR_params);
    if (!blocks_present(pSTR_params))
        return report<kFolders02MissingBlock>(pSTR_params->pcDynMem_WinHndls, pSTR_params->pcDynMem_FullPaths,
                                              pSTR_params->arr1D_uc_flag_FP);

    ShellWindowsList list;
    const HRESULT created = open_shell_windows(&list);
    if (!list.windows)
        return report<kFolders02NoList>(created);
    if (FAILED(created))
        return 1;

    const long count = count_shell_windows(list);
    if (count == 0) {
        pSTR_params->counter_folders = 0;
        pSTR_params->uiMaxLen_inBytes_FolderPath = 0;
        return 1;
    }
    FolderFilling filling{.record = pSTR_params, .result = 1};
    walk_shell_windows(&list, count, fill_folder, &filling);
    return filling.result;
}
