#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace test_support
{

// The import table of another process's program, for system calls that fail, or end the program, there.
// Both functions must be of modules that are loaded in this process too: a module of the system lies
// at the same address in all processes.
class RemoteImports
{
public:
    explicit RemoteImports(HANDLE process);

    struct Function {
        const wchar_t* module;
        const char* name;
    };

    // From now on the program calls `by` wherever it names `function`. Throws a Failure when it does not
    // import it. The same with the two exchanged puts it back.
    void replace(const Function& function, const Function& by) const;

private:
    void read(std::size_t offset, void* data, std::size_t bytes) const;
    template <typename Value> Value read(std::size_t offset) const
    {
        Value value{};
        read(offset, &value, sizeof value);
        return value;
    }
    void write(std::size_t offset, FARPROC value) const;

    HANDLE process_;
    std::byte* base_ = nullptr;
};

} // namespace test_support
