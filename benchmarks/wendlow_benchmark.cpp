// Measures the program beside bare system calls for the same work, a repetition of one after a repetition of
// the other. Run by scripts/benchmark, which makes a table and a plot of the lines that this prints.
//     wendlow_benchmark.exe full|quick|smoke

#include <cstdio>
#include <cstring>
#include <exception>
#include <vector>

#include "benchmarks/measures.h"

using benchmark::Extent;

namespace
{

struct Plan {
    const char* name;
    unsigned starts;
    std::vector<Extent> scans;
    std::vector<Extent> loads;
    Extent apply;
    std::vector<Extent> stores;
};

std::vector<Plan> plans()
{
    return {{.name = "full",
             .starts = 40,
             .scans = {{50, 40}, {200, 40}, {500, 30}, {1000, 20}, {2000, 20}},
             .loads = {{5, 20}, {20, 12}},
             .apply = {20, 30},
             .stores = {{200, 60}, {5000, 60}}},
            {.name = "quick",
             .starts = 7,
             .scans = {{50, 9}, {200, 9}, {500, 7}, {2000, 3}},
             .loads = {{5, 3}, {20, 1}},
             .apply = {20, 5},
             .stores = {{200, 11}, {5000, 11}}},
            // Whether everything can still be measured; the figures say nothing.
            {.name = "smoke",
             .starts = 1,
             .scans = {{5, 1}, {7, 1}},
             .loads = {{1, 1}, {2, 1}},
             .apply = {2, 1},
             .stores = {{5, 1}}}};
}

void measure(const Plan& plan)
{
    benchmark::measure_program_size();
    benchmark::measure_start(plan.starts);
    benchmark::measure_store(plan.stores);
    benchmark::measure_scan(plan.scans);
    benchmark::measure_load(plan.loads);
    benchmark::measure_apply(plan.apply);
}

} // namespace

int main(int count, char** arguments)
{
    for (const Plan& plan : plans()) {
        if (count != 2 || std::strcmp(arguments[1], plan.name) != 0)
            continue;
        try {
            measure(plan);
            return 0;
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "%s\n", failure.what());
            return 1;
        }
    }
    std::fprintf(stderr, "usage: wendlow_benchmark full|quick|smoke\n");
    return 2;
}
