#include "benchmarks/measures.h"

#include <filesystem>

#include "benchmarks/driven_program.h"
#include "benchmarks/results.h"

namespace benchmark
{

void measure_start(unsigned repetitions)
{
    print_progress("start-up and working set");
    const std::vector<Side> sides{wendlow(), bare_window(), bare_window_with_libraries()};
    for (unsigned repetition = 0; repetition < repetitions; ++repetition) {
        for (std::size_t i = 0; i < sides.size(); ++i) {
            const DrivenProgram program(sides[(i + repetition) % sides.size()]);
            const char* name = program.side().name;
            print_sample("start_ms", 1, name, program.start_milliseconds());
            print_sample("working_set_kib", 1, name, static_cast<double>(program.working_set_bytes()) / 1024);
        }
    }
}

void measure_program_size()
{
    for (const Side& side : {wendlow(), bare_window()})
        print_sample("program_size_bytes", 1, side.name,
                     static_cast<double>(std::filesystem::file_size(side.path)));
}

} // namespace benchmark
