#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"

using namespace test_support;

namespace
{

TEST(Files, APathOfTheBuildMachineIsOnDriveZ)
{
    EXPECT_EQ(windows_path("/tmp/x/y.exe"), L"Z:\\tmp\\x\\y.exe");
    EXPECT_EQ(windows_path("C:/x/y.exe"), L"C:\\x\\y.exe");
}

TEST(Files, ATemporaryFolderIsDeletedWithItsContents)
{
    std::wstring path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        write_file(folder.make_folder(L"deep\\deeper") + L"\\file", {0x00, 0x07, 0x0C});
        EXPECT_EQ(hex(read_file(folder.file(L"deep\\deeper\\file"))), "00 07 0C");
    }
    EXPECT_FALSE(folder_exists(path));
}

} // namespace
