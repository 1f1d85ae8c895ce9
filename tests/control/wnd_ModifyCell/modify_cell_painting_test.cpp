#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/control/fixtures/modify_cell_fixture.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/imports/import_patch.h"

// What Modify Cell paints: the gradient and four labels, and when it paints nothing.

using namespace test_support;
using modify_cell_tests::ModifyCell;

namespace
{

struct Label {
    std::wstring text;
    RECT rect;
    bool operator==(const Label& other) const
    {
        return text == other.text && EqualRect(&rect, &other.rect) != FALSE;
    }
};

void PrintTo(const Label& label, std::ostream* out)
{
    *out << std::string(label.text.begin(), label.text.end()) << " at " << label.rect.left << ","
         << label.rect.top << " to " << label.rect.right << "," << label.rect.bottom;
}

// While it lives, keeps what is filled and written, measuring apart.
class Painted
{
public:
    Painted() = default;
    Painted(const Painted&) = delete;
    Painted& operator=(const Painted&) = delete;

    int gradients = 0;
    std::vector<Label> labels;

private:
    ImportHook<"GdiGradientFill", decltype(GdiGradientFill)> fill_{
        "gdi32.dll",
        [this](HDC dc, TRIVERTEX* corners, ULONG n_corners, void* mesh, ULONG n_mesh, ULONG mode) {
            ++gradients;
            EXPECT_EQ(mode, 1u); // from top to bottom
            EXPECT_EQ(n_corners, 2u);
            EXPECT_EQ(n_mesh, 1u);
            RECT client{};
            GetClientRect(WindowFromDC(dc), &client);
            const RECT filled{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
            EXPECT_TRUE(EqualRect(&filled, &client));
            return fill_.call_original(dc, corners, n_corners, mesh, n_mesh, mode);
        }};
    ImportHook<"DrawTextW", decltype(DrawTextW)> write_{
        "user32.dll", [this](HDC dc, LPCWSTR text, int units, LPRECT rect, UINT flags) {
            if ((flags & DT_CALCRECT) == 0) {
                labels.push_back({text, *rect});
                EXPECT_EQ(units, -1);
                EXPECT_EQ(flags, 0x24u); // single line, vertically centred
                EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
                EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
            }
            return write_.call_original(dc, text, units, rect, flags);
        }};
};

// The four labels' places: left of the edit boxes.
std::vector<Label> labels_at_their_places()
{
    const int bw = static_cast<int>(0.045F * static_cast<float>(GetSystemMetrics(SM_CXSCREEN)));
    const int bh = static_cast<int>(0.025F * static_cast<float>(GetSystemMetrics(SM_CYSCREEN)));
    const auto rect = [&](int row, int extra) {
        const int top = 5 + row * (bh + 5);
        return RECT{5, top, 5 + bw, top + bh + extra};
    };
    return {{L"X", rect(0, 0)}, {L"Y", rect(1, 0)}, {L"Width", rect(2, 0)}, {L"Height", rect(3, 5)}};
}

bool is_near(COLORREF seen, COLORREF wanted)
{
    return std::abs(GetRValue(seen) - GetRValue(wanted)) <= 2 &&
           std::abs(GetGValue(seen) - GetGValue(wanted)) <= 2 &&
           std::abs(GetBValue(seen) - GetBValue(wanted)) <= 2;
}

// The gradient's colour in that row of `height`.
COLORREF gradient(LONG row, LONG height)
{
    const auto between = [&](int top, int bottom) {
        return static_cast<BYTE>(top + (bottom - top) * row / height);
    };
    return RGB(between(0x16, 0xBB), between(0xFA, 0xFD), between(0xFA, 0xFD));
}

// How many pixels of the rectangle are written and how many are neither that nor the gradient's.
struct PixelsOf {
    int written = 0;
    int strange = 0;

    PixelsOf(HWND window, const RECT& rect)
    {
        RECT client{};
        GetClientRect(window, &client);
        const HDC dc = GetDC(window);
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) {
                const COLORREF seen = GetPixel(dc, x, y);
                if (is_near(seen, gradient(y, client.bottom)))
                    continue;
                // Black, or smoothed between black and the gradient: never lighter in red than this row.
                if (GetRValue(seen) <= GetRValue(gradient(y, client.bottom)))
                    ++written;
                else
                    ++strange;
            }
        }
        ReleaseDC(window, dc);
    }
};

} // namespace

TEST_F(ModifyCell, PaintsItsGradientAndFourLabels)
{
    const Painted painted;
    open(0);
    EXPECT_GE(painted.gradients, 1);
    EXPECT_EQ(painted.labels, labels_at_their_places());

    RECT client{};
    GetClientRect(dialog, &client);
    const HDC dc = GetDC(dialog);
    for (const LONG row : {0L, client.bottom / 4, client.bottom / 2, client.bottom - 1}) {
        for (const LONG column : {1L, client.right - 2}) {
            const COLORREF seen = GetPixel(dc, column, row);
            EXPECT_TRUE(is_near(seen, gradient(row, client.bottom)))
                << column << "," << row << " is " << std::hex << seen;
        }
    }
    ReleaseDC(dialog, dc);
    // Each label's words are there, and the gradient shows between them.
    for (const Label& label : labels_at_their_places()) {
        SCOPED_TRACE(testing::PrintToString(label));
        const PixelsOf pixels(dialog, label.rect);
        EXPECT_GT(pixels.written, 5);
        EXPECT_EQ(pixels.strange, 0);
    }
}

TEST_F(ModifyCell, PaintsNothingBeforeItsControlsAreThere)
{
    open(0); // has been painted
    DestroyWindow(dialog);
    const Painted painted;
    int asked = 0;
    const ImportHook<"SetWindowLongPtrW", decltype(SetWindowLongPtrW)> last_step(
        "user32.dll", [&](HWND window, int index, LONG_PTR value) {
            if (index == GWLP_WNDPROC) {
                ++asked;
                SendMessageW(GetParent(window), WM_PAINT, 0, 0);
                EXPECT_EQ(painted.gradients, 0);
                EXPECT_EQ(painted.labels.size(), 0u);
            }
            return last_step.call_original(window, index, value);
        });
    open(0);
    EXPECT_EQ(asked, 6);
    EXPECT_GE(painted.gradients, 1);
    EXPECT_EQ(painted.labels.size(), 4u);
}

TEST_F(ModifyCell, PaintsNothingWithoutAFont)
{
    open(0); // has been painted
    DestroyWindow(dialog);
    const Painted painted;
    const FailingImport<"CreateFontIndirectW", decltype(CreateFontIndirectW)> fails("gdi32.dll", kEveryCall,
                                                                                    nullptr, 8);
    const BoxWatcher boxes;
    open(0);
    EXPECT_EQ(boxes.count(), 1u);
    InvalidateRect(dialog, nullptr, TRUE);
    UpdateWindow(dialog);
    EXPECT_EQ(painted.gradients, 0);
    EXPECT_EQ(painted.labels.size(), 0u);
    const HDC dc = GetDC(dialog);
    EXPECT_EQ(GetPixel(dc, 1, 1), RGB(255, 255, 255)); // the class's background
    ReleaseDC(dialog, dc);
}
