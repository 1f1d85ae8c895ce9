#include <windows.h>

#include <gtest/gtest.h>

#include <psapi.h>

#include <cctype>
#include <cstring>
#include <iterator>
#include <set>
#include <string>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/processes/wendlow_process.h"

using namespace test_support;

namespace
{

// A program's file, read as the loader of the system reads it.
class Image
{
public:
    Image() : Image(wendlow_path()) {}
    explicit Image(const std::wstring& path) : bytes_(read_file(path))
    {
        const auto dos = at<IMAGE_DOS_HEADER>(0);
        headers_ = at<IMAGE_NT_HEADERS64>(static_cast<std::size_t>(dos.e_lfanew));
        first_section_ = static_cast<std::size_t>(dos.e_lfanew) +
                         offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                         headers_.FileHeader.SizeOfOptionalHeader;
    }

    std::size_t size() const { return bytes_.size(); }
    const IMAGE_NT_HEADERS64& headers() const { return headers_; }

    std::vector<std::string> sections() const
    {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < headers_.FileHeader.NumberOfSections; ++i) {
            const auto header = section(i);
            const auto* name = reinterpret_cast<const char*>(header.Name);
            names.emplace_back(name, strnlen(name, IMAGE_SIZEOF_SHORT_NAME));
        }
        return names;
    }

