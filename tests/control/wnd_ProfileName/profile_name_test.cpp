#include "sources/wnd_ProfileName/wnd_ProfileName.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/control_ids.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::ExpectedBox;
using test_support::FailingImport;
using test_support::pump_messages;

ExpectedBox name_box(const std::wstring& function, int site, int handler, const std::wstring& detail)
{
    return {L"error", compact_text({L"sources/wnd_ProfileName", function, site, handler}, detail)};
}

} // namespace

TEST(ProfileName, IsACaptionedWindowSeventyPixelsInsideItsOwner)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    const int cx = GetSystemMetrics(SM_CXSCREEN);
    const int cy = GetSystemMetrics(SM_CYSCREEN);
    EXPECT_EQ(place_of(window), place(270, 170, part(0.1875F, cx), part(0.175F, cy)));
    EXPECT_EQ(GetWindow(window, GW_OWNER), owner.window());
    wchar_t text[64] = {};
    GetWindowTextW(window, text, 64);
    EXPECT_STREQ(text, L"Name of Profile");
    constexpr LONG_PTR asked = WS_CAPTION | WS_SYSMENU;
    constexpr LONG_PTR never = WS_CHILD | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
    EXPECT_EQ(GetWindowLongPtrW(window, GWL_STYLE) & (asked | never), asked);

    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), L"Name of Profile Window", &description));
    EXPECT_EQ(description.style, 3u);
    EXPECT_EQ(description.lpfnWndProc, &WndProc_wnd_ProfileName);
    EXPECT_EQ(description.hbrBackground, GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(description.hIcon, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(description.hIconSm, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(description.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(description.lpszMenuName, nullptr);
}

TEST(ProfileName, HasTwoButtonsAndAnEditBoxInProportionToTheScreen)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    const int cx = GetSystemMetrics(SM_CXSCREEN);
    const int cy = GetSystemMetrics(SM_CYSCREEN);
    const int outer = part(0.1875F, cx);
    const int bw = part(0.045F, cx);
    const int bh = part(0.025F, cy);
    const int eh = part(0.03F, cy);
    struct {
        int id;
        const wchar_t* text;
        LONG_PTR style;
        std::string place;
    } const rows[] = {
        {1, L"Ok", WS_CHILD | WS_VISIBLE | BS_DEFPUSHBUTTON | BS_CENTER, place(outer - bw - 10, 5, bw, bh)},
        {2, L"Cancel", WS_CHILD | WS_VISIBLE | BS_CENTER, place(outer - bw - 10, 10 + bh, bw, bh)},
        {3, L"", WS_CHILD | WS_VISIBLE, place(5, part(1.5F, eh), part(0.126F, cx), eh)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        const HWND control = window.control(row.id);
        wchar_t text[32] = {};
        GetWindowTextW(control, text, 32);
        EXPECT_STREQ(text, row.text);
        EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE), row.style);
        EXPECT_EQ(GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_CLIENTEDGE,
                  row.id == 3 ? WS_EX_CLIENTEDGE : 0);
        EXPECT_EQ(place_in_parent(control), row.place);
    }
}

TEST(ProfileName, PutsTheKeyboardFocusIntoTheEditBox)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    EXPECT_EQ(GetFocus(), window.edit());
}

TEST(ProfileName, WarnsAboutAnEmptyNameAndStaysOpen)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    BoxWatcher boxes;
    window.press(name_control::kOk);
    boxes.expect_boxes({{L"warning", L"Please enter Name of Profile, e.g. \"work docs 01\""}});
    EXPECT_EQ(boxes.boxes().front().owner, static_cast<HWND>(window));
    boxes.forget();
    EXPECT_EQ(on_Button_OK(window, owner.window(), window.edit()), 1);
    boxes.expect_boxes({{L"warning", L"Please enter Name of Profile, e.g. \"work docs 01\""}});
    EXPECT_TRUE(IsWindow(window));
    EXPECT_EQ(window.typed(), L"");
    EXPECT_TRUE(owner.told.empty());
}

