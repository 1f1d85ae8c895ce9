#include <windows.h>

#include <commdlg.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "errors/error_box.h"
#include "sources/funcs_layout_windows/profiles/launching.h"
#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/wnd_ProfileName/wnd_ProfileName.h"
#include "sources/wnd_ScanListView/create_profile.h"
#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"
#include "sources/wnd_ScanListView/scan_list_errors.h"
#include "tests/control/drawing/screen_of_size.h"
#include "tests/control/main_prg/main_creation_fixture.h"
#include "tests/control/main_prg/main_window_fixture.h"
#include "tests/control/profiles/profile_fixture.h"
#include "tests/control/scanning/scan_fixture.h"
#include "tests/control/wnd_ScanListView/saved_profile_fixture.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"

// Reports of failures that hardly ever happen: each is brought about here, and shown with its whole text.

using namespace test_support;
using main_tests::MainWindow;
using profile_tests::compact_text;
using profile_tests::gap_text;
using profile_tests::handler_first_text;
using profile_tests::pointer;

namespace
{

constexpr wchar_t kMainFile[] = L"sources/main_prg";
constexpr wchar_t kLayoutFile[] = L"sources/funcs_layout_windows";
constexpr wchar_t kListFile[] = L"sources/wnd_ScanListView";

// A screen so small that no text fits a control.
struct TinyScreen : screen_tests::ScreenOfSize {
    TinyScreen() : ScreenOfSize(8, 8) {}
};

// An open dialog that is answered with a path, or cancelled with an empty one.
class AnsweredOpenDialog
{
public:
    explicit AnsweredOpenDialog(std::wstring path) : path_(std::move(path)) {}

    int times_asked = 0;

private:
    std::wstring path_;
    ImportHook<"GetOpenFileNameW", BOOL(OPENFILENAMEW*)> hook_{
        "comdlg32.dll", [this](OPENFILENAMEW* settings) -> BOOL {
            ++times_asked;
            path_.copy(settings->lpstrFile, path_.size());
            return path_.empty() ? FALSE : TRUE;
        }};
};

// The first box of a control without room for its text.
ExpectedBox no_room_box(const SeenBox& seen)
{
    const std::wstring beginning = L"error\nfile: sources/funcs_layout_windows\nfunction: "
                                   L"FindFontSize_fit_H_and_W\nline: 3024\nincorrect input parameters, func "
                                   L"FindFontSize_fit_H_and_W()\nhdc = ";
    // The device context is known to the program only.
    return {L"error", beginning + seen.text.substr(std::min(beginning.size(), seen.text.size()))};
}

void expect_no_room_and(const BoxWatcher& boxes, const std::wstring& text)
{
    const std::vector<SeenBox> seen = boxes.boxes();
    ASSERT_GE(seen.size(), 1u);
    boxes.expect_boxes({no_room_box(seen[0]), {L"error", text}});
}

} // namespace

TEST(RareReports, MainWindowWithoutRoomForItsTextKeepsItsButtons)
{
    const TinyScreen screen;
    const main_tests::ComStart com;
    const BoxWatcher boxes;
    const MainWindow main;
    expect_no_room_and(
        boxes, compact_text({kMainFile, L"WndProc", 580, 1248}, L"ERROR while get font size for buttons"));
    main_tests::expect_controls(main, false);
    // Creation has ended there.
    EXPECT_EQ(main_window.CB_Profile.hwnd_CB, nullptr);
    EXPECT_EQ(com.calls, 0);
}

TEST(RareReports, ListWithoutRoomForItsTextIsShownAllTheSame)
{
    scan_tests::ScanFixture fixture;
    const scan_tests::TestWindow window(L"one");
    const scan_tests::Desktop desktop({window});
    const TinyScreen screen;
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.scan(), 1);
    expect_no_room_and(boxes,
                       compact_text({kListFile, L"WndProc_ScanListView", 203, 453},
                                    L"one of callable functions returned error, FindFontSize_fit_H_and_W()"));
    EXPECT_EQ(fixture.list().row_count(), 1);
    for (const int button : {1, 2}) {
        LOGFONTW font{};
        const LRESULT handle = SendMessageW(GetDlgItem(hwnd_ScanListView, button), WM_GETFONT, 0, 0);
        ASSERT_NE(GetObjectW(reinterpret_cast<HFONT>(handle), sizeof font, &font), 0);
        EXPECT_EQ(font.lfHeight, -1); // as the search gave it
        EXPECT_EQ(font.lfWeight, 700);
    }
}

