#include "sources/win32/accessible_name.h"

#include <commctrl.h>
#include <objbase.h>

#include <oleacc.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/control/fixtures/profile_name_fixture.h"
#include "tests/support/basics/text.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/test_window.h"
#include "tests/support/windows/windows_lookup.h"

// What a screen reader is told of the controls whose labels are painted.

namespace
{

using namespace test_support;

// The system's service for names. It keeps what it is told, in order: "name Edit 3: X", "clear Edit 3".
class RecordedNames : public IAccPropServices
{
public:
    std::vector<std::string> told;
    ULONG references = 0;
    HRESULT answer = S_OK;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                             LPCWSTR text) override
    {
        expect_name_of_client(object, child, property);
        told.push_back("name " + control(window) + ": " + printable(text));
        return answer;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD object, DWORD child,
                                             const MSAAPROPID* properties, int count) override
    {
        EXPECT_EQ(count, 1);
        expect_name_of_client(object, child, *properties);
        EXPECT_TRUE(IsWindow(window)) << "its name can be taken from a window only";
        told.push_back("clear " + control(window));
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                            AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                 AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override
    {
        return E_NOTIMPL;
    }

private:
    static void expect_name_of_client(DWORD object, DWORD child, const MSAAPROPID& property)
    {
        constexpr GUID kName{0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
        EXPECT_EQ(object, 0xFFFFFFFCu); // the client area
        EXPECT_EQ(child, 0u);           // itself
        EXPECT_TRUE(IsEqualGUID(property, kName));
    }
    static std::string control(HWND window)
    {
        return printable(class_of(window)) + " " + std::to_string(GetDlgCtrlID(window));
    }
};

// A system on which a screen reader runs, or none does.
class ScreenReader
{
public:
    explicit ScreenReader(bool runs) : runs_(runs) {}
    RecordedNames names;
    int services_asked_for = 0;
    HRESULT answer = S_OK;

private:
    bool runs_;
    ImportHook<"SystemParametersInfoW", decltype(SystemParametersInfoW)> setting_{
        "user32.dll", [this](UINT action, UINT parameter, void* value, UINT flags) {
            if (action != 0x0046)
                return setting_.call_original(action, parameter, value, flags);
            *static_cast<BOOL*>(value) = runs_;
            return TRUE;
        }};
    ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> services_{
        "ole32.dll",
        [this](REFCLSID kind, IUnknown* outer, DWORD where, REFIID interface_wanted, void** out) {
            constexpr GUID kServices{
                0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
            if (!IsEqualGUID(kind, kServices))
                return services_.call_original(kind, outer, where, interface_wanted, out);
            ++services_asked_for;
            if (FAILED(answer))
                return answer;
            names.AddRef();
            *out = static_cast<IAccPropServices*>(&names);
            return S_OK;
        }};
};

// How often this thread has initialised COM and not uninitialised it since. The system does so too, unseen.
class ComHolds
{
public:
    int count = 0;

private:
    ImportHook<"CoInitializeEx", decltype(CoInitializeEx)> taken_{
        "ole32.dll", [this](void* reserved, DWORD model) {
            ++count;
            return taken_.call_original(reserved, model);
        }};
    ImportHook<"CoUninitialize", decltype(CoUninitialize)> left_{"ole32.dll", [this] {
                                                                     --count;
                                                                     left_.call_original();
                                                                 }};
};

using Told = std::vector<std::string>;
using AccessibleNamesOfModifyCell = modify_cell_tests::ModifyCell;

} // namespace

TEST(AccessibleNames, AreSetOnTheMainWindowsTwoListsAndClearedWithThem)
{
    ScreenReader reader(true);
    const ComHolds com;
    {
        const main_tests::MainWindowFixture main;
        EXPECT_EQ(reader.names.told, (Told{"name ComboBox 4: Profile:", "name ComboBox 5: Action:"}));
        EXPECT_EQ(reader.names.references, 2u);
        EXPECT_EQ(com.count, 3) << "one for each name, and the window's";
        reader.names.told.clear();
    }
    EXPECT_EQ(reader.names.told, (Told{"clear ComboBox 4", "clear ComboBox 5"}));
    EXPECT_EQ(reader.names.references, 0u);
    EXPECT_EQ(com.count, 0);
}

TEST(AccessibleNames, AreSetOnTheListOfTheListOfWindows)
{
    scan_tests::ScanFixture fixture;
    const TestWindow window(L"window");
    const scan_tests::Desktop desktop({window});
    ScreenReader reader(true);
    ASSERT_EQ(fixture.scan(), 1);
    EXPECT_EQ(reader.names.told, Told{"name SysListView32 4: Windows"});
    reader.names.told.clear();
    DestroyWindow(GetParent(fixture.list().window()));
    EXPECT_EQ(reader.names.told, Told{"clear SysListView32 4"});
}

TEST_F(AccessibleNamesOfModifyCell, AreTheTextsOfItsFourLabels)
{
    ScreenReader reader(true);
    open(0);
    EXPECT_EQ(reader.names.told,
              (Told{"name Edit 0: X", "name Edit 1: Y", "name Edit 2: Width", "name Edit 3: Height"}));
    // The boxes work as they do without.
    enter(0, L"77");
    key(0, VK_TAB);
    EXPECT_EQ(GetFocus(), control(cell_control::kY));
    reader.names.told.clear();
    press(cell_control::kOk);
    EXPECT_EQ(cells(0)[0], L"77");
    EXPECT_EQ(reader.names.told, (Told{"clear Edit 0", "clear Edit 1", "clear Edit 2", "clear Edit 3"}));
    EXPECT_EQ(reader.names.references, 0u);
}

TEST(AccessibleNames, AreSetOnTheEditBoxOfTheProfilesName)
{
    const profile_tests::Owner owner;
    ScreenReader reader(true);
    {
        const profile_tests::NameWindowFixture window(owner.window());
        EXPECT_EQ(reader.names.told, Told{"name Edit 3: Enter name of Profile:"});
        SetWindowTextW(window.edit(), L"typed");
        EXPECT_EQ(window.typed(), L"typed");
        reader.names.told.clear();
    }
    EXPECT_EQ(reader.names.told, Told{"clear Edit 3"});
}

TEST(AccessibleNames, AreNotSetWhenNoScreenReaderRuns)
{
    ScreenReader reader(false);
    const main_tests::MainWindowFixture main;
    const profile_tests::Owner owner;
    const profile_tests::NameWindowFixture window(owner.window());
    EXPECT_EQ(reader.services_asked_for, 0);
    EXPECT_EQ(reader.names.told, Told{});
}

TEST(AccessibleNames, ReleaseEverythingWhenTheSystemRefusesThem)
{
    const TestWindow control(L"control");
    ScreenReader reader(true);
    const ComHolds com;
    reader.answer = E_FAIL;
    set_accessible_name(control, L"none");
    EXPECT_EQ(reader.services_asked_for, 1);
    EXPECT_EQ(com.count, 0);

    reader.answer = S_OK;
    reader.names.answer = E_FAIL;
    set_accessible_name(control, L"none");
    EXPECT_EQ(reader.services_asked_for, 2);
    EXPECT_EQ(reader.names.references, 0u);
    EXPECT_EQ(com.count, 0);

    set_accessible_name(nullptr, L"none");
    EXPECT_EQ(reader.services_asked_for, 2);
}

TEST(AccessibleNames, AreClearedAtOnceWhenTheControlCannotBeWatched)
{
    const TestWindow control(L"control");
    ScreenReader reader(true);
    const ComHolds com;
    const FailingImport<"SetWindowSubclass#410", decltype(SetWindowSubclass)> refused("comctl32.dll",
                                                                                      kEveryCall, FALSE, 0);
    set_accessible_name(control, L"short");
    EXPECT_EQ(reader.names.told, (Told{"name TestWindow 0: short", "clear TestWindow 0"}));
    EXPECT_EQ(reader.names.references, 0u);
    EXPECT_EQ(com.count, 0);
}
