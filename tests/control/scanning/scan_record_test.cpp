#include "sources/funcs_layout_windows/scanning/scan_record.h"

#include <gtest/gtest.h>

#include <cstddef>

TEST(ScanRecord, HasItsFieldsInOrder)
{
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, arr1D_ui_LenPath), 0u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, arr1D_uc_flag_FP), 8u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, counter_filled), 16u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, pcTmpBuf_Prg_Folder_Path), 24u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, uiSize_TmpBuf_Path), 32u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, pcDynMem_FullPaths), 40u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, uiMaxLen_inBytes_PrgPath), 48u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, uiMaxLen_inBytes_FolderPath), 52u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, uiMaxLen_inBytes_AllPath), 56u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, pcDynMem_WinHndls), 64u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, pcDynMem_GeomText), 72u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, counter_all), 80u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, counter_valid), 84u);
    EXPECT_EQ(offsetof(STR_ENUM_WNDS_DATA, counter_folders), 88u);
}
