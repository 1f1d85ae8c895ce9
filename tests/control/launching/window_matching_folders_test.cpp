#include "sources/funcs_layout_windows/launching/window_matching.h"

#include <gtest/gtest.h>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/text.h"

// Which folder window belongs to which entry, and when all folders count as loaded.

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::Bytes;
using test_support::bytes_as_wide;
using test_support::Missing;
using test_support::ProfileEncoder;

constexpr wchar_t kFile[] = L"sources/funcs_layout_windows";
// What stands in an array before a call that must leave it alone.
const auto kKept = reinterpret_cast<HWND>(std::uintptr_t{0x1234});

} // namespace

TEST(FolderMatching, GivesTheLastWindowOfAFolderToEveryEntryThatIsNoProgram)
{
    ProfileFixture fixture;
    const TestWindow earlier(L"earlier");
    const TestWindow later(L"later");
    fixture.folders.add(earlier, L"C:\\windows").add(later, L"C:\\windows");
    const Bytes file = ProfileEncoder()
                           .add_folder(0, 0, 9, 9, u"c:\\WINDOWS")
                           .add_program(0, 0, 9, 9, u"C:\\windows")
                           .add({.flag = 9, .path = u"C:\\windows"})
                           .add_folder(0, 0, 9, 9, u"C:\\windows\\system32")
                           .name(u"x")
                           .bytes();
    std::vector<HWND> found(4);
    EXPECT_EQ(GetHWNDS_of_LoadedFolders(file.data(), found.data()), 1);
    EXPECT_EQ(found, (std::vector<HWND>{later, nullptr, later, nullptr}));
    EXPECT_EQ(fixture.folders.counts().interfaces_live, 0);
    EXPECT_EQ(fixture.folders.counts().released_too_often, 0);
    EXPECT_EQ(fixture.folders.counts().id_lists_live, 0);
}

TEST(FolderMatching, SkipsWindowsThatDoNotTellTheirFolderAndReleasesEverything)
{
    ProfileFixture fixture;
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"x").bytes();
    for (const Missing missing : test_support::kStepsToTheFolder) {
        SCOPED_TRACE(static_cast<int>(missing));
        fixture.folders.clear();
        const TestWindow broken(L"broken");
        const TestWindow whole(L"whole");
        test_support::FolderWindow window;
        window.window = broken;
        window.path = L"C:\\windows";
        window.missing = missing;
        // The broken one comes last and would win.
        fixture.folders.add(whole, L"C:\\windows").add(window);
        HWND found[1] = {};
        EXPECT_EQ(GetHWNDS_of_LoadedFolders(file.data(), found), 1);
        EXPECT_EQ(found[0], whole.get());
        EXPECT_EQ(fixture.folders.counts().interfaces_live, 0);
        EXPECT_EQ(fixture.folders.counts().released_too_often, 0);
        EXPECT_EQ(fixture.folders.counts().id_lists_live, 0);
    }
}

TEST(FolderMatching, FindsNothingInAnEmptyListWithoutABoxAndReleasesIt)
{
    ProfileFixture fixture;
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"x").bytes();
    for (const HRESULT counted : {S_OK, E_NOTIMPL}) {
        fixture.folders.clear();
        fixture.folders.fail_count(counted);
        HWND found[1] = {kKept};
        BoxWatcher boxes;
        EXPECT_EQ(GetHWNDS_of_LoadedFolders(file.data(), found), -3);
        boxes.expect_no_boxes();
        EXPECT_EQ(found[0], kKept);
        EXPECT_GT(fixture.folders.counts().interfaces_given, 0);
        EXPECT_EQ(fixture.folders.counts().interfaces_live, 0);
        EXPECT_EQ(fixture.folders.counts().released_too_often, 0);
    }
}

