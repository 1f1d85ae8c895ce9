#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <vector>

// The programs that are measured, started and worked from outside in the same way.

namespace benchmark
{

struct Side {
    const char* name; // in the results
    std::wstring path;
    std::wstring arguments;
    const wchar_t* main_class;
    const wchar_t* list_class;
};

Side wendlow();
// Its commands as bare system calls.
Side bare_calls();
// The window and its controls alone; and with the libraries that the program has from its start, loaded and
// not used.
Side bare_window();
Side bare_window_with_libraries();

class DrivenProgram
{
public:
    // Starts it and waits until its window is shown and drawn and it is ready for input.
    explicit DrivenProgram(const Side& side);
    // Closes it and waits for its end.
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    const Side& side() const { return side_; }
    HANDLE process() const { return process_; }
    HWND main_window() const { return main_window_; }
    HWND control(int id) const;

    // Time from its start until it was ready.
    double start_milliseconds() const { return start_milliseconds_; }
    // The memory that it keeps resident once it is idle.
    std::size_t working_set_bytes() const;

    // Presses Scan and waits until the list is shown and drawn; returns the time that this took.
    double scan() const;
    HWND list_window() const;
    void close_list() const;

    // Drops a profile on the main window and waits until it is loaded; returns the time.
    double load(const std::wstring& path) const;

    // Chooses the first profile and the action of that position, presses Apply and waits until it is carried
    // out; returns the time.
    double apply(int action) const;

private:
    const Side side_;
    HANDLE process_ = nullptr;
    DWORD process_id_ = 0;
    HWND main_window_ = nullptr;
    double start_milliseconds_ = 0;
};

// The two that are compared, changing places from one repetition to the next.
std::array<const DrivenProgram*, 2> in_turn(unsigned repetition, const DrivenProgram& one,
                                            const DrivenProgram& other);

} // namespace benchmark
