#include "benchmarks/counted_imports.h"

#include <psapi.h>

#include <array>
#include <cstring>
#include <initializer_list>

#include "tests/support/basics/waiting.h"

namespace benchmark
{

namespace
{

using test_support::Failure;

// What stands in the program's memory for each import, the code of a call last.
struct Counter {
    std::uint64_t calls;
    std::uint64_t original;
    // lock inc qword ptr [calls]; jmp qword ptr [original]
    std::array<std::uint8_t, 16> code;
};
static_assert(sizeof(Counter) == 32);

constexpr std::array<std::uint8_t, 16> kCode{
    0xF0, 0x48, 0xFF, 0x05, 0xE8, 0xFF, 0xFF, 0xFF, // the next instruction is 24 bytes behind `calls`
    0xFF, 0x25, 0xEA, 0xFF, 0xFF, 0xFF,             // and the end of this one 22 behind `original`
    0xCC, 0xCC};

// Those of the C library are no system calls.
bool is_runtime(const std::string& library)
{
    for (const char* name : {"msvcrt", "ucrt", "vcruntime", "api-ms-win-crt"})
        if (_strnicmp(library.c_str(), name, std::strlen(name)) == 0)
            return true;
    return false;
}

template <typename Value> Value value_at(const std::vector<std::byte>& image, std::size_t offset)
{
    Value value{};
    if (offset + sizeof value > image.size())
        throw Failure("the import table of the program leads out of it");
    std::memcpy(&value, image.data() + offset, sizeof value);
    return value;
}

std::string text_at(const std::vector<std::byte>& image, std::size_t offset)
{
    std::string text;
    for (char unit = value_at<char>(image, offset); unit != '\0'; unit = value_at<char>(image, ++offset))
        text += unit;
    return text;
}

} // namespace

CountedImports::CountedImports(HANDLE process) : process_(process)
{
    // The program itself is the first of its modules.
    HMODULE module = nullptr;
    DWORD bytes = 0;
    MODULEINFO information{};
    if (!EnumProcessModules(process, &module, sizeof module, &bytes) ||
        !GetModuleInformation(process, module, &information, sizeof information))
        throw Failure("the modules of the program cannot be listed");
    base_ = reinterpret_cast<std::byte*>(module);
    image_.resize(information.SizeOfImage);
    if (!ReadProcessMemory(process, base_, image_.data(), image_.size(), nullptr))
        throw Failure("the program's memory cannot be read");
    find_imports();
    write_counters();
}

CountedImports::~CountedImports()
{
    // The counters stay: a call that has not returned may stand in one.
    for (const Import& import : imports_)
        WriteProcessMemory(process_, base_ + import.slot, &import.original, sizeof import.original, nullptr);
}

std::map<std::string, std::uint64_t> CountedImports::calls() const
{
    std::vector<Counter> counters(imports_.size());
    if (!ReadProcessMemory(process_, counters_, counters.data(), counters.size() * sizeof(Counter), nullptr))
        throw Failure("the counted calls cannot be read");
    std::map<std::string, std::uint64_t> calls;
    for (std::size_t i = 0; i < counters.size(); ++i)
        if (counters[i].calls != 0)
            calls[imports_[i].name] += counters[i].calls;
    return calls;
}

void CountedImports::find_imports()
{
    const auto headers = value_at<IMAGE_NT_HEADERS64>(
        image_, static_cast<std::size_t>(value_at<IMAGE_DOS_HEADER>(image_, 0).e_lfanew));
    std::size_t at = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (;; at += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto library = value_at<IMAGE_IMPORT_DESCRIPTOR>(image_, at);
        if (library.Name == 0)
            return;
        if (is_runtime(text_at(image_, library.Name)))
            continue;
        for (std::size_t i = 0;; i += sizeof(std::uint64_t)) {
            const auto name = value_at<std::uint64_t>(image_, library.OriginalFirstThunk + i);
            if (name == 0)
                break;
            const std::size_t slot = library.FirstThunk + i;
            if (!IMAGE_SNAP_BY_ORDINAL64(name))
                imports_.push_back({text_at(image_, name + offsetof(IMAGE_IMPORT_BY_NAME, Name)), slot,
                                    value_at<std::uint64_t>(image_, slot)});
        }
    }
}

void CountedImports::write_counters()
{
    const std::size_t bytes = imports_.size() * sizeof(Counter);
    counters_ = static_cast<std::byte*>(
        VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    if (counters_ == nullptr)
        throw Failure("the program has no memory for counters");
    std::vector<Counter> counters;
    for (const Import& import : imports_)
        counters.push_back({.calls = 0, .original = import.original, .code = kCode});
    write(counters_, counters.data(), bytes);
    for (std::size_t i = 0; i < imports_.size(); ++i) {
        std::byte* slot = base_ + imports_[i].slot;
        const std::byte* code = counters_ + i * sizeof(Counter) + offsetof(Counter, code);
        DWORD before = 0;
        VirtualProtectEx(process_, slot, sizeof code, PAGE_READWRITE, &before);
        write(slot, &code, sizeof code);
    }
}

void CountedImports::write(void* address, const void* data, std::size_t bytes) const
{
    if (!WriteProcessMemory(process_, address, data, bytes, nullptr))
        throw Failure("the program's memory cannot be written");
}

} // namespace benchmark
