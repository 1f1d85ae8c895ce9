// The error box: the one way in which the program reports that something went wrong.
//
// Everything fixed about a report stands in a row, a constant in the list of its folder; the report is one
// line where the failure is met:
//
//     return report<kScanFailed>(result);
//
// Number and types of the values are those of the row's placeholders, or the line does not compile.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

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
    BYTES,            // the bytes laid into wide characters unconverted: the text is unreadable
    WIDE_BYTE_FIELDS, // widened, but for the file and function fields, which are laid in unconverted
};

// Capacity of the shared message buffers in UTF-16 units; every message of the program fits.
inline constexpr std::size_t kMessageCapacity_units = 2048;

// A source module that reports.
struct ErrorSource {
    const char* file;          // the module's path as printed; a named array, which the program holds once
    std::uint32_t* error_site; // the module's error-site variable: the site reported last
    wchar_t* message;          // its shared message buffer, overwritten by every report
};

// What a routine returns that refuses its arguments.
inline constexpr std::int32_t kBadInput = -1;

// One row: everything that is fixed about one report.
struct ErrorRow {
    const ErrorSource* source;
    std::uint32_t site;          // printed as the line of the failure; unique within the source
    std::uint32_t handler = 0;   // printed as the line of the error handler; failures may share one
    const char* function;        // the function's name as printed
    ErrorLayout layout;          // what stands around the detail
    const char* detail;          // %d and %u stand for 32-bit integers, %p for a pointer, %s for 8-bit text
    std::int32_t result = 0;     // what the failing routine returns
    const char* title = "error"; // caption of the box
    ErrorEncoding encoding = ErrorEncoding::WIDE;
    ErrorEncoding title_encoding = ErrorEncoding::WIDE; // WIDE or BYTES
    UINT style = MB_OK;                                 // type of the message box
};

namespace error_box
{

// True when the placeholder %<conversion> may stand for a Value.
template <typename Value> constexpr bool stands_for(char conversion)
{
    if constexpr (std::is_integral_v<Value>)
        return (conversion == 'd' || conversion == 'u') && sizeof(Value) == sizeof(std::int32_t);
    else if constexpr (std::is_same_v<Value, const char*>)
        return conversion == 's' || conversion == 'p';
    else
        return conversion == 'p' && (std::is_pointer_v<Value> || std::is_null_pointer_v<Value>);
}

// The letter of the first placeholder of `detail`, which is cut off up to it; 0 when there is none.
constexpr char take_placeholder(std::string_view* detail)
{
    const std::size_t percent = detail->find('%');
    if (percent == std::string_view::npos)
        return '\0';
    const char conversion = percent + 1 < detail->size() ? (*detail)[percent + 1] : '%';
    detail->remove_prefix(percent + 2);
    return conversion;
}

// True when the placeholders of `detail` stand for values of just these types, in this order.
template <typename... Values> constexpr bool values_fit(std::string_view detail)
{
    const bool each_fits = (stands_for<Values>(take_placeholder(&detail)) && ...);
    return each_fits && take_placeholder(&detail) == '\0';
}

// Shows the row with its values; report() has checked them.
std::int32_t show(HWND owner, const ErrorRow* row, ...);

// Not constexpr: calling it while compiling is an error that names it.
inline void this_row_wants_values() {}

} // namespace error_box

// Reports a row: stores its site number in the error-site variable of its source, formats the message,
// bounded, into the source's buffer and shows it in a modal box without owner. Pointers are printed as 16
// upper-case digits. The user sees the row's title and text with an OK button. Returns the row's result when
// the box has closed. Re-entrancy: a box without owner runs a message loop and leaves the program's windows
// usable, so what the caller knew before may be out of date.
template <const ErrorRow& row, typename... Values> std::int32_t report(Values... values)
{
    static_assert(error_box::values_fit<Values...>(row.detail), "not the values of the row's placeholders");
    return error_box::show(nullptr, &row, values...);
}

// As report, with a box owned (and so blocked) by the window `owner`.
template <const ErrorRow& row, typename... Values> std::int32_t report_owned(HWND owner, Values... values)
{
    static_assert(error_box::values_fit<Values...>(row.detail), "not the values of the row's placeholders");
    return error_box::show(owner, &row, values...);
}

// A row without placeholders, for routines that are told by their caller what to report.
class FixedRow
{
public:
    // Implicit: a row is handed on by its name. Does not compile for a row with placeholders.
    consteval FixedRow(const ErrorRow& row) : row_(&row)
    {
        if (!error_box::values_fit<>(row.detail))
            error_box::this_row_wants_values();
    }
    [[nodiscard]] const ErrorRow* row() const { return row_; }

private:
    const ErrorRow* row_;
};

inline std::int32_t report(FixedRow fixed)
{
    return error_box::show(nullptr, fixed.row());
}
inline std::int32_t report_owned(HWND owner, FixedRow fixed)
{
    return error_box::show(owner, fixed.row());
}
