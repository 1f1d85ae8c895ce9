#include "benchmarks/bare/bare_store.h"

#include <windows.h>

#include <string.h>

#include <cstddef>

namespace bare
{

namespace
{

bool write(HANDLE file, const void* bytes, std::size_t size)
{
    DWORD written = 0;
    return WriteFile(file, bytes, static_cast<DWORD>(size), &written, nullptr) && written == size;
}

} // namespace

bool store(const wchar_t* file_path, unsigned entries, const wchar_t* path)
{
    const std::size_t path_bytes = wcslen(path) * sizeof(wchar_t);
    const std::size_t area_bytes = 2 * entries * (path_bytes + 1);
    const std::size_t numbers_bytes = 4 * std::size_t{entries};
    auto* block = static_cast<unsigned char*>(
        VirtualAlloc(nullptr, entries + 5 * numbers_bytes + area_bytes, MEM_COMMIT, PAGE_READWRITE));
    if (!block)
        return false;
    unsigned char* numbers = block + entries;
    unsigned char* paths = numbers + 5 * numbers_bytes;
    memset(block, 1, entries);
    for (unsigned i = 0; i < entries; ++i) {
        const unsigned values[] = {20, 30, 400, 300, static_cast<unsigned>(path_bytes)};
        for (unsigned k = 0; k < 5; ++k)
            memcpy(numbers + k * numbers_bytes + 4 * std::size_t{i}, &values[k], 4);
        memcpy(paths + i * (path_bytes + sizeof(wchar_t)), path, path_bytes);
    }
    const HANDLE file = CreateFileW(file_path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    bool written = write(file, &entries, sizeof entries) && write(file, block, entries);
    for (unsigned k = 0; k < 5; ++k)
        written = written && write(file, numbers + k * numbers_bytes, numbers_bytes);
    static constexpr unsigned char kSignature[] = {0x00, 0x07, 0x0C};
    written = written && write(file, paths, area_bytes) && write(file, L"Office", 6 * sizeof(wchar_t)) &&
              write(file, kSignature, sizeof kSignature) && FlushFileBuffers(file);
    CloseHandle(file);
    VirtualFree(block, 0, MEM_RELEASE);
    return written;
}

} // namespace bare
