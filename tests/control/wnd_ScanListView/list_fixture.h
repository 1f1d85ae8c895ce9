#pragma once

#include "tests/control/scanning/scan_fixture.h"

namespace scan_tests
{

// A scan of two windows of this process.
struct TwoRows {
    ScanFixture fixture;
    TestWindow first{L"First", {40, 50, 340, 250}};
    TestWindow second{L"Second", {-20, 60, 180, 210}};
    Desktop desktop{{first, second}};
};

} // namespace scan_tests
