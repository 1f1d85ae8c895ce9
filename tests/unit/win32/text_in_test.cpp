#include "sources/win32/text_in.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

namespace
{

TEST(TextIn, EndsAtTheFirstZero)
{
    const std::array<wchar_t, 6> buffer{L'a', L'b', L'\0', L'c', L'\0', L'\0'};
    EXPECT_EQ(text_in(buffer), L"ab");
    EXPECT_EQ(text_in(std::span<const wchar_t>(buffer).subspan(2)), L"");
    EXPECT_EQ(text_in(std::span<const wchar_t>(buffer).subspan(3)), L"c");
}

TEST(TextIn, IsAllOfItWithoutAZero)
{
    const std::array<wchar_t, 3> buffer{L'a', L'b', L'c'};
    EXPECT_EQ(text_in(buffer), L"abc");
    EXPECT_EQ(text_in({}), L"");
}

} // namespace
