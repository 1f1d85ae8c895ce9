#include "benchmarks/measures.h"

#include <string>

#include "benchmarks/counted_imports.h"
#include "benchmarks/driven_program.h"
#include "benchmarks/results.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/processes/fixture_programs.h"

using namespace test_support;

namespace benchmark
{

namespace
{

constexpr std::size_t kPrograms = 20;

std::wstring name_of_program(std::size_t index)
{
    return L"Program " + std::to_wstring(index + 1);
}

std::size_t windows_of_program(std::size_t index, std::size_t all)
{
    return all / kPrograms + (index < all % kPrograms ? 1 : 0);
}

// Opens that many windows, spread evenly over the programs. They are off the screen: of windows that lie
// above one another some are drawn anew whenever a list comes or goes, and nothing tells when that is over.
void open_windows(FixturePrograms& fixtures, std::size_t all)
{
    constexpr int kOff_screen = 4000;
    for (std::size_t i = 0; i < kPrograms && windows_of_program(i, all) != 0; ++i) {
        FixtureOptions options;
        options.title = L"Document of program " + std::to_wstring(i + 1);
        options.x = kOff_screen;
        options.y = kOff_screen;
        options.width = 120;
        options.height = 80;
        options.window_count = static_cast<int>(windows_of_program(i, all));
        fixtures.add(name_of_program(i), options);
        fixtures.start_only(name_of_program(i));
    }
    for (std::size_t i = 0; i < kPrograms && windows_of_program(i, all) != 0; ++i)
        fixtures.wait_for_windows(name_of_program(i), windows_of_program(i, all), kLongWait * 2);
}

// One scan, whose list must have all the windows.
double scan_once(const DrivenProgram& program, std::size_t windows)
{
    const double time = program.scan();
    const RemoteListView list(FindWindowExW(program.list_window(), nullptr, L"SysListView32", nullptr));
    if (static_cast<std::size_t>(list.row_count()) < windows)
        throw Failure("a list lacks windows");
    program.close_list();
    return time;
}

void count_calls(const DrivenProgram& program, std::size_t windows)
{
    const CountedImports counted(program.process());
    program.scan();
    for (const auto& [function, calls] : counted.calls())
        print_calls("scan", windows, program.side().name, function, calls);
    program.close_list();
}

} // namespace

void measure_scan(const std::vector<Extent>& extents)
{
    const DrivenProgram program(wendlow());
    const DrivenProgram bare(bare_calls());
    for (std::size_t i = 0; i < extents.size(); ++i) {
        const auto& [windows, repetitions] = extents[i];
        print_progress("scan of " + std::to_string(windows) + " windows");
        FixturePrograms fixtures;
        open_windows(fixtures, windows);
        for (const DrivenProgram* side : {&program, &bare})
            scan_once(*side, windows); // The first of each loads what all others use.
        for (unsigned repetition = 0; repetition < repetitions; ++repetition)
            for (const DrivenProgram* side : in_turn(repetition, program, bare))
                print_sample("scan_ms", windows, side->side().name, scan_once(*side, windows));
        if (i < 2)
            for (const DrivenProgram* side : {&program, &bare})
                count_calls(*side, windows);
    }
}

} // namespace benchmark
