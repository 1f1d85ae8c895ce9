#pragma once

#include <windows.h>

namespace test_support
{

// The scale in which this thread's calls take and give coordinates, until the end of the scope.
class ThreadScale
{
public:
    explicit ThreadScale(DPI_AWARENESS_CONTEXT scale) : before_(SetThreadDpiAwarenessContext(scale)) {}
    ThreadScale(const ThreadScale&) = delete;
    ThreadScale& operator=(const ThreadScale&) = delete;
    ~ThreadScale() { SetThreadDpiAwarenessContext(before_); }

private:
    DPI_AWARENESS_CONTEXT before_;
};

inline DPI_AWARENESS scale_of_thread()
{
    return GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext());
}

inline DPI_AWARENESS scale_of_window(HWND window)
{
    return GetAwarenessFromDpiAwarenessContext(GetWindowDpiAwarenessContext(window));
}

// The library from which a program takes GetDpiForMonitor.
#ifdef _MSC_VER
inline constexpr char kScaleLibrary[] = "api-ms-win-shcore-scaling-l1-1-1.dll";
#else
inline constexpr char kScaleLibrary[] = "shcore.dll";
#endif

} // namespace test_support
