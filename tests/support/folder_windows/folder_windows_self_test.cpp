#include <windows.h>

#include <exdisp.h>
#include <servprov.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/basics/com_apartment.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/folder_windows/real_folder_window.h"
#include "tests/support/windows/test_window.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

constexpr GUID kShellWindows = {0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};
constexpr GUID kTopLevelBrowser = {
    0x4C96BE40, 0x915C, 0x11CF, {0x99, 0xD3, 0x00, 0xAA, 0x00, 0x4A, 0xE8, 0x37}};

// Goes from the list to its folders as a program does, and releases everything again. A folder that was
// reached is given as "handle path", another as the name of the step that gave nothing.
class Walk
{
public:
    Walk()
    {
        VARIANT index;
        VariantInit(&index);
        creation_ = CoCreateInstance(kShellWindows, nullptr, CLSCTX_ALL, __uuidof(IShellWindows),
                                     reinterpret_cast<void**>(&list_));
        if (!list_)
            return;
        count_result_ = list_->get_Count(&count_);
        for (LONG i = 0; i < count_; ++i) {
            index.vt = VT_I4;
            index.lVal = i;
            seen_.push_back(folder(index));
        }
        list_->Release();
    }

    HRESULT creation() const { return creation_; }
    HRESULT count_result() const { return count_result_; }
    LONG count() const { return count_; }
    const std::vector<std::wstring>& seen() const { return seen_; }

private:
    std::wstring folder(VARIANT index)
    {
        IDispatch* item = nullptr;
        list_->Item(index, &item);
        if (!item)
            return L"item";
        std::wstring found = window_of(item);
        item->Release();
        return found;
    }

    static std::wstring window_of(IDispatch* item)
    {
        IWebBrowserApp* browser = nullptr;
        item->QueryInterface(__uuidof(IWebBrowserApp), reinterpret_cast<void**>(&browser));
        if (!browser)
            return L"web browser";
        SHANDLE_PTR handle = -1;
        const HRESULT result = browser->get_HWND(&handle);
        std::wstring found = FAILED(result) ? L"handle" : std::to_wstring(handle) + L" " + view_of(browser);
        browser->Release();
        return found;
    }

    static std::wstring view_of(IWebBrowserApp* browser)
    {
        IServiceProvider* services = nullptr;
        browser->QueryInterface(__uuidof(IServiceProvider), reinterpret_cast<void**>(&services));
        if (!services)
            return L"services";
        IShellBrowser* shell = nullptr;
        services->QueryService(kTopLevelBrowser, __uuidof(IShellBrowser), reinterpret_cast<void**>(&shell));
        services->Release();
        if (!shell)
            return L"shell browser";
        IShellView* view = nullptr;
        shell->QueryActiveShellView(&view);
        shell->Release();
        if (!view)
            return L"view";
        IFolderView* folder_view = nullptr;
        view->QueryInterface(__uuidof(IFolderView), reinterpret_cast<void**>(&folder_view));
        view->Release();
        if (!folder_view)
            return L"folder view";
        IPersistFolder2* folder = nullptr;
        folder_view->GetFolder(__uuidof(IPersistFolder2), reinterpret_cast<void**>(&folder));
        folder_view->Release();
        if (!folder)
            return L"folder";
        std::wstring found = path_of(folder);
        folder->Release();
        return found;
    }

    static std::wstring path_of(IPersistFolder2* folder)
    {
        PIDLIST_ABSOLUTE list = nullptr;
        const HRESULT result = folder->GetCurFolder(&list);
        if (!list)
            return FAILED(result) ? L"id list" : L"null id list";
        wchar_t path[MAX_PATH] = {};
        const bool has_path = SHGetPathFromIDListW(list, path);
        CoTaskMemFree(list);
        return has_path ? path : L"path";
    }

    IShellWindows* list_ = nullptr;
    HRESULT creation_ = S_OK;
    HRESULT count_result_ = S_OK;
    LONG count_ = -1;
    std::vector<std::wstring> seen_;
};

using Seen = std::vector<std::wstring>;

class FolderWindows : public testing::Test
{
protected:
    ComApartment com;
    StandInRegistration stand_in;
    TemporaryFolder folder;
};

