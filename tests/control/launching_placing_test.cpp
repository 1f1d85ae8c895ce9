#include "sources/funcs_layout_windows/launching.h"

#include <gtest/gtest.h>

#include "tests/control/profile_desk.h"
#include "tests/support/fixture_programs.h"

// The order in which a load places its windows, and which window it restores.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::FixturePrograms;
using test_support::ImportHook;
using test_support::ProfileEncoder;
using test_support::units_of;

// Calls of this thread that place windows, in order, as text: "restore <window>", "move <window> x,y wxh".
// Windows are named by their position in `known`, "0" for none and "?" for others.
class RecordedPlacing
{
public:
    explicit RecordedPlacing(std::vector<HWND> known) : known_(std::move(known)) {}
    std::vector<std::string> calls;

private:
    std::string name(HWND window) const
    {
        for (std::size_t i = 0; i < known_.size(); ++i)
            if (known_[i] == window)
                return std::string(1, static_cast<char>('a' + i));
        return window ? "?" : "0";
    }

    std::vector<HWND> known_;
    ImportHook<"ShowWindow", decltype(ShowWindow)> show_{
        "user32.dll", [this](HWND window, int command) {
            calls.push_back("show " + std::to_string(command) + " " + name(window));
            return TRUE;
        }};
    ImportHook<"SetForegroundWindow", decltype(SetForegroundWindow)> front_{
        "user32.dll", [this](HWND window) {
            calls.push_back("front " + name(window));
            return TRUE;
        }};
    ImportHook<"MoveWindow", decltype(MoveWindow)> move_{
        "user32.dll", [this](HWND window, int x, int y, int width, int height, BOOL repaint) {
            calls.push_back("move " + name(window) + " " + std::to_string(x) + "," + std::to_string(y) + " " +
                            std::to_string(width) + "x" + std::to_string(height) +
                            (repaint ? "" : " silently"));
            return TRUE;
        }};
};

} // namespace

TEST(Launching, PlacesProgramsFirstAndRestoresTheLastOneForAMinimisedFolder)
{
    ProfileDesk desk;
    RecordedFolderStarts starts;
    FixturePrograms programs;
    const OwnWindow minimised(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    const OwnWindow plain(L"plain folder");
    desk.folders.add(minimised, L"C:\\windows").add(plain, L"C:\\windows\\system32");
    ASSERT_TRUE(IsIconic(minimised));
    const HWND first = [&] {
        programs.add(L"first", {.minimised = true});
        return programs.start(L"first");
    }();
    const std::u16string last_path = units_of(programs.add(L"last"));
    const HWND last = programs.start(L"last");
    ASSERT_TRUE(becomes_iconic(first));

    // The windows that are there already are found; starting more of them would only add others.
    const ImportHook<"CreateProcessW", decltype(CreateProcessW)> start("kernel32.dll",
                                                                       [](auto...) { return TRUE; });
    const RecordedPlacing placing({first, last, minimised, plain});
    BoxWatcher boxes;
    EXPECT_EQ(desk.load(ProfileEncoder()
                            .add_folder(1, 2, 301, 201, u"C:\\windows")
                            .add_program(3, 4, 302, 202, units_of(programs.path_of(L"first")))
                            .add_folder(5, 6, 0, 203, u"C:\\windows\\system32")
                            .add_program(7, 8, 304, 204, last_path)
                            .name(u"Order")
                            .bytes()),
              1);
    EXPECT_EQ(placing.calls,
              (std::vector<std::string>{"show 9 a", "front a", "move a 3,4 302x202", "move b 7,8 304x204",
                                        "show 9 b", "front c", "move c 1,2 301x201", "show 6 d"}));
}

TEST(Launching, RestoresNoWindowForAMinimisedFolderOfAProfileWithoutPrograms)
{
    ProfileDesk desk;
    RecordedFolderStarts starts;
    const OwnWindow minimised(L"minimised folder", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    desk.folders.add(minimised, L"C:\\windows");
    const RecordedPlacing placing({minimised});
    BoxWatcher boxes;
    EXPECT_EQ(desk.load(ProfileEncoder().add_folder(1, 2, 301, 201, u"C:\\windows").name(u"F").bytes()), 1);
    EXPECT_EQ(placing.calls, (std::vector<std::string>{"show 9 0", "front a", "move a 1,2 301x201"}));
}
