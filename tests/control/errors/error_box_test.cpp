#include "errors/error_box.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

#include "tests/control/errors/listed_reports.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"

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
    explicit OneRow(const ErrorRow& row, const char* file = "sources/some_file")
        : source_{.file = file, .error_site = &site_variable, .message = buffer.data()}, row_(row)
    {
        site_variable = 0;
        row_.source = &source_;
    }
    const ErrorRow* row() const { return &row_; }

private:
    ErrorSource source_;
    ErrorRow row_;
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

constexpr ErrorRow kRow{.source = nullptr,
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
std::size_t composed_length(const ErrorRow& row, const std::wstring& shown)
{
    if (row.encoding == ErrorEncoding::BYTES)
        return 2 * shown.size();
    if (row.encoding == ErrorEncoding::WIDE)
        return shown.size();
    return shown.size() + std::string_view(row.source->file).size() / 2 +
           std::string_view(row.function).size() / 2;
}

} // namespace

TEST(ErrorBox, ShowsEachLayoutWithItsOwnText)
{
    for (const LayoutCase& expected : kLayouts) {
        ErrorRow site = kRow;
        site.layout = expected.layout;
        const OneRow row(site);
        const BoxWatcher boxes;
        EXPECT_EQ(error_box::show(nullptr, row.row(), 7), -5);
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
    error_box::show(nullptr, row.row(), 7);
    answer.join();
    EXPECT_EQ(site_below_the_box, 11u);
}

TEST(ErrorBox, StoresTheSiteNumberBeforeItFormatsTheMessage)
{
    ErrorRow site = kRow;
    site.site = 0x00636261; // "abc" in memory
    site.detail = "site as text: %s";
    const OneRow row(site);
    const BoxWatcher boxes;
    error_box::show(nullptr, row.row(), reinterpret_cast<const char*>(&site_variable));
    boxes.expect_boxes(
        {{L"error", L"error\n\nfile:\nsources/some_file\nfunction:\nsome_function\nline:\n6513249\n\n"
                    L"site as text: abc\nline of error handler:22"}});
}

TEST(ErrorBox, PrintsPointersAsSixteenUpperCaseDigits)
{
    ErrorRow site = kRow;
    site.layout = ErrorLayout::PLAIN;
    site.detail = "a = %p, b = %p, c = %u, d = %d";
    const OneRow row(site);
    const BoxWatcher boxes;
    error_box::show(nullptr, row.row(), reinterpret_cast<void*>(0xABCDEF12u), nullptr, 0xFFFFFFFFu, -1);
    boxes.expect_boxes({{L"error", L"a = 00000000ABCDEF12, b = 0000000000000000, c = 4294967295, d = -1"}});
}

TEST(ErrorBox, HasOneOkButtonNoIconAndNoOwner)
{
    const OneRow row(kRow);
    const BoxWatcher boxes;
    error_box::show(nullptr, row.row(), 7);
    const auto box = boxes.boxes().at(0);
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_FALSE(box.has_icon);
    EXPECT_EQ(box.owner, nullptr);
}

TEST(ErrorBox, HasTheOwnerAndTheIconThatAreGiven)
{
    const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr,
                                       GetModuleHandleW(nullptr), nullptr);
    ErrorRow site = kRow;
    site.style = MB_ICONINFORMATION;
    const OneRow row(site);
    const BoxWatcher boxes;
    EXPECT_EQ(error_box::show(owner, row.row(), 7), -5);
    EXPECT_EQ(boxes.boxes().at(0).owner, owner);
    EXPECT_TRUE(boxes.boxes().at(0).has_icon);
    DestroyWindow(owner);
}

TEST(ErrorBox, PassesBytesTwoToAUnit)
{
    // An odd and an even number of bytes: the last unit is filled up with a zero byte.
    for (const char* detail : {"odd", "even"}) {
        ErrorRow site = kRow;
        site.layout = ErrorLayout::PLAIN;
        site.detail = detail;
        site.encoding = ErrorEncoding::BYTES;
        site.title = "Help";
        site.title_encoding = ErrorEncoding::BYTES;
        const OneRow row(site);
        const BoxWatcher boxes;
        error_box::show(nullptr, row.row());
        boxes.expect_boxes({{L"\x6548\x706C", bytes_as_wide(detail)}});
    }
}

