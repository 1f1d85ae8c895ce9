#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/basics/waiting.h"

namespace test_support
{

// One message box as it was on the screen; title and text are its exact UTF-16 units.
struct SeenBox {
    std::wstring title;
    std::wstring text;
    bool has_icon = false;
    HWND owner = nullptr;
    std::vector<int> buttons; // command ids, in order; a lone OK is {IDOK}
    HWND window = nullptr;    // of no use once the box is answered
};

struct ExpectedBox {
    std::wstring title;
    std::wstring text;
    bool has_icon = false;
};

// What the system says of an error code, and the box in which the program shows it.
std::wstring text_of_system(DWORD code);
ExpectedBox system_error_box(DWORD code);

// Watches the message boxes of one process from a thread of its own, records each and answers it.
// File dialogs, which are of the same window class, and the questions they ask are left alone. In the process
// of the test it must exist before the call that shows the box.
class BoxWatcher
{
public:
    // Without an argument: the boxes of this process. `settle` returns when the process has nothing left to
    // do; a program that is driven from outside may have yet another box to show.
    explicit BoxWatcher(
        DWORD process_id = GetCurrentProcessId(), std::function<void()> settle = [] {});
    ~BoxWatcher();
    BoxWatcher(const BoxWatcher&) = delete;
    BoxWatcher& operator=(const BoxWatcher&) = delete;

    // The button that answers every box from now on, IDOK at first. A lone button is pressed
    // whatever it is; of several buttons only the one named, so such a box may stay on the screen.
    void answer_with(int button);

    // From now on boxes are recorded but stay on the screen until answer_held() or release().
    void hold();
    void answer_held();
    void release();

    // Boxes of this title are answered, but kept out of boxes(): for boxes of the system itself.
    void set_aside(const std::wstring& title);
    std::vector<SeenBox> boxes_set_aside() const;

    // All boxes seen so far, in order. A box is recorded before it is answered, so whatever a call
    // has shown is complete when the call returns.
    std::vector<SeenBox> boxes() const;
    std::size_t count() const { return boxes().size(); }
    void forget();

    // Waits for the box of that index (0 = the first since the last forget()) and returns it.
    SeenBox wait_for_box(std::size_t index, unsigned milliseconds = kShortWait) const;

    // Waits until at least that many boxes have been seen and the process has settled, then fails the test
    // (readably, without ending it) unless exactly these boxes were seen in this order.
    void expect_boxes(const std::vector<ExpectedBox>& expected, unsigned milliseconds = kShortWait) const;
    void expect_no_boxes() const;

private:
    class Watching;
    std::unique_ptr<Watching> watching_;
    std::function<void()> settle_;
};

// The same comparison for use in assertions: an empty string when equal, else what differs.
std::string difference(const std::vector<SeenBox>& seen, const std::vector<ExpectedBox>& expected);

void PrintTo(const SeenBox& box, std::ostream* out);

} // namespace test_support
