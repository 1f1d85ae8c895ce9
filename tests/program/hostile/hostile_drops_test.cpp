#include <windows.h>

#include <gtest/gtest.h>

#include <shlobj.h>

#include <algorithm>
#include <functional>

#include "tests/program/hostile/all_windows_open_fixture.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/remote_memory.h"
#include "tests/support/windows/windows_lookup.h"

// WM_DROPFILES as another program can send it.

using namespace test_support;
using hostile::Texts;

namespace
{

class HostileDrops : public hostile::AllWindowsOpenFixture
{
};

ExpectedBox drop_box(int site, int handler, const std::wstring& detail)
{
    return {bytes_as_wide("error"),
            shown_as_bytes(
                gap_text({L"sources/funcs_layout_windows", L"on_wm_dropfiles", site, handler}, detail))};
}

TEST_F(HostileDrops, OfWrongHandlesAndListsAreReportedAndNothingElse)
{
    ONLY_UNDER_WINE("Windows copies a drop out of the program that posts it, which has to hold it");
    // A page of memory in the program and none behind it.
    RemoteMemory pages(wendlow_.main_window(), 0x2000);
    DWORD before = 0;
    ASSERT_TRUE(VirtualProtectEx(wendlow_.process(), pages.address(0x1000), 0x1000, PAGE_NOACCESS, &before));
    const auto address = [&](std::size_t offset) { return reinterpret_cast<WPARAM>(pages.address(offset)); };
    const Bytes filling(0x1000, 'A');
    const auto list = [&](DWORD files, BOOL wide, std::size_t at) {
        pages.write(0, filling.data(), filling.size());
        DROPFILES header{};
        header.pFiles = files;
        header.fWide = wide;
        pages.write(at, &header, std::min<std::size_t>(sizeof(header), 0x1000 - at));
        return address(at);
    };
    const struct {
        const char* what;
        std::function<WPARAM()> handle;
    } drops[] = {
        {"an address nobody has", [] { return WPARAM{0x10}; }},
        {"an odd one", [] { return WPARAM{0x12345677}; }},
        {"one that looks like a handle", [] { return WPARAM{0x12345672}; }},
        {"the last one", [] { return ~WPARAM{0}; }},
        {"an address of the kernel's", [] { return static_cast<WPARAM>(0xFFFF'8000'0000'0000); }},
        {"memory that cannot be read", [&] { return address(0x1000); }},
        {"memory that looks like a handle", [&] { return address(2); }},
        {"a header that is cut off", [&] { return list(20, TRUE, 0x1000 - 10); }},
        {"paths at the very end", [&] { return list(0x1000, TRUE, 0); }},
        {"paths behind the end", [&] { return list(0x1001, TRUE, 0); }},
        {"paths far away", [&] { return list(0xFFFFFFFF, TRUE, 0); }},
        {"a wide path without end", [&] { return list(20, TRUE, 0); }},
        {"a narrow path without end", [&] { return list(20, FALSE, 0); }},
        {"half a unit", [&] { return list(0xFFF, TRUE, 0); }},
        {"an empty first path",
         [&] {
             const WPARAM handle = list(20, TRUE, 0);
             const wchar_t nothing[2] = {};
             pages.write(20, nothing, sizeof nothing);
             return handle;
         }},
    };
    const ExpectedBox query =
        drop_box(9142, 9251, L"error, one of callable functions returned error, DragQueryFile( )");
    for (const auto& drop : drops) {
        SCOPED_TRACE(drop.what);
        const WPARAM handle = drop.handle();
        boxes_.forget();
        PostMessageW(wendlow_.main_window(), WM_DROPFILES, handle, 0);
        boxes_.expect_boxes({query});
        wendlow_.wait_until_idle();
        ASSERT_FALSE(HasFailure());
        for (const HWND window : windows_) {
            if (window != wendlow_.main_window())
                PostMessageW(window, WM_DROPFILES, handle, 0);
        }
    }
    expect_all_as_before();
    boxes_.expect_boxes({query});
}

} // namespace
