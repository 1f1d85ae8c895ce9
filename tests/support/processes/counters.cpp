#include "tests/support/processes/counters.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

namespace test_support
{

namespace
{

template <typename Function> Function* native_function(const char* name)
{
    const auto function = reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name));
    if (!function)
        throw Failure(std::string("the system has no ") + name);
    return reinterpret_cast<Function*>(function);
}

// One entry of the table of GDI objects, which a process has in its memory.
struct GdiEntry {
    std::uint64_t object;
    std::uint16_t process_id;
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t type; // 0 = free
    std::uint8_t flags;
    std::uint64_t user_pointer;
};
static_assert(sizeof(GdiEntry) == 24);

constexpr std::size_t kGdiEntries = 0x4000;
constexpr std::size_t kPebGdiTable_offset = 0xF8;

std::size_t gdi_objects_in_table(HANDLE process)
{
    PROCESS_BASIC_INFORMATION information{};
    native_function<decltype(NtQueryInformationProcess)>("NtQueryInformationProcess")(
        process, ProcessBasicInformation, &information, sizeof information, nullptr);
    const auto* peb = reinterpret_cast<const std::byte*>(information.PebBaseAddress);
    const void* table = nullptr;
    std::vector<GdiEntry> entries(kGdiEntries);
    if (!ReadProcessMemory(process, peb + kPebGdiTable_offset, &table, sizeof table, nullptr) ||
        !ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(GdiEntry), nullptr))
        throw Failure("the GDI objects of the process cannot be counted");
    return static_cast<std::size_t>(
        std::count_if(entries.begin(), entries.end(), [](const GdiEntry& entry) { return entry.type != 0; }));
}

struct WindowCount {
    DWORD process_id;
    std::size_t windows;
};

BOOL CALLBACK count_window(HWND window, LPARAM context)
{
    auto* count = reinterpret_cast<WindowCount*>(context);
    if (process_of(window) == count->process_id)
        ++count->windows;
    return TRUE;
}

BOOL CALLBACK count_top_window(HWND window, LPARAM context)
{
    count_window(window, context);
    EnumChildWindows(window, count_window, context);
    return TRUE;
}

std::size_t windows_of_process(HANDLE process)
{
    WindowCount count{GetProcessId(process), 0};
    EnumWindows(count_top_window, reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

// The start of an entry of the system's table of handles, and of the table.
struct SystemHandle {
    void* object;
    ULONG_PTR process_id;
    ULONG_PTR value;
    ULONG access;
    USHORT trace_index;
    USHORT object_type;
    ULONG attributes;
    ULONG reserved;
};
struct SystemHandles {
    ULONG_PTR count;
    ULONG_PTR reserved;
};

std::size_t handles_in_table(HANDLE process)
{
    constexpr ULONG kSystemExtendedHandleInformation = 64;
    const auto query = native_function<LONG WINAPI(ULONG, void*, ULONG, ULONG*)>("NtQuerySystemInformation");
    std::vector<std::byte> table(1 << 20);
    while (query(kSystemExtendedHandleInformation, table.data(), static_cast<ULONG>(table.size()), nullptr) !=
           0) {
        if (table.size() > (64u << 20))
            throw Failure("the handles of the process cannot be counted");
        table.resize(table.size() * 2);
    }
    const auto* head = reinterpret_cast<const SystemHandles*>(table.data());
    const auto* first = reinterpret_cast<const SystemHandle*>(head + 1);
    const ULONG_PTR process_id = GetProcessId(process);
    return static_cast<std::size_t>(
        std::count_if(first, first + head->count,
                      [process_id](const SystemHandle& handle) { return handle.process_id == process_id; }));
}

std::size_t handles_of_process(HANDLE process)
{
    DWORD handles = 0;
    return GetProcessHandleCount(process, &handles) && handles != 0 ? handles : handles_in_table(process);
}

std::size_t private_bytes_of_process(HANDLE process)
{
    std::size_t bytes = 0;
    const std::byte* address = nullptr;
    MEMORY_BASIC_INFORMATION region{};
    while (VirtualQueryEx(process, address, &region, sizeof region) == sizeof region) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += region.RegionSize;
        address = static_cast<const std::byte*>(region.BaseAddress) + region.RegionSize;
    }
    if (bytes == 0)
        throw Failure("the memory of the process cannot be counted");
    return bytes;
}

} // namespace

Holdings holdings_of(HANDLE process)
{
    // 0 where the system does not keep count.
    const DWORD gdi = GetGuiResources(process, GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(process, GR_USEROBJECTS);
    return {.gdi_objects = gdi != 0 ? gdi : gdi_objects_in_table(process),
            .user_objects = user != 0 ? user : windows_of_process(process),
            .handles = handles_of_process(process),
            .private_bytes = private_bytes_of_process(process)};
}

void PrintTo(const Holdings& holdings, std::ostream* out)
{
    *out << holdings.gdi_objects << " GDI objects, " << holdings.user_objects << " user objects, "
         << holdings.handles << " handles, " << holdings.private_bytes << " private bytes";
}

} // namespace test_support
