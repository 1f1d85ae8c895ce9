#include "tests/support/profiles/loading_boxes.h"

#include "tests/support/basics/text.h"
#include "tests/support/boxes/report_texts.h"

namespace loading_boxes
{

using test_support::bytes_as_wide;
using test_support::ExpectedBox;

ExpectedBox load_box(int site, int handler, const std::wstring& detail)
{
    return {L"error",
            test_support::gap_text(
                {L"sources/funcs_layout_windows", L"onButton_LoadProfile_clicked", site, handler}, detail)};
}

ExpectedBox not_opened_box()
{
    return load_box(5570, 7095,
                    L"one of callable functions returned error INVALID_HANDLE_VALUE <- CreateFile()");
}

ExpectedBox empty_file_box()
{
    return load_box(5581, 7117,
                    L"one of callable functions returned error: zero_file_size <- GetFileSizeEx( )");
}

ExpectedBox too_short_box()
{
    return load_box(5601, 7139, L"one of callable functions returned error: error <- SetFilePointer( )");
}

ExpectedBox signature_box()
{
    return load_box(5629, 7183, L"invalid type of file, signature doesn't coincide");
}

ExpectedBox no_windows_box()
{
    return load_box(5701, 7272, L"error, 0 == number of windows in profile (data read from file)");
}

ExpectedBox past_end_box(std::uint64_t entry, const std::wstring& field)
{
    return load_box(5713, 7294,
                    L"error, file is damaged: data of profile run past end of file\nentry = " +
                        std::to_wstring(entry) + L", field = " + field);
}

ExpectedBox command_box(std::int32_t result)
{
    return {L"error", test_support::compact_text({L"sources/main_prg", L"WndProc", 951, 1269},
                                                 L"one of callable functions returned error "
                                                 L"onButton_LoadProfile_clicked(), RetCode = " +
                                                     std::to_wstring(result))};
}

ExpectedBox drop_box()
{
    return {
        bytes_as_wide("error"),
        bytes_as_wide("error\n\nfile:\nsources/funcs_layout_windows\n\nfunction:\non_wm_dropfiles\n\nline:\n"
                      "9168\n\nerror, one of callable functions returned error, "
                      "onButton_LoadProfile_clicked()\n\nline of error handler:\n9273")};
}

ExpectedBox programs_failed_box(int failed, int all)
{
    return {L"info", L"Not all Programs were loaded\n\nNumber of Programs failed to load = " +
                         std::to_wstring(failed) + L"\nNumber of Programs in Profile = " +
                         std::to_wstring(all) +
                         L"\nPossible reasons:\nSome Programs were deleted, renamed or check your access "
                         L"permissions"};
}

} // namespace loading_boxes
