// The Modify Cell window's layout and the rules of its edit boxes.
#include "sources/wnd_ModifyCell/modify_cell_layout.h"
#include "sources/wnd_ModifyCell/modify_cell_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <limits>
#include <string>
#include <string_view>

#include "tests/unit/pixels.h"

namespace
{

TEST(ModifyCellLayout, SizesTheWindowFromTheScreen)
{
    EXPECT_EQ(modify_cell_width(1366), 219); // 35 + 184.41
    EXPECT_EQ(modify_cell_height(768), 140); // 25 + 115.2
    EXPECT_EQ(modify_cell_width(1920), 294); // 35 + 259.2
    EXPECT_EQ(modify_cell_height(1080), 187);
    EXPECT_EQ(modify_cell_width(2560), 380); // 35 + 345.6
    EXPECT_EQ(modify_cell_height(1440), 241);
}

struct Row {
    std::int32_t screen_width;
    std::int32_t screen_height;
    std::array<Box, 6> controls; // X, Y, Width, Height, Ok, Cancel
    std::array<Box, 4> labels;
};

TEST(ModifyCellLayout, PlacesControlsAndLabels)
{
    const std::array<Row, 2> rows{
        // Controls 61.47 x 19.2; buttons end 5 before 30 + 184.41.
        Row{.screen_width = 1366,
            .screen_height = 768,
            .controls = {Box{76, 5, 61, 19}, Box{76, 29, 61, 19}, Box{76, 53, 61, 19}, Box{76, 77, 61, 19},
                         Box{148, 5, 61, 19}, Box{148, 29, 61, 19}},
            .labels = {Box{5, 5, 61, 19}, Box{5, 29, 61, 19}, Box{5, 53, 61, 19}, Box{5, 77, 61, 24}}},
        // Controls 86.4 x 27; buttons end 5 before 30 + 259.2.
        Row{.screen_width = 1920,
            .screen_height = 1080,
            .controls = {Box{101, 5, 86, 27}, Box{101, 37, 86, 27}, Box{101, 69, 86, 27},
                         Box{101, 101, 86, 27}, Box{198, 5, 86, 27}, Box{198, 37, 86, 27}},
            .labels = {Box{5, 5, 86, 27}, Box{5, 37, 86, 27}, Box{5, 69, 86, 27}, Box{5, 101, 86, 32}}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.screen_width);
        const ModifyCellLayout layout = compute_modify_cell_layout(row.screen_width, row.screen_height);
        EXPECT_EQ(layout.button_width, row.controls[0].width);
        EXPECT_EQ(layout.button_height, row.controls[0].height);
        for (std::size_t i = 0; i < row.controls.size(); ++i)
            EXPECT_EQ(box_of(layout.controls[i]), row.controls[i]) << "control " << i;
        for (std::size_t i = 0; i < row.labels.size(); ++i)
            EXPECT_EQ(box_of(layout.labels[i]), row.labels[i]) << "label " << i;
    }
}

TEST(ModifyCellRules, ConvertsTheNumberThatLeads)
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

TEST(ModifyCellRules, TakesTheNearestNumberOf32Bits)
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

TEST(ModifyCellRules, LetsTheLastCharacterAloneDecide)
{
    for (const std::wstring_view valid : {L"250", L"0", L"-8", L"12a3", L"abc1", L"- 5", L"1.5", L" 7"})
        EXPECT_TRUE(is_edit_valid(valid, is_alphanumeric, is_alphabetic)) << valid.data();
    for (const std::wstring_view refused : {L"", L"123a", L"12-", L"12 ", L"a", L"-", L"5."})
        EXPECT_FALSE(is_edit_valid(refused, is_alphanumeric, is_alphabetic)) << refused.data();
}

TEST(ModifyCellRules, AsksTheTestsGivenAboutTheLastCharacter)
{
    // Numerals of other scripts are digits when the system says so.
    const auto only_cjk_nine = [](wchar_t character) { return character == L'\u4E5D'; };
    const auto nothing = [](wchar_t) { return false; };
    EXPECT_TRUE(is_edit_valid(L"x\u4E5D", only_cjk_nine, nothing));
    EXPECT_FALSE(is_edit_valid(L"\u4E5Dx", only_cjk_nine, nothing));
    EXPECT_FALSE(is_edit_valid(L"x\u4E5D", only_cjk_nine, only_cjk_nine));
}

} // namespace
