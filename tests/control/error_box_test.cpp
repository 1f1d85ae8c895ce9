#include "errors/error_box.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

#include "sources/funcs_layout_windows/layout_windows_errors.h"
#include "sources/funcs_layout_windows/profiles_errors.h"
#include "sources/main_prg/main_errors.h"
#include "sources/wnd_ModifyCell/modify_cell_errors.h"
#include "sources/wnd_ProfileName/profile_name_errors.h"
#include "sources/wnd_ScanListView/scan_list_errors.h"
#include "tests/support/box_watcher.h"
#include "tests/support/import_patch.h"
#include "tests/support/text.h"

using test_support::BoxWatcher;
using test_support::bytes_as_wide;
using test_support::ImportHook;

namespace
{

std::uint32_t site_variable;
std::array<wchar_t, kMessageCapacity_units> buffer;

// A module with one row.
class OneRow
{
public:
    explicit OneRow(ErrorSite row, const char* file = "sources/some_file") : row_(row)
    {
        site_variable = 0;
        source_ = {.file = file, .error_site = &site_variable, .message = buffer.data(), .sites = {&row_, 1}};
    }
    const ErrorSource& source() const { return source_; }

private:
    ErrorSite row_;
    ErrorSource source_{};
};

struct LayoutCase {
    ErrorLayout layout;
    const wchar_t* text;
};

const LayoutCase kLayouts[] = {
    {ErrorLayout::PLAIN, L"value = 7"},
    {ErrorLayout::COMPACT,
     L"error\n\nfile:\nsources/some_file\nfunction:\nsome_function\nline:\n11\n\nvalue = 7"
     L"\nline of error handler:22"},
    {ErrorLayout::SPACED, L"error\n\nfile:\nsources/some_file\n\nfunction:\nsome_function\n\nline:\n11\n\n"
                          L"value = 7\nline of error handler:\n22"},
    {ErrorLayout::SPACED_END_OF_LINE, L"error\n\nfile:\nsources/some_file\n\nfunction:\nsome_function\n\n"
                                      L"line:\n11\n\nvalue = 7\nline of error handler:\n22\n"},
    {ErrorLayout::SPACED_GAP,
     L"error\n\nfile:\nsources/some_file\n\nfunction:\nsome_function\n\nline:\n11\n\n"
     L"value = 7\n\nline of error handler:\n22"},
    {ErrorLayout::HANDLER_FIRST,
     L"error\n\nfile:\nsources/some_file\n\nfunction:\nsome_function\n\nline:\n11\n"
     L"line of error handler:\n22\nvalue = 7"},
    {ErrorLayout::INLINE, L"error\nfile: sources/some_file\nfunction: some_function\nline: 11\nvalue = 7"},
    {ErrorLayout::SHOUTED,
     L"\nERROR\n\nfile:\n\nsources/some_file\nfunction:\n\nsome_function\nline:\n\n11\n\n"
     L"value = 7"},
};

constexpr ErrorSite kRow{.id = 0,
                         .site = 11,
                         .handler = 22,
                         .function = "some_function",
                         .layout = ErrorLayout::COMPACT,
                         .detail = "value = %d",
                         .result = -5};

const std::string longest_field(64, 'x');

// The value that a placeholder prints longest, as it is passed on.
std::uint64_t longest_value(char conversion)
{
    switch (conversion) {
    case 'd':
        return 0x80000000; // -2147483648
    case 'u':
        return 0xFFFFFFFF;
    case 's':
        return reinterpret_cast<std::uintptr_t>(longest_field.c_str());
    default:
        return 0xFFFFFFFFFFFFFFFF;
    }
}

std::array<std::uint64_t, 16> longest_values(std::string_view format)
{
    std::array<std::uint64_t, 16> values{};
    std::size_t count = 0;
    for (std::size_t i = format.find('%'); i != format.npos; i = format.find('%', i + 1))
        values.at(count++) = longest_value(format.at(i + 1));
    return values;
}

// How many characters the message had before they were brought into wide ones, when this is what was shown.
std::size_t composed_length(const ErrorSource& source, const ErrorSite& row, const std::wstring& shown)
{
    if (row.encoding == ErrorEncoding::BYTES)
        return 2 * shown.size();
    if (row.encoding == ErrorEncoding::WIDE)
        return shown.size();
    return shown.size() + std::string_view(source.file).size() / 2 +
           std::string_view(row.function).size() / 2;
}

} // namespace

