#include <windows.h>

#include <cstdio>

// The system may swallow an exception of a window procedure on its way through a message. Here it ends the
// test all the same: an exception of the highest severity that is raised in this executable is a crash.

namespace
{

bool is_in_this_executable(const void* address)
{
    HMODULE module = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                  GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<LPCWSTR>(address), &module) &&
           module == GetModuleHandleW(nullptr);
}

LONG CALLBACK end_on_crash(EXCEPTION_POINTERS* exception)
{
    constexpr DWORD kSeverity_error = 0xC0000000;
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if ((record.ExceptionCode & kSeverity_error) == kSeverity_error &&
        is_in_this_executable(record.ExceptionAddress)) {
        std::fprintf(stderr, "exception %08lX at %p\n", record.ExceptionCode, record.ExceptionAddress);
        std::fflush(stderr);
        TerminateProcess(GetCurrentProcess(), record.ExceptionCode);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

[[maybe_unused]] void* const handler = AddVectoredExceptionHandler(1, end_on_crash);

} // namespace
