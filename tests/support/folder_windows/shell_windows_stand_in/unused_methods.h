#pragma once

#include <windows.h>

#include <exdisp.h>
#include <shlobj.h>

// The methods of the shell's interfaces that nobody asks the stand-in for. Each answers E_NOTIMPL.

namespace test_support::stand_in
{

// Those of IDispatch, for an interface that inherits it.
template <typename Interface> class UnusedDispatchOf : public Interface
{
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }

protected:
    ~UnusedDispatchOf() = default;
};

using UnusedDispatch = UnusedDispatchOf<IDispatch>;

class UnusedShellWindows : public UnusedDispatchOf<IShellWindows>
{
public:
    HRESULT STDMETHODCALLTYPE _NewEnum(IUnknown**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Register(IDispatch*, LONG, int, LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RegisterPending(LONG, VARIANT*, VARIANT*, int, LONG*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Revoke(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnNavigate(LONG, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnActivated(LONG, VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindWindowSW(VARIANT*, VARIANT*, int, LONG*, int, IDispatch**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OnCreated(LONG, IUnknown*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ProcessAttachDetach(VARIANT_BOOL) override { return E_NOTIMPL; }

protected:
    ~UnusedShellWindows() = default;
};

class UnusedWebBrowserApp : public UnusedDispatchOf<IWebBrowserApp>
{
public:
    HRESULT STDMETHODCALLTYPE GoBack() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GoForward() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GoHome() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GoSearch() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Navigate(BSTR, VARIANT*, VARIANT*, VARIANT*, VARIANT*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Refresh() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Refresh2(VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stop() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Application(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Parent(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Container(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Document(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_TopLevelContainer(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Type(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Left(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Left(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Top(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Top(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Width(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Width(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Height(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Height(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_LocationName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_LocationURL(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Busy(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Quit() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ClientToWindow(int*, int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutProperty(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty(BSTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Name(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FullName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Path(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_StatusBar(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_StatusBar(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_StatusText(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_StatusText(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ToolBar(int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ToolBar(int) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_MenuBar(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_MenuBar(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FullScreen(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_FullScreen(VARIANT_BOOL) override { return E_NOTIMPL; }

protected:
    ~UnusedWebBrowserApp() = default;
};

class UnusedShellBrowser : public IShellBrowser
{
public:
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InsertMenusSB(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenuSB(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RemoveMenusSB(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusTextSB(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnableModelessSB(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAcceleratorSB(MSG*, WORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BrowseObject(PCUIDLIST_RELATIVE, UINT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetViewStateStream(DWORD, IStream**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetControlWindow(UINT, HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SendControlMsg(UINT, UINT, WPARAM, LPARAM, LRESULT*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OnViewWindowActive(IShellView*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetToolbarItems(LPTBBUTTONSB, UINT, UINT) override { return E_NOTIMPL; }

protected:
    ~UnusedShellBrowser() = default;
};

class UnusedShellView : public IShellView
{
public:
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UIActivate(UINT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Refresh() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateViewWindow(IShellView*, LPCFOLDERSETTINGS, IShellBrowser*, RECT*,
                                               HWND*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DestroyViewWindow() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCurrentInfo(LPFOLDERSETTINGS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddPropertySheetPages(DWORD, LPFNSVADDPROPSHEETPAGE, LPARAM) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SaveViewState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SelectItem(PCUITEMID_CHILD, SVSIF) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemObject(UINT, REFIID, void**) override { return E_NOTIMPL; }

protected:
    ~UnusedShellView() = default;
};

class UnusedFolderView : public IFolderView
{
public:
    HRESULT STDMETHODCALLTYPE GetCurrentViewMode(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetCurrentViewMode(UINT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Item(int, PITEMID_CHILD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ItemCount(UINT, int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Items(UINT, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSelectionMarkedItem(int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFocusedItem(int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemPosition(PCUITEMID_CHILD, POINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSpacing(POINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDefaultSpacing(POINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAutoArrange() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SelectItem(int, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SelectAndPositionItems(UINT, PCUITEMID_CHILD_ARRAY, POINT*, DWORD) override
    {
        return E_NOTIMPL;
    }

protected:
    ~UnusedFolderView() = default;
};

class UnusedPersistFolder : public IPersistFolder2
{
public:
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Initialize(PCIDLIST_ABSOLUTE) override { return E_NOTIMPL; }

protected:
    ~UnusedPersistFolder() = default;
};

} // namespace test_support::stand_in
