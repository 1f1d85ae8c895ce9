#include "tests/demo/demo_user.h"

#include "tests/support/basics/waiting.h"
#include "tests/support/input/real_input.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/windows/windows_lookup.h"

namespace demo
{

using namespace test_support;

// While a load goes on the program does not answer.
void wait_for_profile_names(const WendlowProcess& wendlow, std::size_t count)
{
    wait_until(
        [&] {
            DWORD_PTR names = 0;
            return SendMessageTimeoutW(wendlow.profile_combo(), CB_GETCOUNT, 0, 0, SMTO_NORMAL, 100,
                                       &names) &&
                   names == count;
        },
        2 * kLongWait, "the profile to be loaded");
    wendlow.wait_until_idle();
}

HWND open_cell_menu(const WendlowProcess& wendlow, int row, int column)
{
    right_click(wendlow.list_view().cell_centre(row, column));
    return wait_for([&] { return find_window(wendlow.process_id(), L"#32768"); }, kShortWait,
                    "the popup menu of the list");
}

HWND choose_modify_cell(const WendlowProcess& wendlow, HWND menu)
{
    click(centre_of(menu));
    return wait_for([&] { return wendlow.modify_cell_window(); }, kShortWait, "Modify Cell");
}

void choose_action(const WendlowProcess& wendlow, Action action)
{
    const HWND actions = wendlow.action_combo();
    click(actions);
    press_key(VK_HOME);
    for (int i = 0; i < action; ++i)
        press_key(VK_DOWN);
    wait_until([&] { return wendlow.combo_selection(actions) == action; }, kShortWait,
               "the action to be chosen");
}

void press_apply(const WendlowProcess& wendlow)
{
    press_key(VK_RETURN);
    wendlow.wait_until_idle();
    click(wendlow.apply_button());
    wendlow.wait_until_idle();
}

void apply_action(const WendlowProcess& wendlow, Action action)
{
    choose_action(wendlow, action);
    press_apply(wendlow);
}

} // namespace demo
