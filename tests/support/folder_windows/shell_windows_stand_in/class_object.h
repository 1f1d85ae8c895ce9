#pragma once

#include <windows.h>

#include <unknwn.h>

namespace test_support::stand_in
{

// {9BA05972-F6A8-11CF-A442-00A0C90A8F39}, the class of the shell's list of folder windows.
constexpr GUID kShellWindowsClass = {
    0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};

// The one factory of the list; it needs no release.
IClassFactory& class_object();

} // namespace test_support::stand_in
