// What is in a profile file, for persons and for machines.
#pragma once

#include <string>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool
{

// The name, and a table of the entries. `title` names the file.
std::string table_of_profile(const std::string& title, ByteView accepted_file);

// The same as one JSON object.
std::string json_summary_of_profile(const std::string& title, ByteView accepted_file);

} // namespace profile_tool