void expect_all_released(const FolderWindowsScript& script)
{
    const StandInCounts counts = script.counts();
    EXPECT_GT(counts.interfaces_given, 0);
    EXPECT_EQ(counts.interfaces_live, 0);
    EXPECT_EQ(counts.released_too_often, 0);
    EXPECT_EQ(counts.id_lists_live, 0);
}

TEST_F(FolderWindows, ListWhatTheScriptNames)
{
    const std::wstring inner = folder.make_folder(L"inner");
    FolderWindowsScript script;
    Walk();
    // The system asks a new object for one interface, or for another one first.
    const int given_by_creation = script.counts().interfaces_given;
    EXPECT_GE(given_by_creation, 1);
    script.clear();
    script.add(reinterpret_cast<HWND>(0x1234), folder.path()).add(nullptr, inner);
    EXPECT_EQ(Walk().seen(), (Seen{L"4660 " + folder.path(), L"0 " + inner}));
    expect_all_released(script);
    EXPECT_EQ(script.counts().passes, 1);
    EXPECT_EQ(script.counts().id_lists_given, 2);
    EXPECT_EQ(script.counts().interfaces_given, given_by_creation + 2 * 7);
}

TEST_F(FolderWindows, FailAtEachStepInTurn)
{
    FolderWindowsScript script;
    for (const Missing missing : {Missing::kItem, Missing::kItemNull, Missing::kWebBrowserApp,
                                  Missing::kWindowHandle, Missing::kServiceProvider, Missing::kShellBrowser,
                                  Missing::kShellView, Missing::kFolderView, Missing::kPersistFolder,
                                  Missing::kItemIdList, Missing::kItemIdListNull, Missing::kFileSystemPath}) {
        FolderWindow window;
        window.window = reinterpret_cast<HWND>(7);
        window.path = folder.path();
        window.missing = missing;
        script.add(window);
    }
    EXPECT_EQ(Walk().seen(),
              (Seen{L"item", L"item", L"web browser", L"handle", L"7 services", L"7 shell browser", L"7 view",
                    L"7 folder view", L"7 folder", L"7 id list", L"7 null id list", L"7 path"}));
    expect_all_released(script);
}

TEST_F(FolderWindows, ChangeBetweenPasses)
{
    FolderWindowsScript script;
    FolderWindow moving;
    moving.window = reinterpret_cast<HWND>(7);
    moving.path = L"C:\\";
    moving.later_from_pass = 2;
    moving.later_path = folder.path();
    script.add(moving);
    FolderWindow passing;
    passing.window = reinterpret_cast<HWND>(8);
    passing.path = folder.path();
    passing.first_pass = 2;
    passing.last_pass = 2;
    script.add(passing);
    EXPECT_EQ(Walk().seen(), (Seen{L"7 C:\\"}));
    EXPECT_EQ(Walk().seen(), (Seen{L"7 " + folder.path(), L"8 " + folder.path()}));
    EXPECT_EQ(Walk().seen(), (Seen{L"7 " + folder.path()}));
    EXPECT_EQ(script.counts().passes, 3);
}

TEST_F(FolderWindows, AreThoseOfALaterScript)
{
    for (const std::wstring& path : {std::wstring(L"C:\\"), folder.path()}) {
        FolderWindowsScript script;
        script.add(nullptr, path);
        EXPECT_EQ(Walk().seen(), Seen{L"0 " + path});
        EXPECT_EQ(script.counts().passes, 1);
    }
}

TEST_F(FolderWindows, FailAsTold)
{
    FolderWindowsScript script;
    script.add(nullptr, L"C:\\");
    script.claim_more(2);
    EXPECT_EQ(Walk().seen(), (Seen{L"0 C:\\", L"item", L"item"}));
    script.fail_count(E_NOTIMPL);
    EXPECT_EQ(Walk().count_result(), E_NOTIMPL);
    EXPECT_EQ(Walk().count(), -1); // not written
    script.fail_creation(E_OUTOFMEMORY);
    EXPECT_EQ(Walk().creation(), E_OUTOFMEMORY);
}