TEST(ProfileName, SendsTheNameToTheOwnerWithoutItsTerminator)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    for (const std::wstring& name :
         {std::wstring(L"A"), std::wstring(L"work docs 01"), std::wstring(L"\x0416\x00E9")}) {
        SetWindowTextW(window.edit(), name.c_str());
        window.press(name_control::kOk);
        ASSERT_FALSE(owner.told.empty());
        EXPECT_EQ(owner.told.back().from, static_cast<HWND>(window));
        EXPECT_EQ(owner.told.back().data, 0u);
        EXPECT_EQ(owner.told.back().bytes, name.size() * 2);
        EXPECT_EQ(owner.told.back().name, name);
        EXPECT_TRUE(IsWindow(window)) << "it is the owner that destroys it";
    }
}

TEST(ProfileName, SendsAtMost256Units)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    for (const std::size_t length : {255u, 256u, 257u, 1023u, 3000u}) {
        SetWindowTextW(window.edit(), std::wstring(length, L'n').c_str());
        window.press(name_control::kOk);
        ASSERT_FALSE(owner.told.empty());
        EXPECT_EQ(owner.told.back().name, std::wstring(length < 256 ? length : 256, L'n'));
    }
}

TEST(ProfileName, TakesNoMoreTypedTextThanItsBoxShows)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    for (int i = 0; i < 256; ++i)
        SendMessageW(window.edit(), WM_CHAR, L'W', 0);
    const std::wstring typed = window.typed();
    ASSERT_FALSE(typed.empty());
    EXPECT_LT(typed.size(), 60u);
    // Every character stands inside the box.
    RECT box{};
    GetClientRect(window.edit(), &box);
    const LRESULT last = SendMessageW(window.edit(), EM_POSFROMCHAR, typed.size() - 1, 0);
    EXPECT_LT(static_cast<SHORT>(LOWORD(last)), box.right);
    EXPECT_GE(static_cast<SHORT>(LOWORD(SendMessageW(window.edit(), EM_POSFROMCHAR, 0, 0))), 0);
}

TEST(ProfileName, SendsNoNameOnCancelAndOnItsCloseBox)
{
    const Owner owner;
    BoxWatcher boxes;
    for (const bool cancel : {true, false}) {
        const NameWindowFixture window(owner.window());
        SetWindowTextW(window.edit(), L"name");
        if (cancel)
            window.press(name_control::kCancel);
        else
            SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        EXPECT_FALSE(IsWindow(window));
    }
    EXPECT_TRUE(owner.told.empty());
    boxes.expect_no_boxes();
}

TEST(ProfileName, IgnoresEnterAndOtherNotifications)
{
    const Owner owner;
    const NameWindowFixture window(owner.window());
    BoxWatcher boxes;
    SetWindowTextW(window.edit(), L"name");
    PostMessageW(window.edit(), WM_KEYDOWN, VK_RETURN, 0x001C0001);
    PostMessageW(window.edit(), WM_KEYUP, VK_RETURN, 0xC01C0001);
    pump_messages();
    for (const WPARAM code : {WPARAM{BN_DOUBLECLICKED}, WPARAM{EN_CHANGE}})
        for (const WPARAM id : {1, 2})
            SendMessageW(window, WM_COMMAND, code << 16 | id, 0);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_EQ(window.typed(), L"name");
    EXPECT_TRUE(owner.told.empty());
    boxes.expect_no_boxes();
}

TEST(ProfileName, HasNoControlsWithoutItsCreationParameter)
{
    const Owner owner;
    const NameWindowFixture first(owner.window()); // registers the class
    BoxWatcher boxes;
    const HWND bare = CreateWindowExW(0, L"Name of Profile Window", L"", WS_CAPTION, 0, 0, 200, 100,
                                      owner.window(), nullptr, GetModuleHandleW(nullptr), nullptr);
    boxes.expect_boxes({name_box(L"WndProc_wnd_ProfileName", 96, 348,
                                 L"incorrect parameters while WM_CREATE:\n"
                                 L"p_hwnd_ListWindows = 0000000000000000 ")});
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(GetWindow(bare, GW_CHILD), nullptr);
    DestroyWindow(bare);
}

