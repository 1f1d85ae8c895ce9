// The JSON form of profile files; docs/profile.schema.json describes it.
#pragma once

#include <string>
#include <string_view>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

// The text as JSON: a string, or, when halves of pairs stand alone in it, an array of strings and of their
// numbers.
std::string json_of_text(std::u16string_view text);

// A JSON string of UTF-8.
std::string json_string(std::string_view utf8);

// The form of a file that readers take, one entry to a line.
std::string json_of_profile(ByteView accepted_file);

// The file that a form stands for. False when it is no such form, or the program would not load the file;
// `why` tells where and for what reason.
bool profile_of_json(std::string_view json, Bytes* file, std::string* why);

} // namespace profile_tool
