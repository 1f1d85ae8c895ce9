#include "errors/diagnostic_writers.h"

#include <windows.h>

#include <array>

namespace
{

void dump_number(std::FILE* file, double value)
{
    std::array<char, 100> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%E", value);
    dump_str2file(file, buffer.data());
}

void dump_rows(std::FILE* file, const double* values, std::size_t m, std::size_t n)
{
    for (std::size_t row = 0; row < m; ++row) {
        for (std::size_t column = 0; column < n; ++column) {
            dump_number(file, values[row * n + column]);
            dump_str2file(file, "\t");
        }
        dump_str2file(file, "\n");
    }
}

} // namespace

void dump_str2file(std::FILE* file, const char* text)
{
    const int written = std::fputs(text, file);
    if (std::fflush(file) != 0)
        std::fputs("\n error, proc dump_str2file: fflush( ) \n", stdout);
    if (written == EOF) {
        std::fputs("\n error, proc dump_str2file, iFlag == EOF \n", stdout);
        // Quirk: the words alone, nothing ends; kept so that a failed write means the same in every version.
        std::fputs("exit(1)\n", stdout);
    }
}

void dump_time_stamp(std::span<char> buffer)
{
    if (buffer.empty())
        return;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    _snprintf(buffer.data(), buffer.size() - 1, "DATE: %d-%02d-%02d, TIME: %02d:%02d:%02d", now.wYear,
              now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
    buffer.back() = '\0';
}

void dump_double2file(std::FILE* file, const char* name, double value)
{
    dump_str2file(file, "\n");
    dump_str2file(file, name);
    dump_str2file(file, ":");
    dump_str2file(file, "\t");
    dump_number(file, value);
    dump_str2file(file, "\n");
}

void dump_array2file(std::FILE* file, const char* name, std::span<const double> values)
{
    dump_str2file(file, "\n");
    dump_str2file(file, name);
    dump_str2file(file, ":");
    dump_str2file(file, "\n");
    for (const double value : values) {
        dump_number(file, value);
        dump_str2file(file, "\n");
    }
}

void dump_square_matrix2file(std::FILE* file, const char* name, const double* values, std::size_t n)
{
    // Quirk: no colon after the name, as the other writers have; kept so that traces are the same in every
    // version.
    dump_str2file(file, "\n");
    dump_str2file(file, name);
    dump_str2file(file, "\n");
    dump_rows(file, values, n, n);
}

void dump_matrix2file(std::FILE* file, const char* name, const double* values, std::size_t m, std::size_t n)
{
    dump_str2file(file, "\n");
    dump_str2file(file, name);
    dump_str2file(file, ":");
    dump_str2file(file, "\n");
    dump_rows(file, values, m, n);
}
