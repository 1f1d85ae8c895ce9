#include "tests/support/boxes/box_watcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/support/basics/exclusive_lock.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

constexpr int kTextId = 0xFFFF;
constexpr DWORD kPollMilliseconds = 5;
constexpr ULONGLONG kPressAgainMilliseconds = 1'000;

std::vector<HWND> children_of(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

HWND text_control_of(const std::vector<HWND>& children)
{
    for (const HWND child : children)
        if ((GetDlgCtrlID(child) & 0xFFFF) == kTextId && class_of(child) == L"Static")
            return child;
    return nullptr;
}

// Other dialogs share the window class, but none of them has labels and buttons only.
bool is_message_box(HWND window)
{
    if (!IsWindowVisible(window) || class_of(window) != L"#32770")
        return false;
    if (is_file_dialog(GetWindow(window, GW_OWNER)))
        return false; // a question of the dialog's own
    const std::vector<HWND> children = children_of(window);
    const bool plain = std::all_of(children.begin(), children.end(), [](HWND child) {
        const std::wstring name = class_of(child);
        return name == L"Static" || name == L"Button";
    });
    return plain && text_control_of(children);
}

bool shows_icon(HWND control)
{
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    DWORD_PTR icon = 0;
    return class_of(control) == L"Static" && (style & WS_VISIBLE) && (style & SS_TYPEMASK) == SS_ICON &&
           SendMessageTimeoutW(control, STM_GETICON, 0, 0, SMTO_NORMAL, 2'000, &icon) && icon != 0;
}

SeenBox read_box(HWND window)
{
    SeenBox box;
    box.window = window;
    box.title = text_of(window);
    box.owner = GetWindow(window, GW_OWNER);
    const std::vector<HWND> children = children_of(window);
    box.text = text_of(text_control_of(children));
    for (const HWND child : children) {
        if (shows_icon(child))
            box.has_icon = true;
        if (class_of(child) == L"Button" && IsWindowVisible(child))
            box.buttons.push_back(GetDlgCtrlID(child));
    }
    return box;
}

void press(const SeenBox& box, int button)
{
    if (box.buttons.size() == 1)
        button = box.buttons.front();
    if (const HWND control = GetDlgItem(box.window, button))
        PostMessageW(box.window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                     reinterpret_cast<LPARAM>(control));
}

template <typename Box> std::string describe(const Box& box)
{
    return "[" + printable(box.title) + "]" + (box.has_icon ? " with an icon" : "") + "\n" +
           printable(box.text) + "\n";
}

} // namespace

class BoxWatcher::Watching
{
public:
    explicit Watching(DWORD process_id) : process_id_(process_id)
    {
        stop_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        thread_ = CreateThread(nullptr, 0, &Watching::run, this, 0, nullptr);
        if (!stop_ || !thread_)
            throw Failure("no thread to watch for message boxes");
    }
    ~Watching()
    {
        SetEvent(stop_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        CloseHandle(stop_);
    }
    Watching(const Watching&) = delete;
    Watching& operator=(const Watching&) = delete;

    mutable SRWLOCK lock = SRWLOCK_INIT;
    std::vector<SeenBox> seen;
    std::vector<SeenBox> aside;
    std::vector<std::wstring> titles_aside;
    int button = IDOK;
    bool held = false;
    bool answer_held_once = false;

private:
    struct OnScreen {
        SeenBox box;
        ULONGLONG pressed_at = 0; // 0 = not yet
    };

    static DWORD WINAPI run(void* self)
    {
        auto& watching = *static_cast<Watching*>(self);
        do
            watching.look();
        while (WaitForSingleObject(watching.stop_, kPollMilliseconds) == WAIT_TIMEOUT);
        return 0;
    }

    void look()
    {
        std::erase_if(on_screen_, [](const auto& entry) { return !is_message_box(entry.first); });
        for (const HWND window : top_level_windows_of(process_id_))
            if (!on_screen_.contains(window) && is_message_box(window))
                take_down(window);

        const ExclusiveLock guard(lock);
        for (auto& [window, entry] : on_screen_)
            answer(entry);
        answer_held_once = false;
    }

    void take_down(HWND window)
    {
        const SeenBox box = read_box(window);
        if (box.buttons.empty())
            return; // being built or taken apart
        on_screen_[window].box = box;
        SeenBox told = box;
        if (told.buttons.size() == 1)
            told.buttons = {IDOK}; // a lone OK has either id, by the system
        const ExclusiveLock guard(lock);
        const bool set_aside =
            std::find(titles_aside.begin(), titles_aside.end(), told.title) != titles_aside.end();
        (set_aside ? aside : seen).push_back(told);
    }

    void answer(OnScreen& entry)
    {
        const ULONGLONG now = GetTickCount64();
        const bool unanswered = entry.pressed_at == 0;
        if (unanswered ? !held || answer_held_once : now - entry.pressed_at > kPressAgainMilliseconds) {
            press(entry.box, button);
            entry.pressed_at = now;
        }
    }

    DWORD process_id_;
    std::map<HWND, OnScreen> on_screen_;
    HANDLE stop_ = nullptr;
    HANDLE thread_ = nullptr;
};

BoxWatcher::BoxWatcher(DWORD process_id, std::function<void()> settle)
    : watching_(std::make_unique<Watching>(process_id)), settle_(std::move(settle))
{
}

BoxWatcher::~BoxWatcher() = default;

void BoxWatcher::answer_with(int button)
{
    const ExclusiveLock guard(watching_->lock);
    watching_->button = button;
}

void BoxWatcher::hold()
{
    const ExclusiveLock guard(watching_->lock);
    watching_->held = true;
}

void BoxWatcher::answer_held()
{
    const ExclusiveLock guard(watching_->lock);
    watching_->answer_held_once = true;
}

void BoxWatcher::release()
{
    const ExclusiveLock guard(watching_->lock);
    watching_->held = false;
}

void BoxWatcher::set_aside(const std::wstring& title)
{
    const ExclusiveLock guard(watching_->lock);
    watching_->titles_aside.push_back(title);
}

std::vector<SeenBox> BoxWatcher::boxes_set_aside() const
{
    const ExclusiveLock guard(watching_->lock);
    return watching_->aside;
}

std::vector<SeenBox> BoxWatcher::boxes() const
{
    const ExclusiveLock guard(watching_->lock);
    return watching_->seen;
}

void BoxWatcher::forget()
{
    const ExclusiveLock guard(watching_->lock);
    watching_->seen.clear();
    watching_->aside.clear();
}

SeenBox BoxWatcher::wait_for_box(std::size_t index, unsigned milliseconds) const
{
    wait_until([&] { return count() > index; }, milliseconds, "message box " + std::to_string(index + 1));
    return boxes().at(index);
}

void BoxWatcher::expect_boxes(const std::vector<ExpectedBox>& expected, unsigned milliseconds) const
{
    becomes_true([&] { return count() >= expected.size(); }, milliseconds);
    settle_();
    const std::string differs = difference(boxes(), expected);
    if (!differs.empty())
        ADD_FAILURE() << differs;
}

void BoxWatcher::expect_no_boxes() const
{
    expect_boxes({});
}

std::wstring text_of_system(DWORD code)
{
    wchar_t text[512]{};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                   MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), text, 512, nullptr);
    return text;
}

ExpectedBox system_error_box(DWORD code)
{
    return {L"GetLastError", text_of_system(code), true};
}

std::string difference(const std::vector<SeenBox>& seen, const std::vector<ExpectedBox>& expected)
{
    const std::size_t both = std::min(seen.size(), expected.size());
    for (std::size_t i = 0; i < both; ++i)
        if (seen[i].title != expected[i].title || seen[i].text != expected[i].text ||
            seen[i].has_icon != expected[i].has_icon)
            return "message box " + std::to_string(i + 1) + " differs; expected\n" + describe(expected[i]) +
                   "seen\n" + describe(seen[i]);
    if (seen.size() > both)
        return "message box " + std::to_string(both + 1) + " was not expected:\n" + describe(seen[both]);
    if (expected.size() > both)
        return "message box " + std::to_string(both + 1) + " was not shown; expected\n" +
               describe(expected[both]);
    return {};
}

void PrintTo(const SeenBox& box, std::ostream* out)
{
    *out << describe(box);
}

} // namespace test_support
