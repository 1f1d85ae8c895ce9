#include "tests/demo/demo_desktop.h"

#include <cstring>

#include "tests/demo/demo_script.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

#include <shellapi.h>

namespace demo
{

using namespace test_support;

namespace
{

std::wstring last_part(const std::wstring& path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

bool is_same_text(const std::wstring& left, const std::wstring& right)
{
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// The frontmost window on the screen that shows the program or folder; null when there is none.
HWND window_on_screen(const DesktopWindow& wanted)
{
    for (const HWND window : top_level_windows()) {
        if (!IsWindowVisible(window) || class_of(window) != wanted.class_name)
            continue;
        if (wanted.is_folder ? title_of(window) == last_part(wanted.path)
                             : is_same_text(image_path_of(process_of(window)), wanted.path))
            return window;
    }
    return nullptr;
}

void start(const DesktopWindow& wanted)
{
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof(request);
    request.fMask = SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = wanted.path.c_str();
    request.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&request))
        throw Failure("cannot open " + printable(wanted.path));
}

// Starts it and brings its window to its place; without a width it keeps the size it opens with.
void open_window(DesktopWindow& wanted)
{
    start(wanted);
    wanted.window =
        wait_for([&] { return window_on_screen(wanted); }, kLongWait, "the window of " + wanted.name);
    const Place& place = wanted.place;
    if (place.minimised)
        ShowWindow(wanted.window, SW_MINIMIZE);
    else
        SetWindowPos(wanted.window, HWND_TOP, place.x, place.y, place.width, place.height,
                     place.width == 0 ? SWP_SHOWWINDOW | SWP_NOSIZE : SWP_SHOWWINDOW);
}

void expect_in_place(DesktopWindow& shown)
{
    Place& place = shown.place;
    if (!place.minimised) {
        const Place taken = place_of(shown.window);
        place.width = taken.width;
        place.height = taken.height;
    }
    if (!becomes_placed(shown.window, place))
        throw Failure(shown.name + " does not go to " + as_text(place));
}

std::int32_t number_at(const Bytes& file, std::size_t offset)
{
    std::int32_t number = 0;
    if (offset + sizeof(number) > file.size())
        throw Failure("the profile file is too short");
    std::memcpy(&number, file.data() + offset, sizeof(number));
    return number;
}

} // namespace

std::string as_text(const Place& place)
{
    if (place.minimised)
        return "minimised";
    return std::to_string(place.x) + "," + std::to_string(place.y) + "  " + std::to_string(place.width) +
           " x " + std::to_string(place.height);
}

Place place_of(HWND window)
{
    if (IsIconic(window))
        return {.minimised = true};
    const RECT rectangle = rectangle_of(window);
    return {.x = rectangle.left,
            .y = rectangle.top,
            .width = rectangle.right - rectangle.left,
            .height = rectangle.bottom - rectangle.top};
}

bool becomes_placed(HWND window, const Place& place)
{
    return becomes_true([&] { return place_of(window) == place; });
}

Desktop::Desktop(std::vector<DesktopWindow> windows) : windows_(std::move(windows)) {}

Desktop::~Desktop()
{
    for (const DesktopWindow& wanted : windows_) {
        while (const HWND window = window_on_screen(wanted)) {
            const DWORD process_id = process_of(window);
            PostMessageW(window, WM_CLOSE, 0, 0);
            if (!becomes_true([&] { return !IsWindow(window); }))
                terminate_process(process_id);
        }
    }
}

const DesktopWindow& Desktop::named(const std::string& name) const
{
    for (const DesktopWindow& window : windows_)
        if (window.name == name)
            return window;
    throw Failure("the demo has no window " + name);
}

void Desktop::open()
{
    for (DesktopWindow& wanted : windows_) {
        open_window(wanted);
        expect_in_place(wanted);
    }
}

void Desktop::open_beside_user()
{
    for (DesktopWindow& wanted : windows_)
        open_window(wanted);
}

void Desktop::close()
{
    for (const DesktopWindow& shown : windows_)
        PostMessageW(shown.window, WM_CLOSE, 0, 0);
    wait_until_closed();
}

void Desktop::wait_until_closed() const
{
    for (const DesktopWindow& shown : windows_)
        wait_until([&] { return !IsWindow(shown.window); }, kShortWait, shown.name + " to close");
}

void Desktop::find()
{
    for (DesktopWindow& wanted : windows_)
        wanted.window = window_on_screen(wanted);
}

std::vector<SavedWindow> read_profile(const Bytes& file)
{
    const auto count = static_cast<std::size_t>(number_at(file, 0));
    // X, Y, width, height and length of path of each window follow the count and a byte for each kind.
    const auto field = [&](std::size_t array, std::size_t i) {
        return number_at(file, 4 + count + 4 * (array * count + i));
    };
    std::size_t path_offset = 4 + 21 * count;
    std::vector<SavedWindow> windows;
    for (std::size_t i = 0; i < count; ++i) {
        SavedWindow saved;
        saved.is_folder = file.at(4 + i) == 0;
        saved.place = {.x = field(0, i), .y = field(1, i), .width = field(2, i), .height = field(3, i)};
        saved.place.minimised = saved.place.width == 0 || saved.place.height == 0;
        const auto path_bytes = static_cast<std::size_t>(field(4, i));
        if (path_offset + path_bytes > file.size())
            throw Failure("the profile file is too short for its paths");
        saved.path.resize(path_bytes / sizeof(wchar_t));
        std::memcpy(saved.path.data(), file.data() + path_offset, path_bytes);
        path_offset += path_bytes + sizeof(wchar_t);
        windows.push_back(saved);
    }
    return windows;
}

} // namespace demo
