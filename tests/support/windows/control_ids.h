// Identifiers of the program's controls and menu items, as whoever drives it from outside knows them.
#pragma once

namespace main_control
{
inline constexpr int kScan = 1;
inline constexpr int kLoadProfile = 2;
inline constexpr int kProfile = 4;
inline constexpr int kAction = 5;
inline constexpr int kApply = 6;
inline constexpr int kAbout = 9;
} // namespace main_control

namespace list_control
{
inline constexpr int kMove = 1;
inline constexpr int kCreateProfile = 2;
inline constexpr int kList = 4;
inline constexpr int kModifyCell = 101; // of the popup menu
} // namespace list_control

namespace name_control
{
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kName = 3;
} // namespace name_control

namespace cell_control
{
inline constexpr int kX = 0;
inline constexpr int kY = 1;
inline constexpr int kWidth = 2;
inline constexpr int kHeight = 3;
inline constexpr int kOk = 4;
inline constexpr int kCancel = 5;
} // namespace cell_control
