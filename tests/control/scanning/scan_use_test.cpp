#include "sources/funcs_layout_windows/scanning/scan_use.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>
#include <objbase.h>
#include <psapi.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "sources/funcs_layout_windows/scanning/list_window.h"
#include "tests/control/fixtures/main_window_fixture.h"
#include "tests/control/fixtures/scan_fixture.h"
#include "tests/support/boxes/report_texts.h"
#include "tests/support/imports/import_patch.h"
#include "tests/support/windows/quit_message.h"
#include "tests/support/windows/test_window.h"

// Messages come in while a scan is on its way. Another Scan does nothing while the record is used, and works
// while a box is up with which the first one ends.

using namespace test_support;
using main_tests::MainWindowFixture;
using scan_tests::Desktop;
using scan_tests::press_scan;
using scan_tests::RecordCopy;
using scan_tests::ScanFixture;

namespace
{

using Row = std::vector<std::wstring>;
const Row kRow{L"1", L"window", L"100", L"120", L"320", L"240"};

// Notes each box of this thread, does what is to be done while it is up and answers it.
class Boxes
{
public:
    std::function<void(std::size_t)> meanwhile; // gets the box's number, counted from 0
    std::vector<std::wstring> texts;

private:
    ImportHook<"MessageBoxW", decltype(MessageBoxW)> hook_{
        "user32.dll", [this](HWND, const wchar_t* text, const wchar_t* title, UINT) -> int {
            const std::size_t number = texts.size();
            texts.push_back(std::wstring(title) + L": " + text);
            if (meanwhile)
                meanwhile(number);
            return IDOK;
        }};
};

// That each box shows its text, among others, and there are no more.
void expect_boxes(const Boxes& boxes, const std::vector<std::wstring>& texts)
{
    ASSERT_EQ(boxes.texts.size(), texts.size());
    for (std::size_t box = 0; box < texts.size(); ++box) {
        EXPECT_NE(boxes.texts[box].find(texts[box]), std::wstring::npos)
            << testing::PrintToString(boxes.texts[box]);
    }
}

// A scan that fails, and the boxes with which it ends.
struct Ending {
    const char* name;
    std::function<void(Desktop*, const std::function<void()>&)> run;
    std::vector<std::wstring> boxes;
};

template <FunctionName Name, typename Function, typename Result>
std::function<void(Desktop*, const std::function<void()>&)> with_failing(const char* module, int call,
                                                                         Result result)
{
    return [=](Desktop*, const std::function<void()>& scan) {
        const FailingImport<Name, Function> fails(module, call, result, ERROR_ACCESS_DENIED);
        scan();
        EXPECT_GE(fails.calls(), call);
    };
}

std::wstring failed(int result)
{
    return L"error: " +
           compact_text({L"sources/main_prg", L"WndProc", 888, 1187},
                        L"ERROR <- onButton_Scan_Click()\nret code = " + std::to_wstring(result));
}

std::vector<Ending> endings()
{
    std::vector<Ending> all;
    all.push_back({"nothing found",
                   [](Desktop* desktop, const std::function<void()>& scan) {
                       desktop->windows.clear();
                       scan();
                   },
                   {L"info: Number of found valid windows = 0"}});
    all.push_back({"no list",
                   with_failing<"CreateWindowExW", decltype(CreateWindowExW)>("user32.dll", 1, HWND{}),
                   {L"GetLastError: "}});
    for (int block = 1; block <= 6; ++block) {
        all.push_back({"no memory",
                       with_failing<"VirtualAlloc", decltype(VirtualAlloc)>("kernel32.dll", block, LPVOID{}),
                       {L"ERROR <- VirtualAlloc()", failed(-3)}});
    }
    for (const int pass : {1, 2}) {
        all.push_back({pass == 1 ? "no enumeration, counting" : "no enumeration, filling",
                       [pass](Desktop* desktop, const std::function<void()>& scan) {
                           desktop->failing_pass = pass;
                           scan();
                       },
                       {L"ERROR <- EnumWindows()", failed(-2)}});
        all.push_back(
            {"no path",
             with_failing<"K32GetModuleFileNameExW", decltype(K32GetModuleFileNameExW)>("kernel32.dll", pass,
                                                                                        DWORD{0}),
             {L"GetLastError: ", L"ERROR <- GetModuleFileNameEx()", L"ERROR <- EnumWindows()", failed(-2)}});
    }
    return all;
}

// Does `action` while each box of each failing scan is up, in turn. `check` gets the ending and the box.
void at_each_box(
    const std::function<void(Desktop*, HWND)>& action,
    const std::function<void(const ScanFixture&, const Boxes&, const Ending&, std::size_t)>& check)
{
    for (const Ending& ending : endings()) {
        for (std::size_t box = 0; box < ending.boxes.size(); ++box) {
            SCOPED_TRACE(std::string(ending.name) + ", box " + std::to_string(box));
            const ScanFixture fixture;
            const MainWindowFixture main;
            const TestWindow window(L"window", {100, 120, 420, 360});
            Desktop desktop({window});
            Boxes boxes;
            boxes.meanwhile = [&](std::size_t number) {
                if (number != box)
                    return;
                desktop.windows = {window};
                action(&desktop, main.window);
            };
            ending.run(&desktop, [&] { press_scan(main.window); });
            check(fixture, boxes, ending, box);
        }
    }
}

// The places of a scan at which messages come in while the record is used; each calls what is to be done
// there.
using Place = std::function<void(const std::function<void()>& inside, const std::function<void()>& scan)>;

Place at_title(int asked)
{
    return [asked](const std::function<void()>& inside, const std::function<void()>& scan) {
        int calls = 0;
        ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> send(
            "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                              UINT timeout, PDWORD_PTR answer) {
                if (++calls == asked)
                    inside();
                return send.call_original(target, message, wParam, lParam, flags, timeout, answer);
            });
        scan();
    };
}

