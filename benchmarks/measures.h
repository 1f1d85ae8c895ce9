#pragma once

#include <cstddef>
#include <vector>

// What is measured. Each routine prints its samples; it throws a Failure when a program does not do its work.

namespace benchmark
{

// A size of the work and how often it is done by each side.
struct Extent {
    std::size_t size;
    unsigned repetitions;
};

// Start-up until the window is shown and drawn, and the working set then.
void measure_start(unsigned repetitions);

// Bytes of the programs' files.
void measure_program_size();

// Scan of `size` windows of 20 programs. The system calls are counted at the first two sizes.
void measure_scan(const std::vector<Extent>& extents);

// Load of a profile of `size` programs. The system calls are counted at the first two sizes.
void measure_load(const std::vector<Extent>& extents);

// Apply, Minimise and Restore, on the windows of a profile of `size` programs.
void measure_apply(const Extent& extent);

// Storing of a profile of `size` entries into a file.
void measure_store(const std::vector<Extent>& extents);

} // namespace benchmark
