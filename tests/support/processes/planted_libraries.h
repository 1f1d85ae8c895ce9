#pragma once

#include <string>
#include <vector>

#include "tests/support/basics/files.h"

// A folder with a program and, beside it, libraries that only bear the names of Windows' own.

namespace test_support
{

class PlantedLibraries
{
public:
    // Copies the program into a folder of its own, under its name. While this lives, programs of that name
    // take what lies beside them rather than Wine's own, as they would on Windows.
    explicit PlantedLibraries(const std::wstring& program);
    PlantedLibraries(const PlantedLibraries&) = delete;
    PlantedLibraries& operator=(const PlantedLibraries&) = delete;
    ~PlantedLibraries();

    // Puts libraries of these file names beside the program.
    void plant(const std::vector<std::wstring>& names);

    // The program's copy, and its folder.
    const std::wstring& program() const { return program_; }
    const TemporaryFolder& folder() const { return folder_; }

    // The file names of those that a process has loaded so far, in lower case.
    std::vector<std::wstring> loaded() const;
    // Those among them that were loaded before the program's first instruction, as its image asks for them.
    std::vector<std::wstring> needed_to_start() const;

private:
    std::vector<std::wstring> with_trace(const std::wstring& ending) const;

    TemporaryFolder folder_;
    std::wstring program_;
    std::wstring setting_;
};

// The program that loads whatever lies beside it.
std::wstring unguarded_program_path();

} // namespace test_support
