#include "sources/funcs_layout_windows/shell_folder_walk.h"

#include <gtest/gtest.h>

#include "tests/support/import_patch.h"

// The shell's list and COM, which the main window uninitialises when it is closed; a message may close it
// while the shell is asked.

using test_support::ImportHook;

namespace
{

bool com_is_initialised()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return SUCCEEDED(CoGetApartmentType(&type, &qualifier));
}

} // namespace

TEST(ShellList, HoldsComFromBeforeItIsMadeUntilItIsGone)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    bool held = false;
    const ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
        "ole32.dll", [&](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID interface_id, LPVOID* created) {
            CoUninitialize();
            held = com_is_initialised();
            return create.call_original(id, outer, context, interface_id, created);
        });
    {
        ShellWindowsList list;
        EXPECT_EQ(open_shell_windows(&list), S_OK);
        EXPECT_TRUE(held);
        EXPECT_TRUE(list.windows);
        EXPECT_TRUE(com_is_initialised());
        count_shell_windows(list);
    }
    EXPECT_FALSE(com_is_initialised());
}

TEST(ShellList, IsNotMadeWhereComWasNeverInitialised)
{
    ASSERT_FALSE(com_is_initialised());
    ShellWindowsList list;
    EXPECT_EQ(open_shell_windows(&list), CO_E_NOTINITIALIZED);
    EXPECT_FALSE(list.windows);
    EXPECT_FALSE(com_is_initialised());
}
