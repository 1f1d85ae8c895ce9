#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// What the benchmark finds goes to its output, a line for each finding, which benchmarks/results.py reads.

namespace benchmark
{

// One measurement of a side ("wendlow", "bare" or another) doing the work of the measure at that size, in the
// unit that the measure's name ends with.
void print_sample(const std::string& measure, std::size_t size, const std::string& side, double value);

// How often a side made a system call in the work of the measure at that size.
void print_calls(const std::string& measure, std::size_t size, const std::string& side,
                 const std::string& function, std::uint64_t calls);

// What is going on, for who waits.
void print_progress(const std::string& text);

class Stopwatch
{
public:
    Stopwatch();
    double milliseconds() const;

private:
    LARGE_INTEGER start_{};
};

} // namespace benchmark
