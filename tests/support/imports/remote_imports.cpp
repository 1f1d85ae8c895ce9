#include "tests/support/imports/remote_imports.h"

#include <psapi.h>

#include "tests/support/basics/waiting.h"

namespace test_support
{

namespace
{

FARPROC address_of(const RemoteImports::Function& function)
{
    const FARPROC address = GetProcAddress(GetModuleHandleW(function.module), function.name);
    if (!address)
        throw Failure(std::string("there is no ") + function.name);
    return address;
}

} // namespace

RemoteImports::RemoteImports(HANDLE process) : process_(process)
{
    // The program itself is the first of its modules.
    HMODULE module = nullptr;
    DWORD bytes = 0;
    EnumProcessModules(process, &module, sizeof module, &bytes);
    base_ = reinterpret_cast<std::byte*>(module);
}

void RemoteImports::replace(const Function& function, const Function& by) const
{
    const FARPROC wanted = address_of(function);
    const auto offset = static_cast<std::size_t>(read<IMAGE_DOS_HEADER>(0).e_lfanew);
    const auto headers = read<IMAGE_NT_HEADERS64>(offset);
    const IMAGE_DATA_DIRECTORY& table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
    for (DWORD slot = 0; slot < table.Size; slot += sizeof wanted) {
        if (read<FARPROC>(table.VirtualAddress + slot) == wanted) {
            write(table.VirtualAddress + slot, address_of(by));
            return;
        }
    }
    throw Failure(std::string("the program does not import ") + function.name);
}

void RemoteImports::read(std::size_t offset, void* data, std::size_t bytes) const
{
    if (!ReadProcessMemory(process_, base_ + offset, data, bytes, nullptr))
        throw Failure("the program's memory cannot be read");
}

void RemoteImports::write(std::size_t offset, FARPROC value) const
{
    DWORD before = 0;
    VirtualProtectEx(process_, base_ + offset, sizeof value, PAGE_READWRITE, &before);
    if (!WriteProcessMemory(process_, base_ + offset, &value, sizeof value, nullptr))
        throw Failure("the program's memory cannot be written");
    VirtualProtectEx(process_, base_ + offset, sizeof value, before, &before);
}

} // namespace test_support