TEST_F(FolderWindows, CountInterfacesNotReleasedAndReleasedTwice)
{
    FolderWindowsScript script;
    script.add(nullptr, L"C:\\");
    IShellWindows* list = nullptr;
    CoCreateInstance(kShellWindows, nullptr, CLSCTX_ALL, __uuidof(IShellWindows),
                     reinterpret_cast<void**>(&list));
    ASSERT_NE(list, nullptr);
    VARIANT index;
    VariantInit(&index);
    index.vt = VT_I4;
    index.lVal = 0;
    IDispatch* item = nullptr;
    list->Item(index, &item);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(script.counts().interfaces_live, 2);
    item->Release();
    item->Release();
    EXPECT_EQ(script.counts().interfaces_live, 1);
    EXPECT_EQ(script.counts().released_too_often, 1);
    list->Release();
    EXPECT_EQ(script.counts().interfaces_live, 0);
}

// The folders on the desktop of a user are there besides.
TEST_F(FolderWindows, AreThoseOnTheScreenWithoutAScript)
{
    const std::wstring path = folder.make_folder(L"Some folder, really");
    const LONG before = Walk().count();
    HWND window = nullptr;
    {
        const RealFolderWindow opened(path);
        window = opened.window();
        const std::wstring item = std::to_wstring(reinterpret_cast<INT_PTR>(window)) + L" " + path;
        // It may be on the screen a moment before it is in the list of the shell.
        EXPECT_TRUE(becomes_true_pumping([&] {
            const Seen seen = Walk().seen();
            return std::find(seen.begin(), seen.end(), item) != seen.end();
        }));
        EXPECT_EQ(Walk().count(), before + 1);
        const RealFolderWindow another(folder.make_folder(L"two"));
        EXPECT_TRUE(becomes_true_pumping([&] { return Walk().count() == before + 2; }));

        FolderWindowsScript script;
        EXPECT_EQ(Walk().count(), 0);
        script.show_real_windows();
        EXPECT_EQ(Walk().count(), before + 2);
        EXPECT_EQ(script.counts().passes, 2);
        EXPECT_EQ(script.counts().interfaces_live, 0);
    }
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(becomes_true_pumping([&] { return Walk().count() == before; }));
}

// The library that the system's list of folder windows comes from.
std::wstring library_of_the_list()
{
    IClassFactory* factory = nullptr;
    CoGetClassObject(kShellWindows, CLSCTX_INPROC_SERVER, nullptr, __uuidof(IClassFactory),
                     reinterpret_cast<void**>(&factory));
    if (!factory)
        return {};
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       *reinterpret_cast<const wchar_t* const*>(factory), &library);
    factory->Release();
    wchar_t path[2048]{};
    GetModuleFileNameW(library, path, 2048);
    return path;
}

// A program that is lent the stand-in, here this one, as a test lends it to another.
TEST(LentFolderWindows, ListWhatTheScriptNames)
{
    const ComApartment com;
    const TestWindow borrower(L"borrower");
    const std::wstring lent = windows_path(SHELL_WINDOWS_STAND_IN_DLL);
    EXPECT_NE(library_of_the_list(), lent);
    Background([&] { lend_stand_in(borrower); }).join();
    EXPECT_EQ(library_of_the_list(), lent);
    const TemporaryFolder folder;
    FolderWindowsScript script;
    script.add(reinterpret_cast<HWND>(0x1234), folder.path());
    EXPECT_EQ(Walk().seen(), (Seen{L"4660 " + folder.path()}));
    expect_all_released(script);
}

TEST(LentFolderWindows, AreNotLentToAWindowThatIsGone)
{
    HWND gone = nullptr;
    {
        const TestWindow window(L"gone");
        gone = window;
    }
    EXPECT_THROW(lend_stand_in(gone), Failure);
}

// The same list as a program gets it that nobody lends the stand-in: from the server that is registered.
TEST(RegisteredFolderWindows, ListWhatTheScriptNames)
{
    ONLY_UNDER_WINE("on Windows nothing is registered, the list is the shell's own");
    const ComApartment com;
    const TemporaryFolder folder;
    FolderWindowsScript script;
    script.add(reinterpret_cast<HWND>(0x1234), folder.path());
    EXPECT_EQ(Walk().seen(), (Seen{L"4660 " + folder.path()}));
    expect_all_released(script);
}

} // namespace
