#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "errors/error_box.h"

// Which test shows which report.

struct ShownBy {
    const ErrorSource* source;
    std::uint32_t site;
    std::string_view test; // Suite.Test of this executable
};

struct SystemErrorShownBy {
    std::string_view file; // of the call
    std::string_view test;
};

// A row for each report of the program.
std::span<const ShownBy> reports_shown();

// A row for each call that shows an error of the system: a file of several calls has several.
std::span<const SystemErrorShownBy> system_errors_shown();
