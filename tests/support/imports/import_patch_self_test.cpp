#include "tests/support/imports/import_patch.h"

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"

using test_support::FailingImport;
using test_support::ImportHook;
using test_support::ImportPatch;
using test_support::kEveryCall;

namespace
{

// A function keeps the address it has read from the import table, so calls before and after a change of the
// table must not be in one.
[[gnu::noinline]] DWORD tick_count()
{
    return GetTickCount();
}

[[gnu::noinline]] HDC screen_context()
{
    return GetDC(nullptr);
}

} // namespace

TEST(ImportPatch, PutsAFunctionInPlaceOfAnImportedOneAsLongAsItLives)
{
    {
        const ImportPatch patch(
            "KERNEL32.dll", "GetTickCount", +[]() -> DWORD { return 5; });
        EXPECT_EQ(tick_count(), 5u);
    }
    EXPECT_NE(tick_count(), 5u);
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
    const HDC first = screen_context();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(screen_context(), nullptr);
    EXPECT_EQ(GetLastError(), 1234u);
    const HDC third = screen_context();
    EXPECT_NE(third, nullptr);
    EXPECT_EQ(fails.calls(), 3);
    ReleaseDC(nullptr, first);
    ReleaseDC(nullptr, third);
}

TEST(FailingImport, FailsEveryCallOfItsThreadAndLeavesOtherThreadsAlone)
{
    const FailingImport<"GetDC", decltype(GetDC)> fails("user32.dll", kEveryCall, nullptr, 1234);
    HDC elsewhere = nullptr;
    test_support::Background other_thread([&] { elsewhere = screen_context(); });
    other_thread.join();
    EXPECT_NE(elsewhere, nullptr);
    EXPECT_EQ(screen_context(), nullptr);
    EXPECT_EQ(screen_context(), nullptr);
    ReleaseDC(nullptr, elsewhere);
}
