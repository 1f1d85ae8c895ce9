#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "tests/support/basics/waiting.h"
#include "tests/support/input/real_input.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

// A window of the test with an edit box, a button and a list view with check boxes.
class Window
{
public:
    Window()
    {
        clicks = 0;
        right_clicks = 0;
        INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        WNDCLASSW description{};
        description.lpfnWndProc = &Window::procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"InputSelfTest";
        RegisterClassW(&description);
        frame_ = CreateWindowExW(0, L"InputSelfTest", L"input", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 50, 500,
                                 400, nullptr, nullptr, nullptr, nullptr);
        edit_ = make(L"Edit", WS_BORDER, 10, 40, 200, 24);
        button_ = make(L"Button", 0, 10, 70, 100, 30);
        list_ = make(WC_LISTVIEWW, LVS_REPORT | LVS_SHOWSELALWAYS, 10, 110, 450, 200);
        ListView_SetExtendedListViewStyle(list_, LVS_EX_CHECKBOXES | LVS_EX_GRIDLINES);
        ListView_SetImageList(list_, ImageList_Create(16, 16, ILC_MASK, 12, 1), LVSIL_SMALL);
        add_column(0, L"#", 60);
        add_column(1, L"Window name", 250);
        for (int i = 0; i < 40; ++i)
            add_row(i);
        UpdateWindow(frame_);
        pump_messages();
    }
    ~Window() { DestroyWindow(frame_); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND frame() const { return frame_; }
    HWND edit() const { return edit_; }
    HWND button() const { return button_; }
    HWND list() const { return list_; }

    static int clicks;
    static int right_clicks;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        if (message == WM_COMMAND && HIWORD(wide) == BN_CLICKED)
            ++clicks;
        if (message == WM_RBUTTONUP)
            ++right_clicks;
        return DefWindowProcW(window, message, wide, narrow);
    }

    HWND make(const wchar_t* name, DWORD style, int x, int y, int width, int height) const
    {
        return CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, x, y, width, height, frame_,
                               nullptr, nullptr, nullptr);
    }

    void add_column(int index, const wchar_t* heading, int width) const
    {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = const_cast<wchar_t*>(heading);
        column.cx = width;
        column.iSubItem = index;
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
    }

    void add_row(int index) const
    {
        std::wstring text = std::to_wstring(index + 1);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = index;
        item.pszText = text.data();
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        text.insert(0, L"window ");
        item.iSubItem = 1;
        item.pszText = text.data();
        SendMessageW(list_, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }

    HWND frame_ = nullptr;
    HWND edit_ = nullptr;
    HWND button_ = nullptr;
    HWND list_ = nullptr;
};

int Window::clicks = 0;
int Window::right_clicks = 0;

std::wstring text_of(HWND window)
{
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    return text;
}

TEST(RealInput, ClicksAndTypesAsAUser)
{
    const Window window;
    click(window.button());
    pump_until([] { return Window::clicks == 1; }, kShortWait, "the click");
    click(window.edit());
    pump_until([&] { return GetFocus() == window.edit(); }, kShortWait, "the focus");
    type_text(L"Aß7-8x");
    press_key(VK_BACK);
    pump_until([&] { return text_of(window.edit()) == L"Aß7-8"; }, kShortWait, "the typed text");
    press_key_with(VK_CONTROL, 'A');
    right_click({rectangle_of(window.frame()).left + 480, rectangle_of(window.frame()).top + 60});
    pump_until([] { return Window::right_clicks == 1; }, kShortWait, "the right click");
}

TEST(RealInput, SaysThatAControlIsCovered)
{
    const Window window;
    const HWND cover = CreateWindowExW(WS_EX_TOPMOST, L"InputSelfTest", L"cover", WS_POPUP | WS_VISIBLE, 60,
                                       50, 500, 400, nullptr, nullptr, nullptr, nullptr);
    pump_messages();
    EXPECT_THROW(click(window.button()), Failure);
    DestroyWindow(cover);
}

TEST(RemoteListView, ReadsRowsColumnsAndStates)
{
    const Window window;
    const RemoteListView list(window.list());
    EXPECT_EQ(list.row_count(), 40);
    EXPECT_EQ(list.column_count(), 2);
    EXPECT_EQ(list.heading(1), L"Window name");
    EXPECT_EQ(list.column_width(1), 250);
    EXPECT_EQ(list.row(3), (std::vector<std::wstring>{L"4", L"window 4"}));
    EXPECT_EQ(list.find_row(L"window 40"), 39);
    EXPECT_EQ(list.find_row(L"window 41"), std::nullopt);
    EXPECT_EQ(list.extended_style(), 5u);
    EXPECT_FALSE(list.is_selected(3));
}

TEST(RemoteListView, TicksAndUnticksRows)
{
    const Window window;
    const RemoteListView list(window.list());
    list.set_ticked(2, true);
    EXPECT_TRUE(list.is_ticked(2));
    EXPECT_FALSE(list.is_ticked(1));
    list.set_ticked(2, false);
    EXPECT_FALSE(list.is_ticked(2));
}

TEST(RemoteListView, ClicksCheckBoxesAndCellsWhereTheyAre)
{
    const Window window;
    const RemoteListView list(window.list());
    list.click_check_box(35);
    EXPECT_TRUE(list.is_ticked(35));
    list.click_check_box(35);
    EXPECT_FALSE(list.is_ticked(35));
    click(list.cell_centre(1, 0));
    pump_until([&] { return list.is_selected(1); }, kShortWait, "the clicked row to be selected");
    const RECT number = list.cell_rectangle(1, 0);
    const RECT name = list.cell_rectangle(1, 1);
    EXPECT_EQ(number.right, name.left);
    EXPECT_EQ(name.right - name.left, 250);
}

} // namespace
