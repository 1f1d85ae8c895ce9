// Blocks of zero-filled memory taken whole from the operating system.
#pragma once

#include <windows.h>

#include <cstddef>

// Commits `size_bytes` bytes, zero-filled, aligned to a page. Null when the system has none (or for 0 bytes).
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
