// The command line and the streams of a console program on Windows.
#pragma once

#include <string>
#include <vector>

namespace profile_tool
{

// The arguments behind the program's own name. Half a pair of UTF-16 becomes U+FFFD; no such file is found
// then.
std::vector<std::string> utf8_arguments(const wchar_t* const* argv);

// Writes UTF-8: as characters where the stream is a console, else as the bytes they are. False when they
// could not be written.
bool put_on_console(bool is_error, const std::string& text);

} // namespace profile_tool
