#include "tools/wendlow_profile/system/text.h"

#include <gtest/gtest.h>

namespace
{

using namespace profile_tool;

const std::u16string kHigh{char16_t{0xD83D}};
const std::u16string kLow{char16_t{0xDE00}};

TEST(ProfileToolText, ReadsUnitsLowByteFirstAndIgnoresAnOddByte)
{
    EXPECT_EQ(units_of(Bytes{0x41, 0x00, 0x16, 0x04, 0x7F}), u"A\u0416");
    EXPECT_EQ(bytes_of(u"A\u0416"), (Bytes{0x41, 0x00, 0x16, 0x04}));
}

TEST(ProfileToolText, GoesToUtf8AndBack)
{
    EXPECT_EQ(utf8_of(u"a\u00E9\u4E2D\U0001F600"), "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80");
    EXPECT_EQ(utf16_of("a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"), u"a\u00E9\u4E2D\U0001F600");
    EXPECT_EQ(utf8_of(kHigh + u"x"), "\xEF\xBF\xBDx");
}

TEST(ProfileToolText, TakesNoBytesThatAreNoUtf8)
{
    for (const char* bytes : {"\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x80\x80", "\xED\xA0\x80",
                              "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"})
        EXPECT_EQ(utf16_of(bytes), std::nullopt) << bytes;
}

TEST(ProfileToolText, EscapesWhatCannotBePrinted)
{
    EXPECT_EQ(shown(u"C:\\\u4E2D\\a b.exe"), "C:\\\xE4\xB8\xAD\\a b.exe");
    EXPECT_EQ(shown(kHigh + kLow), "\xF0\x9F\x98\x80");
    EXPECT_EQ(shown(kLow + kHigh), "<U+DE00><U+D83D>");
    EXPECT_EQ(shown(u"a\u001B[31m\u202Egpj\u200B\uFFFF"), "a<U+001B>[31m<U+202E>gpj<U+200B><U+FFFF>");
}

TEST(ProfileToolText, ShowsBytesThatAreNoUtf8)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(shown("a\xD0\x96.txt"sv), "a\xD0\x96.txt");
    EXPECT_EQ(shown("\xFF\xD0-\xED\xA0\x80"sv), "<FF><D0>-<ED><A0><80>");
    EXPECT_EQ(shown("a\x1B[31m\n\xE2\x80\xAE\xC2\x9B"sv), "a<U+001B>[31m<U+000A><U+202E><U+009B>");
    EXPECT_EQ(valid_utf8("a\n\xD0\x96\xFF\xD0"), "a\n\xD0\x96\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(ProfileToolText, ComparesNamesWithoutCase)
{
    EXPECT_EQ(without_case(u"C:\\Az~.Exe"), u"C:\\AZ~.EXE");
    EXPECT_EQ(without_case(u"\u0436\u00E9\u00FF"), u"\u0416\u00C9\u0178");
    // Other letters than those of ASCII stay apart from those.
    EXPECT_EQ(without_case(u"\u0131\u017F"), u"\u0131\u017F");
    EXPECT_EQ(without_case(kHigh + u"\u4E2D"), kHigh + u"\u4E2D");
}

TEST(ProfileToolText, WritesAndReadsHexadecimal)
{
    EXPECT_EQ(hex_of(Bytes{0x00, 0x07, 0xAC}), "0007AC");
    EXPECT_EQ(bytes_of_hex("0007aC"), (Bytes{0x00, 0x07, 0xAC}));
    EXPECT_EQ(bytes_of_hex(""), Bytes());
    for (const char* text : {"0", "0g", "G0", " 00", "00 "})
        EXPECT_EQ(bytes_of_hex(text), std::nullopt) << text;
}

} // namespace
