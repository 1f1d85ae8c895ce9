// Memory of the operating system: whole blocks, zero-filled, and owners of what a routine uses for itself.
#pragma once

#include <windows.h>

#include <cstddef>

#include "sources/win32/owners/last_error.h"

// Commits `size_bytes` bytes, zero-filled, aligned to a page. Null when the system has none (or for 0 bytes).
// A block that belongs to a record is released where the record is.
template <typename T> T* allocate_block(std::size_t size_bytes)
{
    return static_cast<T*>(VirtualAlloc(nullptr, size_bytes, MEM_COMMIT, PAGE_READWRITE));
}

// Releases the block, if there is one, and sets the pointer to null.
template <typename T> void release_block(T*& block)
{
    if (block != nullptr)
        VirtualFree(block, 0, MEM_RELEASE);
    block = nullptr;
}

// A block of `count` elements that lives as long as its scope. Null when the system has none.
template <typename T> class MemoryBlock
{
public:
    explicit MemoryBlock(std::size_t count) : block_(allocate_block<T>(count * sizeof(T))) {}
    MemoryBlock(const MemoryBlock&) = delete;
    MemoryBlock& operator=(const MemoryBlock&) = delete;
    ~MemoryBlock()
    {
        const LastErrorKeeper keeper;
        release_block(block_);
    }
    [[nodiscard]] T* get() const { return block_; }
    explicit operator bool() const { return block_ != nullptr; }

private:
    T* block_;
};

// The bytes of a movable block, locked until the end of the scope. Null when the handle names none.
class LockedMemory
{
public:
    explicit LockedMemory(HGLOBAL memory) : memory_(memory), bytes_(GlobalLock(memory)) {}
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;
    ~LockedMemory()
    {
        const LastErrorKeeper keeper;
        if (bytes_ != nullptr)
            GlobalUnlock(memory_);
    }
    [[nodiscard]] const void* get() const { return bytes_; }

private:
    HGLOBAL memory_;
    void* bytes_;
};