TEST(ErrorBox, ShowsEachLayoutInItsOwnWords)
{
    for (const LayoutCase& expected : kLayouts) {
        ErrorSite site = kRow;
        site.layout = expected.layout;
        const OneRow row(site);
        const BoxWatcher boxes;
        EXPECT_EQ(report(row.source(), 0, 7), -5);
        boxes.expect_boxes({{L"error", expected.text}});
    }
}

TEST(ErrorBox, StoresTheSiteNumberBeforeItShowsTheBox)
{
    const OneRow row(kRow);
    BoxWatcher boxes;
    boxes.hold();
    std::uint32_t site_below_the_box = 0;
    test_support::Background answer([&] {
        boxes.wait_for_box(0);
        site_below_the_box = site_variable;
        boxes.release();
    });
    report(row.source(), 0, 7);
    answer.join();
    EXPECT_EQ(site_below_the_box, 11u);
}

TEST(ErrorBox, PrintsPointersAsSixteenUpperCaseDigits)
{
    ErrorSite site = kRow;
    site.layout = ErrorLayout::PLAIN;
    site.detail = "a = %p, b = %p, c = %u, d = %d";
    const OneRow row(site);
    const BoxWatcher boxes;
    report(row.source(), 0, reinterpret_cast<void*>(0xABCDEF12u), nullptr, 0xFFFFFFFFu, -1);
    boxes.expect_boxes({{L"error", L"a = 00000000ABCDEF12, b = 0000000000000000, c = 4294967295, d = -1"}});
}

TEST(ErrorBox, HasOneOkButtonNoIconAndNoOwner)
{
    const OneRow row(kRow);
    const BoxWatcher boxes;
    report(row.source(), 0, 7);
    const auto box = boxes.boxes().at(0);
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_FALSE(box.has_icon);
    EXPECT_EQ(box.owner, nullptr);
}

TEST(ErrorBox, TakesItsOwnerAndItsIconWhereTheyAreGiven)
{
    const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr,
                                       GetModuleHandleW(nullptr), nullptr);
    ErrorSite site = kRow;
    site.style = MB_ICONINFORMATION;
    const OneRow row(site);
    const BoxWatcher boxes;
    EXPECT_EQ(report_owned(owner, row.source(), 0, 7), -5);
    EXPECT_EQ(boxes.boxes().at(0).owner, owner);
    EXPECT_TRUE(boxes.boxes().at(0).has_icon);
    DestroyWindow(owner);
}

TEST(ErrorBox, HandsBytesOverTwoToAUnit)
{
    // An odd and an even number of bytes: the last unit is filled up with a zero byte.
    for (const char* detail : {"odd", "even"}) {
        ErrorSite site = kRow;
        site.layout = ErrorLayout::PLAIN;
        site.detail = detail;
        site.encoding = ErrorEncoding::BYTES;
        site.title = "Help";
        site.title_encoding = ErrorEncoding::BYTES;
        const OneRow row(site);
        const BoxWatcher boxes;
        report(row.source(), 0);
        boxes.expect_boxes({{L"\x6548\x706C", bytes_as_wide(detail)}});
    }
}

TEST(ErrorBox, HandsOnlyFileAndFunctionOverAsBytesWhereARowSaysSo)
{
    ErrorSite site = kRow;
    site.encoding = ErrorEncoding::WIDE_BYTE_FIELDS;
    site.function = "even";
    const OneRow row(site, "odd");
    const BoxWatcher boxes;
    report(row.source(), 0, 7);
    // "od" "d\0" and "ev" "en" as units, low byte first.
    boxes.expect_boxes({{L"error", L"error\n\nfile:\n\x646F\x0064\nfunction:\n\x7665\x6E65\nline:\n11\n\n"
                                   L"value = 7\nline of error handler:22"}});
}

