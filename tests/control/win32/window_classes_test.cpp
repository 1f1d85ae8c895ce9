#include "sources/win32/window_classes.h"

#include <gtest/gtest.h>

#include "sources/wnd_ScanListView/create_wnd_ModifyCell.h"
#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"

// Window classes that are registered when their window is opened for the first time.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::FailingImport;

using Registrations = FailingImport<"RegisterClassExW", decltype(RegisterClassExW)>;

bool is_known(const wchar_t* class_name)
{
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    return GetClassInfoExW(GetModuleHandleW(nullptr), class_name, &description) != FALSE;
}

// Opens a window three times; the system refuses its class at the first.
template <typename Open> void expect_registered_at_the_second_opening(const wchar_t* class_name, Open open)
{
    if (is_known(class_name))
        GTEST_SKIP() << "an earlier test of this process has opened the window";
    const BoxWatcher boxes;
    {
        const Registrations registrations("user32.dll", 1, 0, ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_EQ(open(), nullptr);
        EXPECT_FALSE(is_known(class_name));
        const HWND second = open();
        EXPECT_NE(second, nullptr);
        DestroyWindow(second);
        EXPECT_EQ(registrations.calls(), 2);
        const HWND third = open();
        EXPECT_NE(third, nullptr);
        DestroyWindow(third);
        EXPECT_EQ(registrations.calls(), 2);
    }
}

} // namespace

TEST(WindowClasses, CountAsRegisteredOnceTheSystemHasAcceptedThem)
{
    constexpr wchar_t name[] = L"WindowClassTest";
    HINSTANCE const instance = GetModuleHandleW(nullptr);
    bool registered = false;
    const Registrations registrations("user32.dll", 1, 0, ERROR_NOT_ENOUGH_MEMORY);
    register_secondary_window_class_once(instance, name, DefWindowProcW, &registered);
    EXPECT_FALSE(registered);
    EXPECT_FALSE(is_known(name));
    register_secondary_window_class_once(instance, name, DefWindowProcW, &registered);
    EXPECT_TRUE(registered);
    EXPECT_TRUE(is_known(name));
    register_secondary_window_class_once(instance, name, DefWindowProcW, &registered);
    EXPECT_EQ(registrations.calls(), 2);
    UnregisterClassW(name, instance);
}

TEST(WindowClasses, OfTheNameWindowAreRegisteredAgainAfterAFailure)
{
    const Owner owner;
    expect_registered_at_the_second_opening(L"Name of Profile Window",
                                            [&] { return create_wnd_ProfileName(owner.window()); });
}

TEST(WindowClasses, OfModifyCellAreRegisteredAgainAfterAFailure)
{
    const Owner owner;
    const HitCell_STR cell{};
    expect_registered_at_the_second_opening(
        L"Modify Cell Window", [&] { return create_wnd_ModifyCell(owner.window(), owner.window(), &cell); });
}
