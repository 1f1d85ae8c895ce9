#include "sources/funcs_layout_windows/launching/launching.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/processes/fixture_programs.h"

// What a load leaves behind: the programs that run, where their windows are, the handles in the store.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::bytes_as_wide;
using test_support::ExpectedBox;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::units_of;

// Overwrites the unit behind the path of the entry, whose path area begins at `*offset`, and moves on.
void spoil_terminator(Bytes* file, std::size_t* offset, const std::wstring& path)
{
    *offset += path.size() * 2;
    file->at((*offset)++) = 'Z';
    file->at((*offset)++) = 'Z';
}

constexpr std::size_t kMaxPrograms = 2;

// What is launched of a profile of programs alone, with room for that many launch records.
struct ProgramsToLaunch {
    ProgramsToLaunch(const Bytes& file, std::size_t n_records)
    {
        launch.hwnd_MW = owner;
        launch.pcFileData = file.data();
        launch.uiN_wnds = launch.uiN_Programs = file[0];
        launch.p_arr1D_hwnd_Folders = found;
        launch.p_arr1D_hwnd_Programs = found + kMaxPrograms;
        launch.pc_arr1D_hwnd_Programs_only = found + 2 * kMaxPrograms;
        launch.pc_arr1D_hwnd_Folders_only = found + 3 * kMaxPrograms;
        launch.p_arr1D_ui_failed = failed;
        launch.ptcBuf = image.data();
        launch.pc_arr_STRs_InfoLoadedPrg = started;
        launch.max_launch_records = n_records;
        launch.p_EntryPath = path.get();
    }
    ProgramsToLaunch(const ProgramsToLaunch&) = delete;
    ProgramsToLaunch& operator=(const ProgramsToLaunch&) = delete;

    const TestWindow owner{L"owner"};
    HWND found[4 * kMaxPrograms] = {};
    std::uint32_t failed[kMaxPrograms] = {};
    STR_InfoLoadedPrg started[kMaxPrograms] = {};
    std::vector<wchar_t> image = std::vector<wchar_t>(kImagePath_units);
    const std::unique_ptr<EntryPathBuffer> path = std::make_unique<EntryPathBuffer>();
    Launch_STR launch{};
};

} // namespace

TEST(Launching, DoesNotPauseForAProfileOfProgramsThatAreAllGone)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const RecordedSleeps sleeps;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_program(0, 0, 300, 200, units_of(programs.path_of(L"gone")))
                               .add_program(9, 9, 300, 200, units_of(programs.path_of(L"gone too")))
                               .name(u"P")
                               .bytes()),
              1);
    boxes.expect_boxes({{L"info", L"Not all Programs were loaded\n\nNumber of Programs failed to load = 2"
                                  L"\nNumber of Programs in Profile = 2\nPossible reasons:\nSome Programs "
                                  L"were deleted, renamed or check your access permissions"}});
    EXPECT_TRUE(sleeps.pauses.empty());
    ASSERT_EQ(fixture.store.uiN_loaded_prfls, 1u);
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
    EXPECT_EQ(fixture.stored_handle(0, 1), nullptr);
}

TEST(Launching, GivesTwoEntriesOfOneFolderTheSameWindow)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    fixture.folders.add(folder, L"C:\\windows");
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(10, 20, 300, 200, u"C:\\windows")
                               .add_folder(40, 50, 340, 240, u"C:\\windows")
                               .name(u"F")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(starts.starts.size(), 2u);
    EXPECT_EQ(fixture.stored_handle(0, 0), folder.get());
    EXPECT_EQ(fixture.stored_handle(0, 1), folder.get());
    // Placed twice, so the later entry's rectangle stays.
    EXPECT_EQ(place_of(folder), "40,50 340x240");
}

TEST(Launching, StartsAndPlacesTheProgramOfAProfileTooLargeForTheStore)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::wstring path = programs.add(L"kept");
    const Bytes file = ProfileEncoder().add_program(70, 80, 330, 230, units_of(path)).name(u"P").bytes();
    fixture.store.uiSize_DynMem_files = static_cast<std::uint32_t>(file.size()) - 1;
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text({L"sources/funcs_layout_windows", L"add_profile_data_to_DynMem", 4912, 5266},
                             L"\n\nerror, exceed amount of DynMem for storage files of Profile\n"
                             L"Profile will not be added\n")}});
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
    EXPECT_EQ(place_once_it_is(programs.wait_for_window(L"kept"), "70,80 330x230"), "70,80 330x230");
}

TEST(Launching, StartsProgramsWhosePathsAreNotTerminatedByTheirDeclaredLength)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::wstring first = programs.add(L"first");
    const std::wstring second = programs.add(L"second");
    Bytes file = ProfileEncoder()
                     .add_program(10, 20, 300, 200, units_of(first))
                     .add_program(30, 40, 310, 210, units_of(second))
                     .without_zero_tail()
                     .name(u"P")
                     .bytes();
    std::size_t offset = 4 + 2 * 21;
    spoil_terminator(&file, &offset, first);
    spoil_terminator(&file, &offset, second);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(fixture.stored_file(0), file);
    EXPECT_EQ(fixture.stored_handle(0, 0), programs.wait_for_window(L"first"));
    EXPECT_EQ(fixture.stored_handle(0, 1), programs.wait_for_window(L"second"));
    EXPECT_EQ(place_once_it_is(fixture.stored_handle(0, 1), "30,40 310x210"), "30,40 310x210");
}

