#include "errors/error_box.h"

// Compiled once for each CASE: only the first one may compile.

namespace
{

std::uint32_t site_variable;
wchar_t buffer[kMessageCapacity_units];

constexpr ErrorSource kSource{.file = "file", .error_site = &site_variable, .message = buffer};
constexpr ErrorRow kTwoValues{
    .source = &kSource, .site = 1, .function = "function", .layout = ErrorLayout::PLAIN, .detail = "%p, %d"};
constexpr ErrorRow kNoValues{
    .source = &kSource, .site = 2, .function = "function", .layout = ErrorLayout::PLAIN, .detail = "plain"};

} // namespace

std::int32_t report_values(void* pointer, [[maybe_unused]] std::int64_t wide)
{
#if CASE == 0
    return report<kTwoValues>(pointer, 7) + report<kNoValues>() + report(kNoValues);
#elif CASE == 1 // a value is missing
    return report<kTwoValues>(pointer);
#elif CASE == 2 // one too many
    return report<kNoValues>(pointer);
#elif CASE == 3 // the wrong way round
    return report<kTwoValues>(7, pointer);
#elif CASE == 4 // too wide
    return report<kTwoValues>(pointer, wide);
#elif CASE == 5 // handed on without its values
    return report(kTwoValues) + (pointer != nullptr);
#endif
}