Place at_shell(int asked)
{
    return [asked](const std::function<void()>& inside, const std::function<void()>& scan) {
        int calls = 0;
        ImportHook<"CoCreateInstance", decltype(CoCreateInstance)> create(
            "ole32.dll", [&](REFCLSID class_id, LPUNKNOWN outer, DWORD context, REFIID iid, void** object) {
                if (++calls == asked)
                    inside();
                return create.call_original(class_id, outer, context, iid, object);
            });
        scan();
    };
}

// Also the end of the old list, before a new scan's first pass.
void at_end_of_old_list(const std::function<void()>& inside, const std::function<void()>& scan)
{
    bool done = false;
    ImportHook<"DestroyWindow", decltype(DestroyWindow)> destroy("user32.dll", [&](HWND window) {
        if (!std::exchange(done, true))
            inside();
        return destroy.call_original(window);
    });
    scan();
}

void at_row_of_new_list(const std::function<void()>& inside, const std::function<void()>& scan)
{
    ImportHook<"SendMessageW", decltype(SendMessageW)> send(
        "user32.dll", [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == LVM_INSERTITEMW)
                inside();
            return send.call_original(target, message, wParam, lParam);
        });
    scan();
}

} // namespace

TEST(ScanUse, RefusesAnotherScanWhileTheRecordIsUsed)
{
    const struct {
        const char* name;
        Place place;
    } places[] = {{"old list", at_end_of_old_list}, {"title, counting", at_title(1)},
                  {"title, filling", at_title(2)},  {"shell, counting", at_shell(1)},
                  {"shell, filling", at_shell(2)},  {"row of the list", at_row_of_new_list}};
    ScanFixture fixture;
    const MainWindowFixture main;
    const TestWindow window(L"window", {100, 120, 420, 360});
    const Desktop desktop({window});
    const Boxes boxes;
    press_scan(main.window);
    for (const auto& [name, place] : places) {
        SCOPED_TRACE(name);
        int pressed = 0;
        place(
            [&] {
                if (pressed++ != 0)
                    return;
                const RecordCopy before;
                const HWND list = hwnd_ScanListView;
                press_scan(main.window);
                EXPECT_TRUE(RecordCopy() == before);
                EXPECT_EQ(hwnd_ScanListView, list);
            },
            [&] { press_scan(main.window); });
        EXPECT_GE(pressed, 1);
        ASSERT_TRUE(IsWindow(hwnd_ScanListView));
        EXPECT_EQ(fixture.list().row_count(), 1);
        EXPECT_EQ(fixture.list().row(0), kRow);
    }
    EXPECT_TRUE(boxes.texts.empty());
}

