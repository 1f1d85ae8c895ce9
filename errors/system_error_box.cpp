#include "errors/system_error_box.h"

#include "errors/bytes_as_wide.h"
#include "errors/wait_cursor_pause.h"

DWORD last_system_error;

namespace
{

// A text that the system hands out in a block of its own, freed with LocalFree.
class LocalText
{
public:
    LocalText() = default;
    LocalText(const LocalText&) = delete;
    LocalText& operator=(const LocalText&) = delete;
    ~LocalText() { LocalFree(text_); }
    [[nodiscard]] const wchar_t* get() const { return text_; }
    wchar_t** out() { return &text_; }

private:
    wchar_t* text_ = nullptr;
};

} // namespace

void show_system_error(DWORD code, ErrorEncoding title_encoding)
{
    static constexpr auto kTitle_bytes = bytes_as_wide("GetLastError");

    last_system_error = code;
    LocalText text;
    FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<wchar_t*>(text.out()), 0, nullptr);
    const WaitCursorPause pause;
    MessageBoxW(nullptr, text.get(),
                title_encoding == ErrorEncoding::BYTES ? kTitle_bytes.data() : L"GetLastError",
                MB_ICONINFORMATION);
}
