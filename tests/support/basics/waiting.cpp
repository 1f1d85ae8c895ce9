#include "tests/support/basics/waiting.h"

#include <utility>

namespace test_support
{

namespace
{

constexpr DWORD kPollMilliseconds = 5;

bool poll(const Condition& condition, unsigned milliseconds, bool pumping)
{
    const ULONGLONG deadline = GetTickCount64() + milliseconds;
    for (;;) {
        if (pumping)
            pump_messages();
        if (condition())
            return true;
        if (GetTickCount64() >= deadline)
            return false;
        if (pumping)
            MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_ALLINPUT);
        else
            Sleep(kPollMilliseconds);
    }
}

[[noreturn]] void report(unsigned milliseconds, const std::string& what)
{
    throw Failure("waited " + std::to_string(milliseconds) + " ms in vain for " + what);
}

} // namespace

bool becomes_true(const Condition& condition, unsigned milliseconds)
{
    return poll(condition, milliseconds, false);
}

void wait_until(const Condition& condition, unsigned milliseconds, const std::string& what)
{
    if (!poll(condition, milliseconds, false))
        report(milliseconds, what);
}

bool becomes_true_pumping(const Condition& condition, unsigned milliseconds)
{
    return poll(condition, milliseconds, true);
}

void pump_until(const Condition& condition, unsigned milliseconds, const std::string& what)
{
    if (!poll(condition, milliseconds, true))
        report(milliseconds, what);
}

void pump_messages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

Background::Background(std::function<void()> work) : work_(std::move(work))
{
    thread_ = CreateThread(nullptr, 0, &Background::run, this, 0, nullptr);
    if (!thread_)
        throw Failure("no thread for the background work");
}

Background::~Background()
{
    try {
        join();
    } catch (...) {
        // Who wants to know calls join().
    }
}

DWORD WINAPI Background::run(void* self)
{
    auto& background = *static_cast<Background*>(self);
    try {
        background.work_();
    } catch (...) {
        background.error_ = std::current_exception();
    }
    return 0;
}

void Background::join()
{
    if (!thread_)
        return;
    while (MsgWaitForMultipleObjects(1, &thread_, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
        pump_messages();
    CloseHandle(thread_);
    thread_ = nullptr;
    if (error_)
        std::rethrow_exception(std::exchange(error_, nullptr));
}

bool Background::finished() const
{
    return !thread_ || WaitForSingleObject(thread_, 0) == WAIT_OBJECT_0;
}

} // namespace test_support
