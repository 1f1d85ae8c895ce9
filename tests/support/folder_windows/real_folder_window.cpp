#include "tests/support/folder_windows/real_folder_window.h"

#include <shellapi.h>

#include <algorithm>
#include <vector>

#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

bool is_folder_window(HWND window)
{
    const std::wstring name = class_of(window);
    return IsWindowVisible(window) && (name == L"ExplorerWClass" || name == L"CabinetWClass");
}

std::vector<HWND> folder_windows()
{
    std::vector<HWND> windows = top_level_windows();
    std::erase_if(windows, [](HWND window) { return !is_folder_window(window); });
    return windows;
}

} // namespace

RealFolderWindow::RealFolderWindow(const std::wstring& folder)
{
    const std::vector<HWND> before = folder_windows();
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof(request);
    request.fMask = SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = folder.c_str();
    request.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&request))
        throw Failure("the shell does not open the folder " + printable(folder));
    wait_until(
        [&] {
            for (const HWND window : folder_windows())
                if (std::find(before.begin(), before.end(), window) == before.end())
                    window_ = window;
            return window_ != nullptr;
        },
        kLongWait, "a window of the folder " + printable(folder));
}

RealFolderWindow::~RealFolderWindow()
{
    const DWORD process_id = process_of(window_);
    PostMessageW(window_, WM_CLOSE, 0, 0);
    // On Windows the process is the whole desktop's.
    if (!becomes_true([&] { return !IsWindow(window_); }) && under_wine())
        terminate_process(process_id);
}

} // namespace test_support
