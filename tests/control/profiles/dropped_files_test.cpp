#include "sources/funcs_layout_windows/profiles/dropped_files.h"

#include <gtest/gtest.h>

#include <shlobj.h>

#include <cstring>
#include <memory>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/control/fixtures/recorded_blocks.h"
#include "tests/support/basics/text.h"
#include "tests/support/profiles/loading_boxes.h"

namespace
{

using namespace profile_tests;
using loading_boxes::load_box;
using test_support::BoxWatcher;
using test_support::ExpectedBox;
using test_support::ProfileEncoder;

// What a window is given when these files are dropped on it. The receiver never frees it.
class Drop
{
public:
    explicit Drop(const std::vector<std::wstring>& paths)
    {
        std::wstring list;
        for (const std::wstring& path : paths)
            list += path + L'\0';
        list += L'\0';
        memory_ = GlobalAlloc(GHND, sizeof(DROPFILES) + list.size() * 2);
        auto* header = static_cast<DROPFILES*>(GlobalLock(memory_));
        header->pFiles = sizeof(DROPFILES);
        header->fWide = TRUE;
        std::memcpy(header + 1, list.data(), list.size() * 2);
        GlobalUnlock(memory_);
    }
    ~Drop() { GlobalFree(memory_); }
    Drop(const Drop&) = delete;
    Drop& operator=(const Drop&) = delete;
    operator HDROP() const { return static_cast<HDROP>(memory_); }
    // GlobalFree has not been called for it: it can still be read.
    bool alive() const { return DragQueryFileW(*this, 0xFFFFFFFF, nullptr, 0) > 0; }

private:
    HGLOBAL memory_;
};

ExpectedBox unreadable(const std::wstring& text)
{
    return {test_support::bytes_as_wide("error"),
            test_support::bytes_as_wide(std::string(text.begin(), text.end()))};
}

Where drop_site(int site, int handler)
{
    return {L"sources/funcs_layout_windows", L"on_wm_dropfiles", site, handler};
}

ExpectedBox load_failed_box()
{
    return unreadable(
        gap_text(drop_site(9168, 9273),
                 L"error, one of callable functions returned error, onButton_LoadProfile_clicked()"));
}

std::wstring write_profile(const ProfileFixture& fixture, const std::wstring& file,
                           const std::u16string& name)
{
    const std::wstring path = fixture.files.file(file);
    test_support::write_file(path,
                             ProfileEncoder().add_folder(0, 0, 9, 9, u"C:\\windows").name(name).bytes());
    return path;
}

std::int32_t drop(ProfileFixture& fixture, HDROP handle)
{
    return on_wm_dropfiles(fixture.window, handle, &fixture.store, &fixture.profiles);
}

// A drop that is refused with this result. Nothing is loaded, and whatever memory was taken is given back.
void expect_refused(ProfileFixture& fixture, HDROP handle, std::int32_t result)
{
    const auto before = std::make_unique<LoadedProfiles_STR>(fixture.store);
    const RecordedBlocks blocks;
    EXPECT_EQ(drop(fixture, handle), result);
    EXPECT_EQ(blocks.taken.size(), 1u); // for the path
    EXPECT_EQ(blocks.given_back, blocks.taken);
    EXPECT_EQ(std::memcmp(before.get(), &fixture.store, sizeof fixture.store), 0);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

// What is asked about a drop, in order.
class RecordedQueries
{
public:
    struct Query {
        UINT position;
        const wchar_t* buffer;
        UINT capacity;
        UINT answer;
    };
    std::vector<Query> queries;

private:
    test_support::ImportHook<"DragQueryFileW", decltype(DragQueryFileW)> hook_{
        "shell32.dll", [this](HDROP handle, UINT position, LPWSTR buffer, UINT capacity) {
            const UINT answer = hook_.call_original(handle, position, buffer, capacity);
            queries.push_back({position, buffer, capacity, answer});
            return answer;
        }};
};

// Files on a page of their own, with no memory behind the list.
HDROP drop_at_the_end_of_memory(std::uint8_t* page, const std::wstring& list)
{
    constexpr std::size_t kPage_bytes = 4096;
    DWORD before = 0;
    EXPECT_TRUE(VirtualProtect(page + kPage_bytes, kPage_bytes, PAGE_NOACCESS, &before));
    const DWORD offset = static_cast<DWORD>(kPage_bytes - list.size() * 2);
    const DROPFILES header{.pFiles = offset, .pt = {}, .fNC = FALSE, .fWide = TRUE};
    std::memcpy(page, &header, sizeof header);
    std::memcpy(page + offset, list.data(), list.size() * 2);
    return reinterpret_cast<HDROP>(page);
}

} // namespace

TEST(DroppedFiles, LoadTheFirstOfThree)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    fixture.folders.add(folder, L"C:\\windows");
    const Drop dropped({write_profile(fixture, L"b.txt", u"Second by name"),
                        write_profile(fixture, L"a.txt", u"First by name"),
                        write_profile(fixture, L"c.txt", u"Third")});
    BoxWatcher boxes;
    EXPECT_EQ(drop(fixture, dropped), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(combo_texts(fixture.profile_combo), std::vector<std::wstring>{L"Second by name"});
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 1u);
    EXPECT_TRUE(dropped.alive());
}

