#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/input/real_input.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

// The picture of the main window as it is on the screen, against places worked out here.

namespace
{

constexpr int kGap = 5;

int fraction_of(int length, float fraction)
{
    return static_cast<int>(static_cast<float>(length) * fraction);
}

// The client area as the screen shows it.
class OnTheScreen
{
public:
    explicit OnTheScreen(HWND window)
    {
        RECT client{};
        GetClientRect(window, &client);
        width_ = client.right;
        height_ = client.bottom;
        POINT corner{};
        ClientToScreen(window, &corner);

        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width_;
        info.bmiHeader.biHeight = -height_;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        const HDC screen = GetDC(nullptr);
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width_, height_);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, width_, height_, screen, corner.x, corner.y, SRCCOPY);
        SelectObject(memory, before);
        pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
        GetDIBits(memory, bitmap, 0, static_cast<UINT>(height_), pixels_.data(), &info, DIB_RGB_COLORS);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }

    int width() const { return width_; }
    int height() const { return height_; }
    COLORREF at(int x, int y) const
    {
        const DWORD pixel = pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                       static_cast<std::size_t>(x));
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<DWORD> pixels_;
};

// What is wrong with the picture; empty when nothing is.
class Flaws
{
public:
    explicit Flaws(const WendlowProcess& wendlow) : shown_(wendlow.main_window())
    {
        RECT combo = rectangle_of(wendlow.profile_combo());
        MapWindowPoints(nullptr, wendlow.main_window(), reinterpret_cast<POINT*>(&combo), 2);
        frame_height_ = fraction_of(shown_.height(), 0.85F);
        frame_width_ = fraction_of(shown_.width(), 0.7F);
        check_gradient();
        check_axes();
        check_miniatures();
        check_count_line(combo.top);
    }
    const std::string& text() const { return text_; }

private:
    void check(const char* what, int x, int y, COLORREF wanted, int tolerance = 0)
    {
        const COLORREF seen = shown_.at(x, y);
        if (std::abs(GetRValue(seen) - GetRValue(wanted)) <= tolerance &&
            std::abs(GetGValue(seen) - GetGValue(wanted)) <= tolerance &&
            std::abs(GetBValue(seen) - GetBValue(wanted)) <= tolerance)
            return;
        char line[120];
        snprintf(line, sizeof line, "%s at %d,%d is %02X %02X %02X\n", what, x, y, GetRValue(seen),
                 GetGValue(seen), GetBValue(seen));
        text_ += line;
    }

    // The right margin: the controls and labels end 3 gaps before the edge.
    int free_column() const { return shown_.width() - kGap; }

    void check_gradient()
    {
        check("the first row", free_column(), 0, RGB(0x16, 0xFA, 0xFA), 3);
        check("the last row", free_column(), shown_.height() - 1, RGB(0xBB, 0xFD, 0xFD), 3);
        const int middle = shown_.height() / 2;
        check("the middle row", free_column(), middle, RGB((0x16 + 0xBB) / 2, 0xFB, 0xFB), 3);
    }

    void check_axes()
    {
        check("the X axis", 3 * kGap + (frame_width_ - 4 * kGap) / 2, 3 * kGap, RGB(0, 0, 0));
        check("the Y axis", 3 * kGap, 3 * kGap + (frame_height_ - 4 * kGap) / 2, RGB(0, 0, 0));
    }

    void check_miniatures()
    {
        const int width = (frame_width_ - 10 * kGap) / 3;
        const int height = (frame_height_ - 10 * kGap) / 3;
        const int left = 5 * kGap;
        const int top = 5 * kGap;
        check_miniature("A", left, top, width);
        check_miniature("B", left + width + kGap, top, width);
        check_miniature("C", left + 2 * (width + kGap), top, width);
        check_miniature("D", left, top + height + kGap, width);
        check_miniature("E", left, top + 2 * (height + kGap), 3 * width + 2 * kGap);
    }
    void check_miniature(const std::string& name, int left, int top, int width)
    {
        check((name + "'s title bar").c_str(), left + 1, top + 1, RGB(0x5B, 0xAF, 0xFF));
        check((name + "'s title bar").c_str(), left + width - 2, top + 18, RGB(0x5B, 0xAF, 0xFF));
        check((name + "'s close box").c_str(), left + width - 10, top + 10, RGB(0xFF, 0, 0));
    }

    // The line between Load Profile and "Profile:", as high as that label; it is kept empty.
    void check_count_line(int combo_top)
    {
        const int button_height = fraction_of(GetSystemMetrics(SM_CYSCREEN), 0.035F);
        const int left = kGap + frame_width_ + 5 * kGap;
        const int top = 2 * (kGap + button_height) + 5 * kGap;
        const int line_height = (combo_top - top - 2 * kGap) / 2;
        if (line_height <= 0)
            text_ += "the count line has no height\n";
        for (int y = top; y < top + line_height; ++y)
            for (int x = left; x < shown_.width() - 3 * kGap; ++x)
                check("the count line", x, y, shown_.at(free_column(), y));
    }

    OnTheScreen shown_;
    int frame_height_ = 0;
    int frame_width_ = 0;
    std::string text_;
};

class MainPicture : public testing::Test
{
protected:
    void resize(int more_width, int more_height)
    {
        const int width = static_cast<int>(0.4 * GetSystemMetrics(SM_CXSCREEN)) + more_width;
        const int height = static_cast<int>(0.45 * GetSystemMetrics(SM_CYSCREEN)) + more_height;
        SetWindowPos(wendlow_.main_window(), nullptr, 20, 20, width, height, SWP_NOZORDER);
    }
    void expect_picture()
    {
        bring_to_front(wendlow_.main_window());
        wendlow_.wait_until_idle();
        std::string flaws;
        becomes_true([&] {
            flaws = Flaws(wendlow_).text();
            return flaws.empty();
        });
        EXPECT_EQ(flaws, "");
    }

    WendlowProcess wendlow_;
};

TEST_F(MainPicture, IsWholeAtTheSmallestSize)
{
    resize(0, 0);
    expect_picture();
}

TEST_F(MainPicture, IsWholeAtALargerSize)
{
    resize(351, 217);
    expect_picture();
}

TEST_F(MainPicture, IsWholeAfterTwentyResizes)
{
    bring_to_front(wendlow_.main_window());
    for (int i = 1; i <= 20; ++i)
        resize(i * 67 % 400, i * 41 % 250);
    expect_picture();
    resize(0, 0);
    expect_picture();
}

} // namespace
