#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

// System calls of the program under test that fail, or do what a test wants, in the test's own process.
// The tests are linked statically, so every call of the program goes through the import table of the
// test executable. GoogleTest and these helpers are in the same executable and are met as well.
// The tests are compiled without optimisation: a function would read an address of the import table once, and
// a test that calls the same function before and after would not see the change.

namespace test_support
{

// Puts a function in the place of an imported one, as long as it lives:
//     ImportPatch patch("kernel32.dll", "GetTickCount", +[]() -> DWORD { return 5; });
// A name may have the function's number behind it, "SetWindowSubclass#410", by which some linkers import it.
// Throws a Failure when the executable does not import the function. Patches of one function may be
// nested; they must end in the opposite order.
class ImportPatch
{
public:
    using AnyFunction = void (*)();

    template <typename Function>
    ImportPatch(const std::string& module, const std::string& function, Function* replacement)
        : ImportPatch(module, function, reinterpret_cast<AnyFunction>(replacement), 0)
    {
    }
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    template <typename Function> Function* original() const { return reinterpret_cast<Function*>(original_); }

private:
    ImportPatch(const std::string& module, const std::string& function, AnyFunction replacement, int);

    AnyFunction* slot_ = nullptr;
    AnyFunction original_ = nullptr;
};

// A function's name as a template argument.
template <std::size_t Size> struct FunctionName {
    char text[Size] = {};
    // Implicit, so that a literal can be written where the name is wanted.
    constexpr FunctionName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
};

template <FunctionName Name, typename Function> class ImportHook;

// The same with anything that can be called, which may hold on to variables of the test:
//     ImportHook<"Sleep", decltype(Sleep)> hook("kernel32.dll", [&](DWORD time) { slept += time; });
// Only calls of the thread that made it are diverted; those of other threads go through. One hook of
// a function at a time.
template <FunctionName Name, typename Result, typename... Arguments>
class ImportHook<Name, Result(Arguments...)>
{
public:
    ImportHook(const std::string& module, std::function<Result(Arguments...)> action)
        : action_(std::move(action)), thread_(take_over(this)), patch_(module, Name.text, &divert)
    {
    }
    ImportHook(const ImportHook&) = delete;
    ImportHook& operator=(const ImportHook&) = delete;

    Result call_original(Arguments... arguments) const
    {
        return patch_.template original<Result(Arguments...)>()(arguments...);
    }

private:
    static Result divert(Arguments... arguments)
    {
        ImportHook* const hook = current_;
        return GetCurrentThreadId() == hook->thread_ ? hook->action_(arguments...)
                                                     : hook->call_original(arguments...);
    }

    // In place before the table is changed: another thread may call at once.
    static DWORD take_over(ImportHook* hook)
    {
        current_ = hook;
        return GetCurrentThreadId();
    }

    static inline ImportHook* current_ = nullptr;
    std::function<Result(Arguments...)> action_;
    DWORD thread_;
    ImportPatch patch_;
};

constexpr int kEveryCall = 0;

template <FunctionName Name, typename Function> class FailingImport;

// The n-th call (counted from 1) of the calling thread, or every call, sets the last error and
// returns the result given, without doing anything; all other calls go through:
//     FailingImport<"VirtualAlloc", decltype(VirtualAlloc)> fails("kernel32.dll", 2, nullptr,
//     ERROR_NOT_ENOUGH_MEMORY);
template <FunctionName Name, typename Result, typename... Arguments>
class FailingImport<Name, Result(Arguments...)>
{
public:
    FailingImport(const std::string& module, int which_call, Result result, DWORD last_error)
        : hook_(module, [this, which_call, result, last_error](Arguments... arguments) -> Result {
              ++calls_;
              if (which_call != kEveryCall && calls_ != which_call) {
                  return hook_.call_original(arguments...);
              }
              SetLastError(last_error);
              return result;
          })
    {
    }

    // Calls so far of the thread that made this.
    int calls() const { return calls_; }

private:
    int calls_ = 0;
    ImportHook<Name, Result(Arguments...)> hook_;
};

} // namespace test_support
