// The calls of storing a profile and nothing around them.
#pragma once

namespace bare
{

// Writes a profile of that many entries, all with this rectangle and this path, in the parts and with the
// flush of the program. False when a call fails.
bool store(const wchar_t* file_path, unsigned entries, const wchar_t* path);

} // namespace bare
