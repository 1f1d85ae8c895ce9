#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/error_sources.h"
#include "sources/main_prg/main_errors.h"
#include "sources/wnd_ModifyCell/modify_cell_errors.h"
#include "sources/wnd_ProfileName/profile_name_errors.h"
#include "sources/wnd_ScanListView/saving/error_sources.h"
#include "tests/control/errors/listed_reports.h"
#include "tests/support/imports/import_patch.h"

// Every report of the program is shown by a test. Which one is written here, row by row; whenever that test
// runs, it fails unless it really showed the row. The same goes for every call that shows an error of the
// system.

using test_support::ImportPatch;

namespace
{

struct ShownBy {
    const ErrorSource* source;
    std::uint32_t site;
    std::string_view test; // Suite.Test of this executable
};

// clang-format off
const ShownBy kShownBy[] = {
    {&kSource_main, 241, "MessageLoop.TellsThatThereAreNoMessagesAndGoesOnUntilItIsEnded"},
    {&kSource_main, 402, "MainWindowCreation.ReportsEveryControlThatCannotBeMade"},
    {&kSource_main, 431, "MainWindowCreation.ReportsEveryControlThatCannotBeMade"},
    {&kSource_main, 512, "MainWindowCreation.ReportsEveryControlThatCannotBeMade"},
    {&kSource_main, 563, "MainWindowCreation.GoesOnWithoutAFontWhenThereIsNoDeviceContext"},
    {&kSource_main, 580, "MainWindowCreation.KeepsItsButtonsWithoutRoomForTheirText"},
    {&kSource_main, 604, "MainWindowCreation.GoesOnWithoutAFontWhenItCannotBeMade"},
    {&kSource_main, 652, "MainWindowCreation.ReportsTheThreeResultsOfComThatMeanNoCom"},
    {&kSource_main, 888, "MainWindowCommands.ReportAFailedScan"},
    {&kSource_main, 951, "MainWindowCommands.TellTheResultOfAFailedLoad"},
    {&kSource_main, 934, "MainWindowCommands.LoadWithoutTheStore"},
    {&kSource_main, 1107, "MainWindow.SetsTheStoreUpOnceEvenWhenThatFails"},
    {&kSource_main, 1001, "MainWindowCommands.ShowTheAboutBox"},
    {&kSource_main, 1015, "MainWindowCommands.ShowTheReservedOnesAsBytes"},
    {&kSource_main, 1022, "MainWindowCommands.LeaveTheProfileListAloneForTheReservedOneOfItsNumber"},
    {&kSource_main, 1029, "MainWindowCommands.ShowTheReservedOnesAsBytes"},
    {&kSource_main, 1036, "MainWindowCommands.ShowTheReservedOnesAsBytes"},
    {&kSource_main, 1043, "MainWindowCommands.ShowTheReservedOnesAsBytes"},
    {&kSource_main, 1050, "MainWindowCommands.ShowTheReservedOnesAsBytes"},

    {&kSource_layout_windows, 2861, "Fonts.ReportsAMissingFaceNameAndMakesAFontAllTheSame"},
    {&kSource_layout_windows, 2912, "Fonts.RefusesBadInput"},
    {&kSource_layout_windows, 3024, "Fonts.RefusesBadInput"},
    {&kSource_layout_windows, 3151, "Figures.TakesALineWithoutLengthForAnError"},
    {&kSource_layout_windows, 3214, "Figures.RefusesAMiniatureWithoutWindowContextOrSize"},
    {&kSource_layout_windows, 1491, "MainResizing.RefusesNullArgumentsInUnreadableWords"},
    {&kSource_layout_windows, 3552, "MainPainting.RefusesNullArguments"},
    {&kSource_layout_windows, 118, "WindowEnumeration.RefusesANullRecord"},
    {&kSource_layout_windows, 251, "WindowEnumeration.EndsInEitherPassWhenAPathCannotBeRead"},
    {&kSource_layout_windows, 437, "WindowEnumeration.RefusesANullRecord"},
    {&kSource_layout_windows, 452, "WindowEnumeration.RefusesARecordWithAMissingBlock"},
    {&kSource_layout_windows, 618, "WindowEnumeration.EndsInEitherPassWhenAPathCannotBeRead"},
    {&kSource_layout_windows, 1802, "ExplorerFolders.RefuseANullRecord"},
    {&kSource_layout_windows, 2038, "ExplorerFolders.RefuseANullRecord"},
    {&kSource_layout_windows, 2053, "ExplorerFolders.RefuseARecordWithAMissingBlock"},
    {&kSource_layout_windows, 2095, "ExplorerFolders.GoOnWithoutTheShellsListWhenCounting"},
    {&kSource_layout_windows, 2216, "ExplorerFolders.StopAtAWindowWithoutHandleWhenFilling"},
    {&kSource_layout_windows, 906, "ScanCommand.RefusesNullArguments"},
    {&kSource_layout_windows, 921, "ScanCommand.RefusesAPathBufferOfNoSizeAndKeepsTheList"},
    {&kSource_layout_windows, 988, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1017, "ScanCommand.ReportsAFailedEnumerationAndLeavesNoListOpen"},
    {&kSource_layout_windows, 1049, "ScanCommand.ShowsTheInfoBoxWhenNoPathCanBeHad"},
    {&kSource_layout_windows, 1072, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1089, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1106, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1123, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1140, "ScanCommand.ReportsEachBlockThatCannotBeHad"},
    {&kSource_layout_windows, 1168, "ScanCommand.ReportsAFailedEnumerationAndLeavesNoListOpen"},

    {&kSource_profiles, 9672, "ComboSelection.RefusesMissingArgumentsTheProfileListUnreadably"},
    {&kSource_profiles, 9777, "ProfileLoading.TellsThatTheStoreHasNoNameToShow"},
    {&kSource_profiles, 9792, "ProfileCombo.RefusesTheThirtyThirdName"},
    {&kSource_profiles, 9841, "ProfileCombo.KeepsTheEntryOfANameThatTheListRefuses"},
    {&kSource_profiles, 9907, "ProfileCombo.RefusesMissingArguments"},
    {&kSource_profiles, 9925, "ProfileCombo.DeletesNothingWithoutASelectionOrWithoutNames"},
    {&kSource_profiles, 9938, "ProfileCombo.ReportsANameThatTheListDoesNotDelete"},
    {&kSource_profiles, 10044, "ActionCombo.RefusesMissingArguments"},
    {&kSource_profiles, 10063, "ActionCombo.ReportsEachTextThatCannotBeInsertedAndGoesOn"},
    {&kSource_profiles, 10182, "ComboSelection.RefusesMissingArgumentsTheProfileListUnreadably"},
    {&kSource_profiles, 10278, "Apply.RefusesMissingArgumentsNamingThem"},
    {&kSource_profiles, 10291, "Apply.AsksForAnActionBeforeAnythingElse"},
    {&kSource_profiles, 10304, "Apply.AsksForAProfile"},
    {&kSource_profiles, 10472, "Apply.RestoresNothingFromAMissingStoreOrOneWithoutFiles"},
    {&kSource_profiles, 10480, "Apply.RestoresNothingFromAMissingStoreOrOneWithoutFiles"},
    {&kSource_profiles, 4505, "LoadedProfiles.RefuseANullStore"},
    {&kSource_profiles, 4539, "LoadedProfiles.ReportAnAreaThatCannotBeAllocatedAndKeepTheOneBefore"},
    {&kSource_profiles, 4557, "LoadedProfiles.ReportAnAreaThatCannotBeAllocatedAndKeepTheOneBefore"},
    {&kSource_profiles, 4666, "LoadedProfiles.RefuseANullStore"},
    {&kSource_profiles, 4809, "LoadedProfiles.RefuseMissingArgumentsNamingThem"},
    {&kSource_profiles, 4826, "LoadedProfiles.RefuseAProfileBeforeTheyAreSetUp"},
    {&kSource_profiles, 4845, "LoadedProfiles.RefuseTheProfileBeyondTheLast"},
    {&kSource_profiles, 4869, "LoadedProfiles.RefuseWhatTheAreasCannotTake"},
    {&kSource_profiles, 4890, "LoadedProfiles.RefuseWhatTheAreasCannotTake"},
    {&kSource_profiles, 4912, "LoadedProfiles.RefuseWhatTheAreasCannotTake"},
    {&kSource_profiles, 4933, "LoadedProfiles.RefuseAFileLargerThanTheFreePartOfTheWholeArea"},
    {&kSource_profiles, 5087, "LoadedProfiles.WarnWhenAFileIsTooShortToHoldAName"},
    {&kSource_profiles, 5131, "LoadedProfiles.WarnWhenAFileIsTooShortToHoldAName"},
    {&kSource_profiles, 5470, "ProfileLoading.RefusesMissingArgumentsNamingThem"},
    {&kSource_profiles, 5521, "ProfileLoading.AsksForAFileThatExists"},
    {&kSource_profiles, 5570, "DroppedFiles.CannotBeAFolder"},
    {&kSource_profiles, 5581, "DroppedFiles.AreCreatedEmptyAndRefusedWhenTheyAreGone"},
    {&kSource_profiles, 5601, "ProfileLoading.RefusesEveryBadFileWithItsBoxAndStartsNothing"},
    {&kSource_profiles, 5617, "ProfileLoading.ReportsAReadThatFails"},
    {&kSource_profiles, 5629, "DroppedFiles.ShowsTheLoadsBoxAndThenAnUnreadableOneForAFileThatIsNoProfile"},
    {&kSource_profiles, 5647, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5676, "ProfileLoading.ReportsAReadThatFails"},
    {&kSource_profiles, 5689, "ProfileLoading.RefusesAFileWhoseEndHasChangedSinceItsSignatureWasRead"},
    {&kSource_profiles, 5701, "ProfileLoading.RefusesEveryBadFileWithItsBoxAndStartsNothing"},
    {&kSource_profiles, 5713, "ProfileLoading.RefusesEveryBadFileWithItsBoxAndStartsNothing"},
    {&kSource_profiles, 5754, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5768, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5783, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5797, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5812, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5843, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 5858, "ProfileLoading.ReportsMemoryThatIsNotThere"},
    {&kSource_profiles, 6987, "ProfileLoading.StartsTheProfileEvenWhenTheStoreWasNeverSetUp"},
    {&kSource_profiles, 7003, "ProfileLoading.TellsThatTheStoreHasNoNameToShow"},
    {&kSource_profiles, 6147, "Launching.EndsTheLoadWhenTheFoldersCannotBeChecked"},
    {&kSource_profiles, 6258, "Launching.GoesOnWhenTheProgramsCannotBeSearchedFor"},
    {&kSource_profiles, 6391, "Launching.GoesOnWhenTheProgramsCannotBeSearchedFor"},
    {&kSource_profiles, 6412, "Launching.RefusesAFolderPathThatNoSystemCallTakesWithoutOpeningAnything"},
    {&kSource_profiles, 6433, "Launching.GivesUpOnAProgramWithoutAWindowAfterTenPassesAndTenPauses"},
    {&kSource_profiles, 6454, "Launching.ReportsInOrderWhateverIsMissing"},
    {&kSource_profiles, 7466, "ProgramMatching.RefusesMissingArgumentsAndFields"},
    {&kSource_profiles, 7480, "Launching.GoesOnWhenTheProgramsCannotBeSearchedFor"},
    {&kSource_profiles, 7698, "FolderMatching.ReportsThatThereIsNoListWithFileAndFunctionUnreadable"},
    {&kSource_profiles, 7756, "FolderMatching.ReportsThatThereIsNoListWithFileAndFunctionUnreadable"},
    {&kSource_profiles, 8119, "ProgramMatching.EndsThePassWithoutARecordOrWithAnEmptyOne"},
    {&kSource_profiles, 8136, "ProgramMatching.EndsThePassWithoutARecordOrWithAnEmptyOne"},
    {&kSource_profiles, 8405, "ProgramMatching.EndsThePassWhenAnImagePathCannotBeQueried"},
    {&kSource_profiles, 9337, "FolderCheck.RefusesMissingArguments"},
    {&kSource_profiles, 9102, "DroppedFiles.RefusesAMissingWindowOrHandleUnreadably"},
    {&kSource_profiles, 9120, "DroppedFiles.ReportsThatThereIsNoMemoryForThePath"},
    {&kSource_profiles, 9142, "DroppedFiles.ReportsAPathThatCannotBeQueried"},
    {&kSource_profiles, 9168, "DroppedFiles.AreCreatedEmptyAndRefusedWhenTheyAreGone"},

    {&kSource_scan_list, 152, "ListOfWindows.ReportsEachButtonThatCannotBeMadeInUnreadableWords"},
    {&kSource_scan_list, 171, "ListOfWindows.ReportsEachButtonThatCannotBeMadeInUnreadableWords"},
    {&kSource_scan_list, 189, "ListOfWindows.ReportsAMissingDeviceContextAndStillShowsTheList"},
    {&kSource_scan_list, 203, "ListOfWindows.IsShownAlsoWithoutRoomForTheTextOfItsButtons"},
    {&kSource_scan_list, 218, "ListOfWindows.StaysWithItsButtonsWhenThereIsNoFont"},
    {&kSource_scan_list, 287, "MoveCommand.IsReportedByTheListAgainWhenItFails"},
    {&kSource_scan_list, 304, "CreateProfile.ReportsARowThatCannotBePrepared"},
    {&kSource_scan_list, 358, "SaveProfile.ReportsAWriterThatRefusesAndAnswersFalse"},
    {&kSource_scan_list, 612, "ListOfWindows.GoesAgainWhenThereIsNoScanToShow"},
    {&kSource_scan_list, 641, "ListOfWindows.ReportsAListThatCannotBeMadeInUnreadableWords"},
    {&kSource_scan_list, 718, "ListOfWindows.ReportsEveryRowAndCellThatCannotBeInserted"},
    {&kSource_scan_list, 746, "ListOfWindows.ReportsEveryRowAndCellThatCannotBeInserted"},
    {&kSource_scan_list, 871, "ListOfWindows.ReportsAMissingNotificationInUnreadableWords"},
    {&kSource_scan_list, 1018, "MoveCommand.RefusesAMissingListOrArrayWithFileAndFunctionUnreadable"},
    {&kSource_scan_list, 1083, "MoveCommand.ReportsASlotThatWasNeverFilledAndGivenASize"},
    {&kSource_scan_list, 1102, "MoveCommand.ShowsTheInfoBoxWhenNothingIsTicked"},
    {&kSource_scan_list, 1214, "CreateProfile.RefusesMissingArgumentsNamingThem"},
    {&kSource_scan_list, 1262, "CreateProfile.ReportsThatItHasNoMemoryInThreeBoxes"},
    {&kSource_scan_list, 1277, "CreateProfile.StopsWhenItsRowNumbersAreGone"},
    {&kSource_scan_list, 1304, "CreateProfile.ReportsARowThatCannotBePrepared"},
    {&kSource_scan_list, 1349, "CreateProfile.ReportsThatTheNameWindowCannotBeCreatedAndWhy"},
    {&kSource_scan_list, 1246, "CreateProfile.AsksToTickSomethingAndOpensNothing"},
    {&kSource_scan_list, 1508, "ProfileArrays.AreRefusedForMissingOrEmptyRecords"},
    {&kSource_scan_list, 1521, "ProfileArrays.AreRefusedForMissingOrEmptyRecords"},
    {&kSource_scan_list, 1547, "ProfileArrays.AreKeptUpToTheOneThatCannotBeAllocated"},
    {&kSource_scan_list, 1712, "ProfileArrays.AreFilledOnlyWhenEverythingIsThere"},
    {&kSource_scan_list, 1726, "ProfileArrays.AreFilledOnlyWhenEverythingIsThere"},
    {&kSource_scan_list, 1908, "SaveProfile.RefusesMissingArgumentsNamingThem"},
    {&kSource_scan_list, 1972, "SaveProfile.LeavesAFileThatExistsAsItIs"},
    {&kSource_scan_list, 1983, "SaveProfile.SaysThatAFileCannotBeCreated"},
    {&kSource_scan_list, 1997, "SaveProfile.ReportsAWriterThatRefusesAndAnswersFalse"},
    {&kSource_scan_list, 2009, "SaveProfile.DeletesAHalfWrittenFileAndSaysSo"},
    {&kSource_scan_list, 2017, "SaveProfile.TellsWhenAHalfWrittenFileCannotBeDeleted"},
    {&kSource_scan_list, 2031, "SaveProfile.WouldReportArraysThatCannotBeReleased"},
    {&kSource_scan_list, 2204, "ProfileWriting.RefusesMissingArgumentsNamingThem"},
    {&kSource_scan_list, 2371, "ProfileArrays.AreReleasedAndTheirPointersCleared"},

    {&kSource_modify_cell, 118, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 139, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 162, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 185, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 207, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 229, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 251, "ModifyCell.KeepsTheSystemFontWithoutADeviceContext"},
    {&kSource_modify_cell, 264, "ModifyCell.KeepsTheSystemFontWithoutRoomForItsText"},
    {&kSource_modify_cell, 283, "ModifyCell.ReportsAFontThatCannotBeMade"},
    {&kSource_modify_cell, 318, "ModifyCell.ReportsEveryControlThatCannotBeMade"},
    {&kSource_modify_cell, 642, "ModifyCell.RefusesAMissingHandleOrRecord"},
    {&kSource_modify_cell, 655, "ModifyCell.StaysOpenAfterAClickWhenTheScanIsGoneAndClosesAfterEnter"},
    {&kSource_modify_cell, 661, "ModifyCell.SaysThatTheListIsGoneAfterTheRestWasFoundThere"},
    {&kSource_modify_cell, 668, "ModifyCell.CopesWithARowThatWasNotHit"},
    {&kSource_modify_cell, 681, "ModifyCell.AppliesNothingWhenASecondOneTookItsEditsAndClosed"},
    {&kSource_modify_cell, 934, "ModifyCell.ReportsAButtonWithoutParent"},

    {&kSource_profile_name, 96, "ProfileName.HasNoControlsWithoutItsCreationParameter"},
    {&kSource_profile_name, 141, "ProfileName.ReportsEachControlThatCannotBeCreatedAndGoesOn"},
    {&kSource_profile_name, 163, "ProfileName.ReportsEachControlThatCannotBeCreatedAndGoesOn"},
    {&kSource_profile_name, 187, "ProfileName.ReportsEachControlThatCannotBeCreatedAndGoesOn"},
    {&kSource_profile_name, 421, "ProfileName.RefusesMissingHandles"},
    {&kSource_profile_name, 446, "ProfileName.WarnsAboutAnEmptyNameAndStaysOpen"},
    {&kSource_profile_name, 268, "ProfileName.ReportsTwiceWhenOkHasNoEditBoxToRead"},
    {&kSource_profile_name, 548, "ProfileName.RefusesMissingHandles"},
    {&kSource_profile_name, 289, "ProfileName.ReportsTwiceWhenNoWindowIsCancelled"},
};
// clang-format on

struct SystemErrorShownBy {
    std::string_view file; // of the call
    std::string_view test;
};

// A file of several calls has several lines.
const SystemErrorShownBy kSystemErrorShownBy[] = {
    {"sources/funcs_layout_windows/scanning/scan_command.cpp",
     "ScanCommand.ShowsTheSystemsTextWhenTheListCannotBeOpened"},
    {"sources/funcs_layout_windows/scanning/window_enumeration.cpp",
     "WindowEnumeration.EndsInEitherPassWhenAPathCannotBeRead"},
    {"sources/main_prg/main_prg.cpp", "MessageLoop.IsReachedAlsoWithoutAMainWindow"},
    {"sources/wnd_ScanListView/saving/create_profile.cpp",
     "CreateProfile.ReportsThatTheNameWindowCannotBeCreatedAndWhy"},
    {"sources/wnd_ScanListView/create_wnd_ModifyCell.cpp",
     "ModifyCell.ShowsTheSystemsTextWhenItCannotBeOpened"},
    {"sources/wnd_ScanListView/list_view.cpp", "ListOfWindows.ReportsEveryRowAndCellThatCannotBeInserted"},
};

using Row = std::pair<const ErrorSource*, std::uint32_t>;

std::string name_of(const Row& row)
{
    return std::string(row.first->file) + " " + std::to_string(row.second);
}

std::set<Row> rows_of_the_tables()
{
    std::set<Row> rows;
    for (const ErrorRow* row : report_rows)
        rows.insert({row->source, row->site});
    return rows;
}

bool has_test(std::string_view name)
{
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            if (std::string(suite.name()) + "." + suite.GetTestInfo(j)->name() == name)
                return true;
        }
    }
    return false;
}

