#include "sources/funcs_layout_windows/open_windows/shell_folder_walk.h"

#include <array>

#include <servprov.h>

#include "sources/funcs_layout_windows/open_windows/window_filter.h"
#include "sources/win32/text_in.h"

namespace
{

// Defined here so that no import library has to bring them.
constexpr GUID kCLSID_ShellWindows{
    0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};
constexpr GUID kIID_IShellWindows{
    0x85CB6900, 0x4D95, 0x11CF, {0x96, 0x0C, 0x00, 0x80, 0xC7, 0xF4, 0xEE, 0x85}};
constexpr GUID kIID_IWebBrowserApp{
    0x0002DF05, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr GUID kIID_IServiceProvider{
    0x6D5140C1, 0x7436, 0x11CE, {0x80, 0x34, 0x00, 0xAA, 0x00, 0x60, 0x09, 0xFA}};
constexpr GUID kSID_STopLevelBrowser{
    0x4C96BE40, 0x915C, 0x11CF, {0x99, 0xD3, 0x00, 0xAA, 0x00, 0x4A, 0xE8, 0x37}};
constexpr GUID kIID_IShellBrowser{
    0x000214E2, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr GUID kIID_IFolderView{0xCDE725B0, 0xCCC9, 0x4519, {0x91, 0x7E, 0x32, 0x5D, 0x72, 0xFA, 0xB4, 0xCE}};
constexpr GUID kIID_IPersistFolder2{
    0x1AC3D9F0, 0x175C, 0x11D1, {0x95, 0xBE, 0x00, 0x60, 0x97, 0x97, 0xEA, 0x4F}};

using PathBuffer = std::array<wchar_t, MAX_PATH>;

constexpr int kClassName_max_units = 256;

// True when the browser is a tab of the window and another tab is the one that is shown: each has a child
// window of its own, and of those that are visible the shown one lies on top. A browser that tells no such
// window counts as shown.
bool is_tab_not_shown(IShellBrowser* browser, HWND folder_window)
{
    HWND tab = nullptr;
    if (FAILED(browser->GetWindow(&tab)) || IsChild(folder_window, tab) == FALSE)
        return false;
    std::array<wchar_t, kClassName_max_units> name{};
    GetClassNameW(tab, name.data(), kClassName_max_units);
    HWND sibling = nullptr;
    while ((sibling = FindWindowExW(GetAncestor(tab, GA_PARENT), sibling, name.data(), nullptr)) != nullptr) {
        if ((GetWindowLongPtrW(sibling, GWL_STYLE) & WS_VISIBLE) != 0)
            return sibling != tab;
    }
    return false;
}

// Finds out the window and the folder of list item `index`. False when any step of the way gives nothing.
bool read_folder_window(ShellWindowsList* list, long index, HWND* hwnd, PathBuffer* path)
{
    VARIANT* item = list->item.get();
    item->vt = VT_I4;
    item->lVal = index;
    ComPtr<IDispatch> dispatch;
    list->windows->Item(*item, dispatch.out());
    if (!dispatch)
        return false;

    ComPtr<IWebBrowserApp> browser_app;
    dispatch->QueryInterface(kIID_IWebBrowserApp, browser_app.out_void());
    if (!browser_app)
        return false;
    SHANDLE_PTR handle = 0;
    browser_app->get_HWND(&handle);
    *hwnd = reinterpret_cast<HWND>(handle);

    ComPtr<IServiceProvider> services;
    browser_app->QueryInterface(kIID_IServiceProvider, services.out_void());
    if (!services)
        return false;
    ComPtr<IShellBrowser> browser;
    services->QueryService(kSID_STopLevelBrowser, kIID_IShellBrowser, browser.out_void());
    if (!browser || is_tab_not_shown(browser.get(), *hwnd))
        return false;
    ComPtr<IShellView> view;
    browser->QueryActiveShellView(view.out());
    if (!view)
        return false;
    ComPtr<IFolderView> folder_view;
    view->QueryInterface(kIID_IFolderView, folder_view.out_void());
    if (!folder_view)
        return false;
    ComPtr<IPersistFolder2> folder;
    folder_view->GetFolder(kIID_IPersistFolder2, folder.out_void());
    if (!folder)
        return false;
    ItemIdList id_list;
    folder->GetCurFolder(id_list.out());
    return id_list.get() != nullptr && SHGetPathFromIDListW(id_list.get(), path->data()) != FALSE;
}

} // namespace

HRESULT open_shell_windows(ShellWindowsList* list)
{
    return CoCreateInstance(kCLSID_ShellWindows, nullptr, CLSCTX_ALL, kIID_IShellWindows,
                            list->windows.out_void());
}

long count_shell_windows(const ShellWindowsList& list)
{
    long count = 0;
    list.windows->get_Count(&count);
    return count;
}

void walk_shell_windows(ShellWindowsList* list, long count, FolderVisitor visitor, void* context)
{
    PathBuffer path{};
    for (long index = 0; index < count; ++index) {
        HWND hwnd = nullptr;
        if (read_folder_window(list, index, &hwnd, &path) && !visitor(hwnd, text_in(path), context))
            return;
    }
}
