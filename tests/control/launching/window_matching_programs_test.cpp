#include "sources/funcs_layout_windows/launching/window_matching.h"

#include <gtest/gtest.h>

#include <psapi.h>

#include <cstddef>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/windows/windows_lookup.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::FailingImport;
using test_support::ImportHook;
using test_support::kEveryCall;
using test_support::own_image_path;
using test_support::ProfileEncoder;
using test_support::units_of;

constexpr wchar_t kFile[] = L"sources/funcs_layout_windows";

std::wstring upper_case(std::wstring text)
{
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// The matcher's record for a profile, with one launch record that belongs to nobody.
struct Matcher {
    explicit Matcher(const ProfileEncoder& profile)
        : file(profile.bytes()), found(file[0]), buffer(2048, L'#'), // of an earlier window
          record{found.data(), buffer.data(), 2048, 4096, file.data(), &started, 1}
    {
    }
    Matcher(const Matcher&) = delete;
    Matcher& operator=(const Matcher&) = delete;

    BOOL ask(HWND window) { return GetHWNDS_of_LoadedPrograms(window, reinterpret_cast<LPARAM>(&record)); }

    Bytes file;
    std::vector<HWND> found;
    std::vector<wchar_t> buffer;
    STR_InfoLoadedPrg started{};
    HWNDs_loadedPrgsProfile_STR record;
};

// Empties the field of that number, counted from 0, and none for another number.
template <class... Fields> void empty_one(int number, Fields&... fields)
{
    int next = 0;
    ((next++ == number ? static_cast<void>(fields = {}) : static_cast<void>(0)), ...);
}

ProfileEncoder one_entry(const std::wstring& path)
{
    return ProfileEncoder().add_program(0, 0, 9, 9, units_of(path)).name(u"x");
}

// An image path that the system is made to give for every process.
class GivenImage
{
public:
    explicit GivenImage(std::wstring path) : path_(std::move(path)) {}

private:
    std::wstring path_;
    ImportHook<"K32GetModuleFileNameExW", DWORD WINAPI(HANDLE, HMODULE, LPWSTR, DWORD)> hook_{
        "kernel32.dll", [this](HANDLE, HMODULE module, LPWSTR out, DWORD capacity) -> DWORD {
            EXPECT_EQ(module, nullptr);
            EXPECT_EQ(capacity, 2048u);
            path_.copy(out, path_.size());
            return static_cast<DWORD>(path_.size());
        }};
};

} // namespace

TEST(ProgramMatching, HasARecordWithItsFieldsInOrder)
{
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, p_hwnd_arr), 0u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, ptcBuf), 8u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, uiSize_chars), 16u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, uiSize_bytes), 20u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, pcFileData), 24u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, pc_arr_STRs_InfoLoadedPrg), 32u);
    EXPECT_EQ(offsetof(HWNDs_loadedPrgsProfile_STR, N_prgs), 40u);
}

TEST(ProgramMatching, ClosesEachProcessThatItOpens)
{
    const TestWindow window(L"mine");
    Matcher matcher(one_entry(own_image_path()));
    HANDLE opened = nullptr;
    const ImportHook<"OpenProcess", decltype(OpenProcess)> open(
        "kernel32.dll",
        [&](auto... arguments) -> HANDLE { return opened = open.call_original(arguments...); });
    std::vector<HANDLE> closed;
    const ImportHook<"CloseHandle", decltype(CloseHandle)> close("kernel32.dll", [&](HANDLE handle) {
        closed.push_back(handle);
        return close.call_original(handle);
    });
    EXPECT_EQ(matcher.ask(window), TRUE);
    EXPECT_EQ(closed, std::vector<HANDLE>{opened});
    EXPECT_EQ(matcher.found.front(), window.get());
}

