#include "sources/funcs_layout_windows/open_windows/window_filter.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::array<std::wstring_view, 10> kExcludedClasses{L"tooltips_class32",
                                                             L"tooltips_class",
                                                             L"sysshadow",
                                                             L"regedit_regedit",
                                                             L"#32770",
                                                             L"taskmanagerwindow",
                                                             L"applicationframewindow",
                                                             L"windows.ui.core.corewindow",
                                                             L"progman",
                                                             L"button"};

constexpr std::wstring_view kExplorerImage = L"explorer.exe";
constexpr std::wstring_view kEllipsis = L"...";

static_assert(kTitle_head_units + kEllipsis.size() + kTitle_tail_units == kTitle_max_units);

constexpr wchar_t lower_ascii(wchar_t unit)
{
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

} // namespace

void lower_case_ascii(std::span<wchar_t> text)
{
    std::transform(text.begin(), text.end(), text.begin(), lower_ascii);
}

bool is_excluded_class(std::wstring_view lower_case_name)
{
    return std::find(kExcludedClasses.begin(), kExcludedClasses.end(), lower_case_name) !=
           kExcludedClasses.end();
}

bool is_explorer_image(std::wstring_view path)
{
    if (path.size() < kExplorerImage.size())
        return false;
    return std::equal(kExplorerImage.begin(), kExplorerImage.end(), path.end() - kExplorerImage.size(),
                      [](wchar_t wanted, wchar_t found) { return wanted == lower_ascii(found); });
}

void shorten_title(std::wstring_view title, std::size_t announced_units,
                   std::span<wchar_t, kTitle_slot_units> slot)
{
    auto out = slot.begin();
    const auto append = [&out](const wchar_t* text, std::size_t units) {
        out = std::copy_n(text, units, out);
    };

    const std::size_t length = std::min(announced_units, title.size());
    if (length <= kTitle_max_units) {
        append(title.data(), std::min(title.size(), kTitle_max_units));
    } else {
        append(title.data(), kTitle_head_units);
        append(kEllipsis.data(), kEllipsis.size());
        append(title.data() + length - kTitle_tail_units, kTitle_tail_units);
    }
    std::fill(out, slot.end(), L'\0');
}
