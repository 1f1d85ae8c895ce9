#include "sources/funcs_layout_windows/launching/entry_path.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/basics/files.h"

namespace
{

using test_support::Bytes;

// The bytes of a text as they lie in a file.
Bytes bytes_of(std::wstring_view text)
{
    Bytes bytes;
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

profile_file::Entry entry_of(const std::uint8_t* path, std::size_t path_bytes)
{
    profile_file::Entry entry{};
    entry.path = path;
    entry.path_bytes = static_cast<std::uint32_t>(path_bytes);
    return entry;
}

// Neither of its bytes is zero.
constexpr wchar_t kFilling = L'\x2323';

// A copy of a path into a buffer that is full of something else.
class Copy
{
public:
    explicit Copy(const Bytes& path) : bytes_(path)
    {
        buffer_->fill(kFilling);
        view_ = copy_entry_path(entry_of(bytes_.data(), bytes_.size()), buffer_.get());
    }

    std::wstring text() const { return std::wstring(view_); }
    // What a system call sees.
    std::wstring terminated() const { return view_.data(); }
    bool has_data() const { return view_.data() != nullptr; }
    wchar_t unit(std::size_t index) const { return (*buffer_)[index]; }

private:
    Bytes bytes_; // of exactly the path's size, so that a reader beyond it is found out
    std::unique_ptr<EntryPathBuffer> buffer_ = std::make_unique<EntryPathBuffer>();
    std::wstring_view view_;
};

TEST(EntryPath, IsCopiedWithATerminatorOfItsOwn)
{
    const Copy copy(bytes_of(L"C:\\a\\\x0416.exe"));
    EXPECT_EQ(copy.text(), L"C:\\a\\\x0416.exe");
    EXPECT_EQ(copy.terminated(), L"C:\\a\\\x0416.exe");
    EXPECT_EQ(copy.unit(10), L'\0');
    EXPECT_EQ(copy.unit(11), kFilling);
}

TEST(EntryPath, IsReadAtAnOddAddress)
{
    Bytes shifted = bytes_of(L"C:\\odd.exe");
    shifted.insert(shifted.begin(), 0xEE);
    EntryPathBuffer buffer{};
    EXPECT_EQ(copy_entry_path(entry_of(shifted.data() + 1, shifted.size() - 1), &buffer), L"C:\\odd.exe");
}

TEST(EntryPath, MayBeEmpty)
{
    const Copy copy(Bytes{});
    EXPECT_TRUE(copy.has_data());
    EXPECT_EQ(copy.text(), L"");
    EXPECT_EQ(copy.unit(0), L'\0');
    EXPECT_EQ(copy.unit(1), kFilling);
}

// The lone byte becomes a unit with a zero above it, never with what lay in the buffer before.
TEST(EntryPath, TakesTheLastByteOfAnOddLengthAsAUnit)
{
    Bytes odd = bytes_of(L"C:\\a");
    odd.push_back(0x41);
    EXPECT_EQ(Copy(odd).terminated(), L"C:\\aA");
    EXPECT_EQ(Copy(Bytes{0x42}).terminated(), L"B");
}

TEST(EntryPath, EndsAtItsFirstZero)
{
    const Copy copy(bytes_of(std::wstring(L"C:\\a\0b.exe", 10)));
    EXPECT_EQ(copy.text(), L"C:\\a");
    EXPECT_EQ(Copy(bytes_of(std::wstring(3, L'\0'))).text(), L"");
}

TEST(EntryPath, IsTakenUpToTheLongestThatTheSystemTakes)
{
    const std::wstring longest(32'767, L'x');
    const Copy copy(bytes_of(longest));
    EXPECT_TRUE(copy.text() == longest) << copy.text().size();
    EXPECT_EQ(copy.unit(32'767), L'\0');

    Bytes odd = bytes_of(longest.substr(1));
    odd.push_back('y');
    EXPECT_TRUE(Copy(odd).text() == longest.substr(1) + L'y') << Copy(odd).text().size();
}

TEST(EntryPath, ThatIsTooLongIsNotCopied)
{
    Bytes one_byte_more = bytes_of(std::wstring(32'767, L'x'));
    one_byte_more.push_back('y');
    for (const Bytes& path : {one_byte_more, bytes_of(std::wstring(32'768, L'x')), Bytes(1 << 20, 'x')}) {
        const Copy copy(path);
        EXPECT_FALSE(copy.has_data());
        EXPECT_EQ(copy.text(), L"");
        EXPECT_EQ(copy.unit(0), kFilling);
        EXPECT_EQ(copy.unit(32'767), kFilling);
    }
}

// The declared length may be anything; nothing is read when it does not fit.
TEST(EntryPath, OfAnImpossibleLengthIsNotRead)
{
    EntryPathBuffer buffer{};
    for (const std::size_t length : {0x10000ULL, 0x7FFFFFFFULL, 0xFFFFFFFEULL, 0xFFFFFFFFULL}) {
        EXPECT_EQ(copy_entry_path(entry_of(nullptr, length), &buffer).data(), nullptr) << length;
    }
}

// Whether a path in a file, at an odd address and followed by other bytes, is `path`.
bool has_path(Bytes in_file, std::wstring_view path)
{
    const std::size_t path_bytes = in_file.size();
    in_file.insert(in_file.begin(), 0xEE);
    in_file.insert(in_file.end(), {'Z', 0, 'Z', 0});
    return entry_has_path(entry_of(in_file.data() + 1, path_bytes), path);
}

TEST(EntryHasPath, ComparesThePathInPlaceIgnoringCase)
{
    EXPECT_TRUE(has_path(bytes_of(L"C:\\Folder\\\x0416.exe"), L"c:\\folder\\\x0436.EXE"));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\folder\\a.exe"), L"C:\\folder\\b.exe"));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\folder"), L"C:\\folde"));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\folde"), L"C:\\folder"));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\folder"), L"C:\\folderZ"));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\folder"), L""));
    EXPECT_TRUE(has_path(Bytes{}, L""));
}

TEST(EntryHasPath, TakesALoneLastByteAsAUnit)
{
    Bytes odd = bytes_of(L"C:\\a");
    odd.push_back(0x42);
    EXPECT_TRUE(has_path(odd, L"C:\\aB"));
    EXPECT_FALSE(has_path(odd, L"C:\\a"));
    EXPECT_FALSE(has_path(odd, L"C:\\a\x5A42"));
    odd.back() = 0;
    EXPECT_TRUE(has_path(odd, L"C:\\a"));
}

TEST(EntryHasPath, EndsThePathAtItsFirstZero)
{
    const Bytes bytes = bytes_of(std::wstring(L"C:\\a\0b.exe", 10));
    EXPECT_TRUE(has_path(bytes, L"C:\\a"));
    EXPECT_FALSE(has_path(bytes, L"C:\\a\\b.exe"));
    EXPECT_FALSE(has_path(bytes, L"C:\\"));
    EXPECT_TRUE(has_path(bytes_of(std::wstring(2, L'\0')), L""));
}

TEST(EntryHasPath, ComparesLongPathsToTheirEnd)
{
    const std::wstring longest(32'767, L'x');
    EXPECT_TRUE(has_path(bytes_of(longest), std::wstring(32'767, L'X')));
    for (const std::size_t differing : {0u, 259u, 260u, 519u, 520u, 32'766u}) {
        std::wstring other = longest;
        other[differing] = L'y';
        EXPECT_FALSE(has_path(bytes_of(longest), other)) << differing;
    }
    // Nothing is opened or started under a longer one, so nothing is found under it either.
    EXPECT_FALSE(has_path(bytes_of(longest + L'x'), longest + L'x'));
    EXPECT_FALSE(has_path(bytes_of(L"C:\\a" + std::wstring(40'000, L'\0')), L"C:\\a"));
}

TEST(EntryHasPath, DoesNotReadAPathOfImpossibleLength)
{
    for (const std::size_t length : {0x10000ULL, 0x7FFFFFFFULL, 0xFFFFFFFEULL, 0xFFFFFFFFULL})
        EXPECT_FALSE(entry_has_path(entry_of(nullptr, length), L"x")) << length;
}

TEST(SamePath, IgnoresCaseOfAllAlphabets)
{
    EXPECT_TRUE(same_path(L"C:\\Program Files\\A.exe", L"c:\\PROGRAM files\\a.EXE"));
    EXPECT_TRUE(same_path(L"C:\\\x0416\x00C4.exe", L"c:\\\x0436\x00E4.EXE"));
    EXPECT_TRUE(same_path(L"", L""));
}

TEST(SamePath, TreatsEverythingElseAsDifferent)
{
    EXPECT_FALSE(same_path(L"C:\\a.exe", L"C:\\b.exe"));
    EXPECT_FALSE(same_path(L"C:\\a.exe", L"C:\\a.exe "));
    EXPECT_FALSE(same_path(L"C:\\a.exe", L"C:\\a.ex"));
    EXPECT_FALSE(same_path(L"C:\\a.exe", L""));
    EXPECT_FALSE(same_path(L"C:\\a\\b", L"C:/a/b"));
    EXPECT_FALSE(same_path(L"stra\x00DF"
                           L"e",
                           L"strasse"));
    // Beyond the end of a view is nothing to compare.
    EXPECT_TRUE(
        same_path(std::wstring_view(L"C:\\abc").substr(0, 4), std::wstring_view(L"C:\\axy").substr(0, 4)));
}

} // namespace