TEST(ProgramMatching, GivesAWindowToEveryEntryOfItsExecutableInAnyCase)
{
    const TestWindow window(L"mine");
    Matcher matcher(ProfileEncoder()
                        .add_program(0, 0, 9, 9, units_of(upper_case(own_image_path())))
                        .add_program(0, 0, 9, 9, u"C:\\other.exe")
                        .add_folder(0, 0, 9, 9, units_of(own_image_path()))
                        .add({.flag = 9, .path = units_of(own_image_path())})
                        .name(u"x"));
    EXPECT_EQ(matcher.ask(window), TRUE);
    EXPECT_EQ(matcher.found, (std::vector<HWND>{window, nullptr, nullptr, window}));
}

TEST(ProgramMatching, KeepsTheFirstWindowUntilOneOfAStartedThreadComes)
{
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    Matcher matcher(one_entry(own_image_path()));
    EXPECT_EQ(matcher.ask(first), TRUE);
    EXPECT_EQ(matcher.ask(second), TRUE);
    EXPECT_EQ(matcher.found.front(), first.get());

    // The process alone is not enough, nor is the thread.
    matcher.started.dwProcessId = GetCurrentProcessId();
    EXPECT_EQ(matcher.ask(second), TRUE);
    EXPECT_EQ(matcher.found.front(), first.get());
    matcher.started.dwThreadId = GetCurrentThreadId();
    EXPECT_EQ(matcher.ask(second), TRUE);
    EXPECT_EQ(matcher.found.front(), second.get());
    EXPECT_EQ(matcher.ask(first), TRUE);
    EXPECT_EQ(matcher.found.front(), first.get());
}

TEST(ProgramMatching, TakesTheRecordOfAnotherEntryForAStartedThreadToo)
{
    const TestWindow first(L"first");
    const TestWindow second(L"second");
    Matcher matcher(one_entry(own_image_path()));
    const STR_InfoLoadedPrg records[] = {
        {.uiIndex_wnd = 0, .hProcess = nullptr, .hThread = nullptr, .dwProcessId = 1, .dwThreadId = 1},
        {.uiIndex_wnd = 5,
         .hProcess = nullptr,
         .hThread = nullptr,
         .dwProcessId = GetCurrentProcessId(),
         .dwThreadId = GetCurrentThreadId()}};
    matcher.record.pc_arr_STRs_InfoLoadedPrg = records;
    matcher.record.N_prgs = 2;
    matcher.ask(first);
    matcher.ask(second);
    EXPECT_EQ(matcher.found.front(), second.get());
}

TEST(ProgramMatching, SkipsWindowsThatDoNotQualify)
{
    constexpr DWORD visible = WS_POPUP | WS_VISIBLE;
    const RECT place{10, 20, 110, 120};
    const TestWindow invisible(L"invisible", WS_POPUP, place);
    const TestWindow untitled(L"", visible, place);
    const TestWindow empty(L"empty", visible, {10, 0, 10, 0});
    const TestWindow empty_below(L"empty", visible, {0, 20, 0, 20});
    Matcher matcher(one_entry(own_image_path()));
    for (const HWND window : {HWND{nullptr}, invisible.get(), untitled.get(), empty.get(), empty_below.get()})
        EXPECT_EQ(matcher.ask(window), TRUE);
    for (const wchar_t* name : {L"Tooltips_Class", L"SysShadow", L"RegEdit_RegEdit", L"TaskManagerWindow",
                                L"ApplicationFrameWindow", L"Windows.UI.Core.CoreWindow", L"Progman"}) {
        const TestWindow excluded(L"excluded", visible, place, name);
        EXPECT_EQ(matcher.ask(excluded), TRUE);
    }
    EXPECT_EQ(matcher.found.front(), nullptr);

    // Without an area, but at the origin; without width alone; without height alone.
    const TestWindow at_origin(L"origin", visible, {0, 0, 0, 0});
    EXPECT_EQ(matcher.ask(at_origin), TRUE);
    EXPECT_EQ(matcher.found.front(), at_origin.get());
    matcher.found.front() = nullptr;
    const TestWindow thin(L"thin", visible, {10, 20, 10, 40});
    EXPECT_EQ(matcher.ask(thin), TRUE);
    EXPECT_EQ(matcher.found.front(), thin.get());
    matcher.found.front() = nullptr;
    const TestWindow flat(L"flat", visible, {10, 20, 40, 20});
    EXPECT_EQ(matcher.ask(flat), TRUE);
    EXPECT_EQ(matcher.found.front(), flat.get());
}

