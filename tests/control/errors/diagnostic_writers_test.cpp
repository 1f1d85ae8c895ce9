#include "errors/diagnostic_writers.h"

#include <windows.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <array>
#include <cstdio>
#include <functional>
#include <regex>
#include <string>

#include "tests/support/basics/files.h"
#include "tests/support/imports/import_patch.h"

using namespace test_support;

namespace
{

// What a writer puts into a file.
std::string written(const std::function<void(std::FILE*)>& writer)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"dump.txt");
    std::FILE* file = _wfopen(path.c_str(), L"wb");
    writer(file);
    std::fclose(file);
    const Bytes bytes = read_file(path);
    return std::string(bytes.begin(), bytes.end());
}

// Exponents have two or three digits, as the C runtime likes.
std::string with_short_exponents(const std::string& text)
{
    return std::regex_replace(text, std::regex("E([+-])0(\\d\\d)"), "E$1$2");
}

} // namespace

TEST(DiagnosticWriters, WriteATextAndFlushIt)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"dump.txt");
    std::FILE* file = _wfopen(path.c_str(), L"wb");
    dump_str2file(file, "some text\n");
    EXPECT_EQ(hex(read_file(path)), "73 6F 6D 65 20 74 65 78 74 0A"); // before it is closed
    std::fclose(file);
}

TEST(DiagnosticWriters, ReportAFailedWriteOnStandardOutputAndGoOn)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"dump.txt");
    write_file(path, {0x61});
    std::FILE* file = _wfopen(path.c_str(), L"rb"); // not for writing
    testing::internal::CaptureStdout();
    dump_str2file(file, "text");
    const std::string told = testing::internal::GetCapturedStdout();
    std::fclose(file);
    EXPECT_EQ(told, "\n error, proc dump_str2file, iFlag == EOF \nexit(1)\n");
}

TEST(DiagnosticWriters, ReportAFailedFlushOnStandardOutput)
{
    // The text fits the stream's buffer; nobody is there to take it from the pipe.
    int ends[2]{};
    ASSERT_EQ(_pipe(ends, 512, _O_BINARY), 0);
    std::FILE* file = _fdopen(ends[1], "wb");
    ASSERT_NE(file, nullptr);
    _close(ends[0]);
    testing::internal::CaptureStdout();
    dump_str2file(file, "text");
    const std::string told = testing::internal::GetCapturedStdout();
    std::fclose(file);
    EXPECT_EQ(told, "\n error, proc dump_str2file: fflush( ) \n");
}

TEST(DiagnosticWriters, PrintNothingWhenEveryWriteSucceeds)
{
    testing::internal::CaptureStdout();
    written([](std::FILE* file) { dump_str2file(file, "text"); });
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(DiagnosticWriters, StampTheLocalTime)
{
    const ImportHook<"GetLocalTime", decltype(GetLocalTime)> clock("kernel32.dll", [](SYSTEMTIME* now) {
        *now = {.wYear = 2031,
                .wMonth = 3,
                .wDayOfWeek = 5,
                .wDay = 7,
                .wHour = 14,
                .wMinute = 5,
                .wSecond = 6,
                .wMilliseconds = 789};
    });
    std::array<char, 64> stamp{};
    dump_time_stamp(stamp);
    EXPECT_STREQ(stamp.data(), "DATE: 2031-03-07, TIME: 14:05:06");
}

TEST(DiagnosticWriters, CutTheTimeStampToItsBuffer)
{
    std::array<char, 10> stamp;
    stamp.fill('#');
    dump_time_stamp(std::span(stamp).first(8));
    EXPECT_STREQ(stamp.data(), "DATE: 2");
    EXPECT_EQ(stamp[8], '#');
}

TEST(DiagnosticWriters, WriteValuesWithTheirNames)
{
    const double values[] = {1, 2.5, -300, 0, 1e10, 6};
    const auto text = [](const std::function<void(std::FILE*)>& writer) {
        return with_short_exponents(written(writer));
    };
    EXPECT_EQ(text([&](std::FILE* f) { dump_double2file(f, "one", 1.5); }), "\none:\t1.500000E+00\n");
    EXPECT_EQ(text([&](std::FILE* f) { dump_array2file(f, "three", std::span(values).first(3)); }),
              "\nthree:\n1.000000E+00\n2.500000E+00\n-3.000000E+02\n");
    EXPECT_EQ(text([&](std::FILE* f) { dump_square_matrix2file(f, "two by two", values, 2); }),
              "\ntwo by two\n1.000000E+00\t2.500000E+00\t\n-3.000000E+02\t0.000000E+00\t\n");
    EXPECT_EQ(
        text([&](std::FILE* f) { dump_matrix2file(f, "m", values, 2, 3); }),
        "\nm:\n1.000000E+00\t2.500000E+00\t-3.000000E+02\t\n0.000000E+00\t1.000000E+10\t6.000000E+00\t\n");
}