// What the test that is running shows. A report stores its site number and composes its text in its module's
// buffer before it asks for the box; an error of the system has its title, in either encoding.
class Shown : public testing::EmptyTestEventListener
{
public:
    static void note(const wchar_t* text, std::wstring_view title)
    {
        if (title == L"GetLastError" || title == L"\x6547\x4C74\x7361\x4574\x7272\x726F")
            system_error_ = true;
        for (const ErrorRow* row : report_rows) {
            if (text == row->source->message)
                rows_.insert({row->source, *row->source->error_site});
        }
    }

private:
    void OnTestStart(const testing::TestInfo&) override
    {
        rows_.clear();
        system_error_ = false;
    }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        if (!test.result()->Passed())
            return;
        const std::string name = std::string(test.test_suite_name()) + "." + test.name();
        for (const ShownBy& row : kShownBy) {
            if (row.test == name && !rows_.contains({row.source, row.site}))
                ADD_FAILURE() << name << " does not show the report " << name_of({row.source, row.site});
        }
        for (const SystemErrorShownBy& call : kSystemErrorShownBy) {
            if (call.test == name && !system_error_)
                ADD_FAILURE() << name << " does not show the error of the system of " << call.file;
        }
    }

    static inline std::set<Row> rows_;
    static inline bool system_error_ = false;
};

