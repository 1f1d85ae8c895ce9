#include "tests/support/folder_windows/shell_windows_stand_in/folder_items.h"

#include <servprov.h>
#include <shlobj.h>

#include "tests/support/folder_windows/shell_windows_stand_in/counted.h"
#include "tests/support/folder_windows/shell_windows_stand_in/item_id_lists.h"
#include "tests/support/folder_windows/shell_windows_stand_in/real_windows.h"
#include "tests/support/folder_windows/shell_windows_stand_in/script.h"
#include "tests/support/folder_windows/shell_windows_stand_in/unused_methods.h"

namespace test_support::stand_in
{

namespace
{

// {4C96BE40-915C-11CF-99D3-00AA004AE837}, the service of the browser of a whole window.
constexpr GUID kTopLevelBrowser = {
    0x4C96BE40, 0x915C, 0x11CF, {0x99, 0xD3, 0x00, 0xAA, 0x00, 0x4A, 0xE8, 0x37}};

class FolderItem;

// What each interface of a folder window has: its own references and the window it belongs to.
template <typename Methods> class Part : public Methods
{
public:
    explicit Part(FolderItem& item) : item_(item) {}
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.add(); }
    ULONG STDMETHODCALLTYPE Release() override { return references_.release(); }

protected:
    FolderItem& item_;

private:
    References references_;
};

class DispatchPart : public Part<UnusedDispatch>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
};

class WebBrowserPart : public Part<UnusedWebBrowserApp>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE get_HWND(SHANDLE_PTR* window) override;
};

class ServicePart : public Part<IServiceProvider>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE QueryService(REFGUID service, REFIID id, void** out) override;
};

class ShellBrowserPart : public Part<UnusedShellBrowser>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE QueryActiveShellView(IShellView** out) override;
};

class ShellViewPart : public Part<UnusedShellView>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
};

class FolderViewPart : public Part<UnusedFolderView>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE GetFolder(REFIID id, void** out) override;
};

class PersistFolderPart : public Part<UnusedPersistFolder>
{
public:
    using Part::Part;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE GetCurFolder(PIDLIST_ABSOLUTE* out) override;
};

class FolderItem
{
public:
    explicit FolderItem(const Entry& described) : entry(described) {}

    bool lacks(Missing what) const { return entry.missing == what; }

    // The interfaces of the window itself know one another.
    HRESULT query_window(REFIID id, void** out)
    {
        if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch))
            return hand_out(&dispatch, out);
        if (id == __uuidof(IWebBrowserApp) && !lacks(Missing::kWebBrowserApp))
            return hand_out(&browser, out);
        if (id == __uuidof(IServiceProvider) && !lacks(Missing::kServiceProvider))
            return hand_out(&services, out);
        return refuse(out);
    }

    // So do those of its view.
    HRESULT query_view(REFIID id, void** out)
    {
        if (id == __uuidof(IUnknown) || id == __uuidof(IOleWindow) || id == __uuidof(IShellView))
            return hand_out(&view, out);
        if (id == __uuidof(IFolderView) && !lacks(Missing::kFolderView))
            return hand_out(&folder_view, out);
        return refuse(out);
    }

    Entry entry;
    DispatchPart dispatch{*this};
    WebBrowserPart browser{*this};
    ServicePart services{*this};
    ShellBrowserPart shell_browser{*this};
    ShellViewPart view{*this};
    FolderViewPart folder_view{*this};
    PersistFolderPart folder{*this};
};

HRESULT DispatchPart::QueryInterface(REFIID id, void** out)
{
    return item_.query_window(id, out);
}

HRESULT WebBrowserPart::QueryInterface(REFIID id, void** out)
{
    return item_.query_window(id, out);
}

HRESULT WebBrowserPart::get_HWND(SHANDLE_PTR* window)
{
    *window = 0;
    if (item_.lacks(Missing::kWindowHandle))
        return E_FAIL;
    *window = static_cast<SHANDLE_PTR>(item_.entry.window);
    return S_OK;
}

