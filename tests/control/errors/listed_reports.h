#pragma once

#include <string_view>
#include <vector>

#include "errors/error_box.h"

// What the program can report, found in its sources whenever they are built, by list_reports.cmake.

// Every row.
extern const std::vector<const ErrorRow*> report_rows;

// The source files that call show_system_error(), one entry for each call.
extern const std::vector<std::string_view> system_error_calls;
