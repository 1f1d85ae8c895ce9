#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/loading_boxes.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace loading_boxes;
using namespace test_support;

namespace
{

using Texts = std::vector<std::wstring>;

class Loading : public testing::Test
{
protected:
    std::wstring profile(const std::wstring& name, const ProfileEncoder& encoder)
    {
        return file(name, encoder.bytes());
    }

    std::wstring file(const std::wstring& name, const Bytes& bytes)
    {
        const std::wstring path = folder_.file(name);
        write_file(path, bytes);
        return path;
    }

    // A program's window, once it has come to that place.
    void expect_placed(HWND window, int x, int y, int width, int height)
    {
        const RECT wanted{x, y, x + width, y + height};
        RECT found{};
        EXPECT_TRUE(becomes_true([&] {
            found = rectangle_of(window);
            return EqualRect(&found, &wanted) != FALSE;
        })) << printable(title_of(window))
            << " is at " << found.left << "," << found.top << " " << found.right - found.left << " x "
            << found.bottom - found.top;
    }

    void expect_minimised(HWND window)
    {
        EXPECT_TRUE(becomes_true([&] { return IsIconic(window) != FALSE; })) << printable(title_of(window));
    }

    // The class of a folder window, under Wine and on Windows.
    static bool is_folder_class(const std::wstring& name)
    {
        return name == L"ExplorerWClass" || name == L"CabinetWClass";
    }
    static HWND folder_window(const std::wstring& title)
    {
        for (const HWND window : top_level_windows())
            if (IsWindowVisible(window) && is_folder_class(class_of(window)) &&
                title_of(window).starts_with(title)) // Windows 11 has its own name behind it
                return window;
        return nullptr;
    }
    static void close_folder_window(const std::wstring& title)
    {
        const HWND window =
            wait_for([&] { return folder_window(title); }, kLongWait, "the folder's own window");
        PostMessageW(window, WM_CLOSE, 0, 0);
        wait_until([&] { return !IsWindow(window); }, kShortWait, "the folder's own window to close");
    }

