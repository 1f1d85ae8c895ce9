// What the system does for the tool, once for Windows and once for others. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/wendlow_profile/system/bytes.h"

namespace profile_tool
{

// A monitor's place on the desktop, in pixels; right and bottom are the first ones beside it.
struct MonitorRectangle {
    std::int64_t left, top, right, bottom;
};

// What a profile's entries can be held against.
struct Surroundings {
    // Whether a path of Windows leads to something; empty where such paths mean nothing.
    std::function<bool(const std::u16string&)> is_there;
    std::vector<MonitorRectangle> monitors; // none when they are not known
};

namespace platform
{

// Reads a whole file. When this or one of the next three fails, `why` tells the system's reason.
bool read_file(const std::string& path, Bytes* bytes, std::string* why);

// Creates the file; one that is there already is left alone, with `exists` set. Nothing is left of a file
// that could not be written whole.
bool write_new_file(const std::string& path, ByteView bytes, bool* exists, std::string* why);

// Writes a file of another name beside it, which then takes the old one's place in one step.
bool replace_file(const std::string& path, ByteView bytes, std::string* why);

// Every file below the folder whose name `wants` asks for, in capitals, as a path of Windows.
bool find_files(const std::string& folder, const std::function<bool(const std::u16string&)>& wants,
                const std::function<void(const std::u16string& name, const std::u16string& path)>& found,
                std::string* why);

// Changes small letters to capitals as the file system does when it compares names.
void put_in_capitals(std::u16string* text);

// This computer.
Surroundings surroundings();

// Hands the profile to Wendlow, which is started from beside this program when it does not run. What went
// wrong, or nothing.
std::optional<std::string> open_profile(const std::string& path);

} // namespace platform
} // namespace profile_tool
