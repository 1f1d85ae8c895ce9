#pragma once

#include <cstdint>
#include <string>

#include "tests/support/boxes/box_watcher.h"

// The boxes of a load.

namespace loading_boxes
{

// A box of the load itself, by its two lines and what it says.
test_support::ExpectedBox load_box(int site, int handler, const std::wstring& detail);

// The boxes of a load that is refused, by what is wrong with the file.
test_support::ExpectedBox not_opened_box();
test_support::ExpectedBox empty_file_box();
test_support::ExpectedBox too_short_box();
test_support::ExpectedBox signature_box();
test_support::ExpectedBox no_windows_box();
test_support::ExpectedBox past_end_box(std::uint64_t entry, const std::wstring& field);

// The box of the main window that follows it: after the button Load Profile, and after a drop.
test_support::ExpectedBox command_box(std::int32_t result);
test_support::ExpectedBox drop_box(); // 8-bit text shown unconverted

// The box about programs that did not start; the load goes on after it.
test_support::ExpectedBox programs_failed_box(int failed, int all);

} // namespace loading_boxes
