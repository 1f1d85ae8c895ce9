#include <windows.h>

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/basics/files.h"
#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

// A console program with its output and error stream in one pipe.
class ToolRun
{
public:
    ToolRun(const std::wstring& program, const std::wstring& arguments)
    {
        // The process that Wine starts for the desktop would else be started by the tool, and keep its pipe
        // open.
        GetDesktopWindow();
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE write_end = nullptr;
        if (!CreatePipe(&read_end_, &write_end, &inherited, 0))
            throw Failure("no pipe");
        SetHandleInformation(read_end_, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = write_end;
        startup.hStdError = write_end;
        const std::wstring path = path_beside_wendlow(program);
        std::wstring line = L"\"" + path + L"\" " + arguments;
        PROCESS_INFORMATION started{};
        const BOOL is_started = CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, TRUE,
                                               CREATE_NO_WINDOW, nullptr, nullptr, &startup, &started);
        CloseHandle(write_end);
        if (!is_started) {
            CloseHandle(read_end_);
            throw Failure("cannot start " + printable(path));
        }
        CloseHandle(started.hThread);
        process_ = started.hProcess;
        process_id = started.dwProcessId;
    }
    ~ToolRun()
    {
        TerminateProcess(process_, 1);
        CloseHandle(process_);
        CloseHandle(read_end_);
    }
    ToolRun(const ToolRun&) = delete;
    ToolRun& operator=(const ToolRun&) = delete;

    // Everything up to the program's end.
    std::string output() const
    {
        std::string text;
        char part[4096];
        DWORD read = 0;
        while (ReadFile(read_end_, part, sizeof part, &read, nullptr) && read > 0)
            text.append(part, read);
        return text;
    }
    DWORD exit_code() const
    {
        DWORD code = STILL_ACTIVE;
        if (WaitForSingleObject(process_, kLongWait) != WAIT_OBJECT_0 || !GetExitCodeProcess(process_, &code))
            throw Failure("the tool does not end");
        return code;
    }

    DWORD process_id = 0;

private:
    HANDLE read_end_ = nullptr;
    HANDLE process_ = nullptr;
};

void expect_run(const std::wstring& arguments, DWORD code, const std::string& output)
{
    const ToolRun run(L"wendlow-profile.exe", arguments);
    EXPECT_EQ(run.output(), output) << printable(arguments);
    EXPECT_EQ(run.exit_code(), code) << printable(arguments);
}

// What the system says of the reason follows, in its own words.
void expect_failure(const std::wstring& arguments, const std::string& beginning)
{
    const ToolRun run(L"wendlow-profile.exe", arguments);
    const std::string output = run.output();
    EXPECT_TRUE(output.starts_with(beginning)) << output;
    EXPECT_GT(output.size(), beginning.size() + 3) << output;
    EXPECT_EQ(run.exit_code(), 3U) << printable(arguments);
}

std::wstring quoted(const std::wstring& path)
{
    return L"\"" + path + L"\"";
}

std::string utf8(const std::wstring& text)
{
    std::string out(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                     nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                        static_cast<int>(out.size()), nullptr, nullptr);
    return out;
}

TEST(ProfileTool, WritesProfilesThatTheProgramLoads)
{
    FixturePrograms fixtures;
    const TemporaryFolder folder;
    const std::wstring copied = fixtures.add(L"copied", {.title = L"Copied"});
    const std::wstring moved = fixtures.add(L"here\\moved", {.title = L"Moved"});
    const std::wstring first = folder.file(L"first \u0416\u4E2D.txt");
    write_file(first, ProfileEncoder()
                          .add_program(50, 60, 400, 300, units_of(copied))
                          .add_program(500, 80, 410, 310, u"C:\\gone\\Moved.exe")
                          .name(u"Carried")
                          .bytes());
    const std::wstring json = folder.file(L"p.json");
    const std::wstring second = folder.file(L"second.txt");
    const std::wstring third = folder.file(L"third.txt");
    expect_run(L"to-json " + quoted(first) + L" -o " + quoted(json), 0, "");
    expect_run(L"from-json " + quoted(json) + L" --output " + quoted(second), 0, "");
    EXPECT_EQ(read_file(second), read_file(first));
    expect_run(L"relink " + quoted(second) + L" -o " + quoted(third) + L" --find " +
                   quoted(fixtures.folder().path()),
               0,
               "entry 1: C:\\gone\\Moved.exe\n  -> " + utf8(moved) +
                   "\n1 of 2 entries relinked, 0 still to be mended\n");

    const WendlowProcess wendlow;
    const BoxWatcher boxes = wendlow.watch_boxes();
    wendlow.load_profile(third);
    for (const auto& [name, place] :
         {std::pair{L"copied", RECT{50, 60, 450, 360}}, std::pair{L"here\\moved", RECT{500, 80, 910, 390}}}) {
        const HWND window = fixtures.wait_for_window(name);
        EXPECT_TRUE(becomes_true([&] {
            const RECT found = rectangle_of(window);
            return EqualRect(&found, &place) != FALSE;
        })) << printable(name);
    }
    EXPECT_EQ(wendlow.combo_texts(wendlow.profile_combo()), std::vector<std::wstring>{L"Carried"});
    boxes.expect_no_boxes();
}

