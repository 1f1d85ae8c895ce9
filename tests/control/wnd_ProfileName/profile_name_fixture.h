#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "sources/wnd_ProfileName/wnd_ProfileName.h"
#include "tests/control/profiles/profile_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/control_ids.h"

// What the tests of the profile name window share: an owner, the window, and its places.

namespace profile_tests
{

// An owner that keeps what it is told and answers like the List of Windows window, without destroying.
class Owner
{
public:
    Owner() : window_(L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {200, 100, 600, 400})
    {
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure));
    }
    HWND window() const { return window_; }

    struct Told {
        HWND from;
        ULONG_PTR data;
        DWORD bytes;
        std::wstring name;
    };
    std::vector<Told> told;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow)
    {
        if (message != WM_COPYDATA)
            return DefWindowProcW(window, message, wide, narrow);
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(narrow);
        reinterpret_cast<Owner*>(GetWindowLongPtrW(window, GWLP_USERDATA))
            ->told.push_back({reinterpret_cast<HWND>(wide), data->dwData, data->cbData,
                              std::wstring(static_cast<const wchar_t*>(data->lpData), data->cbData / 2)});
        return TRUE;
    }

    TestWindow window_;
};

// The window as Create Profile opens it.
class NameWindow
{
public:
    explicit NameWindow(HWND owner) : window_(create_wnd_ProfileName(owner))
    {
        ShowWindow(window_, SW_SHOW);
        UpdateWindow(window_);
        test_support::pump_messages();
    }
    ~NameWindow()
    {
        if (IsWindow(window_))
            DestroyWindow(window_);
    }
    NameWindow(const NameWindow&) = delete;
    NameWindow& operator=(const NameWindow&) = delete;
    operator HWND() const { return window_; }
    HWND control(int id) const { return GetDlgItem(window_, id); }
    HWND edit() const { return control(name_control::kName); }
    void press(int id) const { SendMessageW(window_, WM_COMMAND, static_cast<WPARAM>(id), 0); }
    std::wstring typed() const
    {
        std::wstring text(1024, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(edit(), text.data(), 1024)));
        return text;
    }

private:
    HWND window_;
};

inline int part(float factor, int screen)
{
    return static_cast<int>(factor * static_cast<float>(screen));
}

// Where a child stands, in its parent's client area.
inline std::string place_in_parent(HWND child)
{
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
           std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top);
}

inline std::string place(int x, int y, int width, int height)
{
    return std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
           std::to_string(height);
}

} // namespace profile_tests
