#include "tests/support/processes/planted_libraries.h"

#include <windows.h>

#include <algorithm>

#include "tests/support/basics/platform.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"

namespace test_support
{

namespace
{

// Wine loads its own libraries whatever lies beside a program, unless a setting for programs of that name
// says otherwise.
constexpr wchar_t kSettings[] = L"Software\\Wine\\AppDefaults\\";
constexpr wchar_t kOrder[] = L"native,builtin";

std::wstring file_name_of(const std::wstring& path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

void copy(const std::wstring& from, const std::wstring& to)
{
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE))
        throw Failure("cannot copy " + printable(from) + ", error " + std::to_string(GetLastError()));
}

} // namespace

PlantedLibraries::PlantedLibraries(const std::wstring& program)
    : program_(folder_.file(file_name_of(program))), setting_(kSettings + file_name_of(program))
{
    copy(program, program_);
}

PlantedLibraries::~PlantedLibraries()
{
    if (under_wine())
        RegDeleteTreeW(HKEY_CURRENT_USER, setting_.c_str());
}

void PlantedLibraries::plant(const std::vector<std::wstring>& names)
{
    const std::wstring key = setting_ + L"\\DllOverrides";
    for (const std::wstring& name : names) {
        copy(windows_path(PLANTED_LIBRARY_DLL), folder_.file(name));
        if (!under_wine())
            continue;
        const std::wstring module = name.substr(0, name.rfind(L'.'));
        if (RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), module.c_str(), REG_SZ, kOrder, sizeof kOrder) !=
            ERROR_SUCCESS)
            throw Failure("cannot write the setting " + printable(key));
    }
}

std::vector<std::wstring> PlantedLibraries::with_trace(const std::wstring& ending) const
{
    std::vector<std::wstring> found;
    for (std::wstring name : folder_.names()) {
        if (!name.ends_with(ending))
            continue;
        name.resize(name.size() - ending.size());
        CharLowerW(name.data());
        found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<std::wstring> PlantedLibraries::loaded() const
{
    return with_trace(L".loaded");
}

std::vector<std::wstring> PlantedLibraries::needed_to_start() const
{
    return with_trace(L".needed");
}

std::wstring unguarded_program_path()
{
    return windows_path(UNGUARDED_PROGRAM_EXE);
}

} // namespace test_support
