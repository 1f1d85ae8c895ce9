#pragma once

#include <windows.h>

#include <cstddef>

namespace test_support
{

// Memory in the process of a window, for messages whose structures must lie there. Released at the
// end unless it is left to the process. Throws a Failure when the process cannot be reached.
class RemoteMemory
{
public:
    RemoteMemory(HWND window, std::size_t bytes);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    // The address as the other process sees it.
    void* address() const { return address_; }
    void* address(std::size_t offset) const { return static_cast<std::byte*>(address_) + offset; }

    void write(std::size_t offset, const void* data, std::size_t bytes) const;
    void read(std::size_t offset, void* data, std::size_t bytes) const;

    // Leaves the memory to the process: it is not released at the end.
    void leave_to_process() { left_ = true; }

private:
    HANDLE process_ = nullptr;
    void* address_ = nullptr;
    bool left_ = false;
};

} // namespace test_support
