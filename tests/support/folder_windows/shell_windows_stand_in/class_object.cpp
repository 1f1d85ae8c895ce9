#include "tests/support/folder_windows/shell_windows_stand_in/class_object.h"

#include "tests/support/basics/platform.h"
#include "tests/support/folder_windows/shell_windows_stand_in/counted.h"
#include "tests/support/folder_windows/shell_windows_stand_in/folder_items.h"
#include "tests/support/folder_windows/shell_windows_stand_in/script.h"
#include "tests/support/folder_windows/shell_windows_stand_in/unused_methods.h"

namespace test_support::stand_in
{

namespace
{

class ShellWindows final : public UnusedShellWindows
{
public:
    explicit ShellWindows(std::vector<Entry> entries) : entries_(std::move(entries)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IShellWindows))
            return hand_out(this, out);
        return refuse(out);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.add(); }
    ULONG STDMETHODCALLTYPE Release() override { return references_.release(); }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        const Script* script = current_script();
        if (script && FAILED(script->count_result))
            return script->count_result;
        *count = static_cast<LONG>(entries_.size()) + (script ? script->claimed_more : 0);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Item(VARIANT index, IDispatch** item) override
    {
        *item = nullptr;
        if (index.vt != VT_I4)
            return E_INVALIDARG;
        // As the shell answers for a window that is gone: no error, and no window.
        if (index.lVal < 0 || static_cast<std::size_t>(index.lVal) >= entries_.size())
            return S_FALSE;
        const Entry& entry = entries_[static_cast<std::size_t>(index.lVal)];
        if (entry.missing == Missing::kItem)
            return E_FAIL;
        if (entry.missing == Missing::kItemNull)
            return S_OK;
        *item = hand_out_item(entry);
        return S_OK;
    }

private:
    std::vector<Entry> entries_;
    References references_;
};

// The shell's own list. Wine's is always empty.
HRESULT list_of_the_shell(REFIID id, void** out)
{
    if (under_wine())
        return E_NOTIMPL;
    return CoCreateInstance(kShellWindowsClass, nullptr, CLSCTX_LOCAL_SERVER, id, out);
}

class Factory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override
    {
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        const LONG pass = InterlockedIncrement(&counters().passes);
        const Script* script = current_script();
        if (script && FAILED(script->creation_result))
            return script->creation_result;
        if ((!script || script->real_windows) && SUCCEEDED(list_of_the_shell(id, out)))
            return S_OK;
        auto* list = new ShellWindows(entries_in_pass(pass)); // stays, see References
        return list->QueryInterface(id, out);
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

} // namespace

IClassFactory& class_object()
{
    static Factory factory;
    return factory;
}

} // namespace test_support::stand_in