TEST(ProgramMatching, SkipsExplorerInAnyFolder)
{
    const TestWindow window(L"mine");
    for (const wchar_t* image : {L"C:\\Windows\\EXPLORER.exe", L"C:\\my explorer.exe"}) {
        const GivenImage given(image);
        Matcher matcher(one_entry(image));
        EXPECT_EQ(matcher.ask(window), TRUE);
        EXPECT_EQ(matcher.found.front(), nullptr);
    }
    for (const wchar_t* image : {L"C:\\explorer.exe.exe", L"plorer.exe"}) {
        const GivenImage given(image);
        Matcher matcher(one_entry(image));
        EXPECT_EQ(matcher.ask(window), TRUE);
        EXPECT_EQ(matcher.found.front(), window.get());
    }
}

TEST(ProgramMatching, SkipsAProcessThatCannotBeOpened)
{
    const TestWindow window(L"mine");
    Matcher matcher(one_entry(own_image_path()));
    const ImportHook<"OpenProcess", decltype(OpenProcess)> refuse(
        "kernel32.dll", [](DWORD access, BOOL inherit, DWORD process) -> HANDLE {
            EXPECT_EQ(access, 0x1010u);
            EXPECT_EQ(inherit, FALSE);
            EXPECT_EQ(process, GetCurrentProcessId());
            return nullptr;
        });
    BoxWatcher boxes;
    EXPECT_EQ(matcher.ask(window), TRUE);
    boxes.expect_no_boxes();
    EXPECT_EQ(matcher.found.front(), nullptr);
}

TEST(ProgramMatching, EndsThePassWhenAnImagePathCannotBeQueried)
{
    const TestWindow window(L"mine");
    Matcher matcher(one_entry(own_image_path()));
    const GivenImage nothing(L"");
    // The handle of the process stays open.
    const FailingImport<"CloseHandle", decltype(CloseHandle)> closes("kernel32.dll", kEveryCall, TRUE, 0);
    BoxWatcher boxes;
    EXPECT_EQ(matcher.ask(window), FALSE);
    EXPECT_EQ(closes.calls(), 0);
    boxes.expect_boxes({{L"error", compact_text({kFile, L"GetHWNDS_of_LoadedPrograms", 8405, 8713},
                                                L"ERROR <- GetModuleFileNameEx()")}});
    EXPECT_EQ(matcher.found.front(), nullptr);
}

TEST(ProgramMatching, EndsThePassWithoutARecordOrWithAnEmptyOne)
{
    Matcher whole(one_entry(L"C:\\x.exe"));
    {
        BoxWatcher boxes;
        EXPECT_EQ(GetHWNDS_of_LoadedPrograms(nullptr, 0), FALSE);
        boxes.expect_boxes(
            {{L"error", compact_text({kFile, L"GetHWNDS_of_LoadedPrograms", 8119, 8645},
                                     L"error, incorrect input parameters\nlParam = 0000000000000000")}});
    }
    for (int missing = 0; missing < 7; ++missing) {
        SCOPED_TRACE(missing);
        HWNDs_loadedPrgsProfile_STR r = whole.record;
        empty_one(missing, r.p_hwnd_arr, r.ptcBuf, r.uiSize_chars, r.uiSize_bytes, r.pcFileData,
                  r.pc_arr_STRs_InfoLoadedPrg, r.N_prgs);
        BoxWatcher boxes;
        EXPECT_EQ(GetHWNDS_of_LoadedPrograms(nullptr, reinterpret_cast<LPARAM>(&r)), FALSE);
        boxes.expect_boxes(
            {{L"error",
              compact_text({kFile, L"GetHWNDS_of_LoadedPrograms", 8136, 8674},
                           L"error, incorrect input parameters\npParams_STR->p_hwnd_arr = " +
                               pointer(r.p_hwnd_arr) + L"\npParams_STR->ptcBuf = " + pointer(r.ptcBuf) +
                               L"\npParams_STR->uiSize_chars = " + std::to_wstring(r.uiSize_chars) +
                               L"\npParams_STR->uiSize_bytes\npParams_STR->pcFileData = " +
                               pointer(r.pcFileData) + L"\npParams_STR->pc_arr_STRs_InfoLoadedPrg = " +
                               pointer(r.pc_arr_STRs_InfoLoadedPrg) + L"\npParams_STR->N_prgs = " +
                               std::to_wstring(r.N_prgs))}});
    }
}

