#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "errors/error_box.h"
#include "tests/control/errors/listed_reports.h"
#include "tests/control/errors/shown_by.h"
#include "tests/support/imports/import_patch.h"

// Every report of the program is shown by a test. Which one is written in shown_by.cpp; whenever that test
// runs, it fails unless it really showed the row. The same goes for every call that shows an error of the
// system.

using test_support::ImportPatch;

namespace
{

using Row = std::pair<const ErrorSource*, std::uint32_t>;

std::string name_of(const Row& row)
{
    return std::string(row.first->file) + " " + std::to_string(row.second);
}

std::set<Row> rows_of_the_tables()
{
    std::set<Row> rows;
    for (const ErrorRow* row : report_rows)
        rows.insert({row->source, row->site});
    return rows;
}

bool has_test(std::string_view name)
{
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            if (std::string(suite.name()) + "." + suite.GetTestInfo(j)->name() == name)
                return true;
        }
    }
    return false;
}

// What the test that is running shows. A report stores its site number and composes its text in its module's
// buffer before it asks for the box; an error of the system has its title, in either encoding.
class Shown : public testing::EmptyTestEventListener
{
public:
    static void note(const wchar_t* text, std::wstring_view title)
    {
        if (title == L"GetLastError" || title == L"\x6547\x4C74\x7361\x4574\x7272\x726F")
            system_error_ = true;
        for (const ErrorRow* row : report_rows) {
            if (text == row->source->message)
                rows_.insert({row->source, *row->source->error_site});
        }
    }

private:
    void OnTestStart(const testing::TestInfo&) override
    {
        rows_.clear();
        system_error_ = false;
    }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        if (!test.result()->Passed())
            return;
        const std::string name = std::string(test.test_suite_name()) + "." + test.name();
        for (const ShownBy& row : reports_shown()) {
            if (row.test == name && !rows_.contains({row.source, row.site}))
                ADD_FAILURE() << name << " does not show the report " << name_of({row.source, row.site});
        }
        for (const SystemErrorShownBy& call : system_errors_shown()) {
            if (call.test == name && !system_error_)
                ADD_FAILURE() << name << " does not show the error of the system of " << call.file;
        }
    }

    static inline std::set<Row> rows_;
    static inline bool system_error_ = false;
};

int WINAPI note_and_show(HWND owner, const wchar_t* text, const wchar_t* title, UINT style);

const ImportPatch message_boxes("user32.dll", "MessageBoxW", &note_and_show);

int WINAPI note_and_show(HWND owner, const wchar_t* text, const wchar_t* title, UINT style)
{
    Shown::note(text, title);
    return message_boxes.original<decltype(MessageBoxW)>()(owner, text, title, style);
}

[[maybe_unused]] const bool listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Shown); // owned by GoogleTest
    return true;
}();

} // namespace

TEST(ReportRows, AreEachShownByATest)
{
    std::set<Row> listed;
    for (const ShownBy& row : reports_shown())
        listed.insert({row.source, row.site});
    for (const Row& row : rows_of_the_tables())
        EXPECT_TRUE(listed.contains(row)) << "no test shows the report " << name_of(row);
}

TEST(ReportRows, ListedAsShownAreInTheTables)
{
    const std::set<Row> rows = rows_of_the_tables();
    for (const ShownBy& row : reports_shown())
        EXPECT_TRUE(rows.contains({row.source, row.site})) << name_of({row.source, row.site}) << " is gone";
}

TEST(ReportRows, AreShownByTestsThatExist)
{
    for (const ShownBy& row : reports_shown())
        EXPECT_TRUE(has_test(row.test))
            << name_of({row.source, row.site}) << ": there is no test " << row.test;
}

TEST(SystemErrors, AreEachShownByATest)
{
    std::multiset<std::string_view> listed;
    for (const SystemErrorShownBy& call : system_errors_shown()) {
        listed.insert(call.file);
        EXPECT_TRUE(has_test(call.test)) << call.file << ": there is no test " << call.test;
    }
    EXPECT_EQ(listed, std::multiset<std::string_view>(system_error_calls.begin(), system_error_calls.end()))
        << "the calls of show_system_error() in the sources";
}