TEST(ProfileName, ReportsEachControlThatCannotBeCreatedAndGoesOn)
{
    const Owner owner;
    // The first window that is created is the name window itself.
    for (const int id : {1, 2, 3}) {
        SCOPED_TRACE(id);
        BoxWatcher boxes;
        std::optional<FailingImport<"CreateWindowExW", decltype(CreateWindowExW)>> fails;
        fails.emplace("user32.dll", id + 1, nullptr, DWORD{ERROR_NOT_ENOUGH_MEMORY});
        const NameWindowFixture window(owner.window());
        fails.reset();
        boxes.expect_boxes({{L"error", id == 3 ? L"error, CreateWindow(), EditBox, func WndProc"
                                               : L"error, CreateWindow(), func WndProc"}});
        EXPECT_EQ(boxes.boxes().front().owner, static_cast<HWND>(window));
        for (const int other : {1, 2, 3})
            EXPECT_EQ(window.control(other) != nullptr, other != id);
    }
}

TEST(ProfileName, ReportsTwiceWhenOkHasNoEditBoxToRead)
{
    const Owner owner;
    std::optional<FailingImport<"CreateWindowExW", decltype(CreateWindowExW)>> fails;
    fails.emplace("user32.dll", 4, nullptr, DWORD{ERROR_NOT_ENOUGH_MEMORY});
    BoxWatcher boxes;
    const NameWindowFixture window(owner.window());
    fails.reset();
    boxes.forget();
    window.press(name_control::kOk);
    boxes.expect_boxes(
        {name_box(L"on_Button_OK", 421, 502,
                  L"incorrect input parameters:\nhwnd_this_wnd = " + pointer(window) +
                      L", hwnd_parent_wnd = " + pointer(owner.window()) + L", hEdit = 0000000000000000"),
         name_box(L"WndProc_wnd_ProfileName", 268, 371,
                  L"one of callable functions returned error, -1 <- on_Button_OK() ")});
    EXPECT_TRUE(owner.told.empty());
}

TEST(ProfileName, RefusesMissingHandles)
{
    const Owner owner;
    const HWND some = owner.window();
    SetWindowTextW(some, L"a name that could be told");
    for (int missing = 0; missing < 3; ++missing) {
        const HWND handles[] = {missing == 0 ? nullptr : some, missing == 1 ? nullptr : some,
                                missing == 2 ? nullptr : some};
        BoxWatcher boxes;
        EXPECT_EQ(on_Button_OK(handles[0], handles[1], handles[2]), -1);
        boxes.expect_boxes({name_box(L"on_Button_OK", 421, 502,
                                     L"incorrect input parameters:\nhwnd_this_wnd = " + pointer(handles[0]) +
                                         L", hwnd_parent_wnd = " + pointer(handles[1]) + L", hEdit = " +
                                         pointer(handles[2]))});
    }
    EXPECT_TRUE(owner.told.empty());
    BoxWatcher boxes;
    EXPECT_EQ(on_Button_CANCEL(nullptr), -1);
    boxes.expect_boxes({name_box(L"on_Button_CANCEL", 548, 571,
                                 L"incorrect input parameters:\nhwndThis = 0000000000000000")});
}

TEST(ProfileName, ReportsTwiceWhenNoWindowIsCancelled)
{
    BoxWatcher boxes;
    WndProc_wnd_ProfileName(nullptr, WM_COMMAND, name_control::kCancel, 0);
    boxes.expect_boxes(
        {name_box(L"on_Button_CANCEL", 548, 571, L"incorrect input parameters:\nhwndThis = 0000000000000000"),
         name_box(L"WndProc_wnd_ProfileName", 289, 394,
                  L"one of callable functions returned error, -1 <- on_Button_CANCEL()")});
}
