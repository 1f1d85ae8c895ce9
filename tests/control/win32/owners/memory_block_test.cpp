#include "sources/win32/owners/memory_block.h"

#include <gtest/gtest.h>

#include "tests/support/imports/import_patch.h"

using test_support::FailingImport;
using test_support::ImportHook;

namespace
{

constexpr DWORD kKept = 0x2A;

SIZE_T committed_bytes(const void* address)
{
    MEMORY_BASIC_INFORMATION region{};
    VirtualQuery(address, &region, sizeof region);
    return region.State == MEM_COMMIT ? region.RegionSize : 0;
}

} // namespace

TEST(MemoryBlock, IsZeroFilledAndGoneWithItsScope)
{
    const wchar_t* address = nullptr;
    {
        const MemoryBlock<wchar_t> block(3000);
        ASSERT_TRUE(block);
        address = block.get();
        EXPECT_EQ(committed_bytes(address), 8192u); // 6,000 bytes, in whole pages
        EXPECT_EQ(address[0], L'\0');
        EXPECT_EQ(address[2999], L'\0');
        SetLastError(kKept);
    }
    EXPECT_EQ(GetLastError(), kKept);
    EXPECT_EQ(committed_bytes(address), 0u);
}

TEST(MemoryBlock, IsNullWithoutMemoryAndReleasesNothing)
{
    int released = 0;
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> no_memory("kernel32.dll", 1, nullptr,
                                                                          ERROR_NOT_ENOUGH_MEMORY);
    const ImportHook<"VirtualFree", decltype(VirtualFree)> release("kernel32.dll",
                                                                   [&](LPVOID, SIZE_T, DWORD) {
                                                                       ++released;
                                                                       return TRUE;
                                                                   });
    {
        const MemoryBlock<wchar_t> block(3000);
        EXPECT_FALSE(block);
        EXPECT_EQ(block.get(), nullptr);
    }
    EXPECT_EQ(released, 0);
}

TEST(LockedMemory, IsUnlockedAtTheEndOfItsScope)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 16);
    {
        const LockedMemory locked(memory);
        EXPECT_NE(locked.get(), nullptr);
        EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 1u);
        SetLastError(kKept);
    }
    EXPECT_EQ(GetLastError(), kKept);
    EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 0u);
    GlobalFree(memory);
}

TEST(LockedMemory, IsNullForAHandleOfNothing)
{
    const LockedMemory locked(nullptr);
    EXPECT_EQ(locked.get(), nullptr);
}
