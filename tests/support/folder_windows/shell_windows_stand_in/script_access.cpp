#include "tests/support/folder_windows/shell_windows_stand_in/script.h"

namespace test_support::stand_in
{

namespace
{

// Kept as long as it is at work. One that has ended is looked for anew: a later script of the same name is
// other memory, unless somebody has kept the name alive.
Script* mapped_script()
{
    static Script* mapped = nullptr;
    if (mapped && mapped->active)
        return mapped;
    const HANDLE mapping = OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, kScriptName);
    if (mapping) {
        if (mapped)
            UnmapViewOfFile(mapped);
        mapped = static_cast<Script*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Script)));
        CloseHandle(mapping);
    }
    return mapped;
}

} // namespace

Script* current_script()
{
    Script* script = mapped_script();
    return script && script->active ? script : nullptr;
}

Counters& counters()
{
    static Counters unread{};
    Script* script = current_script();
    return script ? script->counters : unread;
}

} // namespace test_support::stand_in
