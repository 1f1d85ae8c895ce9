#include <windows.h>

#include <gtest/gtest.h>

#include <shlobj.h>

#include <algorithm>
#include <functional>

#include "tests/program/hostile_windows.h"
#include "tests/support/box_watcher.h"
#include "tests/support/file_dialogs.h"
#include "tests/support/files.h"
#include "tests/support/profile_encoder.h"
#include "tests/support/remote_memory.h"
#include "tests/support/text.h"
#include "tests/support/wendlow_process.h"
#include "tests/support/windows_lookup.h"

using namespace test_support;
using hostile::Neighbours;

namespace
{

using Texts = std::vector<std::wstring>;

HWND made_up(std::uintptr_t value)
{
    return reinterpret_cast<HWND>(value);
}

std::wstring text_of(HWND control)
{
    std::wstring text(1024, L'\0');
    DWORD_PTR units = 0;
    SendMessageTimeoutW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                        kShortWait, &units);
    text.resize(units);
    return text;
}

// All of the program's windows are open, each holding something of the user's.
class HostileMessages : public testing::Test
{
protected:
    HostileMessages()
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

    // Of a kind that is neither started nor opened.
    static Bytes good_profile()
    {
        return ProfileEncoder().add({.flag = 7, .path = u"C:\\neither"}).name(u"Good").bytes();
    }

    // Everything that the program shows.
    std::string state() const
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
        seen.push_back(text_of(GetDlgItem(wendlow_.name_window(), 3)));
        std::string lines;
        for (const std::wstring& line : seen)
            lines += printable(line) + "\n";
        return lines;
    }

    // The answer of the program, which must come.
    LRESULT send(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        DWORD_PTR answer = 0;
        if (!SendMessageTimeoutW(window, message, wide, narrow, SMTO_NORMAL, 2 * kShortWait, &answer))
            throw Failure("no answer to message " + std::to_string(message) + ", " + std::to_string(wide) +
                          ", " + std::to_string(narrow));
        return static_cast<LRESULT>(answer);
    }

    LRESULT send_data(HWND window, HWND sender, ULONG_PTR kind, void* bytes, DWORD size)
    {
        COPYDATASTRUCT data{.dwData = kind, .cbData = size, .lpData = size != 0 ? bytes : nullptr};
        return send(window, WM_COPYDATA, reinterpret_cast<WPARAM>(sender), reinterpret_cast<LPARAM>(&data));
    }

    void expect_all_as_before()
    {
        wendlow_.wait_until_idle();
        ASSERT_TRUE(wendlow_.is_running());
        EXPECT_EQ(state(), before_);
    }

    // Whether this is what a control or a menu of the window sends.
    bool is_command_of(HWND window, unsigned id, unsigned code, HWND control) const
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

    Neighbours neighbours_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
    BoxWatcher boxes_;
    HWND list_window_ = nullptr;
    HWND name_window_ = nullptr;
    HWND modify_cell_window_ = nullptr;
    std::vector<HWND> windows_; // all five that take messages
    std::string before_;
};

TEST_F(HostileMessages, CommandsOfWrongIdsCodesAndControlsDoNothing)
{
    const HWND controls[] = {nullptr,
                             neighbours_[0],
                             GetDesktopWindow(),
                             made_up(0xDEADBEEF),
                             made_up(~std::uintptr_t{0}),
                             GetDlgItem(list_window_, 1),
                             GetDlgItem(name_window_, 1)};
    int sent = 0;
    for (const HWND window : windows_) {
        for (const unsigned id :
             {0U,  1U,   2U,   3U,   4U,   5U,   6U,   7U,   8U,   9U,      10U,     11U,
              99U, 100U, 101U, 102U, 200U, 201U, 255U, 256U, 257U, 0x7FFFU, 0x8000U, 0xFFFFU}) {
            for (const unsigned code : {0U, 1U, 2U, 3U, 5U, 6U, 7U, 0x100U, 0x8000U, 0xFFFFU}) {
                for (const HWND control : controls) {
                    if (is_command_of(window, id, code, control))
                        continue;
                    PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
                    ++sent;
                }
            }
        }
        wendlow_.wait_until_idle(); // a queue has an end
    }
    EXPECT_GT(sent, 5000);
    expect_all_as_before();
    boxes_.expect_no_boxes();
}

