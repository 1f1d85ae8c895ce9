#include "sources/funcs_layout_windows/open_windows/shell_folder_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "sources/funcs_layout_windows/scanning/explorer_folders.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/basics/com_apartment.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/test_window.h"

// How the shell's list is asked for, and COM, which the main window uninitialises when it is closed; a
// message may close it while the shell is asked.

using namespace test_support;

namespace
{

std::wstring guid_text(const GUID& id)
{
    wchar_t text[40]{};
    StringFromGUID2(id, text, 40);
    return text;
}

} // namespace

TEST(ShellList, HoldsComFromItsCreationToItsRelease)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    const StandInRegistration stand_in;
    bool held = false;
    const ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
        "ole32.dll", [&](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID interface_id, LPVOID* created) {
            CoUninitialize();
            held = has_com_apartment();
            return create.call_original(id, outer, context, interface_id, created);
        });
    {
        ShellWindowsList list;
        EXPECT_EQ(open_shell_windows(&list), S_OK);
        EXPECT_TRUE(held);
        EXPECT_TRUE(list.windows);
        EXPECT_TRUE(has_com_apartment());
        count_shell_windows(list);
    }
    EXPECT_FALSE(has_com_apartment());
}

TEST(ShellList, IsNotCreatedWithoutCom)
{
    ASSERT_FALSE(has_com_apartment());
    ShellWindowsList list;
    EXPECT_EQ(open_shell_windows(&list), CO_E_NOTINITIALIZED);
    EXPECT_FALSE(list.windows);
    EXPECT_FALSE(has_com_apartment());
}

TEST(ShellList, IsAskedForFromAnyServerWithoutOuterObject)
{
    const scan_tests::ScanFixture fixture;
    int asked = 0;
    ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
        "ole32.dll", [&](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID interface_id, LPVOID* created) {
            ++asked;
            EXPECT_EQ(guid_text(id), L"{9BA05972-F6A8-11CF-A442-00A0C90A8F39}");
            EXPECT_EQ(outer, nullptr);
            EXPECT_EQ(context, 23u);
            EXPECT_EQ(guid_text(interface_id), L"{85CB6900-4D95-11CF-960C-0080C7F4EE85}");
            return create.call_original(id, outer, context, interface_id, created);
        });
    STR_ENUM_WNDS_DATA record{};
    EXPECT_EQ(GetCurrentExplorerFolders_01(&record), 1);
    EXPECT_EQ(asked, 1);
    ShellWindowsList list;
    EXPECT_EQ(open_shell_windows(&list), S_OK);
}

TEST(ShellList, ReturnedWithAFailureIsReleasedUnread)
{
    scan_tests::ScanFixture fixture;
    const TestWindow window(L"window");
    const scan_tests::Desktop desktop({window});
    ASSERT_EQ(fixture.scan(), 1);
    ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
        "ole32.dll", [&](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID interface_id, LPVOID* created) {
            EXPECT_EQ(create.call_original(id, outer, context, interface_id, created), S_OK);
            return E_FAIL;
        });
    fixture.folders.clear();
    fixture.folders.add(window, L"C:\\");
    const BoxWatcher boxes;
    scan_record.counter_folders = 7;
    scan_record.uiMaxLen_inBytes_FolderPath = 7;
    const scan_tests::RecordCopy before;
    EXPECT_EQ(GetCurrentExplorerFolders_02(&scan_record), 1);
    EXPECT_TRUE(scan_tests::RecordCopy() == before);
    EXPECT_EQ(GetCurrentExplorerFolders_01(&scan_record), 1);
    EXPECT_EQ(scan_record.counter_folders, 0u);
    EXPECT_EQ(scan_record.uiMaxLen_inBytes_FolderPath, 0u);
    boxes.expect_no_boxes();
    const StandInCounts counts = fixture.folders.counts();
    EXPECT_EQ(counts.passes, 2);
    EXPECT_EQ(counts.interfaces_given, 2); // the two lists alone
    EXPECT_EQ(counts.interfaces_live, 0);
    EXPECT_EQ(counts.released_too_often, 0);
}

// A folder window with two tabs, for each of which the shell's list has an item.
struct TwoTabs {
    explicit TwoTabs(DWORD style_of_first, DWORD style_of_second, HWND parent = nullptr)
        : first(make(L"first", style_of_first, parent)), second(make(L"second", style_of_second, parent))
    {
    }
    HWND make(const wchar_t* title, DWORD style, HWND parent) const
    {
        register_class(L"TabOfTest", DefWindowProcW);
        return CreateWindowExW(0, L"TabOfTest", title, WS_CHILD | style, 0, 0, 50, 50,
                               parent != nullptr ? parent : window.get(), nullptr, GetModuleHandleW(nullptr),
                               nullptr);
    }
    // Where a scan finds the window when the shell tells these windows for the two tabs.
    std::wstring scanned_folder(HWND told_for_first, HWND told_for_second) const
    {
        scan_tests::ScanFixture fixture;
        const auto add = [&](const wchar_t* path, HWND tab) {
            FolderWindow item;
            item.window = window;
            item.path = path;
            item.tab = tab;
            fixture.folders.add(item);
        };
        add(L"C:\\windows", told_for_first);
        add(L"C:\\windows\\system32", told_for_second);
        const scan_tests::Desktop desktop({window});
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.scan(), 1);
        boxes.expect_no_boxes();
        const StandInCounts counts = fixture.folders.counts();
        EXPECT_EQ(counts.interfaces_live, 0);
        EXPECT_EQ(counts.released_too_often, 0);
        EXPECT_EQ(counts.id_lists_live, 0);
        return scan_tests::path_of_slot(0);
    }

    TestWindow window{L"folder"};
    HWND first;
    HWND second;
};

