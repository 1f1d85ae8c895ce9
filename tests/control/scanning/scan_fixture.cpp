#include "tests/control/scanning/scan_fixture.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <utility>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "sources/funcs_layout_windows/scanning/scan_command.h"
#include "sources/funcs_layout_windows/scanning/scan_use.h"
#include "sources/main_prg/main_window.h"
#include "sources/wnd_ScanListView/wnd_ScanListView.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/control_ids.h"

using namespace test_support;

namespace scan_tests
{
Desktop::Desktop(std::vector<HWND> windows_given)
    : windows(std::move(windows_given)),
      hook_("user32.dll", [this](WNDENUMPROC procedure, LPARAM lParam) -> BOOL {
          ++passes_;
          if (before_pass)
              before_pass(passes_);
          if (passes_ == failing_pass)
              return FALSE;
          for (const HWND window : windows) {
              if (procedure(window, lParam) == FALSE)
                  return FALSE;
          }
          return TRUE;
      })
{
}

ScanFixture::ScanFixture() : host_(L"", WS_POPUP, {0, 0, 10, 10}, L"ScanFixtureHost")
{
    InitCommonControls();
    // As the program does: while a scan waits for a hung program Windows would put ghosts over this one's
    // windows.
    DisableProcessWindowsGhosting();
    register_class(L"List of Windows", WndProc_ScanListView);
}

ScanFixture::~ScanFixture()
{
    if (hwnd_ScanListView != nullptr)
        DestroyWindow(hwnd_ScanListView);
    release_scan_blocks(&scan_record);
}

std::int32_t ScanFixture::scan()
{
    const ScanUse use;
    if (!use.is_taken())
        throw Failure("a scan is using the record");
    scan_record.counter_all = 0;
    scan_record.counter_valid = 0;
    scan_record.counter_filled = 0;
    scan_record.uiSize_TmpBuf_Path = 32768;
    return onButton_Scan_Clicked(host_, &hwnd_ScanListView, 0, 0, &scan_record);
}

RemoteListView ScanFixture::list() const
{
    const HWND list = GetDlgItem(hwnd_ScanListView, list_control::kList);
    if (list == nullptr)
        throw Failure("there is no list");
    return RemoteListView(list);
}

void ScanFixture::press(WORD button) const
{
    SendMessageW(hwnd_ScanListView, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(hwnd_ScanListView, button)));
}

std::wstring own_image_path()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::wstring title_of_slot(std::uint32_t slot)
{
    return geometry_entry(&scan_record, slot)->title;
}

std::wstring path_of_slot(std::uint32_t slot)
{
    return reinterpret_cast<const wchar_t*>(path_slot(&scan_record, slot));
}

void press_scan(HWND main_window)
{
    EXPECT_EQ(WndProc(main_window, WM_COMMAND, MAKEWPARAM(main_control::kScan, BN_CLICKED), 0), 0);
}

RecordCopy::RecordCopy()
{
    const auto copy = [this](const void* block, std::size_t size_bytes) {
        const auto* bytes = static_cast<const std::uint8_t*>(block);
        parts_.emplace_back(bytes, bytes + (bytes == nullptr ? 0 : size_bytes));
    };
    const std::size_t slots = scan_record.counter_valid;
    copy(&scan_record, sizeof scan_record);
    copy(scan_record.arr1D_ui_LenPath, slots * 4);
    copy(scan_record.arr1D_uc_flag_FP, slots);
    copy(scan_record.pcTmpBuf_Prg_Folder_Path, scan_record.uiSize_TmpBuf_Path);
    copy(scan_record.pcDynMem_FullPaths, slots * (std::size_t{scan_record.uiMaxLen_inBytes_AllPath} + 1) * 2);
    copy(scan_record.pcDynMem_WinHndls, slots * 8);
    copy(scan_record.pcDynMem_GeomText, slots * 122);
}

} // namespace scan_tests
