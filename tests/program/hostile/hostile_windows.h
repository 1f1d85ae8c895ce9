#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace hostile
{

struct Neighbour {
    std::wstring title;
    std::wstring class_name = L"HostileNeighbour";
    RECT place{100, 100, 300, 200};
};

// Visible windows for the program under test to meet, on a thread of their own that answers for them.
class Neighbours
{
public:
    // Called on the windows' thread when another program has asked a window for its title, for the first
    // time (1), the second (2) and so on; the answer is given after it.
    using Asked = std::function<void(HWND window, int time)>;

    // The first one lies lowest, so it is the last one listed.
    explicit Neighbours(std::vector<Neighbour> windows, Asked asked = {});
    ~Neighbours();
    Neighbours(const Neighbours&) = delete;
    Neighbours& operator=(const Neighbours&) = delete;

    HWND operator[](std::size_t index) const;

private:
    class Thread;
    std::unique_ptr<Thread> thread_;
};

} // namespace hostile
