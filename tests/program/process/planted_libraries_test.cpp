#include <windows.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/basics/platform.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/processes/planted_libraries.h"
#include "tests/support/processes/started_process.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/remote_memory.h"
#include "tests/support/windows/windows_lookup.h"

// Who can write to the folder of the program, often that of downloads, must not get code into it that way.

using namespace test_support;
using Names = std::vector<std::wstring>;

namespace
{

Names libraries(const wchar_t* names)
{
    Names all;
    std::wistringstream words(names);
    for (std::wstring name; words >> name;)
        all.push_back(name + L".dll");
    return all;
}

// What programs were seen to load from beside themselves, and what a file dialog and the shell bring in.
const Names kUsualNames = libraries(
    L"apphelp bcrypt comctl32 comdlg32 coremessaging coreuicomponents cryptbase cryptsp cscapi dbghelp "
    L"dwmapi edputil explorerframe iertutil iphlpapi linkinfo mpr netapi32 netutils ntmarta ntshrui oleacc "
    L"oleaut32 powrprof profapi propsys riched20 samcli secur32 shfolder srvcli sspicli textinputframework "
    L"textshaping thumbcache twinapi urlmon userenv windows.storage windowscodecs wininet winmm wintypes "
    L"wtsapi32");

// Wine's own libraries need these from the start, or take them from beside the program whatever it has asked
// for; Windows' look for them as the program says, or are known libraries, whose needs are known libraries
// too.
const Names kNamesOnWindows = libraries(L"msimg32 uxtheme version");

void plant_usual_names(PlantedLibraries& planted)
{
    planted.plant(kUsualNames);
    if (!under_wine())
        planted.plant(kNamesOnWindows);
}

// Lets the program ask for every library by its bare name, as shell extensions and Windows itself do in it.
void load_usual_names_inside(HANDLE process, HWND window)
{
    const auto load = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW")));
    for (const std::wstring& name : kUsualNames) {
        const std::size_t bytes = (name.size() + 1) * sizeof(wchar_t);
        const RemoteMemory text(window, bytes);
        text.write(0, name.c_str(), bytes);
        const HANDLE thread = CreateRemoteThread(process, nullptr, 0, load, text.address(), 0, nullptr);
        ASSERT_NE(thread, nullptr);
        EXPECT_EQ(WaitForSingleObject(thread, kShortWait), WAIT_OBJECT_0);
        CloseHandle(thread);
    }
}

} // namespace

TEST(PlantedLibraries, BesideTheProgramAreNotLoaded)
{
    PlantedLibraries planted(wendlow_path());
    plant_usual_names(planted);
    const WendlowProcess wendlow(planted.program());
    EXPECT_EQ(planted.loaded(), Names{}) << "at the start";

    wendlow.scan();
    EXPECT_EQ(planted.loaded(), Names{}) << "during a scan";

    wendlow.press_load_profile();
    cancel_file_dialog(wendlow.process_id());
    EXPECT_EQ(planted.loaded(), Names{}) << "while a file dialog opens";

    load_usual_names_inside(wendlow.process(), wendlow.main_window());
    EXPECT_EQ(planted.loaded(), Names{}) << "by their names";
}

TEST(PlantedLibraries, AreNotNeededToStart)
{
    PlantedLibraries planted(wendlow_path());
    planted.plant({L"msimg32.dll"});
    const WendlowProcess wendlow(planted.program());
    EXPECT_EQ(planted.needed_to_start(), Names{});
}

TEST(PlantedLibraries, BesideTheToolWithoutAConsoleAreNotLoaded)
{
    if (!file_exists(path_beside_wendlow(L"wendlow-open.exe")))
        GTEST_SKIP() << "the tools were not built";
    PlantedLibraries planted(path_beside_wendlow(L"wendlow-open.exe"));
    plant_usual_names(planted);
    const StartedProcess tool(planted.program());
    // Without a file named it says so in a box, and stays while that is open.
    HWND box = nullptr;
    EXPECT_TRUE(becomes_true([&] { return (box = find_window(tool.id(), L"#32770")) != nullptr; }));
    if (box != nullptr)
        load_usual_names_inside(tool.handle(), box);
    EXPECT_EQ(planted.loaded(), Names{});
    terminate_process(tool.id());
}