    Texts profiles() const { return wendlow_.combo_texts(wendlow_.profile_combo()); }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
};

TEST_F(Loading, StartsAndPlacesProgramsAndAFolder)
{
    const std::wstring plain = fixtures_.add(L"plain", {.title = L"Plain"});
    const std::wstring left = fixtures_.add(L"left", {.title = L"Left"});
    const std::wstring small = fixtures_.add(L"small", {.title = L"Small"});
    const std::wstring letters = fixtures_.folder().make_folder(L"Letters");
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(profile(L"p.txt", ProfileEncoder()
                                                .add_program(640, 60, 500, 333, units_of(plain))
                                                .add_folder(70, 400, 480, 320, units_of(letters))
                                                .add_program(-100, -30, 444, 222, units_of(left))
                                                .add_program(10, 20, 0, 0, units_of(small))
                                                .name(u"Office")));
    expect_placed(fixtures_.wait_for_window(L"plain"), 640, 60, 500, 333);
    expect_placed(fixtures_.wait_for_window(L"left"), -100, -30, 444, 222);
    expect_minimised(fixtures_.wait_for_window(L"small"));
    ASSERT_NE(folder_window(L"Letters"), nullptr);
    expect_placed(folder_window(L"Letters"), 70, 400, 480, 320);
    close_folder_window(L"Letters");
    EXPECT_EQ(profiles(), Texts{L"Office"});
    EXPECT_EQ(wendlow_.combo_shown_text(wendlow_.profile_combo()), L"Office");
    boxes.expect_no_boxes();
}

TEST_F(Loading, RestoresAMinimisedProgramThatIsOnTheScreen)
{
    const std::wstring program = fixtures_.add(L"there", {.title = L"There"});
    const HWND window = fixtures_.start(L"there");
    ShowWindow(window, SW_MINIMIZE);
    expect_minimised(window);
    // The window of the program that the load starts never comes, so the one that is there is taken.
    WritePrivateProfileStringW(L"fixture", L"no_window", L"1", fixtures_.folder().file(L"there.ini").c_str());
    wendlow_.load_profile(
        profile(L"p.txt", ProfileEncoder().add_program(300, 200, 400, 300, units_of(program)).name(u"P")));
    expect_placed(window, 300, 200, 400, 300);
    EXPECT_FALSE(IsIconic(window));
}

TEST_F(Loading, GivesEntriesOfOneProgramTheSameWindow)
{
    const std::wstring program = fixtures_.add(L"twice");
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(profile(L"p.txt", ProfileEncoder()
                                                .add_program(20, 30, 300, 210, units_of(program))
                                                .add_program(500, 300, 410, 310, units_of(program))
                                                .name(u"P")));
    const std::vector<HWND> windows = fixtures_.wait_for_windows(L"twice", 2);
    const RECT last{500, 300, 910, 610};
    EXPECT_TRUE(becomes_true([&] {
        int there = 0;
        for (const HWND window : windows) {
            const RECT found = rectangle_of(window);
            there += EqualRect(&found, &last) ? 1 : 0;
        }
        return there == 1;
    }));
    boxes.expect_no_boxes();
}

TEST_F(Loading, ReportsAProgramThatIsGoneAndPlacesTheOthers)
{
    const std::wstring program = fixtures_.add(L"there");
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(profile(L"p.txt", ProfileEncoder()
                                                .add_program(1, 2, 300, 200, u"C:\\gone\\program.exe")
                                                .add_program(222, 111, 400, 300, units_of(program))
                                                .name(u"P")));
    boxes.expect_boxes({programs_failed_box(1, 2)});
    EXPECT_EQ(boxes.boxes()[0].owner, wendlow_.main_window());
    expect_placed(fixtures_.wait_for_window(L"there"), 222, 111, 400, 300);
    EXPECT_EQ(profiles(), Texts{L"P"});
}

TEST_F(Loading, ReportsAProgramWhoseWindowNeverComes)
{
    const std::wstring program = fixtures_.add(L"windowless", {.no_window = true});
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(
        profile(L"p.txt", ProfileEncoder().add_program(1, 2, 300, 200, units_of(program)).name(u"P")));
    boxes.expect_boxes({{L"info", L"Not all Programs of Profile were detected after launching\n"}});
    EXPECT_EQ(profiles(), Texts{L"P"});
}

TEST_F(Loading, PlacesAFolderWindowThatWasOpenBefore)
{
    fixtures_.add(L"shows folder", {.title = L"Shows the folder"});
    const HWND open_before = fixtures_.start(L"shows folder");
    const std::wstring letters = fixtures_.folder().make_folder(L"Letters");
    FolderWindowsScript script;
    script.add(open_before, letters);
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(
        profile(L"p.txt", ProfileEncoder().add_folder(70, 40, 480, 320, units_of(letters)).name(u"P")));
    expect_placed(open_before, 70, 40, 480, 320);
    close_folder_window(L"Letters");
    boxes.expect_no_boxes();
}

TEST_F(Loading, ReportsAFolderThatIsGone)
{
    BoxWatcher boxes = wendlow_.watch_boxes();
    // The shell's own box for a folder that is gone, under Wine and on Windows.
    boxes.set_aside(L"Error");
    boxes.set_aside(L"C:\\gone\\folder");
    wendlow_.load_profile(
        profile(L"p.txt", ProfileEncoder().add_folder(70, 40, 480, 320, u"C:\\gone\\folder").name(u"P")));
    boxes.expect_boxes(
        {{L"info", L"Not all Directories were loaded\n\nNumber of Directories failed to load = "
                   L"1\nNumber of Directories in Profile = 1\nPossible reasons:\nSome "
                   L"Directories were deleted, renamed or check your access permissions"}});
    EXPECT_EQ(profiles(), Texts{L"P"});
}

TEST_F(Loading, ShowsAnEarlierNameThatBeginsTheSame)
{
    const std::u16string program = units_of(fixtures_.add(L"named"));
    const ProfileEncoder encoder = ProfileEncoder().add_program(1, 2, 300, 200, program);
    wendlow_.load_profile(profile(L"1.txt", ProfileEncoder(encoder).name(u"Office at home")));
    wendlow_.load_profile(profile(L"2.txt", ProfileEncoder(encoder).name(u"office")));
    EXPECT_EQ(profiles(), (Texts{L"Office at home", L"office"}));
    EXPECT_EQ(wendlow_.combo_shown_text(wendlow_.profile_combo()), L"Office at home");
}

TEST_F(Loading, RefusesTheNameOfThe33rdProfile)
{
    const std::wstring path =
        profile(L"p.txt", ProfileEncoder().add_program(1, 2, 0, 0, u"C:\\gone\\program.exe").name(u"P"));
    const BoxWatcher boxes = wendlow_.watch_boxes();
    for (std::size_t i = 0; i < 33; ++i) {
        wendlow_.drop_files({path});
        EXPECT_EQ(boxes.wait_for_box(i).text, programs_failed_box(1, 1).text);
        wendlow_.wait_until_idle();
    }
    const SeenBox refused = boxes.wait_for_box(33);
    EXPECT_EQ(refused.title, L"warning");
    EXPECT_EQ(refused.text, L"impossible to add string to ComboBox, max number exceeded");
    wendlow_.wait_until_idle();
    EXPECT_EQ(profiles().size(), 32u);
    EXPECT_EQ(boxes.count(), 34u);
}

TEST_F(Loading, AddsTheSameFileTwice)
{
    const std::wstring program = fixtures_.add(L"twice");
    const std::wstring path =
        profile(L"p.txt", ProfileEncoder().add_program(20, 30, 300, 210, units_of(program)).name(u"Twice"));
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.load_profile(path);
    wendlow_.load_profile(path);
    EXPECT_EQ(profiles(), (Texts{L"Twice", L"Twice"}));
    boxes.expect_no_boxes();
}

TEST_F(Loading, ShowsNothingWhenTheDialogIsCancelled)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.press_load_profile();
    cancel_file_dialog(wendlow_.process_id());
    wendlow_.wait_until_idle();
    boxes.expect_no_boxes();
    EXPECT_EQ(profiles(), Texts{});
}

