#include "sources/win32/owners/kernel_handle.h"

#include <gtest/gtest.h>

namespace
{

constexpr DWORD kKept = 0x2A;

bool is_open(HANDLE handle)
{
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != FALSE;
}

} // namespace

TEST(KernelHandle, IsClosedAtTheEndOfItsScope)
{
    HANDLE const event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    ASSERT_TRUE(is_open(event));
    {
        const KernelHandle owner(event);
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner.get(), event);
        SetLastError(kKept);
    }
    EXPECT_EQ(GetLastError(), kKept);
    EXPECT_FALSE(is_open(event));
}

TEST(KernelHandle, StaysOpenWhenItIsLeftOpen)
{
    HANDLE const event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    {
        KernelHandle owner(event);
        owner.leave_open();
        EXPECT_FALSE(owner);
    }
    EXPECT_TRUE(is_open(event));
    CloseHandle(event);
}

TEST(KernelHandle, OfNothingIsNotClosed)
{
    SetLastError(kKept);
    {
        const KernelHandle owner(nullptr);
        EXPECT_FALSE(owner);
    }
    EXPECT_EQ(GetLastError(), kKept);
}