TEST(ProgramMatching, CopiesTheWindowsOfProgramEntriesOnly)
{
    const TestWindow window(L"mine");
    Matcher matcher(ProfileEncoder()
                        .add_program(0, 0, 9, 9, units_of(own_image_path()))
                        .add({.flag = 9, .path = units_of(own_image_path())})
                        .name(u"x"));
    std::vector<HWND> programs(2);
    EXPECT_EQ(find_hwnds_Programs_fill_array(&matcher.record, 2, programs.data()), 1);
    EXPECT_EQ(programs, (std::vector<HWND>{window, nullptr}));
    EXPECT_EQ(matcher.found[1], window.get());
}

TEST(ProgramMatching, CopiesNothingBehindTheLastEntry)
{
    // The left edge, which stands behind the kind flags, looks like a program's.
    Matcher matcher(ProfileEncoder().add_program(1, 0, 9, 9, u"C:\\x.exe").name(u"x"));
    const auto kept = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
    const auto other = reinterpret_cast<HWND>(std::uintptr_t{0x5678});
    matcher.found = {nullptr, other};
    matcher.record.p_hwnd_arr = matcher.found.data();
    HWND programs[] = {kept, kept};
    const FailingImport<"EnumWindows", decltype(EnumWindows)> nothing("user32.dll", kEveryCall, TRUE, 0);
    EXPECT_EQ(find_hwnds_Programs_fill_array(&matcher.record, 1, programs), 1);
    EXPECT_EQ(programs[0], nullptr);
    EXPECT_EQ(programs[1], kept);
}

