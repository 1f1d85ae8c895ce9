#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/basics/files.h"

// The programs and the folder that the demo lays out, and the places they have on the screen.

namespace demo
{

struct Place {
    bool minimised = false;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
};

// "120,40 400 x 300" or "minimised".
std::string as_text(const Place& place);

struct DesktopWindow {
    std::string name;  // for the table
    std::wstring path; // of the program, or of the folder
    bool is_folder = false;
    std::wstring class_name; // of the window
    Place place;
    HWND window = nullptr;
};

// The windows of the demo, laid out in the order given: the last one is in front.
class Desktop
{
public:
    explicit Desktop(std::vector<DesktopWindow> windows);
    // Closes the windows, and ends the programs whose windows do not go.
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    const std::vector<DesktopWindow>& windows() const { return windows_; }
    const DesktopWindow& named(const std::string& name) const;

    // Opens every window and brings it to its place. A window that will not have its size (some programs
    // have one of their own) has its place corrected to what it took.
    void open();
    // The same for a user's own display, whose window manager may have places of its own for them.
    void open_beside_user();
    // Closes the windows as a user does and waits until they are gone.
    void close();
    void wait_until_closed() const;
    // Looks for the windows again, after others have opened them.
    void find();

private:
    std::vector<DesktopWindow> windows_;
};

Place place_of(HWND window);
bool becomes_placed(HWND window, const Place& place);

// One window as a profile file has it.
struct SavedWindow {
    std::wstring path;
    bool is_folder = false;
    Place place;
};

std::vector<SavedWindow> read_profile(const test_support::Bytes& file);

} // namespace demo
