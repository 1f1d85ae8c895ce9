#pragma once

#include <windows.h>

#include <cstddef>
#include <ostream>

#include "tests/support/basics/platform.h"

// What a process holds, counted from outside, for tests that let a program run long and look whether
// it keeps more and more.

namespace test_support
{

struct Holdings {
    std::size_t gdi_objects = 0;
    std::size_t user_objects = 0;  // where the system does not count them: windows, hidden and child ones too
    std::size_t handles = 0;       // of processes, threads, files and other kernel objects
    std::size_t private_bytes = 0; // committed and shared with no other process
};

// The holdings at this moment; whatever is to be counted has to be idle. Throws a Failure when one of
// them cannot be had.
Holdings holdings_of(HANDLE process);

// The heap takes memory from the system in pieces of up to this size, at times of its own.
inline const std::size_t kHeapPieces_bytes = under_wine() ? 64 * 1024 : 1024 * 1024;
// Handles of the system's own in a program, at most: they come and go with the threads that it lends.
inline const std::size_t kHandlesOfSystem = under_wine() ? 0 : 20;

void PrintTo(const Holdings& holdings, std::ostream* out);

} // namespace test_support
