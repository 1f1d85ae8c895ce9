#include "benchmarks/results.h"

#include <cstdio>

namespace benchmark
{

void print_sample(const std::string& measure, std::size_t size, const std::string& side, double value)
{
    std::printf("SAMPLE %s %zu %s %.6g\n", measure.c_str(), size, side.c_str(), value);
    std::fflush(stdout);
}

void print_calls(const std::string& measure, std::size_t size, const std::string& side,
                 const std::string& function, std::uint64_t calls)
{
    std::printf("CALLS %s %zu %s %s %llu\n", measure.c_str(), size, side.c_str(), function.c_str(),
                static_cast<unsigned long long>(calls));
}

void print_progress(const std::string& text)
{
    std::printf("STEP %s\n", text.c_str());
    std::fflush(stdout);
}

Stopwatch::Stopwatch()
{
    QueryPerformanceCounter(&start_);
}

double Stopwatch::milliseconds() const
{
    LARGE_INTEGER now{};
    LARGE_INTEGER per_second{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&per_second);
    return static_cast<double>(now.QuadPart - start_.QuadPart) * 1000 /
           static_cast<double>(per_second.QuadPart);
}

} // namespace benchmark