TEST(FolderMatching, ReportsThatThereIsNoListWithFileAndFunctionUnreadable)
{
    ProfileFixture fixture;
    fixture.folders.fail_creation(E_FAIL);
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(u"x").bytes();
    HWND found[1] = {kKept};
    const std::wstring file_field = bytes_as_wide("sources/funcs_layout_windows");
    const std::wstring function_field = bytes_as_wide("GetHWNDS_of_LoadedFolders");
    {
        BoxWatcher boxes;
        EXPECT_EQ(GetHWNDS_of_LoadedFolders(file.data(), found), -4);
        boxes.expect_boxes(
            {{L"error",
              gap_text({file_field, function_field, 7756, 8025},
                       L"one of callable functions returned error\n\nfunction : CoCreateInstance()\n\n"
                       L"ret code hResult = -2147467259")}});
    }
    const std::pair<const std::uint8_t*, HWND*> calls[] = {{nullptr, found}, {file.data(), nullptr}};
    for (const auto& [bytes, out] : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(GetHWNDS_of_LoadedFolders(bytes, out), -1);
        boxes.expect_boxes(
            {{L"error", spaced_text({file_field, function_field, 7698, 7976},
                                    L"incorrect input parameters: pcFileData = " + pointer(bytes) +
                                        L", p_arr1D_hwnd = " + pointer(out))}});
    }
    EXPECT_EQ(found[0], kKept);
}

TEST(FolderCheck, AsksForAWindowOfEveryFolderThatOpened)
{
    const Bytes file = ProfileEncoder()
                           .add_folder(0, 0, 9, 9, u"C:\\a")
                           .add_program(0, 0, 9, 9, u"C:\\b.exe")
                           .add_folder(0, 0, 9, 9, u"C:\\c")
                           .name(u"x")
                           .bytes();
    const auto window = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
    const std::uint32_t failed[3] = {1, 2, 0};
    struct {
        const char* what;
        HWND found[3];
        std::uint32_t failed_folders;
        std::uint32_t failed_programs;
        std::int32_t result;
    } const rows[] = {
        {"all found", {window, nullptr, window}, 0, 0, 1},
        {"one missing", {window, nullptr, nullptr}, 0, 0, 2},
        {"the missing one failed", {window, nullptr, nullptr}, 1, 1, 1},
        {"another one failed", {nullptr, nullptr, window}, 1, 1, 2},
        {"only programs failed", {window, nullptr, nullptr}, 0, 2, 2},
        {"failed entries beyond the counted ones", {nullptr, nullptr, nullptr}, 1, 1, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(
            check_folders_loaded(file.data(), row.found, 3, failed, row.failed_folders, row.failed_programs),
            row.result);
    }
}

TEST(FolderCheck, ReadsNothingBehindTheLastEntry)
{
    // The left edge, which stands behind the kind flags, looks like a folder's.
    const Bytes file = ProfileEncoder().add_program(0, 0, 9, 9, u"C:\\a.exe").name(u"x").bytes();
    const HWND found[2] = {};
    EXPECT_EQ(check_folders_loaded(file.data(), found, 1, nullptr, 0, 0), 1);
}

TEST(FolderCheck, RefusesMissingArguments)
{
    const Bytes file = ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\a").name(u"x").bytes();
    const HWND found[1] = {};
    for (int missing = 0; missing < 3; ++missing) {
        const std::uint8_t* const bytes = missing == 0 ? nullptr : file.data();
        const HWND* const windows = missing == 1 ? nullptr : found;
        const std::uint32_t n = missing == 2 ? 0 : 1;
        BoxWatcher boxes;
        EXPECT_EQ(check_folders_loaded(bytes, windows, n, nullptr, 0, 0), -1);
        boxes.expect_boxes(
            {{L"error",
              gap_text({kFile, L"check_folders_loaded", 9337, 9460},
                       L"incorrect input parameters: pcFileData = " + pointer(bytes) + L", pc_arr1D_hwnd = " +
                           pointer(windows) + L", uiN_wnds = " + std::to_wstring(n))}});
    }
}