int WINAPI note_and_show(HWND owner, const wchar_t* text, const wchar_t* title, UINT style);

const ImportPatch message_boxes("user32.dll", "MessageBoxW", &note_and_show);

int WINAPI note_and_show(HWND owner, const wchar_t* text, const wchar_t* title, UINT style)
{
    Shown::note(text, title);
    return message_boxes.original<decltype(MessageBoxW)>()(owner, text, title, style);
}

[[maybe_unused]] const bool listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Shown); // owned by GoogleTest
    return true;
}();

} // namespace

TEST(ReportRows, AreEachShownByATest)
{
    std::set<Row> listed;
    for (const ShownBy& row : kShownBy)
        listed.insert({row.source, row.site});
    for (const Row& row : rows_of_the_tables())
        EXPECT_TRUE(listed.contains(row)) << "no test shows the report " << name_of(row);
}

TEST(ReportRows, ListedAsShownAreInTheTables)
{
    const std::set<Row> rows = rows_of_the_tables();
    for (const ShownBy& row : kShownBy)
        EXPECT_TRUE(rows.contains({row.source, row.site})) << name_of({row.source, row.site}) << " is gone";
}

TEST(ReportRows, AreShownByTestsThatExist)
{
    for (const ShownBy& row : kShownBy)
        EXPECT_TRUE(has_test(row.test))
            << name_of({row.source, row.site}) << ": there is no test " << row.test;
}

TEST(SystemErrors, AreEachShownByATest)
{
    std::multiset<std::string_view> listed;
    for (const SystemErrorShownBy& call : kSystemErrorShownBy) {
        listed.insert(call.file);
        EXPECT_TRUE(has_test(call.test)) << call.file << ": there is no test " << call.test;
    }
    EXPECT_EQ(listed, std::multiset<std::string_view>(system_error_calls.begin(), system_error_calls.end()))
        << "the calls of show_system_error() in the sources";
}
