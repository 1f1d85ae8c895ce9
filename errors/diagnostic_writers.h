// Diagnostic writers: values written as text to an open file, for tracing. No path of the program calls them.
// The caller opens and closes the file.
#pragma once

#include <cstddef>
#include <cstdio>
#include <span>

// Writes `text` to `file`, then flushes it. A failed write or flush is told on standard output.
void dump_str2file(std::FILE* file, const char* text);

// The local time as "DATE: %d-%02d-%02d, TIME: %02d:%02d:%02d" in `buffer` (bytes, cut to fit).
void dump_time_stamp(std::span<char> buffer);

// One value: "\n", name, ":", "\t", value, "\n". Numbers are printed with "%E".
void dump_double2file(std::FILE* file, const char* name, double value);

// An array: "\n", name, ":", "\n", then each element and "\n".
void dump_array2file(std::FILE* file, const char* name, std::span<const double> values);

// A square matrix of n rows, row after row: "\n", name, "\n", then each element followed by "\t" and each row
// by "\n".
void dump_square_matrix2file(std::FILE* file, const char* name, const double* values, std::size_t n);

// A matrix of m rows and n columns: "\n", name, ":", "\n", then the rows as in a square matrix.
void dump_matrix2file(std::FILE* file, const char* name, const double* values, std::size_t m, std::size_t n);
