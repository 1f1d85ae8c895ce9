#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/basics/platform.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/processes/planted_libraries.h"
#include "tests/support/processes/started_process.h"

using namespace test_support;
using Names = std::vector<std::wstring>;

namespace
{

// Starts the program in its folder and waits for its end.
void run(const PlantedLibraries& planted, const std::wstring& arguments)
{
    StartedProcess(planted.program(), {.arguments = arguments, .folder = planted.folder().path()})
        .wait_for_exit(kShortWait);
}

} // namespace

TEST(PlantedLibraries, AreLoadedByAProgramThatNamesThem)
{
    PlantedLibraries planted(unguarded_program_path());
    planted.plant({L"dwmapi.dll", L"msimg32.dll", L"propsys.dll", L"userenv.dll"});
    run(planted, L"");
    EXPECT_EQ(planted.loaded(), Names{L"msimg32.dll"});
    run(planted, L"userenv.dll propsys.dll");
    EXPECT_EQ(planted.loaded(), (Names{L"msimg32.dll", L"propsys.dll", L"userenv.dll"}));
    EXPECT_EQ(planted.needed_to_start(), Names{L"msimg32.dll"});
}

TEST(PlantedLibraries, RestoreTheSettings)
{
    ONLY_UNDER_WINE("Windows needs no setting to look beside a program");
    const auto has_setting = [] {
        return RegGetValueW(HKEY_CURRENT_USER,
                            L"Software\\Wine\\AppDefaults\\unguarded_program.exe\\DllOverrides", L"version",
                            RRF_RT_REG_SZ, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    };
    {
        PlantedLibraries planted(unguarded_program_path());
        planted.plant({L"version.dll"});
        EXPECT_TRUE(has_setting());
    }
    EXPECT_FALSE(has_setting());
}
