#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"

using namespace test_support;

namespace
{

TEST(Waiting, NamesWhatDidNotHappen)
{
    try {
        wait_until([] { return false; }, 20, "the impossible");
        FAIL() << "it did not wait for the condition";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "waited 20 ms in vain for the impossible");
    }
}

TEST(Waiting, ABackgroundReportsItsFailureWhenJoined)
{
    Background work([] { throw Failure("gone wrong"); });
    EXPECT_THROW(work.join(), Failure);
}

} // namespace
