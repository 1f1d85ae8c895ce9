// The error box: the one way in which the program reports that something went wrong.
//
// Every report is a row of its source module's table. A row is named by the module's enumeration and shown
// with one line at the place where the failure is met:
//
//     return report(errors_main, SITE_SCAN_FAILED, result);
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>

// What stands around the detail of a message. {file}, {function}, {site} and {handler} are filled in.
enum class ErrorLayout : std::uint8_t {
    PLAIN,              // the detail alone
    COMPACT,            // "error\n\nfile:\n{file}\nfunction:\n{function}\nline:\n{site}\n\n" detail
                        // "\nline of error handler:{handler}"
    SPACED,             // "error\n\nfile:\n{file}\n\nfunction:\n{function}\n\nline:\n{site}\n\n" detail
                        // "\nline of error handler:\n{handler}"
    SPACED_END_OF_LINE, // as SPACED, with a line feed at the end
    SPACED_GAP,         // as SPACED, with an empty line before the handler's line
    HANDLER_FIRST,      // "...line:\n{site}\nline of error handler:\n{handler}\n" detail
    INLINE,             // "error\nfile: {file}\nfunction: {function}\nline: {site}\n" detail
    SHOUTED,            // "\nERROR\n\nfile:\n\n{file}\nfunction:\n\n{function}\nline:\n\n{site}\n\n" detail
};

// How the composed 8-bit text reaches the wide-character message box.
enum class ErrorEncoding : std::uint8_t {
    WIDE,             // every character widened: the text reads correctly
    BYTES,            // the bytes laid into wide characters unconverted: the text is unreadable on purpose
    WIDE_BYTE_FIELDS, // widened, but for the file and function fields, which are laid in unconverted
};

// One row of a module's table: everything that is fixed about one report.
struct ErrorSite {
    unsigned id;                 // the row's own number in the module's enumeration
    std::uint32_t site;          // printed as the line of the failure
    std::uint32_t handler;       // printed as the line of the error handler; failures may share one
    const char* function;        // the function's name as printed
    ErrorLayout layout;          // what stands around the detail
    const char* detail;          // printf format of the detail; its values follow the row in the call
    std::int32_t result;         // what the failing routine returns
    const char* title = "error"; // caption of the box
    ErrorEncoding encoding = ErrorEncoding::WIDE;
    ErrorEncoding title_encoding = ErrorEncoding::WIDE; // WIDE or BYTES
    UINT style = MB_OK;                                 // type of the message box
};

// Capacity of the shared message buffers in UTF-16 units; every message of the program fits.
inline constexpr std::size_t kMessageCapacity_units = 2048;

// A source module that reports. Its tables live as long as the program.
struct ErrorSource {
    const char* file;                 // the module's path as printed
    std::uint32_t* error_site;        // the module's error-site variable: the site reported last
    wchar_t* message;                 // its shared message buffer, overwritten by every report
    std::span<const ErrorSite> sites; // its rows, row i having id i
};

// True when row i of the table has id i, for every row. For a static_assert beside each table.
constexpr bool rows_are_in_order(std::span<const ErrorSite> sites)
{
    for (std::size_t i = 0; i < sites.size(); ++i) {
        if (sites[i].id != i)
            return false;
    }
    return true;
}

// Reports row `row` of `source`: stores its site number in the error-site variable, formats the message,
// bounded, into the shared buffer and shows it in a modal box without owner. The values of the detail's
// placeholders follow: %d and %u take 32-bit integers, %p a pointer or handle, printed as 16 upper-case
// digits. The user sees the row's title and text with an OK button. Returns the row's result when the box has
// closed. While the box is open the program's other windows go on working: what the caller knew before may be
// out of date.
std::int32_t report(const ErrorSource& source, unsigned row, ...);

// As report, with a box owned (and so blocked) by the window `owner`.
std::int32_t report_owned(HWND owner, const ErrorSource& source, unsigned row, ...);
