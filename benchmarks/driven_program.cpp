#include "benchmarks/driven_program.h"

#include <psapi.h>

#include "benchmarks/results.h"
#include "tests/support/basics/files.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/input/remote_list_view.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace benchmark
{

namespace
{

constexpr unsigned kAnswer_milliseconds = 120'000;

LRESULT send(HWND window, UINT message, WPARAM wide = 0, LPARAM narrow = 0)
{
    return answer_of(window, message, wide, narrow, kAnswer_milliseconds);
}

// Asks every millisecond, and more cheaply than the helpers of the tests do.
template <typename Question> void wait_closely(Question question, const char* what)
{
    for (const Stopwatch watch; !question(); Sleep(1))
        if (watch.milliseconds() > kAnswer_milliseconds)
            throw Failure(std::string("waited in vain for ") + what);
}

} // namespace

Side wendlow()
{
    return {.name = "wendlow",
            .path = wendlow_path(),
            .arguments = {},
            .main_class = L"prg_wnds_layout",
            .list_class = L"List of Windows"};
}

Side bare_calls()
{
    return {.name = "bare",
            .path = windows_path(BARE_CALLS_EXE),
            .arguments = {},
            .main_class = L"Bare calls",
            .list_class = L"Bare list"};
}

Side bare_window()
{
    return {.name = "bare",
            .path = windows_path(BARE_WINDOW_EXE),
            .arguments = {},
            .main_class = L"Bare window",
            .list_class = nullptr};
}

Side bare_window_with_libraries()
{
    Side side = bare_window();
    side.name = "libraries";
    side.arguments = L"ole32.dll shcore.dll shell32.dll";
    return side;
}

DrivenProgram::DrivenProgram(const Side& side) : side_(side)
{
    if (FindWindowW(side.main_class, nullptr))
        throw Failure("another copy of the program is running already");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    std::wstring command = L"\"" + side.path + L"\"" + (side.arguments.empty() ? L"" : L" ") + side.arguments;
    const Stopwatch watch;
    if (!CreateProcessW(side.path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        throw Failure("a program to measure cannot be started");
    process_ = process.hProcess;
    process_id_ = process.dwProcessId;
    CloseHandle(process.hThread);
    WaitForInputIdle(process_, kAnswer_milliseconds);
    wait_closely([&] { return (main_window_ = find_window(process_id_, side_.main_class)) != nullptr; },
                 "the main window");
    start_milliseconds_ = watch.milliseconds();
}

DrivenProgram::~DrivenProgram()
{
    PostMessageW(main_window_, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process_, kShortWait) != WAIT_OBJECT_0)
        terminate_process(process_id_);
    CloseHandle(process_);
}

HWND DrivenProgram::control(int id) const
{
    return GetDlgItem(main_window_, id);
}

std::size_t DrivenProgram::working_set_bytes() const
{
    // Whatever it does after it was ready is over when the value stands still.
    std::size_t before = 0;
    std::size_t now = 0;
    wait_until(
        [&] {
            before = now;
            PROCESS_MEMORY_COUNTERS counters{};
            counters.cb = sizeof counters;
            send(main_window_, WM_NULL);
            if (!K32GetProcessMemoryInfo(process_, &counters, sizeof counters))
                throw Failure("the working set of the program cannot be read");
            now = counters.WorkingSetSize;
            return now == before && now != 0;
        },
        kLongWait, "the working set to stand still");
    return now;
}

HWND DrivenProgram::list_window() const
{
    return FindWindowW(side_.list_class, nullptr);
}

double DrivenProgram::scan() const
{
    const Stopwatch watch;
    // Posted, as a press of the mouse is: calls of the shell are refused while a message of another program
    // is being answered.
    PostMessageW(control(main_control::kScan), BM_CLICK, 0, 0);
    HWND list = nullptr;
    wait_closely(
        [&] {
            list = list_window();
            return list != nullptr && IsWindowVisible(list);
        },
        "the list");
    RedrawWindow(list, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return watch.milliseconds();
}

void DrivenProgram::close_list() const
{
    const HWND list = list_window();
    PostMessageW(list, WM_CLOSE, 0, 0);
    wait_until([&] { return !IsWindow(list); }, kLongWait, "the list to close");
}

double DrivenProgram::load(const std::wstring& path) const
{
    static LPARAM marks = 0;
    const HWND marked = control(main_control::kAction);
    const LPARAM mark = ++marks;
    const Stopwatch watch;
    drop_files_on(main_window_, {path});
    // Posted messages have their turn in order, so this one tells that the load is over.
    PostMessageW(marked, CB_SETITEMDATA, 0, mark);
    wait_until([&] { return send(marked, CB_GETITEMDATA) == mark; }, kAnswer_milliseconds, "the load");
    return watch.milliseconds();
}

double DrivenProgram::apply(int action) const
{
    send(control(main_control::kProfile), CB_SETCURSEL, 0);
    send(control(main_control::kAction), CB_SETCURSEL, static_cast<WPARAM>(action));
    const Stopwatch watch;
    send(control(main_control::kApply), BM_CLICK);
    return watch.milliseconds();
}

std::array<const DrivenProgram*, 2> in_turn(unsigned repetition, const DrivenProgram& one,
                                            const DrivenProgram& other)
{
    if (repetition % 2 == 0)
        return {&one, &other};
    return {&other, &one};
}

} // namespace benchmark