TEST(ProfileTool, PrintsUtf8AndChecksPathsAndMonitorsOfThisComputer)
{
    const TemporaryFolder folder;
    SetCurrentDirectoryW(folder.path().c_str());
    write_file(folder.file(L"\u0416.txt"), ProfileEncoder()
                                               .add_folder(1, 2, 30, 40, u"C:\\windows")
                                               .add_program(-30000, 0, 30, 40, u"C:\\\u4E2D.exe")
                                               .name(u"\u00E9")
                                               .bytes());
    expect_run(L"show \u0416.txt", 0,
               "\xD0\x96.txt: \"\xC3\xA9\", 2 entries, 127 bytes\n"
               "  #  kind          x  y  width  height  path\n"
               "  0  folder        1  2     30      40  C:\\windows\n"
               "  1  program  -30000  0     30      40  C:\\\xE4\xB8\xAD.exe\n");
    expect_run(L"check \u0416.txt", 1,
               "\xD0\x96.txt: the program takes this file, with 2 warnings\n"
               "  warning: entry 1, path, offset 68: leads to nothing on this computer\n"
               "    Say where it is now: wendlow-profile relink --find FOLDER or --replace OLD NEW.\n"
               "  warning: entry 1, rectangle, offset 10: touches no monitor of this computer\n"
               "    The window will be out of sight.\n");
    // A file that is there is left alone, and replaced when that is wanted.
    write_file(folder.file(L"old"), {1, 2, 3});
    expect_run(L"relink \u0416.txt -o old --replace C:\\\u4E2D.exe C:\\windows\\notepad.exe", 3,
               "wendlow-profile: old: is there already; --force replaces it\n");
    EXPECT_EQ(read_file(folder.file(L"old")), (Bytes{1, 2, 3}));
    expect_run(L"relink \u0416.txt -o old --force --replace C:\\\u4E2D.exe C:\\windows\\notepad.exe", 0,
               "entry 1: C:\\\xE4\xB8\xAD.exe\n  -> C:\\windows\\notepad.exe\n"
               "1 of 2 entries relinked, 0 still to be mended\n");
    expect_run(L"show old --json --nothing", 2,
               "wendlow-profile: The following argument was not expected: --nothing\n"
               "Run with --help for more information.\n");
    SetCurrentDirectoryW(L"C:\\");
}

// Stands for the main window of a Wendlow that runs: Wine does not carry a drop from process to process, so
// only that it is posted can be seen.
class MainWindowStandIn
{
public:
    MainWindowStandIn()
    {
        WNDCLASSW description{};
        description.lpfnWndProc = on_message;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"prg_wnds_layout";
        RegisterClassW(&description);
        window_ = CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 9, 9, nullptr, nullptr,
                                  description.hInstance, nullptr);
        drops = 0;
    }
    ~MainWindowStandIn()
    {
        DestroyWindow(window_);
        UnregisterClassW(L"prg_wnds_layout", GetModuleHandleW(nullptr));
    }
    MainWindowStandIn(const MainWindowStandIn&) = delete;
    MainWindowStandIn& operator=(const MainWindowStandIn&) = delete;

    static inline int drops = 0;

private:
    static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        drops += message == WM_DROPFILES && wParam != 0 ? 1 : 0;
        return DefWindowProcW(window, message, wParam, lParam);
    }

    HWND window_ = nullptr;
};

TEST(ProfileTool, HandsAProfileToTheProgramThatRunsAndSaysNothing)
{
    const TemporaryFolder folder;
    SetCurrentDirectoryW(folder.path().c_str());
    write_file(folder.file(L"Office.txt"),
               ProfileEncoder().add_folder(1, 2, 3, 4, u"C:\\").name(u"n").bytes());
    const MainWindowStandIn main;
    // Windows has the window take the dropped list while the tool posts it.
    Background with_console([] { expect_run(L"open Office.txt", 0, ""); });
    with_console.join();
    EXPECT_TRUE(becomes_true_pumping([] { return MainWindowStandIn::drops == 1; }));
    Background without_console([] {
        const ToolRun run(L"wendlow-open.exe", L"Office.txt");
        EXPECT_EQ(run.exit_code(), 0U);
    });
    without_console.join();
    EXPECT_TRUE(becomes_true_pumping([] { return MainWindowStandIn::drops == 2; }));
    SetCurrentDirectoryW(L"C:\\");
}