TEST_F(HostileMessages, DataOfWrongSizesAndSendersIsRefused)
{
    const HWND senders[] = {
        neighbours_[0], GetDesktopWindow(),  made_up(0xDEADBEEF),        wendlow_.main_window(),
        list_window_,   modify_cell_window_, GetDlgItem(name_window_, 1)};
    Bytes bytes(1 << 20, 'A');
    for (const HWND window : windows_) {
        for (const HWND sender : senders) {
            for (const ULONG_PTR kind :
                 {ULONG_PTR{0}, ULONG_PTR{1}, ULONG_PTR{0x1'0000'0000}, ~ULONG_PTR{0}}) {
                for (const DWORD size : {0U, 1U, 15U, 16U, 17U, 512U, 514U, 1U << 20}) {
                    const LRESULT answer = send_data(window, sender, kind, bytes.data(), size);
                    if (window == list_window_) {
                        // Only data of the kind 0 can be a name.
                        EXPECT_EQ(answer, static_cast<DWORD>(kind) == 0 ? FALSE : TRUE)
                            << kind << " " << size;
                    }
                }
            }
        }
    }
    expect_all_as_before();
    boxes_.expect_no_boxes();
}

ExpectedBox list_box(const std::wstring& function, int line, const std::wstring& detail, int handler)
{
    return {L"error", L"error\n\nfile:\nsources/wnd_ScanListView\nfunction:\n" + function + L"\nline:\n" +
                          std::to_wstring(line) + L"\n\n" + detail + L"\nline of error handler:" +
                          std::to_wstring(handler)};
}

// As it is printed: 16 digits.
std::wstring pointer(HWND window)
{
    wchar_t digits[17] = {};
    swprintf(digits, 17, L"%016llX",
             static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(window)));
    return digits;
}

TEST_F(HostileMessages, NamesWithoutASenderAreReportedAndNothingElse)
{
    Bytes bytes(2048, 'A');
    for (const DWORD size : {1U, 511U, 512U, 513U, 2048U}) {
        SCOPED_TRACE(size);
        boxes_.forget();
        EXPECT_EQ(send_data(list_window_, nullptr, 0, bytes.data(), size), FALSE);
        // The box of what takes the name, and the list's own. The addresses of two records are its secret.
        boxes_.wait_for_box(1);
        const std::vector<SeenBox> seen = boxes_.boxes();
        const std::size_t addresses = seen[0].text.find(L"pSTR_ENUM_WNDS_DATA = ");
        ASSERT_NE(addresses, std::wstring::npos);
        boxes_.expect_boxes(
            {list_box(
                 L"on_WM_COPYDATA_on_wnd_NameOfProfile", 1908,
                 L"error, incorrect input parameters\nhwnd_wnd_ListOfWnds = " + pointer(list_window_) +
                     L", hwnd_wnd_NameProfile = 0000000000000000, " +
                     seen[0].text.substr(addresses, std::wstring(L"pSTR_ENUM_WNDS_DATA = 0123456789ABCDEF, "
                                                                 L"pSTR_RW_PRFL = 0123456789ABCDEF")
                                                        .size()),
                 2065),
             list_box(L"WndProc_ScanListView", 358, L"iRetCode = -1 <- on_WM_COPYDATA_on_wnd_NameOfProfile()",
                      541)});
    }
    EXPECT_EQ(send_data(list_window_, nullptr, 0, nullptr, 0), FALSE);
    EXPECT_EQ(send_data(list_window_, nullptr, 1, bytes.data(), 2048), TRUE);
    expect_all_as_before();
    EXPECT_EQ(boxes_.count(), 2u);
}

// A row that the scan does not have, though list and sender are right: Ok refuses it.
TEST_F(HostileMessages, CellsOfRowsThatAreNotThereChangeNothing)
{
    const RemoteListView list = wendlow_.list_view();
    const int rows = list.row_count();
    std::vector<Texts> before;
    for (int row = 0; row < rows; ++row)
        before.push_back(list.row(row));
    std::vector<ExpectedBox> expected;
    for (const std::int32_t row : {rows, 0x7FFFFFFF, -1}) {
        struct {
            std::int32_t row;
            std::uint32_t column;
            HWND list;
        } cell{row, 2, list.window()};
        send_data(modify_cell_window_, list_window_, 0, &cell, sizeof(cell));
        SetDlgItemTextW(modify_cell_window_, 0, L"77");
        wendlow_.press(GetDlgItem(modify_cell_window_, 4));
        expected.push_back(
            {L"error", L"error\n\nfile:\nsources/wnd_ModifyCell\nfunction:\non_Button_OK\nline:\n668\n\n"
                       L"incorrect input parameters:\nrow = " +
                           std::to_wstring(row) + L", counter_valid = " + std::to_wstring(rows) +
                           L"\nline of error handler:845"});
        boxes_.expect_boxes(expected);
    }
    for (int row = 0; row < rows; ++row)
        EXPECT_EQ(list.row(row), before[static_cast<std::size_t>(row)]);
    EXPECT_TRUE(IsWindow(modify_cell_window_));
}

