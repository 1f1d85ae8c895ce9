#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <stdexcept>
#include <string>

// Waiting for conditions with a deadline, and the one exception by which every helper of these
// tests says that something did not come about. GoogleTest reports it as a failure of the test.

namespace test_support
{

constexpr unsigned kShortWait = 5'000; // milliseconds; for what takes a moment
constexpr unsigned kLongWait = 30'000; // for a whole load with its retries

class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

using Condition = std::function<bool()>;

// Whether the condition became true before the deadline. It is asked at once and about every 5 ms.
bool becomes_true(const Condition& condition, unsigned milliseconds = kShortWait);

// Throws a Failure "waited 5000 ms in vain for <what>" when the condition stays false.
void wait_until(const Condition& condition, unsigned milliseconds, const std::string& what);

// The same while dispatching the messages of the calling thread, for windows of this thread.
bool becomes_true_pumping(const Condition& condition, unsigned milliseconds = kShortWait);
void pump_until(const Condition& condition, unsigned milliseconds, const std::string& what);

// Dispatches the messages that are waiting for the calling thread and returns.
void pump_messages();

// Asks until the answer converts to true and returns it: wait_for([] { return find(); }, ...).
template <typename Question> auto wait_for(Question question, unsigned milliseconds, const std::string& what)
{
    decltype(question()) answer{};
    wait_until(
        [&] {
            answer = question();
            return static_cast<bool>(answer);
        },
        milliseconds, what);
    return answer;
}

// A second thread of the test, for what has to go on while the test's own thread is inside a modal
// call (a file dialog, a blocking command). join() rethrows what the work threw; the destructor
// joins as well but swallows it.
class Background
{
public:
    explicit Background(std::function<void()> work);
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    // Dispatches the calling thread's messages while it waits.
    void join();
    bool finished() const;

private:
    static DWORD WINAPI run(void* self);

    std::function<void()> work_;
    std::exception_ptr error_;
    HANDLE thread_ = nullptr;
};

} // namespace test_support
