// Which windows are dealt with, and how their titles are shortened.
#include "sources/funcs_layout_windows/open_windows/window_filter.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace
{

bool excluded(std::wstring class_name)
{
    lower_case_ascii(class_name);
    return is_excluded_class(class_name);
}

TEST(ExcludedClasses, AreTenNames)
{
    for (const wchar_t* name : {L"tooltips_class32", L"tooltips_class", L"sysshadow", L"regedit_regedit",
                                L"#32770", L"taskmanagerwindow", L"applicationframewindow",
                                L"windows.ui.core.corewindow", L"progman", L"button"})
        EXPECT_TRUE(excluded(name)) << name;
}

TEST(ExcludedClasses, AreFoundInAnyCaseOfAsciiLetters)
{
    for (const wchar_t* name :
         {L"Button", L"BUTTON", L"ProgMan", L"SysShadow", L"RegEdit_RegEdit", L"TaskManagerWindow",
          L"ApplicationFrameWindow", L"TOOLTIPS_CLASS32", L"Windows.UI.Core.CoreWindow"})
        EXPECT_TRUE(excluded(name)) << name;
}

TEST(ExcludedClasses, AreComparedWhole)
{
    for (const wchar_t* name : {L"", L"butto", L"buttons", L" button", L"button ", L"tooltips_class3",
                                L"tooltips_class321", L"#32771", L"#3277", L"32770", L"Notepad",
                                L"prg_wnds_layout", L"List of Windows", L"CabinetWClass", L"Shell_TrayWnd"})
        EXPECT_FALSE(excluded(name)) << name;
    EXPECT_FALSE(excluded(std::wstring(L"button\0x", 8)));
}

TEST(ExcludedClasses, LeaveOtherLettersAsTheyAre)
{
    EXPECT_FALSE(excluded(L"bu\u0422\u0422on"));                // Cyrillic
    EXPECT_FALSE(excluded(L"\uFF42utton"));                     // full-width b
    EXPECT_FALSE(excluded(L"ta\u017Fkmanagerwindow"));          // long s, an s when folded
    EXPECT_FALSE(excluded(L"tas\u212Amanagerwindow"));          // Kelvin sign, a k when folded
    EXPECT_FALSE(excluded(L"w\u0130ndows.ui.core.corewindow")); // dotted capital I
}

TEST(LowerCaseAscii, ChangesOnlyAToZ)
{
    std::wstring text = L"AZ az @[`{ 09_#. \u00C4\u0416\uFF21\u0130";
    lower_case_ascii(text);
    EXPECT_EQ(text, L"az az @[`{ 09_#. \u00C4\u0416\uFF21\u0130");
}

TEST(ExplorerImage, IsToldByTheLastTwelveCharacters)
{
    for (const wchar_t* path : {L"C:\\Windows\\explorer.exe", L"C:\\WINDOWS\\Explorer.EXE",
                                L"c:\\windows\\EXPLORER.EXE", L"explorer.exe", L"C:\\bin\\my-explorer.exe"})
        EXPECT_TRUE(is_explorer_image(path)) << path;
    for (const wchar_t* path :
         {L"C:\\Windows\\explorer.ex", L"C:\\Windows\\explorer.exe2", L"C:\\Windows\\explorer.exe\\a.exe",
          L"C:\\Windows\\iexplore.exe", L"C:\\Windows\\expl0rer.exe", L"C:\\Windows\\explorer_exe"})
        EXPECT_FALSE(is_explorer_image(path)) << path;
}

TEST(ExplorerImage, IsNeverAPathOfLessThanTwelveCharacters)
{
    const std::wstring_view whole = L"explorer.exe";
    for (std::size_t units = 0; units < whole.size(); ++units) {
        // Each in a block of its own: nothing before it may be read.
        EXPECT_FALSE(is_explorer_image(std::wstring(whole.substr(units + 1)))) << units;
        EXPECT_FALSE(is_explorer_image(std::wstring(whole.substr(0, units)))) << units;
    }
}

TEST(ExplorerImage, FoldsAsciiLettersOnly)
{
    EXPECT_FALSE(is_explorer_image(L"C:\\Windows\\explorer\uFF0Eexe"));
    EXPECT_FALSE(is_explorer_image(L"C:\\Windows\\\u0415xplorer.exe"));
}

// The slot's 49 units after a title was written into it.
std::wstring slot_of(std::wstring_view title, std::size_t announced_units)
{
    std::array<wchar_t, kTitle_slot_units> slot;
    slot.fill(L'?');
    shorten_title(title, announced_units, slot);
    return {slot.begin(), slot.end()};
}

// The title shown, with the rest of its slot checked to be zero.
std::wstring shortened(std::wstring_view title, std::size_t announced_units)
{
    const std::wstring slot = slot_of(title, announced_units);
    const std::size_t length = std::wstring_view(slot).find(L'\0');
    EXPECT_NE(length, std::wstring::npos) << "not terminated";
    if (length == std::wstring::npos)
        return slot;
    EXPECT_EQ(slot.find_first_not_of(L'\0', length), std::wstring::npos) << "not zero behind the title";
    return slot.substr(0, length);
}

std::wstring shortened(std::wstring_view title)
{
    return shortened(title, title.size());
}

// A title in which every character tells its place.
std::wstring title_of(std::size_t units)
{
    std::wstring title;
    for (std::size_t i = 0; i < units; ++i)
        title.push_back(static_cast<wchar_t>(0x4E00 + i));
    return title;
}

TEST(ShortenedTitle, HasASlotOf49Characters)
{
    EXPECT_EQ(kTitle_slot_units, 49U);
}

TEST(ShortenedTitle, IsTheWholeTitleUpTo48Characters)
{
    EXPECT_EQ(shortened(L""), L"");
    EXPECT_EQ(shortened(L"a"), L"a");
    EXPECT_EQ(shortened(L"Untitled - Notepad"), L"Untitled - Notepad");
    EXPECT_EQ(shortened(title_of(47)), title_of(47));
    EXPECT_EQ(shortened(L"123456789 123456789 123456789 123456789 12345678"),
              L"123456789 123456789 123456789 123456789 12345678");
}

TEST(ShortenedTitle, KeepsBeginningAndEndOfALongerOne)
{
    EXPECT_EQ(shortened(L"123456789 123456789 123456789 123456789 123456789"),
              L"123456789 123456789 12345... 123456789 123456789");
    EXPECT_EQ(shortened(title_of(200)), title_of(25) + L"..." + title_of(200).substr(180));
    EXPECT_EQ(shortened(title_of(999)), title_of(25) + L"..." + title_of(999).substr(979));
}

TEST(ShortenedTitle, Has48CharactersWhenShortened)
{
    for (const std::size_t units : {49U, 50U, 51U, 100U, 999U})
        EXPECT_EQ(shortened(title_of(units)).size(), 48U) << units;
}

TEST(ShortenedTitle, EndsWhereTheSystemSaysTheTitleEnds)
{
    // The title was read with 60 characters; by the time its length is asked for it has 50.
    EXPECT_EQ(shortened(title_of(60), 50), title_of(25) + L"..." + title_of(50).substr(30));
}

TEST(ShortenedTitle, UsesOnlyTheUnitsThatWereRead)
{
    // Longer than the buffer that titles are read into.
    EXPECT_EQ(shortened(title_of(999), 5000), title_of(25) + L"..." + title_of(999).substr(979));
    // The title has become longer meanwhile.
    EXPECT_EQ(shortened(title_of(40), 60), title_of(40));
    EXPECT_EQ(shortened(title_of(48), 49), title_of(48));
    EXPECT_EQ(shortened(L"", 100), L"");
}

TEST(ShortenedTitle, StaysInItsSlotWhenNoLengthIsReported)
{
    EXPECT_EQ(shortened(title_of(20), 0), title_of(20));
    EXPECT_EQ(shortened(title_of(48), 0), title_of(48));
    EXPECT_EQ(shortened(title_of(60), 0), title_of(48));
    EXPECT_EQ(shortened(title_of(60), 48), title_of(48));
}

} // namespace