HRESULT ServicePart::QueryInterface(REFIID id, void** out)
{
    return item_.query_window(id, out);
}

HRESULT ServicePart::QueryService(REFGUID service, REFIID id, void** out)
{
    if (service == kTopLevelBrowser && id == __uuidof(IShellBrowser) && !item_.lacks(Missing::kShellBrowser))
        return hand_out(&item_.shell_browser, out);
    return refuse(out);
}

HRESULT ShellBrowserPart::QueryInterface(REFIID id, void** out)
{
    if (id == __uuidof(IUnknown) || id == __uuidof(IOleWindow) || id == __uuidof(IShellBrowser))
        return hand_out(this, out);
    return refuse(out);
}

HRESULT ShellBrowserPart::GetWindow(HWND* window)
{
    *window = reinterpret_cast<HWND>(item_.entry.tab);
    return *window ? S_OK : E_FAIL;
}

HRESULT ShellBrowserPart::QueryActiveShellView(IShellView** out)
{
    *out = nullptr;
    if (item_.lacks(Missing::kShellView))
        return E_FAIL;
    item_.view.AddRef();
    *out = &item_.view;
    return S_OK;
}

HRESULT ShellViewPart::QueryInterface(REFIID id, void** out)
{
    return item_.query_view(id, out);
}

HRESULT FolderViewPart::QueryInterface(REFIID id, void** out)
{
    return item_.query_view(id, out);
}

HRESULT FolderViewPart::GetFolder(REFIID id, void** out)
{
    if (id == __uuidof(IPersistFolder2) && !item_.lacks(Missing::kPersistFolder))
        return hand_out(&item_.folder, out);
    return refuse(out);
}

HRESULT PersistFolderPart::QueryInterface(REFIID id, void** out)
{
    if (id == __uuidof(IUnknown) || id == __uuidof(IPersist) || id == __uuidof(IPersistFolder) ||
        id == __uuidof(IPersistFolder2))
        return hand_out(this, out);
    return refuse(out);
}

HRESULT PersistFolderPart::GetCurFolder(PIDLIST_ABSOLUTE* out)
{
    *out = nullptr;
    if (item_.lacks(Missing::kItemIdList))
        return E_FAIL;
    if (item_.lacks(Missing::kItemIdListNull))
        return S_OK;
    *out =
        item_.lacks(Missing::kFileSystemPath) ? item_id_list_of_no_path() : item_id_list_of(item_.entry.path);
    return *out ? S_OK : E_FAIL;
}

std::vector<Entry> scripted_entries(const Script& script, int pass)
{
    std::vector<Entry> entries;
    for (int i = 0; i < script.window_count; ++i) {
        const ScriptedWindow& window = script.windows[i];
        if (pass < window.first_pass || pass > window.last_pass)
            continue;
        const bool later = window.later_from_pass != 0 && pass >= window.later_from_pass;
        entries.push_back({window.window, later ? window.later_path : window.path,
                           static_cast<Missing>(window.missing), window.tab});
    }
    return entries;
}

std::vector<Entry> real_entries()
{
    std::vector<Entry> entries;
    for (const FolderOnScreen& folder : folder_windows_on_screen())
        entries.push_back({reinterpret_cast<std::int64_t>(folder.window), folder.path,
                           folder.path.empty() ? Missing::kFileSystemPath : Missing::kNothing});
    return entries;
}

} // namespace

std::vector<Entry> entries_in_pass(int pass)
{
    const Script* script = current_script();
    return script && !script->real_windows ? scripted_entries(*script, pass) : real_entries();
}

IDispatch* hand_out_item(const Entry& entry)
{
    auto* item = new FolderItem(entry); // stays for the life of the process, see References
    item->dispatch.AddRef();
    return &item->dispatch;
}

} // namespace test_support::stand_in
