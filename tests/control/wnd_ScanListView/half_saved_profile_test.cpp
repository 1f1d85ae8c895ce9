#include <gtest/gtest.h>

#include <string>

#include "tests/control/profiles/profile_fixture.h"
#include "tests/control/wnd_ScanListView/saved_profile_fixture.h"

// What a program leaves that ends in the middle of a save, and what becomes of it.

using namespace test_support;
using profile_tests::gap_text;

namespace
{

constexpr int kParts = 10; // the signature is the last
constexpr wchar_t kFile[] = L"sources/funcs_layout_windows";
constexpr wchar_t kLoad[] = L"onButton_LoadProfile_clicked";

const ExpectedBox kEmptyFile{
    L"error", gap_text({kFile, kLoad, 5581, 7117},
                       L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )")};
const ExpectedBox kNoSignature{
    L"error", gap_text({kFile, kLoad, 5629, 7183}, L"invalid type of file, signature doesn't coincide")};

// Writes the profile's parts up to the one of that number, which is the first that is missing.
void save_up_to(int missing_part, const profile_tests::PreparedRecord& record, const std::wstring& path)
{
    int part = 0;
    const ImportHook<"WriteFile", decltype(WriteFile)> ended(
        "kernel32.dll",
        [&](HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped) -> BOOL {
            if (++part < missing_part)
                return ended.call_original(file, bytes, size, written, overlapped);
            *written = size;
            return TRUE;
        });
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(record.write(file), 1);
    EXPECT_EQ(part, kParts);
    CloseHandle(file);
}

} // namespace

TEST(HalfSavedProfile, IsRefusedWhereverItsSavingEnded)
{
    const profile_tests::FilledScan scan(profile_tests::ten_windows());
    const profile_tests::PreparedRecord record({1, 3, 5}, L"Half");
    profile_tests::ProfileFixture fixture;
    const profile_tests::NothingStarts nothing;
    std::size_t size = 0;
    for (int missing_part = 1; missing_part <= kParts; ++missing_part) {
        SCOPED_TRACE(missing_part);
        const std::wstring path = fixture.files.file(L"half " + std::to_wstring(missing_part) + L".txt");
        save_up_to(missing_part, record, path);
        const Bytes half = read_file(path);
        EXPECT_TRUE(missing_part == 1 ? half.empty() : half.size() > size);
        size = half.size();
        const BoxWatcher boxes;
        EXPECT_EQ(fixture.load_path(path), half.empty() ? -3 : -6);
        boxes.expect_boxes({half.empty() ? kEmptyFile : kNoSignature});
        EXPECT_EQ(fixture.store.uiN_loaded_prfls, 0u);
    }
    EXPECT_EQ(nothing.count(), 0);
    EXPECT_TRUE(profile_tests::combo_texts(fixture.profile_combo).empty());
}
