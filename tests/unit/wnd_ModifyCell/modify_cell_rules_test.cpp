// The rules of Modify Cell's edit boxes.
#include "sources/wnd_ModifyCell/modify_cell_rules.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cwctype>
#include <limits>
#include <string>
#include <string_view>

namespace
{

TEST(ModifyCellRules, ConvertTheLeadingNumber)
{
    struct Case {
        const wchar_t* text;
        std::int32_t number;
    };
    for (const Case& wanted :
         {Case{L"250", 250}, Case{L"-8", -8}, Case{L"+7", 7}, Case{L"0", 0}, Case{L"007", 7},
          Case{L" \t\r\n12", 12}, Case{L"12a3", 12}, Case{L"123a", 123}, Case{L"12 34", 12}, Case{L"1.9", 1},
          Case{L"0x10", 0}, Case{L"", 0}, Case{L"a1", 0}, Case{L"-", 0}, Case{L"--5", 0}, Case{L"+-5", 0},
          Case{L"- 5", 0}, Case{L"   ", 0}}) {
        EXPECT_EQ(leading_number(wanted.text), wanted.number) << '"' << wanted.text << '"';
    }
}

TEST(ModifyCellRules, TakeTheNearestNumberOf32Bits)
{
    EXPECT_EQ(leading_number(L"2147483647"), 2147483647);
    EXPECT_EQ(leading_number(L"2147483648"), 2147483647);
    EXPECT_EQ(leading_number(L"-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(leading_number(L"-2147483649"), std::numeric_limits<std::int32_t>::min());
    // As long as an edit box's text gets.
    EXPECT_EQ(leading_number(std::wstring(49, L'9').c_str()), 2147483647);
    EXPECT_EQ(leading_number((L"-" + std::wstring(48, L'9')).c_str()),
              std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(leading_number((std::wstring(48, L'0') + L"5").c_str()), 5);
}

bool is_alphanumeric(wchar_t character)
{
    return std::iswalnum(static_cast<std::wint_t>(character)) != 0;
}
bool is_alphabetic(wchar_t character)
{
    return std::iswalpha(static_cast<std::wint_t>(character)) != 0;
}

TEST(ModifyCellRules, CheckOnlyTheLastCharacter)
{
    for (const std::wstring_view valid : {L"250", L"0", L"-8", L"12a3", L"abc1", L"- 5", L"1.5", L" 7"})
        EXPECT_TRUE(is_edit_valid(valid, is_alphanumeric, is_alphabetic)) << valid.data();
    for (const std::wstring_view refused : {L"", L"123a", L"12-", L"12 ", L"a", L"-", L"5."})
        EXPECT_FALSE(is_edit_valid(refused, is_alphanumeric, is_alphabetic)) << refused.data();
}

TEST(ModifyCellRules, ApplyTheGivenTestsToTheLastCharacter)
{
    // Numerals of other scripts are digits when the system says so.
    const auto only_cjk_nine = [](wchar_t character) { return character == L'\u4E5D'; };
    const auto nothing = [](wchar_t) { return false; };
    EXPECT_TRUE(is_edit_valid(L"x\u4E5D", only_cjk_nine, nothing));
    EXPECT_FALSE(is_edit_valid(L"\u4E5Dx", only_cjk_nine, nothing));
    EXPECT_FALSE(is_edit_valid(L"x\u4E5D", only_cjk_nine, only_cjk_nine));
}

} // namespace