TEST(ErrorBox, CutsAMessageThatIsLongerThanTheBuffer)
{
    const std::string detail(5000, 'x');
    for (const ErrorEncoding encoding : {ErrorEncoding::WIDE, ErrorEncoding::WIDE_BYTE_FIELDS}) {
        ErrorSite site = kRow;
        site.detail = detail.c_str();
        site.encoding = encoding;
        const OneRow row(site);
        const BoxWatcher boxes;
        EXPECT_EQ(report(row.source(), 0), -5);
        const std::wstring text = boxes.boxes().at(0).text;
        EXPECT_LT(text.size(), 2048u);
        EXPECT_GT(text.size(), 2000u);
        EXPECT_EQ(text.back(), L'x');
    }
}

TEST(ErrorBox, HasRoomForTheLongestMessageOfEveryRow)
{
    std::wstring shown;
    const ImportHook<"MessageBoxW", decltype(MessageBoxW)> box("user32.dll",
                                                               [&](HWND, LPCWSTR text, LPCWSTR, UINT) -> int {
                                                                   shown = text;
                                                                   return IDOK;
                                                               });
    for (const ErrorSource* source : {&errors_main, &errors_layout_windows, &errors_profiles,
                                      &errors_scan_list, &errors_modify_cell, &errors_profile_name}) {
        for (const ErrorSite& row : source->sites) {
            const auto values = longest_values(row.detail);
            const std::int32_t result =
                std::apply([&](auto... value) { return report(*source, row.id, value...); }, values);
            EXPECT_EQ(result, row.result);
            ASSERT_FALSE(shown.empty());
            // A message that fills the buffer up to its closing zero may have been cut.
            EXPECT_LT(composed_length(*source, row, shown), kMessageCapacity_units - 1)
                << source->file << " " << row.site;
        }
    }
}

TEST(ErrorBox, ShowsTwoReportsInARowInTwoBoxesFromTheSameBuffer)
{
    ErrorSite site = kRow;
    site.layout = ErrorLayout::PLAIN;
    const OneRow row(site);
    const BoxWatcher boxes;
    report(row.source(), 0, 1000);
    report(row.source(), 0, 2);
    boxes.expect_boxes({{L"error", L"value = 1000"}, {L"error", L"value = 2"}});
    EXPECT_STREQ(buffer.data(), L"value = 2");
}

TEST(ErrorTables, HaveNoTwoRowsOfOneSourceFileWithTheSameSiteNumber)
{
    std::map<std::string, std::set<std::uint32_t>> sites_of_file;
    for (const ErrorSource* source : {&errors_main, &errors_layout_windows, &errors_profiles,
                                      &errors_scan_list, &errors_modify_cell, &errors_profile_name}) {
        ASSERT_FALSE(source->sites.empty());
        for (const ErrorSite& site : source->sites) {
            EXPECT_TRUE(sites_of_file[source->file].insert(site.site).second)
                << source->file << " has two rows for site " << site.site;
        }
    }
    EXPECT_EQ(sites_of_file.size(), 5u);
}

TEST(ErrorTables, KeepTheSourceFilesApartInSiteVariableAndBuffer)
{
    // Two buffers, yet one site variable for the module with two tables.
    EXPECT_EQ(errors_layout_windows.error_site, errors_profiles.error_site);
    EXPECT_NE(errors_layout_windows.message, errors_profiles.message);
    // Every other module has both for itself.
    const ErrorSource* const sources[] = {&errors_main, &errors_profiles, &errors_scan_list,
                                          &errors_modify_cell, &errors_profile_name};
    std::set<const std::uint32_t*> site_variables;
    std::set<const wchar_t*> buffers{errors_layout_windows.message};
    for (const ErrorSource* source : sources) {
        EXPECT_TRUE(site_variables.insert(source->error_site).second) << source->file;
        EXPECT_TRUE(buffers.insert(source->message).second) << source->file;
    }
}
