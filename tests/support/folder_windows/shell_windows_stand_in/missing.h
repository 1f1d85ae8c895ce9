#pragma once

namespace test_support
{

// Which step of the way from the list to a window's folder gives nothing.
enum class Missing {
    kNothing,
    kItem,            // Item fails
    kItemNull,        // Item succeeds with a null pointer: the window has just been closed
    kWebBrowserApp,   // no IWebBrowserApp
    kWindowHandle,    // get_HWND fails
    kServiceProvider, // no IServiceProvider
    kShellBrowser,    // QueryService fails
    kShellView,       // QueryActiveShellView fails
    kFolderView,      // no IFolderView
    kPersistFolder,   // GetFolder fails
    kItemIdList,      // GetCurFolder fails
    kItemIdListNull,  // GetCurFolder succeeds with a null list
    kFileSystemPath,  // a virtual folder: the list names no path
};

// The steps without which there is no folder: all but the window's handle.
inline constexpr Missing kStepsToTheFolder[] = {
    Missing::kItem,         Missing::kItemNull,       Missing::kWebBrowserApp,  Missing::kServiceProvider,
    Missing::kShellBrowser, Missing::kShellView,      Missing::kFolderView,     Missing::kPersistFolder,
    Missing::kItemIdList,   Missing::kItemIdListNull, Missing::kFileSystemPath,
};

} // namespace test_support