TEST(DroppedFiles, ReleaseThePathsMemoryAfterTheLoad)
{
    ProfileFixture fixture;
    RecordedFolderStarts starts;
    const TestWindow folder(L"folder");
    fixture.folders.add(folder, L"C:\\windows");
    const Drop dropped({write_profile(fixture, L"a.txt", u"A")});
    const RecordedBlocks blocks;
    EXPECT_EQ(drop(fixture, dropped), 1);
    ASSERT_GT(blocks.taken.size(), 1u); // the load's come after it, and go before it
    EXPECT_EQ(blocks.given_back.size(), blocks.taken.size());
    EXPECT_EQ(blocks.given_back.back(), blocks.taken.front());
}

TEST(DroppedFiles, ShowTheLoadsBoxAndThenAnUnreadableOneForAFileThatIsNoProfile)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const std::wstring path = fixture.files.file(L"letter.txt");
    test_support::write_file(path, {'D', 'e', 'a', 'r'});
    const Drop dropped({path});
    BoxWatcher boxes;
    expect_refused(fixture, dropped, -4);
    boxes.expect_boxes(
        {load_box(5629, 7183, L"invalid type of file, signature doesn't coincide"), load_failed_box()});
    for (const auto& box : boxes.boxes())
        EXPECT_EQ(box.owner, nullptr);
    EXPECT_EQ(starts.count(), 0);
}

