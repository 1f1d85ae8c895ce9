// The calls of a load and of Apply, and nothing around them.
#pragma once

namespace bare
{

// Starts the programs of the profile, waits for each to be idle, finds their windows and places them. The
// profile takes the place of the one loaded before; it has at most 64 entries, all of them programs.
void load(const wchar_t* path);

// Carries out an action (kMinimise, kRestore, kClose) on the windows of the last load.
void apply(int action);

} // namespace bare