TEST(ProfileTool, LeavesNoFileWhenItRefuses)
{
    const TemporaryFolder folder;
    SetCurrentDirectoryW(folder.path().c_str());
    // As long as the system takes it: Windows counts the folder's path as well.
    const std::size_t units = under_wine() ? 255 : MAX_PATH - 2 - folder.path().size();
    const std::wstring long_name(units, L'n');
    write_file(folder.file(long_name), {1, 2, 3});
    write_file(folder.file(L"p.txt"),
               ProfileEncoder().add_program(1, 2, 3, 4, u"C:\\gone.exe").name(u"n").bytes());
    expect_failure(L"to-json p.txt -o no\\folder", "wendlow-profile: no\\folder: cannot be written: ");
    expect_run(L"to-json " + long_name, 1,
               "wendlow-profile: " + std::string(units, 'n') +
                   ": the program would refuse it: the last three bytes are 01 02 03 instead of 00 07 0C "
                   "(wendlow-profile check tells more)\n");
    expect_run(L"to-json p.txt --force -o " + long_name, 0, "");
    EXPECT_EQ(read_file(folder.file(long_name)).at(0), '{');
    EXPECT_EQ(folder.names(), (std::vector<std::wstring>{long_name, L"p.txt"}));
    SetCurrentDirectoryW(L"C:\\");
}

TEST(ProfileTool, SearchesOnlyFoldersThatExist)
{
    const TemporaryFolder folder;
    SetCurrentDirectoryW(folder.path().c_str());
    write_file(L"p.txt", ProfileEncoder()
                             .add_program(1, 2, 3, 4, u"C:\\gone\\One.exe")
                             .add_program(1, 2, 3, 4, u"C:\\gone\\two.exe")
                             .name(u"n")
                             .bytes());
    const std::wstring apps = folder.make_folder(L"apps");
    CreateDirectoryW((apps + L"\\x").c_str(), nullptr);
    CreateDirectoryW((apps + L"\\one.exe").c_str(), nullptr); // a folder of that name is none
    write_file(apps + L"\\x\\oNE.exe", {});
    write_file(apps + L"\\two.exe", {});
    write_file(apps + L"\\x\\two.exe", {});
    expect_run(L"relink p.txt -o q.txt --find apps --find apps\\x", 1,
               "entry 0: C:\\gone\\One.exe\n  -> " + utf8(apps) +
                   "\\x\\oNE.exe\n"
                   "entry 1: C:\\gone\\two.exe\n  left as it is, there are several of that name:\n     " +
                   utf8(apps) + "\\two.exe\n     " + utf8(apps) +
                   "\\x\\two.exe\n"
                   "1 of 2 entries relinked, 1 still to be mended\n");
    expect_failure(L"relink p.txt -o r.txt --find gone", "wendlow-profile: gone: cannot be searched: ");
    expect_failure(L"relink p.txt -o r.txt --find p.txt", "wendlow-profile: p.txt: cannot be searched: ");
    EXPECT_FALSE(file_exists(folder.file(L"r.txt")));
    SetCurrentDirectoryW(L"C:\\");
}

TEST(ProfileTool, SaysInALineOrABoxWhatItCannotOpen)
{
    const TemporaryFolder folder;
    SetCurrentDirectoryW(L"C:\\");
    expect_run(L"open windows", 3, "wendlow-profile: windows: is a folder, not a profile\n");

    const auto box_of = [](const std::wstring& arguments, DWORD code) {
        const ToolRun run(L"wendlow-open.exe", arguments);
        const BoxWatcher boxes(run.process_id);
        const SeenBox box = boxes.wait_for_box(0, kLongWait);
        EXPECT_EQ(box.title, L"Wendlow");
        EXPECT_EQ(run.exit_code(), code);
        return box.text;
    };
    EXPECT_EQ(box_of(L"windows", 3), L"windows\n\nis a folder, not a profile");
    EXPECT_EQ(box_of(L"", 2),
              L"wendlow-open FILE loads the profile FILE in Wendlow.\n\nExactly one file has to be "
              L"named.");
}

} // namespace