// What a control sends is taken by its identifier, whichever window it claims to come from.
TEST_F(HostileMessages, CommandsOfMadeUpControlsAreCarriedOut)
{
    const auto post = [](HWND window, WPARAM id) {
        PostMessageW(window, WM_COMMAND, id, reinterpret_cast<LPARAM>(made_up(0xDEADBEEF)));
    };
    post(modify_cell_window_, 5);
    wait_until([&] { return !IsWindow(modify_cell_window_); }, kShortWait, "Modify Cell to close");
    post(name_window_, 2);
    wait_until([&] { return !IsWindow(name_window_); }, kShortWait, "the name window to close");
    MoveWindow(neighbours_[0], 10, 20, 200, 100, TRUE);
    post(list_window_, 1);
    const RECT place{600, 500, 901, 702};
    EXPECT_TRUE(becomes_true([&] {
        const RECT found = rectangle_of(neighbours_[0]);
        return EqualRect(&found, &place) != FALSE;
    }));
    post(list_window_, 2);
    wendlow_.wait_for_name_window();
    post(wendlow_.main_window(), 1);
    wait_until([&] { return !IsWindow(list_window_) && wendlow_.list_window() != nullptr; }, kLongWait,
               "the list of the second scan");
    wendlow_.wait_until_idle();
    post(wendlow_.main_window(), 2);
    cancel_file_dialog(wendlow_.process_id());
    boxes_.expect_no_boxes();
    EXPECT_TRUE(wendlow_.list_view().find_row(L"Edited"));
}

// Another program may press Ok in its own way: at most 256 units of what it sends are a name.
TEST_F(HostileMessages, AForgedNameIsCutAndSavedLikeAnyOther)
{
    Bytes bytes((1 << 20) + 1, 'A');
    Background stranger([&] {
        COPYDATASTRUCT data{.dwData = 0, .cbData = static_cast<DWORD>(bytes.size()), .lpData = bytes.data()};
        SendMessageW(list_window_, WM_COPYDATA, reinterpret_cast<WPARAM>(name_window_),
                     reinterpret_cast<LPARAM>(&data));
    });
    choose_file(wendlow_.process_id(), folder_.file(L"forged.txt"));
    stranger.join();
    EXPECT_EQ(hex(read_file(folder_.file(L"forged.txt"))),
              hex(ProfileEncoder()
                      .add_program(600, 500, 301, 202, units_of(image_path_of(GetCurrentProcessId())))
                      .name(std::u16string(256, u'\x4141'))
                      .bytes()));
    EXPECT_EQ(wendlow_.name_window(), nullptr);
    EXPECT_TRUE(wendlow_.list_view().is_ticked(wendlow_.row_of(L"Edited")));
    boxes_.expect_no_boxes();
}

// The size is right, the list is none of the program's.
TEST_F(HostileMessages, CellsOfOtherWindowsAreRefused)
{
    const HWND wrong_lists[] = {nullptr,
                                neighbours_[0],
                                GetDesktopWindow(),
                                made_up(0xDEADBEEF),
                                made_up(~std::uintptr_t{0}),
                                wendlow_.main_window(),
                                list_window_,
                                GetDlgItem(name_window_, 3)};
    for (const HWND list : wrong_lists) {
        for (const std::uint32_t row : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            struct {
                std::uint32_t row;
                std::uint32_t column;
                HWND list;
            } cell{row, 2, list};
            send_data(modify_cell_window_, list_window_, 0, &cell, sizeof(cell));
        }
    }
    expect_all_as_before();
    boxes_.expect_no_boxes();
}

ExpectedBox drop_box(int line, int handler, const std::string& detail)
{
    return {bytes_as_wide("error"),
            bytes_as_wide(
                "error\n\nfile:\nsources/funcs_layout_windows\n\nfunction:\non_wm_dropfiles\n\nline:\n" +
                std::to_string(line) + "\n\n" + detail + "\n\nline of error handler:\n" +
                std::to_string(handler))};
}

