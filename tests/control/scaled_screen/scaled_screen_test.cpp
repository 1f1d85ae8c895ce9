#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/funcs_layout_windows/profiles/apply_command.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/saved_profile_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/thread_scale.h"
#include "tests/support/windows/windows_lookup.h"

// Numbers on a screen at another scale than 96 dots per inch; scripts/wine-session --scale makes one. The
// thread of the tests has the scale of a program that knows of none, so that the system converts what it is
// told and what it tells, other than inside the program's own commands.

namespace
{

using namespace profile_tests;
using scan_tests::Desktop;
using scan_tests::ScanFixture;
using test_support::FixturePrograms;
using test_support::hex;
using test_support::ProfileEncoder;
using test_support::read_file;
using test_support::TemporaryFolder;
using test_support::ThreadScale;
using test_support::units_of;

struct RealScale : ThreadScale {
    RealScale() : ThreadScale(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE) {}
};

int screen_width()
{
    return GetSystemMetrics(SM_CXSCREEN);
}

std::string real_place_of(HWND window)
{
    const RealScale real;
    return place_of(window);
}

std::string real_place_once_it_is(HWND window, const std::string& expected)
{
    const RealScale real;
    return place_once_it_is(window, expected);
}

struct ScaledScreen : testing::Test {
    void SetUp() override
    {
        const int width = screen_width();
        const RealScale real;
        if (width == screen_width())
            GTEST_SKIP() << "the screen is not scaled";
    }

    // Sides that are no multiples of the scale: converted there and back they would be others.
    static TestWindow window_at_151_182()
    {
        const RealScale real;
        return TestWindow(L"real", RECT{151, 182, 151 + 481, 182 + 361});
    }

    const ThreadScale own{DPI_AWARENESS_CONTEXT_UNAWARE};
};

} // namespace

TEST_F(ScaledScreen, ConvertsWhatAThreadWithoutRealPixelsSees)
{
    const TestWindow window = window_at_151_182();
    EXPECT_EQ(real_place_of(window), "151,182 481x361");
    EXPECT_NE(place_of(window), "151,182 481x361");
}

TEST_F(ScaledScreen, ListsRealPixelsAndSavesThem)
{
    ScanFixture fixture;
    const TestWindow window = window_at_151_182();
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    const std::vector<std::wstring> row = fixture.list().row(0);
    EXPECT_EQ(std::vector(row.begin() + 2, row.begin() + 6),
              (std::vector<std::wstring>{L"151", L"182", L"481", L"361"}));

    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"saved.txt");
    AnsweredSaveDialog dialog(path);
    fixture.list().set_ticked(0, true);
    fixture.press(list_control::kCreateProfile);
    enter_name(name_window(), L"Scaled");
    EXPECT_EQ(hex(read_file(path)),
              hex(ProfileEncoder()
                      .add_program(151, 182, 481, 361, units_of(scan_tests::own_image_path()))
                      .name(u"Scaled")
                      .bytes()));
}

TEST_F(ScaledScreen, MovesToRealPixels)
{
    ScanFixture fixture;
    const TestWindow window = window_at_151_182();
    const Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    fixture.list().set_ticked(0, true);
    {
        const RealScale real;
        MoveWindow(window, 10, 20, 700, 300, TRUE);
    }
    fixture.press(list_control::kMove);
    EXPECT_EQ(real_place_once_it_is(window, "151,182 481x361"), "151,182 481x361");
}

TEST_F(ScaledScreen, PlacesALoadedProgramAtRealPixels)
{
    ProfileFixture fixture;
    FixturePrograms programs;
    const std::u16string path = units_of(programs.add(L"placed"));
    const HWND window = [&] {
        EXPECT_EQ(fixture.load(ProfileEncoder().add_program(151, 182, 481, 361, path).name(u"P").bytes()), 1);
        return programs.wait_for_window(L"placed");
    }();
    EXPECT_EQ(real_place_once_it_is(window, "151,182 481x361"), "151,182 481x361");
}

TEST_F(ScaledScreen, RestoresToRealPixels)
{
    ProfileFixture fixture;
    const TestWindow window = window_at_151_182();
    const auto file = ProfileEncoder().add_program(211, 92, 391, 271, u"C:\\a.exe").name(u"a").bytes();
    const HWND handle = window;
    ASSERT_EQ(add_profile_data_to_DynMem(&fixture.store, &handle, &handle,
                                         static_cast<std::uint32_t>(file.size()), file.data(), 0, 1),
              1);
    EXPECT_EQ(Restore_Move_Size_wnds_Profile(&fixture.store, 0), 1);
    EXPECT_EQ(real_place_once_it_is(window, "211,92 391x271"), "211,92 391x271");
}