TEST(Launching, KeepsAFolderThatWasFoundInAnEarlierPass)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    test_support::FolderWindow early;
    early.window = first;
    early.path = L"C:\\windows";
    early.last_pass = 1;
    test_support::FolderWindow late;
    late.window = second;
    late.path = L"C:\\windows\\system32";
    late.first_pass = 2;
    fixture.folders.add(early).add(late);
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder()
                               .add_folder(0, 0, 300, 200, u"C:\\windows")
                               .add_folder(5, 6, 300, 200, u"C:\\windows\\system32")
                               .name(u"F")
                               .bytes()),
              1);
    boxes.expect_no_boxes();
    EXPECT_EQ(sleeps.pauses, std::vector<DWORD>{1000});
    EXPECT_EQ(fixture.stored_handle(0, 0), first.get());
    EXPECT_EQ(fixture.stored_handle(0, 1), second.get());
}

TEST(Launching, GoesOnWhenTheProgramsCannotBeSearchedFor)
{
    const NothingStarts nothing;
    const Bytes file = ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\gone.exe").name(u"F").bytes();
    ProgramsToLaunch programs(file, 1);
    HWND* const found = programs.found;
    programs.launch.ptcBuf = nullptr;
    const BoxWatcher boxes;
    EXPECT_EQ(launch_profile(&programs.launch), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text(
              {L"sources/funcs_layout_windows", L"find_hwnds_Programs_fill_array", 7480, 7590},
              L"error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR->p_hwnd_arr = " +
                  pointer(found + kMaxPrograms) +
                  L", p_HWNDs_loadedPrgsProfile_STR->ptcBuf = 0000000000000000, "
                  L"p_HWNDs_loadedPrgsProfile_STR->pcFileData = " +
                  pointer(file.data()) +
                  L", p_HWNDs_loadedPrgsProfile_STR->uiSize_chars = 2048, "
                  L"p_HWNDs_loadedPrgsProfile_STR->uiSize_bytes = 4096\n")},
         {L"error", L"error <- find_hwnds_Programs_fill_array()"},
         {L"info", L"Not all Programs were loaded\n\nNumber of Programs failed to load = 1\n"
                   L"Number of Programs in Profile = 1\nPossible reasons:\n"
                   L"Some Programs were deleted, renamed or check your access permissions"}});
    EXPECT_EQ(found[2 * kMaxPrograms], nullptr);
}

// There are records for as many programs as the store has room for handles.
TEST(Launching, RecordsNoMoreProgramsThanThereIsRoomFor)
{
    const NothingStarts nothing;
    const Bytes file = ProfileEncoder()
                           .add_program(1, 2, 3, 4, u"C:\\gone.exe")
                           .add_program(1, 2, 3, 4, u"C:\\gone too.exe")
                           .name(u"F")
                           .bytes();
    ProgramsToLaunch programs(file, 1);
    programs.started[0].uiIndex_wnd = programs.started[1].uiIndex_wnd = 77;
    std::uint32_t records = 0;
    const ImportHook<"EnumWindows", decltype(EnumWindows)> windows(
        "user32.dll", [&](WNDENUMPROC callback, LPARAM parameter) {
            if (callback == GetHWNDS_of_LoadedPrograms) // others ask for all windows as well
                records = reinterpret_cast<const HWNDs_loadedPrgsProfile_STR*>(parameter)->N_prgs;
            return windows.call_original(callback, parameter);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(launch_profile(&programs.launch), 1);
    EXPECT_EQ(boxes.count(), 1u); // of the programs that are gone
    EXPECT_EQ(nothing.programs, 2);
    EXPECT_EQ(records, 1u);
    EXPECT_EQ(programs.started[0].uiIndex_wnd, 0u);
    EXPECT_EQ(programs.started[1].uiIndex_wnd, 77u);
}

TEST(Launching, SearchesTenTimesAlsoWhenTheShellHasNoListOfItsWindows)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const RecordedSleeps sleeps;
    fixture.folders.fail_creation(E_FAIL);
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"F").bytes();
    BoxWatcher boxes;
    EXPECT_EQ(fixture.load(file), 1);
    std::vector<ExpectedBox> expected(
        10, {L"error", gap_text({bytes_as_wide("sources/funcs_layout_windows"),
                                 bytes_as_wide("GetHWNDS_of_LoadedFolders"), 7756, 8025},
                                L"one of callable functions returned error\n\nfunction : "
                                L"CoCreateInstance()\n\nret code hResult = -2147467259")});
    expected.push_back({L"info", L"Not all Folders of Profile were detected after launching\n"});
    boxes.expect_boxes(expected);
    EXPECT_EQ(sleeps.pauses, std::vector<DWORD>(10, 1000));
    EXPECT_EQ(starts.starts.size(), 1u);
    ASSERT_EQ(fixture.store.uiN_loaded_prfls, 1u);
    EXPECT_EQ(fixture.stored_file(0), file);
    EXPECT_EQ(fixture.stored_handle(0, 0), nullptr);
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"F"});
}
