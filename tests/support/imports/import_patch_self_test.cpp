#include "tests/support/imports/import_patch.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"

using test_support::FailingImport;
using test_support::ImportHook;
using test_support::ImportPatch;
using test_support::kEveryCall;

TEST(ImportPatch, PutsAFunctionInPlaceOfAnImportedOneAsLongAsItLives)
{
    {
        const ImportPatch patch(
            "KERNEL32.dll", "GetTickCount", +[]() -> DWORD { return 5; });
        EXPECT_EQ(GetTickCount(), 5u);
    }
    EXPECT_NE(GetTickCount(), 5u);
}

TEST(ImportPatch, SaysWhichFunctionIsNotImported)
{
    try {
        const ImportPatch patch(
            "kernel32.dll", "NoSuchFunction", +[] {});
        FAIL() << "nothing thrown";
    } catch (const test_support::Failure& failure) {
        EXPECT_STREQ(failure.what(), "this executable does not import NoSuchFunction from kernel32.dll");
    }
}

// MSVC's library of comctl32 tells the number alone, and the one that this executable is linked with as well.
TEST(ImportPatch, FindsAFunctionThatIsImportedByItsNumber)
{
    EXPECT_FALSE(SetWindowSubclass(nullptr, nullptr, 0, 0));
    {
        const ImportPatch patch(
            "comctl32.dll", "SetWindowSubclass#410",
            +[](HWND, SUBCLASSPROC, UINT_PTR, DWORD_PTR) -> BOOL { return TRUE; });
        EXPECT_TRUE(SetWindowSubclass(nullptr, nullptr, 0, 0));
    }
    EXPECT_FALSE(SetWindowSubclass(nullptr, nullptr, 0, 0));
    EXPECT_THROW(ImportPatch(
                     "comctl32.dll", "SetWindowSubclass", +[] {}),
                 test_support::Failure);
}

TEST(ImportHook, HandsTheArgumentsToTheTest)
{
    DWORD slept = 0;
    const ImportHook<"Sleep", decltype(Sleep)> hook("kernel32.dll", [&](DWORD time) { slept += time; });
    Sleep(100'000);
    Sleep(1);
    EXPECT_EQ(slept, 100'001u);
}

TEST(FailingImport, FailsTheCallOfThatNumberOnly)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", 2, nullptr, 1234);
    const HDC first = GetDC(nullptr);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(GetDC(nullptr), nullptr);
    EXPECT_EQ(GetLastError(), 1234u);
    const HDC third = GetDC(nullptr);
    EXPECT_NE(third, nullptr);
    EXPECT_EQ(fails.calls(), 3);
    ReleaseDC(nullptr, first);
    ReleaseDC(nullptr, third);
}

TEST(FailingImport, FailsEveryCallOfItsThreadAndLeavesOtherThreadsAlone)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", kEveryCall, nullptr, 1234);
    HDC elsewhere = nullptr;
    test_support::Background other_thread([&] { elsewhere = GetDC(nullptr); });
    other_thread.join();
    EXPECT_NE(elsewhere, nullptr);
    EXPECT_EQ(GetDC(nullptr), nullptr);
    EXPECT_EQ(GetDC(nullptr), nullptr);
    ReleaseDC(nullptr, elsewhere);
}
