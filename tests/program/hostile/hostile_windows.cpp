#include "tests/program/hostile/hostile_windows.h"

#include <atomic>
#include <map>
#include <utility>

#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"

namespace hostile
{

using test_support::Failure;

class Neighbours::Thread
{
public:
    Thread(std::vector<Neighbour> described, Asked asked)
        : described_(std::move(described)), asked_(std::move(asked)), background_([this] { run(); })
    {
        test_support::wait_until([this] { return ready_ || background_.finished(); }, test_support::kLongWait,
                                 "the neighbours' windows");
        if (!ready_)
            background_.join(); // throws what went wrong
    }
    ~Thread() { PostThreadMessageW(id_, WM_QUIT, 0, 0); }
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    std::vector<HWND> windows;

private:
    void run()
    {
        id_ = GetCurrentThreadId();
        for (const Neighbour& neighbour : described_)
            windows.push_back(create(neighbour));
        ready_ = true;
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        for (const HWND window : windows)
            DestroyWindow(window);
    }

    HWND create(const Neighbour& neighbour)
    {
        WNDCLASSEXW description{};
        description.cbSize = sizeof(description);
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = neighbour.class_name.c_str();
        RegisterClassExW(&description); // fails for a class that is there already
        const RECT& place = neighbour.place;
        const HWND window =
            CreateWindowExW(0, neighbour.class_name.c_str(), neighbour.title.c_str(), WS_POPUP | WS_VISIBLE,
                            place.left, place.top, place.right - place.left, place.bottom - place.top,
                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        if (!window)
            throw Failure("no window of the class " + test_support::printable(neighbour.class_name));
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure));
        return window;
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        auto* self = reinterpret_cast<Thread*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const LRESULT result = DefWindowProcW(window, message, wide, narrow);
        if (message == WM_GETTEXT && InSendMessage() && self->asked_)
            self->asked_(window, ++self->times_asked_[window]);
        return result;
    }

    std::vector<Neighbour> described_;
    Asked asked_;
    std::map<HWND, int> times_asked_;
    std::atomic<DWORD> id_ = 0;
    std::atomic<bool> ready_ = false;
    test_support::Background background_; // last: it uses all of the above
};

Neighbours::Neighbours(std::vector<Neighbour> windows, Asked asked)
    : thread_(std::make_unique<Thread>(std::move(windows), std::move(asked)))
{
}

Neighbours::~Neighbours() = default;

HWND Neighbours::operator[](std::size_t index) const
{
    return thread_->windows.at(index);
}

} // namespace hostile