// Files that are no profiles. All are refused before anything is started.
TEST_F(Loading, RefusesFilesThatAreNoProfilesAndGoesOn)
{
    const std::u16string program = units_of(fixtures_.add(L"not started"));
    const ProfileEncoder good = ProfileEncoder().add_program(20, 30, 300, 210, program).name(u"P");
    const struct {
        const char* what;
        Bytes bytes;
        ExpectedBox box;
        int result;
    } files[] = {
        {"empty", {}, empty_file_box(), -3},
        {"1 byte", {0x0C}, too_short_box(), -4},
        {"2 bytes", {0x07, 0x0C}, too_short_box(), -4},
        {"first byte of the signature", ProfileEncoder(good).signature(1, 7, 12).bytes(), signature_box(),
         -6},
        {"second byte of the signature", ProfileEncoder(good).signature(0, 8, 12).bytes(), signature_box(),
         -6},
        {"third byte of the signature", ProfileEncoder(good).signature(0, 7, 13).bytes(), signature_box(),
         -6},
        {"no windows", ProfileEncoder(good).declare_count(0).bytes(), no_windows_box(), -10},
        {"path too long", ProfileEncoder(good).declare_path_length(0, 0x10000).bytes(),
         past_end_box(0, L"path"), -11},
    };
    int number = 0;
    for (const auto& bad : files) {
        SCOPED_TRACE(bad.what);
        const BoxWatcher boxes = wendlow_.watch_boxes();
        // A refused file stays open in the program, so each has a name of its own.
        wendlow_.start_load_profile(file(L"bad" + std::to_wstring(number++) + L".txt", bad.bytes));
        boxes.expect_boxes({bad.box, command_box(bad.result)});
        wendlow_.wait_until_idle();
        EXPECT_EQ(profiles(), Texts{});
        EXPECT_EQ(wendlow_.combo_selection(wendlow_.profile_combo()), -1);
        EXPECT_EQ(wendlow_.combo_selection(wendlow_.action_combo()), -1);
    }
    EXPECT_FALSE(fixtures_.is_running(L"not started"));
    wendlow_.load_profile(profile(L"good.txt", good));
    EXPECT_EQ(profiles(), Texts{L"P"});
}

TEST_F(Loading, DropLoadsTheFirstFileOnly)
{
    const std::u16string program = units_of(fixtures_.add(L"dropped"));
    const auto named = [&](const std::u16string& name) {
        return ProfileEncoder().add_program(20, 30, 300, 210, program).name(name);
    };
    const BoxWatcher boxes = wendlow_.watch_boxes();
    wendlow_.drop_files({profile(L"2.txt", named(u"Second")), profile(L"1.txt", named(u"First")),
                         profile(L"3.txt", named(u"Third"))});
    wait_until([&] { return fixtures_.windows_of(L"dropped").size() == 1; }, kLongWait, "the program");
    wendlow_.wait_until_idle();
    EXPECT_EQ(profiles(), Texts{L"Second"});
    expect_placed(fixtures_.wait_for_window(L"dropped"), 20, 30, 300, 210);
    EXPECT_EQ(fixtures_.processes_of(L"dropped").size(), 1u);
    boxes.expect_no_boxes();
}

TEST_F(Loading, DropOfSomethingElseIsReportedTwice)
{
    const std::wstring missing = folder_.file(L"missing.txt");
    const struct {
        const char* what;
        std::wstring path;
        ExpectedBox box;
    } drops[] = {
        {"no profile", file(L"text.txt", {'t', 'e', 'x', 't'}), signature_box()},
        {"a folder", folder_.path(), not_opened_box()},
        {"a file that does not exist", missing, empty_file_box()},
    };
    for (const auto& drop : drops) {
        SCOPED_TRACE(drop.what);
        const BoxWatcher boxes = wendlow_.watch_boxes();
        wendlow_.drop_files({drop.path});
        boxes.expect_boxes({drop.box, drop_box()});
        wendlow_.wait_until_idle();
        EXPECT_EQ(profiles(), Texts{});
    }
    // The one that did not exist has been created.
    EXPECT_TRUE(file_exists(missing));
}

} // namespace