TEST(ErrorBox, PassesOnlyFileAndFunctionAsBytesWhenARowSaysSo)
{
    ErrorRow site = kRow;
    site.encoding = ErrorEncoding::WIDE_BYTE_FIELDS;
    site.function = "even";
    const OneRow row(site, "odd");
    const BoxWatcher boxes;
    error_box::show(nullptr, row.row(), 7);
    // "od" "d\0" and "ev" "en" as units, low byte first.
    boxes.expect_boxes({{L"error", L"error\n\nfile:\n\x646F\x0064\nfunction:\n\x7665\x6E65\nline:\n11\n\n"
                                   L"value = 7\nline of error handler:22"}});
}

TEST(ErrorBox, CutsAMessageThatIsLongerThanTheBuffer)
{
    const std::string detail(5000, 'x');
    for (const ErrorEncoding encoding : {ErrorEncoding::WIDE, ErrorEncoding::WIDE_BYTE_FIELDS}) {
        ErrorRow site = kRow;
        site.detail = detail.c_str();
        site.encoding = encoding;
        const OneRow row(site);
        const BoxWatcher boxes;
        EXPECT_EQ(error_box::show(nullptr, row.row()), -5);
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
    for (const ErrorRow* row : report_rows) {
        const auto values = longest_values(row->detail);
        const std::int32_t result =
            std::apply([&](auto... value) { return error_box::show(nullptr, row, value...); }, values);
        EXPECT_EQ(result, row->result);
        ASSERT_FALSE(shown.empty());
        // A message that fills the buffer up to its closing zero may have been cut.
        EXPECT_LT(composed_length(*row, shown), kMessageCapacity_units - 1)
            << row->source->file << " " << row->site;
    }
}

TEST(ErrorBox, ShowsTwoReportsInARowInTwoBoxesFromTheSameBuffer)
{
    ErrorRow site = kRow;
    site.layout = ErrorLayout::PLAIN;
    const OneRow row(site);
    const BoxWatcher boxes;
    error_box::show(nullptr, row.row(), 1000);
    error_box::show(nullptr, row.row(), 2);
    boxes.expect_boxes({{L"error", L"value = 1000"}, {L"error", L"value = 2"}});
    EXPECT_STREQ(buffer.data(), L"value = 2");
}

TEST(ErrorRows, HaveSiteNumbersThatAreUniqueInTheirSourceFile)
{
    std::map<std::string, std::set<std::uint32_t>> sites_of_file;
    for (const ErrorRow* row : report_rows) {
        EXPECT_TRUE(sites_of_file[row->source->file].insert(row->site).second)
            << row->source->file << " has two rows for site " << row->site;
    }
    EXPECT_EQ(sites_of_file.size(), 5u);
}

TEST(ErrorRows, ShareASiteVariablePerSourceFileAndABufferPerSource)
{
    std::map<const std::uint32_t*, std::set<const wchar_t*>> buffers;
    std::map<const std::uint32_t*, std::set<std::string>> files;
    for (const ErrorRow* row : report_rows) {
        buffers[row->source->error_site].insert(row->source->message);
        files[row->source->error_site].insert(row->source->file);
    }
    EXPECT_EQ(files.size(), 5u);
    std::set<const wchar_t*> all_buffers;
    for (const auto& [site_variable_of_file, names] : files) {
        EXPECT_EQ(names.size(), 1u);
        // Scanning and drawing have one buffer, the profiles another.
        const bool has_two = *names.begin() == "sources/funcs_layout_windows";
        EXPECT_EQ(buffers[site_variable_of_file].size(), has_two ? 2u : 1u) << *names.begin();
        all_buffers.merge(buffers[site_variable_of_file]);
    }
    EXPECT_EQ(all_buffers.size(), 6u);
}
