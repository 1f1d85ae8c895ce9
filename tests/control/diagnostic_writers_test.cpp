#include "errors/diagnostic_writers.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <regex>
#include <string>

#include "tests/support/files.h"

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

TEST(DiagnosticWriters, TellAFailedWriteOnStandardOutputAndGoOn)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"dump.txt");
    write_file(path, {0x61});
    std::FILE* file = _wfopen(path.c_str(), L"rb"); // not for writing
    testing::internal::CaptureStdout();
    dump_str2file(file, "text");
    const std::string told = testing::internal::GetCapturedStdout();
    std::fclose(file);
    EXPECT_NE(told.find("\n error, proc dump_str2file, iFlag == EOF \n"), std::string::npos) << told;
    EXPECT_NE(told.find("exit(1)\n"), std::string::npos) << told;
}

TEST(DiagnosticWriters, StampTheLocalTime)
{
    std::array<char, 64> stamp{};
    dump_time_stamp(stamp);
    EXPECT_TRUE(
        std::regex_match(stamp.data(), std::regex("DATE: \\d{4}-\\d{2}-\\d{2}, TIME: \\d{2}:\\d{2}:\\d{2}")))
        << stamp.data();
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
