#pragma once

#include <windows.h>

#include "tests/support/folder_windows/shell_windows_stand_in/script.h"

namespace test_support::stand_in
{

// The references of one interface. Objects of the stand-in stay in memory for the life of the
// process, so that one release too many can be counted instead of being fatal.
class References
{
public:
    ULONG add()
    {
        InterlockedIncrement(&counters().interfaces_given);
        InterlockedIncrement(&counters().interfaces_live);
        return static_cast<ULONG>(InterlockedIncrement(&count_));
    }

    ULONG release()
    {
        const LONG left = InterlockedDecrement(&count_);
        if (left < 0) {
            InterlockedIncrement(&count_);
            InterlockedIncrement(&counters().released_too_often);
            return 0;
        }
        InterlockedDecrement(&counters().interfaces_live);
        return static_cast<ULONG>(left);
    }

private:
    volatile LONG count_ = 0;
};

// Hands an interface out as QueryInterface does.
template <typename Interface> HRESULT hand_out(Interface* object, void** out)
{
    object->AddRef();
    *out = object;
    return S_OK;
}

inline HRESULT refuse(void** out)
{
    *out = nullptr;
    return E_NOINTERFACE;
}

} // namespace test_support::stand_in
