#include <windows.h>

#include <gtest/gtest.h>

#include "tests/program/hostile/all_windows_open_fixture.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/windows_lookup.h"

// WM_COMMAND and WM_COPYDATA as another program can send them.

using namespace test_support;
using hostile::made_up;
using hostile::Texts;

namespace
{

class HostileMessages : public hostile::AllWindowsOpenFixture
{
};

TEST_F(HostileMessages, CommandsOfWrongIdsCodesAndControlsDoNothing)
{
    const HWND controls[] = {nullptr,
                             neighbours_[0],
                             GetDesktopWindow(),
                             made_up(0xDEADBEEF),
                             made_up(~std::uintptr_t{0}),
                             GetDlgItem(list_window_, list_control::kMove),
                             GetDlgItem(name_window_, name_control::kOk)};
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

TEST_F(HostileMessages, DataOfWrongSizesKindsAndSendersIsRefused)
{
    const HWND senders[] = {neighbours_[0],
                            GetDesktopWindow(),
                            made_up(0xDEADBEEF),
                            wendlow_.main_window(),
                            list_window_,
                            modify_cell_window_,
                            GetDlgItem(name_window_, name_control::kOk)};
    Bytes bytes(1 << 20, 'A');
    for (const HWND window : windows_) {
        for (const HWND sender : senders) {
            for (const ULONG_PTR kind :
                 {ULONG_PTR{0}, ULONG_PTR{1}, ULONG_PTR{0x1'0000'0000}, ~ULONG_PTR{0}}) {
                if (window == list_window_ && static_cast<DWORD>(kind) == 0)
                    continue; // a name of a profile, of whatever size
                for (const DWORD size : {0U, 1U, 15U, 16U, 17U, 512U, 514U, 1U << 20}) {
                    const LRESULT answer = send_data(window, sender, kind, bytes.data(), size);
                    if (window == list_window_) {
                        EXPECT_EQ(answer, TRUE) << kind << " " << size;
                    }
                }
            }
        }
    }
    expect_all_as_before();
    boxes_.expect_no_boxes();
}

ExpectedBox list_box(const std::wstring& function, int site, const std::wstring& detail, int handler)
{
    return {L"error", compact_text({L"sources/wnd_ScanListView", function, site, handler}, detail)};
}

TEST_F(HostileMessages, NamesWithoutASenderAreReportedAndNothingElse)
{
    Bytes bytes(2048, 'A');
    for (const DWORD size : {0U, 1U, 511U, 512U, 513U, 2048U}) {
        SCOPED_TRACE(size);
        boxes_.forget();
        EXPECT_EQ(send_data(list_window_, nullptr, 0, bytes.data(), size), FALSE);
        // The save's box and the list's. The addresses of two records are not known outside the program.
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
        wendlow_.press(GetDlgItem(modify_cell_window_, cell_control::kOk));
        expected.push_back(
            {L"error", compact_text({L"sources/wnd_ModifyCell", L"on_Button_OK", 668, 845},
                                    L"incorrect input parameters:\nrow = " + std::to_wstring(row) +
                                        L", counter_valid = " + std::to_wstring(rows))});
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

// Each brings the save dialog; the window that is said to have sent it stays.
TEST_F(HostileMessages, NamesOfMadeUpSendersAreAskedAFileForAndDestroyNothing)
{
    Bytes bytes(1 << 20, 'A');
    const HWND senders[] = {neighbours_[0], GetDesktopWindow(),  made_up(0xDEADBEEF),
                            list_window_,   modify_cell_window_, GetDlgItem(name_window_, name_control::kOk)};
    DWORD size = 0;
    for (const HWND sender : senders) {
        LRESULT answer = 99;
        Background stranger([&] { answer = send_data(list_window_, sender, 0, bytes.data(), size); });
        cancel_file_dialog(wendlow_.process_id());
        stranger.join();
        EXPECT_EQ(answer, TRUE);
        size = size == 0 ? 1 : size * 16;
    }
    expect_all_as_before();
    boxes_.expect_no_boxes();
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
                                GetDlgItem(name_window_, name_control::kName)};
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

} // namespace