// The list is made after these boxes: they do not end the scan.
TEST(ScanUse, RefusesAnotherScanWhileABoxOfTheFoldersIsUp)
{
    ScanFixture fixture;
    const MainWindowFixture main;
    const TestWindow window(L"window", {100, 120, 420, 360});
    const Desktop desktop({window});
    for (const bool has_list : {true, false}) {
        SCOPED_TRACE(has_list);
        fixture.folders.clear();
        fixture.folders.add(nullptr, L"C:\\windows");
        fixture.folders.fail_creation(has_list ? S_OK : E_FAIL);
        Boxes boxes;
        boxes.meanwhile = [&](std::size_t number) {
            if (number != 0)
                return;
            const RecordCopy before;
            press_scan(main.window);
            EXPECT_TRUE(RecordCopy() == before);
            EXPECT_EQ(hwnd_ScanListView, nullptr);
        };
        press_scan(main.window);
        expect_boxes(boxes,
                     {has_list ? L"hwnd of folder = 0000000000000000" : L"function : CoCreateInstance()"});
        EXPECT_EQ(fixture.list().row(0), kRow);
    }
}

TEST(ScanUse, AllowsAnotherScanWhileABoxThatEndsTheFirstIsUp)
{
    std::unique_ptr<RecordCopy> after_second;
    HWND list = nullptr;
    at_each_box(
        [&](Desktop* desktop, HWND main) {
            desktop->failing_pass = 0;
            press_scan(main);
            after_second = std::make_unique<RecordCopy>();
            list = hwnd_ScanListView;
            EXPECT_TRUE(IsWindow(list));
        },
        [&](const ScanFixture& fixture, const Boxes& boxes, const Ending& ending, std::size_t) {
            expect_boxes(boxes, ending.boxes); // as without a second Scan
            ASSERT_NE(after_second, nullptr);
            EXPECT_TRUE(RecordCopy() == *after_second);
            EXPECT_EQ(hwnd_ScanListView, list);
            ASSERT_TRUE(IsWindow(hwnd_ScanListView));
            EXPECT_EQ(fixture.list().row_count(), 1);
            EXPECT_EQ(fixture.list().row(0), kRow);
            EXPECT_TRUE(ScanUse().is_taken());
            after_second.reset();
        });
}

TEST(ScanUse, EndsWithoutAnotherBoxWhenTheMainWindowCloses)
{
    at_each_box(
        [](Desktop*, HWND main) {
            DestroyWindow(main);
            EXPECT_TRUE(take_quit_message());
        },
        [](const ScanFixture&, const Boxes& boxes, const Ending& ending, std::size_t box) {
            expect_boxes(boxes, {ending.boxes.begin(), ending.boxes.begin() + static_cast<int>(box) + 1});
            EXPECT_EQ(hwnd_ScanListView, nullptr);
            EXPECT_EQ(scan_record.pcTmpBuf_Prg_Folder_Path, nullptr);
            EXPECT_EQ(scan_record.pcDynMem_WinHndls, nullptr);
            EXPECT_TRUE(ScanUse().is_taken());
        });
}