    std::set<std::string> imported_modules() const
    {
        std::set<std::string> names;
        std::size_t entry =
            file_offset(headers_.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
        for (;; entry += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto descriptor = at<IMAGE_IMPORT_DESCRIPTOR>(entry);
            if (descriptor.Name == 0)
                return names;
            std::string name = text_at(file_offset(descriptor.Name));
            for (char& c : name)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            names.insert(name);
        }
    }

private:
    template <typename Record> Record at(std::size_t offset) const
    {
        Record record{};
        if (offset + sizeof(record) > bytes_.size())
            throw Failure("the program's file is too short");
        std::memcpy(&record, bytes_.data() + offset, sizeof(record));
        return record;
    }

    IMAGE_SECTION_HEADER section(std::size_t i) const
    {
        return at<IMAGE_SECTION_HEADER>(first_section_ + i * sizeof(IMAGE_SECTION_HEADER));
    }

    std::size_t file_offset(DWORD address) const
    {
        for (std::size_t i = 0; i < headers_.FileHeader.NumberOfSections; ++i) {
            const auto header = section(i);
            if (address >= header.VirtualAddress && address < header.VirtualAddress + header.SizeOfRawData)
                return address - header.VirtualAddress + header.PointerToRawData;
        }
        throw Failure("an address of the program's file lies in no section");
    }

    std::string text_at(std::size_t offset) const
    {
        std::string text;
        while (const char c = at<char>(offset++))
            text += c;
        return text;
    }

    Bytes bytes_;
    IMAGE_NT_HEADERS64 headers_{};
    std::size_t first_section_ = 0;
};

// A setting of the program's manifest, as the system reads it when it starts the program.
std::wstring setting_of_manifest(const wchar_t* space, const wchar_t* name)
{
    const std::wstring path = wendlow_path();
    ACTCTXW manifest{};
    manifest.cbSize = sizeof(manifest);
    manifest.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    manifest.lpSource = path.c_str();
    manifest.lpResourceName = MAKEINTRESOURCEW(1);
    const HANDLE context = CreateActCtxW(&manifest);
    if (context == INVALID_HANDLE_VALUE)
        throw Failure("the program has no manifest that the system can read");
    wchar_t value[64]{};
    QueryActCtxSettingsW(0, context, space, name, value, std::size(value), nullptr);
    ReleaseActCtx(context);
    return value;
}

TEST(ReleaseBinary, IsA64BitGuiProgram)
{
    const Image image;
    EXPECT_EQ(image.headers().Signature, 0x4550u);
    EXPECT_EQ(image.headers().FileHeader.Machine, 0x8664);
    EXPECT_EQ(image.headers().OptionalHeader.Magic, 0x20B);
    EXPECT_EQ(image.headers().OptionalHeader.Subsystem, 2);
}

TEST(ReleaseBinary, HasRandomAddressesAndDataThatCannotBeRun)
{
    const Image image;
    const unsigned flags = image.headers().OptionalHeader.DllCharacteristics;
    EXPECT_TRUE(flags & 0x0020) << "no high-entropy addresses";
    EXPECT_TRUE(flags & 0x0040) << "no address space layout randomisation";
    EXPECT_TRUE(flags & 0x0100) << "data may be run as code";
    // Without relocations the image could not be loaded elsewhere.
    EXPECT_EQ(image.headers().FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
    EXPECT_NE(image.headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0u);
}

// The names of parts of the C library that comes with Windows, which are looked up in Windows' own table.
bool is_part_of_c_library(const std::string& module)
{
    return module.starts_with("api-ms-win-crt-");
}

// What the image names is loaded before its first instruction. Windows takes these from its own folder in any
// case (its list of known libraries, and the set that stands for a part of one of them), and comctl32 from
// where the manifest says; all others it looks for beside the program first.
TEST(ReleaseBinary, NeedsNothingThatWindowsLooksForBesideTheProgram)
{
    const std::set<std::string> taken_from_windows{
        "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",
        "kernel32.dll", "msvcrt.dll",   "ole32.dll",    "oleaut32.dll",
        "shcore.dll",   "shell32.dll",  "user32.dll",   "api-ms-win-shcore-scaling-l1-1-1.dll"};
    for (const wchar_t* program : {L"wendlow.exe", L"wendlow-open.exe", L"wendlow-profile.exe"}) {
        const std::wstring path = path_beside_wendlow(program);
        if (!file_exists(path))
            continue; // The tools are built where their libraries are found.
        for (const std::string& module : Image(path).imported_modules())
            EXPECT_TRUE(taken_from_windows.contains(module) || is_part_of_c_library(module))
                << module << " of " << printable(program);
    }
}

std::set<std::string> loaded_modules(HANDLE process)
{
    HMODULE modules[1024] = {};
    DWORD bytes = 0;
    if (!K32EnumProcessModules(process, modules, sizeof(modules), &bytes))
        throw Failure("the program's modules cannot be listed");
    std::set<std::string> names;
    for (std::size_t i = 0; i < bytes / sizeof(HMODULE); ++i) {
        char name[MAX_PATH]{};
        K32GetModuleBaseNameA(process, modules[i], name, MAX_PATH);
        CharLowerA(name);
        names.insert(name);
    }
    return names;
}

// The memory of these, and of what they bring with them, is not taken while the program waits for its user.
TEST(ReleaseBinary, LoadsTheLibrariesOfItsFileDialogsAndOfFolderWindowsWhenTheyAreNeeded)
{
    for (const char* library : {"comdlg32.dll", "oleaut32.dll"})
        EXPECT_FALSE(Image().imported_modules().contains(library)) << library;

    const WendlowProcess wendlow;
    EXPECT_FALSE(loaded_modules(wendlow.process()).contains("comdlg32.dll")) << "at the start";
    wendlow.press_load_profile();
    wait_for_file_dialog(wendlow.process_id());
    EXPECT_TRUE(loaded_modules(wendlow.process()).contains("comdlg32.dll")) << "in the dialog";
    cancel_file_dialog(wendlow.process_id());
}

// Its own windows are scaled by the system on monitors of another scale than the primary one's.
TEST(ReleaseBinary, DeclaresTheScaleOfTheSystemForItsWindows)
{
    EXPECT_EQ(setting_of_manifest(L"http://schemas.microsoft.com/SMI/2005/WindowsSettings", L"dpiAware"),
              L"true");
    EXPECT_EQ(setting_of_manifest(L"http://schemas.microsoft.com/SMI/2016/WindowsSettings", L"dpiAwareness"),
              L"system");
}

// Linkers differ in what they reserve by themselves. Data that other programs send may pass through the
// stack.
TEST(ReleaseBinary, HasRoomForLargeMessagesOnItsStack)
{
    EXPECT_EQ(Image().headers().OptionalHeader.SizeOfStackReserve, 2u * 1024u * 1024u);
}

TEST(ReleaseBinary, TakesPathsOfAnyLength)
{
    EXPECT_EQ(setting_of_manifest(L"http://schemas.microsoft.com/SMI/2016/WindowsSettings", L"longPathAware"),
              L"true");
}

TEST(ReleaseBinary, IsSmallAndWithoutSymbols)
{
#ifdef _MSC_VER
    constexpr bool is_built_as_released = false;
#else
    const bool is_built_as_released = !is_another_build();
#endif
    if (!is_built_as_released)
        GTEST_SKIP() << "this is about the build that is released";
    const Image image;
    EXPECT_LE(image.size(), 128u * 1024u);
    EXPECT_EQ(image.headers().FileHeader.NumberOfSymbols, 0u);
    EXPECT_EQ(image.headers().FileHeader.PointerToSymbolTable, 0u);
    for (const std::string& name : image.sections())
        EXPECT_FALSE(name.starts_with("/") || name.starts_with(".debug")) << name;
}

} // namespace