TEST(ShellList, NamesTheFolderOfTheTabThatIsShown)
{
    const TwoTabs first_shown(WS_VISIBLE, 0);
    EXPECT_EQ(first_shown.scanned_folder(first_shown.first, first_shown.second), L"C:\\windows");
    const TwoTabs second_shown(0, WS_VISIBLE);
    EXPECT_EQ(second_shown.scanned_folder(second_shown.first, second_shown.second), L"C:\\windows\\system32");
    // Both may be visible, one above the other.
    const TwoTabs both(WS_VISIBLE, WS_VISIBLE);
    SetWindowPos(both.first, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(both.scanned_folder(both.first, both.second), L"C:\\windows");
    SetWindowPos(both.second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(both.scanned_folder(both.first, both.second), L"C:\\windows\\system32");
    // A window that is not on the screen still has a tab that is shown.
    ShowWindow(both.window, SW_MINIMIZE);
    SetWindowPos(both.first, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(both.scanned_folder(both.first, both.second), L"C:\\windows");
}

// The window of the last item counts then.
TEST(ShellList, TreatsEveryTabAsShownWhenTheShownOneIsUnknown)
{
    const TwoTabs tabs(WS_VISIBLE, 0);
    const std::wstring last = L"C:\\windows\\system32";
    EXPECT_EQ(tabs.scanned_folder(nullptr, nullptr), last);
    EXPECT_EQ(tabs.scanned_folder(tabs.window, tabs.window), last);
    EXPECT_EQ(tabs.scanned_folder(tabs.first, tabs.first), last);
    const TwoTabs others(WS_VISIBLE, 0);
    EXPECT_EQ(tabs.scanned_folder(others.first, others.second), last);
    const TwoTabs none_shown(0, 0);
    EXPECT_EQ(none_shown.scanned_folder(none_shown.first, none_shown.second), last);
}

TEST(ShellList, HoldsNoInterfaceOfAWindowWhileItsFolderIsVisited)
{
    scan_tests::ScanFixture fixture;
    fixture.folders.add(fixture.host(), L"C:\\").add(fixture.host(), L"C:\\windows");
    struct Visits {
        FolderWindowsScript* folders;
        int count;
    } visits{.folders = &fixture.folders, .count = 0};
    ShellWindowsList list;
    ASSERT_EQ(open_shell_windows(&list), S_OK);
    walk_shell_windows(
        &list, 2,
        [](HWND, std::wstring_view, void* context) {
            auto* seen = static_cast<Visits*>(context);
            ++seen->count;
            const StandInCounts counts = seen->folders->counts();
            EXPECT_EQ(counts.interfaces_live, 1); // the list itself
            EXPECT_EQ(counts.id_lists_given, seen->count);
            EXPECT_EQ(counts.id_lists_live, 0);
            return true;
        },
        &visits);
    EXPECT_EQ(visits.count, 2);
}

TEST(ShellList, IsAskedWithAVariantThatIsInitialisedBeforeAndClearedAfter)
{
    scan_tests::ScanFixture fixture;
    fixture.folders.add(fixture.host(), L"C:\\").add(fixture.host(), L"C:\\");
    std::wstring events;
    ImportHook<"VariantInit", decltype(VariantInit)> init("oleaut32.dll", [&](VARIANTARG* variant) {
        events += L"init ";
        init.call_original(variant);
    });
    ImportHook<"VariantClear", decltype(VariantClear)> clear("oleaut32.dll", [&](VARIANTARG* variant) {
        events += L"clear " + std::to_wstring(fixture.folders.counts().interfaces_live);
        EXPECT_EQ(variant->vt, VT_I4);
        EXPECT_EQ(variant->lVal, 1);
        return clear.call_original(variant);
    });
    ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
        "ole32.dll", [&](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID interface_id, LPVOID* created) {
            events += L"create ";
            return create.call_original(id, outer, context, interface_id, created);
        });
    STR_ENUM_WNDS_DATA record{};
    EXPECT_EQ(GetCurrentExplorerFolders_01(&record), 1);
    EXPECT_EQ(record.counter_folders, 2u);
    EXPECT_EQ(events, L"init create clear 0");
}
