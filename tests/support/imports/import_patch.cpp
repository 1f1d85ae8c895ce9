#include "tests/support/imports/import_patch.h"

#include "tests/support/basics/waiting.h"
#include <string.h>

namespace test_support
{
namespace
{

template <typename Type> Type* at(BYTE* image, std::size_t offset)
{
    return reinterpret_cast<Type*>(image + offset);
}

// A function as a test names it: "name", or "name#number".
struct WantedFunction {
    explicit WantedFunction(const std::string& text) : name(text.substr(0, text.find('#')))
    {
        if (name.size() < text.size())
            number = static_cast<WORD>(std::stoi(text.substr(name.size() + 1)));
    }
    bool is_imported_by(BYTE* image, const IMAGE_THUNK_DATA& entry) const
    {
        if (IMAGE_SNAP_BY_ORDINAL(entry.u1.Ordinal))
            return number == IMAGE_ORDINAL(entry.u1.Ordinal);
        const auto* const by_name =
            at<IMAGE_IMPORT_BY_NAME>(image, static_cast<std::size_t>(entry.u1.AddressOfData));
        return name == reinterpret_cast<const char*>(by_name->Name);
    }

    std::string name;
    WORD number = 0; // none has this one
};

// The place of the import table where the address of that function stands, null when it is not imported.
ImportPatch::AnyFunction* find_slot(const std::string& module, const WantedFunction& function)
{
    BYTE* const image = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto* const dos_header = at<IMAGE_DOS_HEADER>(image, 0);
    const auto* const headers = at<IMAGE_NT_HEADERS>(image, static_cast<std::size_t>(dos_header->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];

    for (auto* import = at<IMAGE_IMPORT_DESCRIPTOR>(image, imports.VirtualAddress); import->Name != 0;
         ++import) {
        if (_stricmp(at<char>(image, import->Name), module.c_str()) != 0) {
            continue;
        }
        const auto* entry = at<IMAGE_THUNK_DATA>(image, import->OriginalFirstThunk);
        auto* slot = at<ImportPatch::AnyFunction>(image, import->FirstThunk);
        for (; entry->u1.AddressOfData != 0; ++entry, ++slot) {
            if (function.is_imported_by(image, *entry)) {
                return slot;
            }
        }
    }
    return nullptr;
}

void put(ImportPatch::AnyFunction* slot, ImportPatch::AnyFunction function)
{
    const DWORD last_error = GetLastError();
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    SetLastError(last_error);
}

} // namespace

ImportPatch::ImportPatch(const std::string& module, const std::string& function, AnyFunction replacement, int)
    : slot_(find_slot(module, WantedFunction(function)))
{
    if (slot_ == nullptr) {
        throw Failure("this executable does not import " + function + " from " + module);
    }
    original_ = *slot_;
    put(slot_, replacement);
}

ImportPatch::~ImportPatch()
{
    put(slot_, original_);
}

} // namespace test_support
