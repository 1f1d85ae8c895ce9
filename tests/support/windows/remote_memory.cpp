#include "tests/support/windows/remote_memory.h"

#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

RemoteMemory::RemoteMemory(HWND window, std::size_t bytes)
{
    process_ =
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process_of(window));
    if (!process_)
        throw Failure("the window's process cannot be opened");
    address_ = VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (!address_) {
        CloseHandle(process_);
        throw Failure("no memory in the window's process");
    }
}

RemoteMemory::~RemoteMemory()
{
    if (!left_)
        VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void RemoteMemory::write(std::size_t offset, const void* data, std::size_t bytes) const
{
    if (!WriteProcessMemory(process_, address(offset), data, bytes, nullptr))
        throw Failure("cannot write to the window's process");
}

void RemoteMemory::read(std::size_t offset, void* data, std::size_t bytes) const
{
    if (!ReadProcessMemory(process_, address(offset), data, bytes, nullptr))
        throw Failure("cannot read from the window's process");
}

} // namespace test_support
