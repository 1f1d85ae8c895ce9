#include "benchmarks/measures.h"

#include <array>
#include <string>

#include "benchmarks/counted_imports.h"
#include "benchmarks/driven_program.h"
#include "benchmarks/results.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace benchmark
{

namespace
{

// Positions of the Action list.
constexpr int kMinimise = 0;
constexpr int kRestore = 1;
constexpr int kClose = 2;

// A profile of programs that are there to be started.
class ProgramsOfProfile
{
public:
    explicit ProgramsOfProfile(std::size_t programs) : programs_(programs)
    {
        ProfileEncoder encoder;
        for (std::size_t i = 0; i < programs; ++i) {
            const int offset = 20 * static_cast<int>(i);
            FixtureOptions options;
            options.title = L"Program " + std::to_wstring(i + 1);
            const std::wstring path = fixtures_.add(L"program_" + std::to_wstring(i + 1), options);
            encoder.add_program(10 + offset, 20 + offset, 300, 200, units_of(path));
        }
        write_file(path(), encoder.name(u"Office").bytes());
    }

    std::wstring path() const { return fixtures_.folder().file(L"profile.txt"); }

    // How many windows of these programs are where the profile says.
    std::size_t placed() const
    {
        std::size_t placed = 0;
        for (std::size_t i = 0; i < programs_; ++i) {
            for (const HWND window : fixtures_.windows_of(L"program_" + std::to_wstring(i + 1))) {
                const RECT rectangle = rectangle_of(window);
                const int offset = 20 * static_cast<int>(i);
                placed += rectangle.left == 10 + offset && rectangle.right == 310 + offset ? 1U : 0U;
            }
        }
        return placed;
    }

    void wait_for_end() const
    {
        wait_until([&] { return processes_below(fixtures_.folder().path() + L"\\").empty(); }, kLongWait,
                   "the programs to end");
    }

private:
    std::size_t programs_;
    FixturePrograms fixtures_;
};

// One load, with every window in its place; the programs run afterwards.
double load_once(const DrivenProgram& side, const ProgramsOfProfile& profile, std::size_t programs)
{
    const std::size_t before = profile.placed();
    const double time = side.load(profile.path());
    if (profile.placed() != before + programs)
        throw Failure("a load has not placed its windows");
    return time;
}

void close_programs(const DrivenProgram& side, const ProgramsOfProfile& profile)
{
    side.apply(kClose);
    profile.wait_for_end();
}

void count_calls(const DrivenProgram& side, const ProgramsOfProfile& profile, std::size_t programs)
{
    {
        const CountedImports counted(side.process());
        side.load(profile.path());
        for (const auto& [function, calls] : counted.calls())
            print_calls("load", programs, side.side().name, function, calls);
    }
    close_programs(side, profile);
}

} // namespace

void measure_load(const std::vector<Extent>& extents)
{
    const DrivenProgram program(wendlow());
    const DrivenProgram bare(bare_calls());
    for (std::size_t i = 0; i < extents.size(); ++i) {
        const auto& [programs, repetitions] = extents[i];
        print_progress("load of " + std::to_string(programs) + " programs");
        const ProgramsOfProfile profile(programs);
        for (unsigned repetition = 0; repetition < repetitions; ++repetition) {
            for (const DrivenProgram* side : in_turn(repetition, program, bare)) {
                print_sample("load_ms", programs, side->side().name, load_once(*side, profile, programs));
                close_programs(*side, profile);
            }
        }
        if (i < 2)
            for (const DrivenProgram* side : {&program, &bare})
                count_calls(*side, profile, programs);
    }
}

void measure_apply(const Extent& extent)
{
    const auto& [programs, repetitions] = extent;
    print_progress("Apply on " + std::to_string(programs) + " windows");
    const ProgramsOfProfile profile(programs);
    const DrivenProgram program(wendlow());
    const DrivenProgram bare(bare_calls());
    // Each has windows of its own, of the same programs.
    for (const DrivenProgram* side : {&bare, &program})
        load_once(*side, profile, programs);
    for (unsigned repetition = 0; repetition < repetitions; ++repetition) {
        for (const DrivenProgram* side : in_turn(repetition, program, bare)) {
            print_sample("apply_minimise_ms", programs, side->side().name, side->apply(kMinimise));
            print_sample("apply_restore_ms", programs, side->side().name, side->apply(kRestore));
        }
    }
    if (profile.placed() != 2 * programs)
        throw Failure("Apply has not placed its windows");
}

} // namespace benchmark
