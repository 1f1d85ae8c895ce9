#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace benchmark
{

// Counts the system calls of another process's program: from its making on, each function that the program
// imports is called by way of a few instructions that count the call. The program must be idle while this is
// made and while it ends.
class CountedImports
{
public:
    explicit CountedImports(HANDLE process);
    ~CountedImports();
    CountedImports(const CountedImports&) = delete;
    CountedImports& operator=(const CountedImports&) = delete;

    // Calls so far, by the names of the functions; those never called are left out.
    std::map<std::string, std::uint64_t> calls() const;

private:
    struct Import {
        std::string name;
        std::size_t slot; // offset from the base of the image
        std::uint64_t original;
    };

    void find_imports();
    void write_counters();
    void write(void* address, const void* data, std::size_t bytes) const;

    HANDLE process_;
    std::byte* base_ = nullptr;
    std::vector<std::byte> image_;
    std::vector<Import> imports_;
    std::byte* counters_ = nullptr;
};

} // namespace benchmark
