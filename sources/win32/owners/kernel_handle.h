// Owner of a handle of the kernel's: a process, a thread, an event.
#pragma once

#include <windows.h>

#include "sources/win32/owners/last_error.h"

// Closes the handle at the end of the scope. Not for files: their failure is INVALID_HANDLE_VALUE.
class KernelHandle
{
public:
    explicit KernelHandle(HANDLE handle) : handle_(handle) {}
    KernelHandle(const KernelHandle&) = delete;
    KernelHandle& operator=(const KernelHandle&) = delete;
    ~KernelHandle()
    {
        const LastErrorKeeper keeper;
        if (handle_ != nullptr)
            CloseHandle(handle_);
    }
    [[nodiscard]] HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

    // Leaves the handle open until this process ends.
    void leave_open() { handle_ = nullptr; }

private:
    HANDLE handle_;
};
