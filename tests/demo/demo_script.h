#pragma once

#include <windows.h>

#include <string>

// What the demo says to the script that runs it: one line each on the standard output.

namespace demo
{

void step(const std::string& text);

// Asks for a picture of the whole screen, or of a part of it, and waits until it has been taken.
void picture(const std::string& name);
void picture(const std::string& name, const RECT& part);

// A row of the closing table: where the profile says the window is, and where it was found.
void row(const std::string& window, const std::string& saved, const std::string& found);

// Something went wrong, but the demo goes on.
void fail(const std::string& text);
// fail(text) unless the condition is met.
void expect(bool condition, const std::string& text);

// How often fail was called.
int failures();

} // namespace demo