TEST(RareReports, ModifyCellWithoutRoomForItsTextKeepsTheSystemFont)
{
    scan_tests::ScanFixture fixture;
    const scan_tests::TestWindow window(L"one");
    const scan_tests::Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    const TinyScreen screen;
    const BoxWatcher boxes;
    const STR_HitCell cell{0, 2};
    const HWND dialog = create_wnd_ModifyCell(hwnd_ScanListView, fixture.list().window(), &cell);
    expect_no_room_and(
        boxes, compact_text({L"sources/wnd_ModifyCell", L"WndProc_ModifyCell", 264, 569},
                            L"one of callable functions returned error : FindFontSize_fit_H_and_W()"));
    EXPECT_EQ(SendMessageW(GetDlgItem(dialog, 0), WM_GETFONT, 0, 0), 0);
    DestroyWindow(dialog);
}

TEST(RareReports, LoadCommandTellsTheResultOfAFailedLoad)
{
    const MainWindow main;
    const TemporaryFolder folder;
    const AnsweredOpenDialog dialog(folder.path());
    const BoxWatcher boxes;
    main.press(2);
    boxes.expect_boxes(
        {{L"error",
          gap_text({kLayoutFile, L"onButton_LoadProfile_clicked", 5570, 7095},
                   L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()")},
         {L"error", compact_text({kMainFile, L"WndProc", 951, 1269},
                                 L"one of callable functions returned error onButton_LoadProfile_clicked(), "
                                 L"RetCode = -2")}});
    EXPECT_EQ(main.profiles(), 0);
}

TEST(RareReports, LoadCommandGoesOnWithoutItsStore)
{
    const MainWindow main;
    const AnsweredOpenDialog cancelled(L"");
    const FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", kEveryCall, nullptr,
                                                                      ERROR_NOT_ENOUGH_MEMORY);
    const BoxWatcher boxes;
    main.press(2);
    const std::vector<ExpectedBox> expected{
        {L"error", handler_first_text({kLayoutFile, L"preInitOnce_onLoadProfile", 4539, 4613},
                                      L"\nerror <- VirtualAlloc()")},
        {L"error", L"WndProc, WM_COMMAND, error <- preInitOnce_onLoadProfile()"}};
    boxes.expect_boxes(expected);
    EXPECT_EQ(boxes.boxes().at(1).owner, nullptr);
    EXPECT_EQ(cancelled.times_asked, 1);
    EXPECT_EQ(fails.calls(), 1);
    main.press(2); // one attempt only
    boxes.expect_boxes(expected);
    EXPECT_EQ(cancelled.times_asked, 2);
    EXPECT_EQ(fails.calls(), 1);
    EXPECT_EQ(main_window.LoadedProfiles.pc_hwnds_wnds_of_prfl, nullptr);
    EXPECT_EQ(main_window.LoadedProfiles.pc_raw_FilesProfile, nullptr);
}

TEST(RareReports, LoadTellsThatTheStoreHasNoNameToShow)
{
    profile_tests::ProfileFixture fixture;
    const profile_tests::NothingStarts nothing;
    const profile_tests::RecordedSleeps sleeps;
    // A store that has lost its files.
    std::uint8_t* const files = std::exchange(fixture.store.pc_raw_FilesProfile, nullptr);
    fixture.store.uiN_loaded_prfls = 1;
    const BoxWatcher boxes;
    EXPECT_EQ(fixture.load(ProfileEncoder().add({.flag = 7, .path = u"C:\\x"}).name(u"F").bytes()), 1);
    fixture.store.pc_raw_FilesProfile = files;
    boxes.expect_boxes(
        {{L"error",
          handler_first_text(
              {kLayoutFile, L"add_profile_data_to_DynMem", 4826, 5234},
              L"error, incorrect input parameters (fields of STRUCTURE):\n\nuiMax_num_loaded_prfls = "
              L"1024, uiSize_DynMem_hwnds_wnds_prfl = 4194304, uiSize_DynMem_files = 33554432, "
              L"pc_hwnds_wnds_of_prfl = " +
                  pointer(fixture.store.pc_hwnds_wnds_of_prfl) +
                  L", pc_raw_FilesProfile = 0000000000000000")},
         {L"error", L"error <- add_profile_data_to_DynMem()"},
         {L"error",
          handler_first_text({kLayoutFile, L"CB_Profile_add_string", 9777, 9874},
                             L"error, incorrect input parameters:\np_CB_mng_STR = " +
                                 pointer(&fixture.profiles) + L", p_tc_sz_name = 0000000000000000")},
         {L"error", L"error <- CB_Profile_add_string()"}});
    EXPECT_EQ(boxes.boxes().at(3).owner, nullptr);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
}

TEST(RareReports, LaunchGoesOnWhenTheProgramsCannotBeSearchedFor)
{
    const profile_tests::OwnWindow owner(L"owner");
    const profile_tests::NothingStarts nothing;
    const Bytes file = ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\gone.exe").name(u"F").bytes();
    HWND found[4] = {};
    std::uint32_t failed[1] = {};
    STR_InfoLoadedPrg started[1] = {};
    LaunchState launch{};
    launch.hwnd_MW = owner;
    launch.pcFileData = file.data();
    launch.uiN_wnds = launch.uiN_Programs = 1;
    launch.p_arr1D_hwnd_Folders = &found[0];
    launch.p_arr1D_hwnd_Programs = &found[1];
    launch.pc_arr1D_hwnd_Programs_only = &found[2];
    launch.pc_arr1D_hwnd_Folders_only = &found[3];
    launch.p_arr1D_ui_failed = failed;
    launch.pc_arr_STRs_InfoLoadedPrg = started; // but no buffer for image paths
    launch.max_launch_records = 1;
    const auto path = std::make_unique<EntryPathBuffer>();
    launch.p_EntryPath = path.get();
    const BoxWatcher boxes;
    EXPECT_EQ(launch_profile(&launch), 1);
    boxes.expect_boxes(
        {{L"error",
          handler_first_text(
              {kLayoutFile, L"find_hwnds_Programs_fill_array", 7480, 7590},
              L"error, incorrect input parameters:\n\np_HWNDs_loadedPrgsProfile_STR->p_hwnd_arr = " +
                  pointer(&found[1]) +
                  L", p_HWNDs_loadedPrgsProfile_STR->ptcBuf = 0000000000000000, "
                  L"p_HWNDs_loadedPrgsProfile_STR->pcFileData = " +
                  pointer(file.data()) +
                  L", p_HWNDs_loadedPrgsProfile_STR->uiSize_chars = 2048, "
                  L"p_HWNDs_loadedPrgsProfile_STR->uiSize_bytes = 4096\n")},
         {L"error", L"error <- find_hwnds_Programs_fill_array()"},
         {L"info", L"Not all Programs were loaded\n\nNumber of Programs failed to load = 1\n"
                   L"Number of Programs in Profile = 1\nPossible reasons:\n"
                   L"Some Programs were deleted, renamed or check your access permissions"}});
    EXPECT_EQ(found[2], nullptr);
}

TEST(RareReports, CreateProfileStopsWhenItsRowNumbersAreGone)
{
    const profile_tests::FilledScan scan(profile_tests::ten_windows());
    const profile_tests::ListOfWindows list;
    list.tick(3);
    STR_RW_PRFL record{};
    HWND opened = nullptr;
    int allocations = 0;
    ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> memory(
        "kernel32.dll", [&](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
            // Of the eight blocks of the record the first, the row numbers, is lost again.
            if (++allocations == 8)
                VirtualFree(std::exchange(record.p_arr1D_ui_indexes_wnds_profile, nullptr), 0, MEM_RELEASE);
            return memory.call_original(address, size, type, protection);
        });
    const BoxWatcher boxes;
    EXPECT_EQ(onButton_Create_Profile(list.window, list.list, &opened, &record, &scan_record), -3);
    boxes.expect_boxes(
        {{L"error", compact_text({kListFile, L"onButton_Create_Profile", 1277, 1435},
                                 L"incorrect result after DynMemAlloc:\npSTR_RW_PRFL = " + pointer(&record) +
                                     L"\npSTR_RW_PRFL->p_arr1D_ui_indexes_wnds_profile = "
                                     L"0000000000000000")}});
    EXPECT_EQ(opened, nullptr);
    FreeDynMem_wnds_Profile(&record);
}

TEST(RareReports, NameWindowThatIsNotThereCannotBeCancelled)
{
    const BoxWatcher boxes;
    WndProc_wnd_ProfileName(nullptr, WM_COMMAND, 2, 0);
    boxes.expect_boxes(
        {{L"error", compact_text({L"sources/wnd_ProfileName", L"on_Button_CANCEL", 548, 571},
                                 L"incorrect input parameters:\nhwndThis = 0000000000000000")},
         {L"error", compact_text({L"sources/wnd_ProfileName", L"WndProc_wnd_ProfileName", 289, 394},
                                 L"one of callable functions returned error, -1 <- on_Button_CANCEL()")}});
}

// A record that is not there is noticed before it is released, so nothing brings this one about.
TEST(RareReports, ArraysThatCannotBeReleasedWouldBeTold)
{
    const BoxWatcher boxes;
    EXPECT_EQ(report<kSaveFreeFailed>(-1), -2);
    boxes.expect_boxes(
        {{L"error", compact_text({kListFile, L"on_WM_COPYDATA_on_wnd_NameOfProfile", 2031, 2153},
                                 L"error, one of callable functions returned error, -1 <- "
                                 L"FreeDynMem_wnds_Profile()")}});
}

TEST(AboutBox, SaysWhatTheProgramIsAndWhoMadeIt)
{
    const MainWindow main;
    const BoxWatcher boxes;
    SendMessageW(main.window, WM_COMMAND, 9, 0);
    boxes.expect_boxes(
        {{L"About",
          L"This small software utility \"Wendlow\" is intended for keeping your folders and programs "
          L"layout organized.\n\nThe Wendlow project\nhttps://wendlow.example\n"
          L"wendlow@wendlow.example\n\nrelease date: 2020-05-18"}});
    EXPECT_EQ(boxes.boxes().at(0).owner, main.window);
}
