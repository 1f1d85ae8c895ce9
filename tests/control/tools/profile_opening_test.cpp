// The tools' side of the program: the hand-over of a profile to the real main window, and what
// wendlow-profile says of a file against what the program shows.
#include <windows.h>

#include <gtest/gtest.h>

#include <map>

#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/profiles/hostile_files.h"
#include "tests/support/windows/control_ids.h"
#include "tools/wendlow_profile/contents/checking.h"
#include "tools/wendlow_profile/system/opening.h"

namespace
{

using namespace profile_tests;
using namespace test_support;
using main_tests::MainWindowFixture;

class ProfileOpening : public testing::Test
{
protected:
    ~ProfileOpening() override { SetCurrentDirectoryW(before_.c_str()); }

    // A profile of one folder entry, whose window is there already.
    std::wstring write_profile(const std::wstring& name)
    {
        const std::wstring path = files.file(name);
        write_file(path, ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"Dropped").bytes());
        return path;
    }

    // The names in the Profile list once the messages that are waiting have been handled.
    static std::vector<std::wstring> profiles_after_messages(const MainWindowFixture& main)
    {
        pump_messages();
        return combo_texts(main.control(main_control::kProfile));
    }

    TemporaryFolder files;
    NothingStarts starts; // of the program, and of the tool
    ComApartment com;
    StandInRegistration stand_in;
    FolderWindowsScript folders;
    TestWindow folder_window{L"folder"};

private:
    static std::wstring current_folder()
    {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(GetCurrentDirectoryW(MAX_PATH, path.data()));
        return path;
    }
    std::wstring before_ = current_folder();
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(ProfileOpening, DropsAFileOnTheMainWindow)
{
    folders.add(folder_window, L"C:\\windows");
    const MainWindowFixture main;
    const BoxWatcher boxes;
    EXPECT_TRUE(profile_tool::post_drop(main.window, write_profile(L"p.txt")));
    EXPECT_EQ(combo_texts(main.control(main_control::kProfile)), Names()); // posted, so not yet done
    EXPECT_EQ(profiles_after_messages(main), Names{L"Dropped"});
    boxes.expect_no_boxes();
}

TEST_F(ProfileOpening, HandsAFileToTheProgramThatRuns)
{
    folders.add(folder_window, L"C:\\windows");
    const MainWindowFixture main;
    const BoxWatcher boxes;
    EXPECT_EQ(profile_tool::find_wendlow(), main.window);
    write_profile(L"a name with spaces \u4E2D.txt");
    // The program has a current folder of its own.
    SetCurrentDirectoryW(files.path().c_str());
    EXPECT_EQ(profile_tool::open_in_wendlow(L".\\a name with spaces \u4E2D.txt"), std::nullopt);
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_EQ(profiles_after_messages(main), Names{L"Dropped"});
    EXPECT_EQ(starts.programs, 0);
    boxes.expect_no_boxes();
}

TEST_F(ProfileOpening, AsksNothingOfTheProgramForAFileThatIsNotThere)
{
    const MainWindowFixture main;
    const BoxWatcher boxes;
    const std::wstring gone = files.file(L"gone.txt");
    const std::optional<std::wstring> wrong = profile_tool::open_in_wendlow(gone);
    ASSERT_TRUE(wrong);
    EXPECT_TRUE(wrong->starts_with(L"cannot be found: ")) << printable(*wrong);
    EXPECT_EQ(profile_tool::open_in_wendlow(files.path()), L"is a folder, not a profile");
    EXPECT_EQ(profiles_after_messages(main), Names());
    EXPECT_FALSE(file_exists(gone));
    boxes.expect_no_boxes();
}

TEST_F(ProfileOpening, StartsTheProgramFromBesideItselfWhenNoneRuns)
{
    ASSERT_EQ(profile_tool::find_wendlow(), nullptr);
    const std::optional<std::wstring> wrong = profile_tool::open_in_wendlow(write_profile(L"p.txt"));
    EXPECT_EQ(starts.programs, 1);
    ASSERT_TRUE(wrong);
    EXPECT_TRUE(wrong->starts_with(L"is not loaded, Wendlow cannot be started: ")) << printable(*wrong);
    EXPECT_NE(wrong->find(L"\\wendlow.exe: "), std::wstring::npos) << printable(*wrong);
}

TEST_F(ProfileOpening, SaysThatAWindowIsGone)
{
    HWND gone = nullptr;
    {
        const TestWindow window(L"gone");
        gone = window.get();
    }
    EXPECT_FALSE(profile_tool::post_drop(gone, L"C:\\p.txt"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST(ProfileCheck, NamesTheBoxThatTheProgramShows)
{
    std::map<int, int> lines;
    for (const hostile::HostileFile& file : hostile::hostile_files(u"C:\\windows\\notepad.exe")) {
        const std::vector<profile_tool::Refusal> refusals = profile_tool::refusals_of(file.bytes);
        ASSERT_FALSE(refusals.empty()) << file.what;
        const profile_tool::Refusal& first = refusals.front();
        EXPECT_EQ(printable(file.refusal.box.text),
                  "error\n\nfile:\nsources/"
                  "funcs_layout_windows\n\nfunction:\nonButton_LoadProfile_clicked\n\nline:\n" +
                      std::to_string(first.line) + "\n\n" + first.box + "\n\nline of error handler:\n" +
                      std::to_string(first.handler_line))
            << file.what;
        EXPECT_EQ(file.refusal.box.title, L"error");
        ++lines[first.line];
    }
    EXPECT_EQ(lines.size(), 5U);
}
