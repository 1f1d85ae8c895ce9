#pragma once

#include "tests/control/scan_desk.h"

namespace scan_tests
{

// A scan of two windows of this process.
struct TwoRows {
    ScanDesk desk;
    DeskWindow first{L"First", {40, 50, 340, 250}};
    DeskWindow second{L"Second", {-20, 60, 180, 210}};
    Desktop desktop{{first, second}};
};

} // namespace scan_tests
