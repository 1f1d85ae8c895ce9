#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

#include "tests/support/imports/import_patch.h"

namespace profile_tests
{

// The memory blocks that this thread takes from the system and gives back, in order. One call may be made to
// fail; it is recorded as a null block.
class RecordedBlocks
{
public:
    explicit RecordedBlocks(std::size_t failing_call = 0) : failing_call_(failing_call) {}
    std::vector<void*> taken;
    std::vector<void*> given_back;

private:
    std::size_t failing_call_; // counted from 1, 0 = none
    test_support::ImportHook<"VirtualAlloc", decltype(VirtualAlloc)> take_{
        "kernel32.dll", [this](LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
            const bool fails = taken.size() + 1 == failing_call_;
            taken.push_back(fails ? nullptr : take_.call_original(address, size, type, protection));
            if (fails)
                SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return taken.back();
        }};
    test_support::ImportHook<"VirtualFree", decltype(VirtualFree)> give_back_{
        "kernel32.dll", [this](LPVOID address, SIZE_T size, DWORD type) {
            given_back.push_back(address);
            return give_back_.call_original(address, size, type);
        }};
};

} // namespace profile_tests
