#pragma once

#include <string_view>
#include <vector>

// The source files of the program that call show_system_error(), one entry for each call. Found in the
// sources whenever they are built, by list_system_error_calls.cmake.
extern const std::vector<std::string_view> system_error_calls;
