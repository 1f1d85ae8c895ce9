#include "sources/funcs_layout_windows/open_windows/window_inspection.h"

#include <algorithm>
#include <array>

#include <psapi.h>

#include "sources/funcs_layout_windows/open_windows/window_filter.h"
#include "sources/win32/foreign_window.h"
#include "sources/win32/owners/kernel_handle.h"

namespace
{

constexpr int kClassName_max_units = 250;

} // namespace

bool is_visible(HWND hwnd)
{
    return hwnd != nullptr && IsWindowVisible(hwnd) != FALSE;
}

bool read_title(HWND hwnd, std::span<wchar_t> title)
{
    std::fill(title.begin(), title.end(), L'\0');
    DWORD_PTR length_units = 0;
    const bool answered = ask_foreign_window(hwnd, WM_GETTEXT, title.size(),
                                             reinterpret_cast<LPARAM>(title.data()), &length_units);
    return answered && length_units != 0;
}

bool has_excluded_class(HWND hwnd)
{
    std::array<wchar_t, kClassName_max_units> buffer{};
    const int length = GetClassNameW(hwnd, buffer.data(), kClassName_max_units);
    const std::span<wchar_t> name(buffer.data(), static_cast<std::size_t>(std::max(length, 0)));
    lower_case_ascii(name);
    return is_excluded_class({name.data(), name.size()});
}

bool window_qualifies(HWND hwnd, std::span<wchar_t> title)
{
    return is_visible(hwnd) && !has_excluded_class(hwnd) && read_title(hwnd, title);
}

ImagePath read_image_path(DWORD process_id, std::span<wchar_t> buffer, DWORD limit_units)
{
    KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, process_id));
    if (!process)
        return ImagePath::UNAVAILABLE;
    std::fill(buffer.begin(), buffer.end(), L'\0');
    if (K32GetModuleFileNameExW(process.get(), nullptr, buffer.data(), limit_units) == 0) {
        process.leave_open(); // Quirk: stays open; it is one for each pass, which ends there.
        return ImagePath::FAILED;
    }
    return buffer.front() == L'\0' ? ImagePath::UNAVAILABLE : ImagePath::READ;
}
