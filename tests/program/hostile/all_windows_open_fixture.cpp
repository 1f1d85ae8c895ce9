#include "tests/program/hostile/all_windows_open_fixture.h"

#include <algorithm>

#include "tests/support/basics/text.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

namespace hostile
{

using namespace test_support;

AllWindowsOpenFixture::AllWindowsOpenFixture()
    : neighbours_({{.title = L"Edited", .place = {600, 500, 901, 702}}}), boxes_(wendlow_.watch_boxes())
{
    const std::wstring path = folder_.file(L"good.txt");
    write_file(path, good_profile());
    wendlow_.drop_files({path});
    wait_until([&] { return wendlow_.combo_texts(wendlow_.profile_combo()).size() == 1; }, kLongWait,
               "the profile");
    wendlow_.scan();
    wendlow_.tick(L"Edited");
    wendlow_.open_modify_cell(wendlow_.row_of(L"Edited"), 2);
    SetDlgItemTextW(wendlow_.modify_cell_window(), 0, L"12");
    wendlow_.press_create_profile();
    wendlow_.enter_name(L"A name");
    list_window_ = wendlow_.list_window();
    name_window_ = wendlow_.name_window();
    modify_cell_window_ = wendlow_.modify_cell_window();
    windows_ = {wendlow_.main_window(), list_window_, name_window_, modify_cell_window_,
                wendlow_.list_view().window()};
    before_ = state();
}

Bytes AllWindowsOpenFixture::good_profile()
{
    return ProfileEncoder().add({.flag = 7, .path = u"C:\\neither"}).name(u"Good").bytes();
}

std::string AllWindowsOpenFixture::state() const
{
    Texts seen;
    for (const HWND window : top_level_windows_of(wendlow_.process_id())) {
        if (IsWindowVisible(window))
            seen.push_back(class_of(window) + L": " + title_of(window));
    }
    std::sort(seen.begin(), seen.end()); // which lies above which does not matter
    for (const HWND combo : {wendlow_.profile_combo(), wendlow_.action_combo()}) {
        seen.push_back(std::to_wstring(wendlow_.combo_selection(combo)) + L" of:");
        for (const std::wstring& text : wendlow_.combo_texts(combo))
            seen.push_back(text);
    }
    const RemoteListView list = wendlow_.list_view();
    for (int row = 0; row < list.row_count(); ++row) {
        for (const std::wstring& cell : list.row(row))
            seen.push_back(cell);
        seen.push_back(list.is_ticked(row) ? L"ticked" : L"not ticked");
    }
    for (const int edit : {0, 1, 2, 3})
        seen.push_back(text_of(GetDlgItem(wendlow_.modify_cell_window(), edit)));
    seen.push_back(text_of(GetDlgItem(wendlow_.name_window(), name_control::kName)));
    std::string lines;
    for (const std::wstring& line : seen)
        lines += printable(line) + "\n";
    return lines;
}

LRESULT AllWindowsOpenFixture::send_data(HWND window, HWND sender, ULONG_PTR kind, void* bytes, DWORD size)
{
    COPYDATASTRUCT data{.dwData = kind, .cbData = size, .lpData = size != 0 ? bytes : nullptr};
    return answer_of(window, WM_COPYDATA, reinterpret_cast<WPARAM>(sender), reinterpret_cast<LPARAM>(&data));
}

void AllWindowsOpenFixture::expect_all_as_before()
{
    wendlow_.wait_until_idle();
    ASSERT_TRUE(wendlow_.is_running());
    EXPECT_EQ(state(), before_);
}

bool AllWindowsOpenFixture::is_command_of(HWND window, unsigned id, unsigned code, HWND control) const
{
    if (window == wendlow_.main_window())
        return code == 0 && (id == 1 || id == 2 || (control == nullptr && id >= 3 && id <= 9));
    if (window == list_window_)
        return code == 0 && (id == 1 || id == 2 || (control == nullptr && id == 101));
    if (window == name_window_)
        return code == 0 && (id == 1 || id == 2);
    if (window == modify_cell_window_)
        return code == 0 && (id == 4 || id == 5);
    return false;
}

} // namespace hostile