TEST_F(HostileMessages, DropsOfWrongHandlesAndListsAreReportedAndNothingElse)
{
    // A page of memory in the program and none behind it.
    RemoteMemory pages(wendlow_.main_window(), 0x2000);
    DWORD before = 0;
    ASSERT_TRUE(VirtualProtectEx(wendlow_.process(), pages.address(0x1000), 0x1000, PAGE_NOACCESS, &before));
    const auto address = [&](std::size_t offset) { return reinterpret_cast<WPARAM>(pages.address(offset)); };
    const Bytes filling(0x1000, 'A');
    const auto list = [&](DWORD files, BOOL wide, std::size_t at) {
        pages.write(0, filling.data(), filling.size());
        DROPFILES header{};
        header.pFiles = files;
        header.fWide = wide;
        pages.write(at, &header, std::min<std::size_t>(sizeof(header), 0x1000 - at));
        return address(at);
    };
    const struct {
        const char* what;
        std::function<WPARAM()> handle;
    } drops[] = {
        {"an address nobody has", [] { return WPARAM{0x10}; }},
        {"an odd one", [] { return WPARAM{0x12345677}; }},
        {"one that looks like a handle", [] { return WPARAM{0x12345672}; }},
        {"the last one", [] { return ~WPARAM{0}; }},
        {"an address of the kernel's", [] { return static_cast<WPARAM>(0xFFFF'8000'0000'0000); }},
        {"memory that cannot be read", [&] { return address(0x1000); }},
        {"memory that looks like a handle", [&] { return address(2); }},
        {"a header that is cut off", [&] { return list(20, TRUE, 0x1000 - 10); }},
        {"paths at the very end", [&] { return list(0x1000, TRUE, 0); }},
        {"paths behind the end", [&] { return list(0x1001, TRUE, 0); }},
        {"paths far away", [&] { return list(0xFFFFFFFF, TRUE, 0); }},
        {"a wide path without end", [&] { return list(20, TRUE, 0); }},
        {"a narrow path without end", [&] { return list(20, FALSE, 0); }},
        {"half a unit", [&] { return list(0xFFF, TRUE, 0); }},
        {"an empty first path",
         [&] {
             const WPARAM handle = list(20, TRUE, 0);
             const wchar_t nothing[2] = {};
             pages.write(20, nothing, sizeof nothing);
             return handle;
         }},
    };
    const ExpectedBox query =
        drop_box(9142, 9251, "error, one of callable functions returned error, DragQueryFile( )");
    for (const auto& drop : drops) {
        SCOPED_TRACE(drop.what);
        const WPARAM handle = drop.handle();
        boxes_.forget();
        PostMessageW(wendlow_.main_window(), WM_DROPFILES, handle, 0);
        boxes_.expect_boxes({query});
        wendlow_.wait_until_idle();
        ASSERT_FALSE(HasFailure());
        for (const HWND window : windows_) {
            if (window != wendlow_.main_window())
                PostMessageW(window, WM_DROPFILES, handle, 0);
        }
    }
    expect_all_as_before();
    boxes_.expect_boxes({query});
}

// Boxes without owner leave the windows usable.
TEST_F(HostileMessages, CommandsUnderAnOpenBoxAreCarriedOut)
{
    const auto bad_file = [&](const wchar_t* name) {
        write_file(folder_.file(name), {1, 2, 3, 4});
        return folder_.file(name);
    };
    SendMessageW(wendlow_.name_window(), WM_CLOSE, 0, 0);
    SendMessageW(wendlow_.modify_cell_window(), WM_CLOSE, 0, 0);
    boxes_.hold();
    wendlow_.drop_files({bad_file(L"1.txt")}); // its box stays on the screen
    boxes_.wait_for_box(0);

    const HWND list = wendlow_.list_window();
    wendlow_.press_scan();
    wait_until([&] { return !IsWindow(list) && wendlow_.list_window() != nullptr; }, kLongWait,
               "the list of the second scan");
    wendlow_.drop_files({folder_.file(L"good.txt")});
    wait_until([&] { return wendlow_.combo_texts(wendlow_.profile_combo()).size() == 2; }, kLongWait,
               "the profile loaded under the box");
    wendlow_.press_apply(); // without an action
    boxes_.wait_for_box(1);
    wendlow_.drop_files({bad_file(L"2.txt")});
    boxes_.wait_for_box(2);
    wendlow_.press_load_profile();
    cancel_file_dialog(wendlow_.process_id());
    wendlow_.press_move(); // with nothing ticked
    boxes_.wait_for_box(3);
    boxes_.release();
    // The four that were held, and the one that follows each refused file.
    boxes_.wait_for_box(5);
    wendlow_.wait_until_idle();

    EXPECT_EQ(boxes_.count(), 6u);
    EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), (Texts{L"Good", L"Good"}));
    EXPECT_TRUE(wendlow_.list_view().find_row(L"Edited"));
    EXPECT_EQ(wendlow_.close_and_wait(), 0u);
}

// The boxes of a load belong to the main window; whoever closes it below one ends the program.
TEST_F(HostileMessages, ClosingTheMainWindowUnderABoxOfALoadEndsTheProgram)
{
    const std::wstring path = folder_.file(L"gone.txt");
    write_file(path,
               ProfileEncoder().add_program(1, 2, 300, 200, u"C:\\gone\\program.exe").name(u"P").bytes());
    boxes_.hold();
    wendlow_.drop_files({path});
    boxes_.wait_for_box(0);
    PostMessageW(wendlow_.main_window(), WM_CLOSE, 0, 0);
    wait_until([&] { return !IsWindow(wendlow_.main_window()); }, kShortWait, "the main window to go");
    boxes_.release();
    EXPECT_EQ(wendlow_.wait_for_exit(2 * kShortWait), 0u);
}

} // namespace
