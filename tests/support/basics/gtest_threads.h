#pragma once

// GoogleTest names std::mutex and std::condition_variable on every Windows compiler, but GCC's
// standard library leaves them out when it is built for the win32 thread model. This header is
// included ahead of every source that includes GoogleTest there and fills the gap: enough for the
// one class of GoogleTest that mentions them (Notification, used only by GoogleTest's own tests).

#include <condition_variable>
#include <mutex>

#if defined(__MINGW32__) && !defined(_GLIBCXX_HAS_GTHREADS)

#include <atomic>

namespace std
{

class mutex
{
public:
    mutex() = default;
    mutex(const mutex&) = delete;
    mutex& operator=(const mutex&) = delete;

    void lock()
    {
        while (taken_.test_and_set(memory_order_acquire)) {
        }
    }
    void unlock() { taken_.clear(memory_order_release); }

private:
    atomic_flag taken_{};
};

class condition_variable
{
public:
    void notify_all() noexcept {}

    template <typename Lock, typename Condition> void wait(Lock& lock, Condition condition)
    {
        while (!condition()) {
            lock.unlock();
            lock.lock();
        }
    }
};

} // namespace std

#endif