TEST(ProgramMatching, KeepsWhatItFoundWhenLaterPassesFail)
{
    Matcher matcher(one_entry(own_image_path()));
    std::vector<HWND> programs(1);
    const TestWindow window(L"mine");
    EXPECT_EQ(find_hwnds_Programs_fill_array(&matcher.record, 1, programs.data()), 1);
    EXPECT_EQ(programs.front(), window.get());
    ShowWindow(window, SW_HIDE);
    programs.front() = nullptr;
    const FailingImport<"EnumWindows", decltype(EnumWindows)> fails("user32.dll", kEveryCall, FALSE,
                                                                    ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(find_hwnds_Programs_fill_array(&matcher.record, 1, programs.data()), 1);
    EXPECT_EQ(fails.calls(), 1);
    EXPECT_EQ(programs.front(), window.get());
}

TEST(ProgramMatching, AsksNoWindowThatBelongsToNoEntryForItsTitle)
{
    const TestWindow frame(L"frame", RECT{10, 20, 310, 220}, L"ApplicationFrameWindow");
    const TestWindow core(L"core", RECT{10, 20, 310, 220}, L"Windows.UI.Core.CoreWindow");
    const TestWindow empty(L"empty", RECT{10, 20, 10, 20}, L"TestWindow", WS_POPUP | WS_VISIBLE);
    const TestWindow hidden(L"hidden", RECT{10, 20, 310, 220}, L"TestWindow", WS_POPUP);
    const TestWindow window(L"mine");
    Matcher matcher(one_entry(own_image_path()));
    std::vector<HWND> asked;
    const ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> ask(
        "user32.dll",
        [&](HWND target, UINT message, WPARAM wide, LPARAM narrow, UINT flags, UINT time, PDWORD_PTR answer) {
            asked.push_back(target);
            return ask.call_original(target, message, wide, narrow, flags, time, answer);
        });
    for (const HWND candidate : {frame.get(), core.get(), empty.get(), hidden.get(), window.get()})
        EXPECT_EQ(matcher.ask(candidate), TRUE);
    EXPECT_EQ(asked, std::vector<HWND>{window});
}

TEST(ProgramMatching, AsksForTitlesOfAThousandUnits)
{
    const TestWindow window(L"mine");
    Matcher matcher(one_entry(own_image_path()));
    std::vector<WPARAM> capacities;
    const ImportHook<"SendMessageTimeoutW", decltype(SendMessageTimeoutW)> ask(
        "user32.dll",
        [&](HWND asked, UINT message, WPARAM wide, LPARAM narrow, UINT flags, UINT time, PDWORD_PTR answer) {
            if (message == WM_GETTEXT)
                capacities.push_back(wide);
            return ask.call_original(asked, message, wide, narrow, flags, time, answer);
        });
    EXPECT_EQ(matcher.ask(window), TRUE);
    EXPECT_EQ(capacities, std::vector<WPARAM>{1000});
}

TEST(ProgramMatching, RefusesMissingArgumentsAndFields)
{
    Matcher whole(one_entry(L"C:\\x.exe"));
    const auto kept = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
    HWND out[1] = {kept};
    const FailingImport<"EnumWindows", decltype(EnumWindows)> enumerations("user32.dll", kEveryCall, TRUE, 0);
    const std::wstring function = L"find_hwnds_Programs_fill_array";
    for (int missing = 0; missing < 3; ++missing) {
        HWNDs_loadedPrgsProfile_STR* const record = missing == 0 ? nullptr : &whole.record;
        HWND* const programs = missing == 1 ? nullptr : out;
        const std::uint32_t n = missing == 2 ? 0 : 1;
        BoxWatcher boxes;
        EXPECT_EQ(find_hwnds_Programs_fill_array(record, n, programs), -1);
        boxes.expect_boxes(
            {{L"error",
              handler_first_text({kFile, function, 7466, 7562},
                                 L"error, incorrect input parameters:\n\n"
                                 L"p_HWNDs_loadedPrgsProfile_STR = " +
                                     pointer(record) + L", pc_arr1D_hwnd_Programs_only = " +
                                     pointer(programs) + L", uiN_wnds = " + std::to_wstring(n) + L"\n")}});
    }
    for (int missing = 0; missing < 5; ++missing) {
        HWNDs_loadedPrgsProfile_STR r = whole.record;
        empty_one(missing, r.p_hwnd_arr, r.ptcBuf, r.pcFileData, r.uiSize_chars, r.uiSize_bytes);
        const std::wstring field = L"p_HWNDs_loadedPrgsProfile_STR->";
        BoxWatcher boxes;
        EXPECT_EQ(find_hwnds_Programs_fill_array(&r, 1, out), -2);
        boxes.expect_boxes(
            {{L"error", handler_first_text(
                            {kFile, function, 7480, 7590},
                            L"error, incorrect input parameters:\n\n" + field + L"p_hwnd_arr = " +
                                pointer(r.p_hwnd_arr) + L", " + field + L"ptcBuf = " + pointer(r.ptcBuf) +
                                L", " + field + L"pcFileData = " + pointer(r.pcFileData) + L", " + field +
                                L"uiSize_chars = " + std::to_wstring(r.uiSize_chars) + L", " + field +
                                L"uiSize_bytes = " + std::to_wstring(r.uiSize_bytes) + L"\n")}});
    }
    EXPECT_EQ(enumerations.calls(), 0);
    EXPECT_EQ(out[0], kept);
    EXPECT_EQ(whole.found.front(), nullptr);
}