TEST(DroppedFiles, CannotBeAFolder)
{
    ProfileFixture fixture;
    const Drop dropped({fixture.files.make_folder(L"folder")});
    BoxWatcher boxes;
    expect_refused(fixture, dropped, -4);
    boxes.expect_boxes(
        {load_box(5570, 7095,
                  L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()"),
         load_failed_box()});
}

TEST(DroppedFiles, AreCreatedEmptyAndRefusedWhenTheyAreGone)
{
    ProfileFixture fixture;
    const std::wstring path = fixture.files.file(L"gone.txt");
    const Drop dropped({path});
    BoxWatcher boxes;
    expect_refused(fixture, dropped, -4);
    boxes.expect_boxes(
        {load_box(5581, 7117,
                  L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )"),
         load_failed_box()});
    EXPECT_TRUE(test_support::file_exists(path));
}

TEST(DroppedFiles, RefuseAMissingWindowOrHandleUnreadably)
{
    ProfileFixture fixture;
    const Drop dropped({L"C:\\x"});
    const std::pair<HWND, HDROP> calls[] = {{nullptr, dropped}, {fixture.window, nullptr}};
    for (const auto& [window, handle] : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(on_wm_dropfiles(window, handle, &fixture.store, &fixture.profiles), -1);
        boxes.expect_boxes(
            {unreadable(spaced_text(drop_site(9102, 9207), L"incorrect input:\nhwnd_MW = " + pointer(window) +
                                                               L", hDrop = " + pointer(handle)))});
    }
}

TEST(DroppedFiles, ReportThatThereIsNoMemoryForThePath)
{
    ProfileFixture fixture;
    const Drop dropped({L"C:\\x"});
    const auto before = std::make_unique<LoadedProfiles_STR>(fixture.store);
    const RecordedBlocks blocks(1);
    BoxWatcher boxes;
    EXPECT_EQ(drop(fixture, dropped), -2);
    boxes.expect_boxes({unreadable(gap_text(drop_site(9120, 9229), L"error while DynMemAlloc()"))});
    EXPECT_EQ(blocks.taken.size(), 1u);
    EXPECT_EQ(std::memcmp(before.get(), &fixture.store, sizeof fixture.store), 0);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(DroppedFiles, AreCountedBeforeTheFirstIsAskedFor)
{
    ProfileFixture fixture;
    const Drop dropped({fixture.files.make_folder(L"folder"), L"C:\\b", L"C:\\c"});
    BoxWatcher boxes;
    const RecordedBlocks blocks;
    const RecordedQueries asked;
    EXPECT_EQ(drop(fixture, dropped), -4);
    ASSERT_EQ(asked.queries.size(), 2u);
    EXPECT_EQ(asked.queries[0].position, 0xFFFFFFFFu);
    EXPECT_EQ(asked.queries[0].buffer, nullptr);
    EXPECT_EQ(asked.queries[0].capacity, 0u);
    EXPECT_EQ(asked.queries[0].answer, 3u);
    EXPECT_EQ(asked.queries[1].position, 0u);
    EXPECT_EQ(asked.queries[1].buffer, blocks.taken.at(0));
    EXPECT_EQ(asked.queries[1].capacity, 2048u);
}

TEST(DroppedFiles, AreCountedWhenThereIsNoMemoryForThePath)
{
    ProfileFixture fixture;
    const Drop dropped({L"C:\\x"});
    const RecordedBlocks blocks(1);
    const RecordedQueries asked;
    BoxWatcher boxes;
    EXPECT_EQ(drop(fixture, dropped), -2);
    ASSERT_EQ(asked.queries.size(), 1u);
    EXPECT_EQ(asked.queries[0].position, 0xFFFFFFFFu);
}

// Counting reads the whole list; one without its closing zero would be read beyond its end.
TEST(DroppedFiles, AreNotCountedWhenTheirListHasNoEnd)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const RecordedSleeps sleeps;
    const std::wstring path = write_profile(fixture, L"a.txt", u"A");
    auto* page = static_cast<std::uint8_t*>(VirtualAlloc(nullptr, 8192, MEM_COMMIT, PAGE_READWRITE));
    const std::wstring zero(1, L'\0');
    struct {
        const char* what;
        std::wstring list;
        UINT answer_of_first;
    } const lists[] = {
        {"one path, no closing zero", path + zero, static_cast<UINT>(path.size())},
        {"a second path without end", path + zero + L"C:\\b", static_cast<UINT>(path.size())},
        {"a whole list", path + zero + zero, 1},
    };
    for (const auto& row : lists) {
        SCOPED_TRACE(row.what);
        const RecordedQueries asked;
        BoxWatcher boxes;
        EXPECT_EQ(drop(fixture, drop_at_the_end_of_memory(page, row.list)), 1);
        ASSERT_GE(asked.queries.size(), 1u);
        EXPECT_EQ(asked.queries[0].answer, row.answer_of_first);
        EXPECT_EQ(asked.queries.back().position, 0u);
    }
    EXPECT_EQ(fixture.store.uiN_loaded_prfls, 3u);
    VirtualFree(page, 0, MEM_RELEASE);
}

TEST(DroppedFiles, ReportAPathThatCannotBeQueried)
{
    ProfileFixture fixture;
    const ExpectedBox box = unreadable(gap_text(
        drop_site(9142, 9251), L"error, one of callable functions returned error, DragQueryFile( )"));
    {
        const Drop nothing({});
        BoxWatcher boxes;
        expect_refused(fixture, nothing, -3);
        boxes.expect_boxes({box});
    }
    // Whatever else was sent for a handle.
    const auto nonsense = reinterpret_cast<HDROP>(std::uintptr_t{0x12345678});
    const RecordedQueries asked;
    BoxWatcher boxes;
    expect_refused(fixture, nonsense, -3);
    boxes.expect_boxes({box});
    EXPECT_TRUE(asked.queries.empty());
}
