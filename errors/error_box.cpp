#include "errors/error_box.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <span>
#include <string_view>

#include "errors/bytes_as_wide.h"
#include "errors/wait_cursor_pause.h"

namespace
{

// The fixed texts of a layout. Without `before_file` nothing is printed around the detail, without
// `before_handler` no handler's line.
struct LayoutTexts {
    const char* before_file;
    const char* before_function;
    const char* before_site;
    const char* after_site;
    const char* before_handler;
    const char* after_handler;
    bool handler_before_detail;
};

constexpr LayoutTexts kPlain{};
constexpr LayoutTexts kCompact{.before_file = "error\n\nfile:\n",
                               .before_function = "\nfunction:\n",
                               .before_site = "\nline:\n",
                               .after_site = "\n\n",
                               .before_handler = "\nline of error handler:",
                               .after_handler = "",
                               .handler_before_detail = false};
constexpr LayoutTexts kSpaced{.before_file = "error\n\nfile:\n",
                              .before_function = "\n\nfunction:\n",
                              .before_site = "\n\nline:\n",
                              .after_site = "\n\n",
                              .before_handler = "\nline of error handler:\n",
                              .after_handler = "",
                              .handler_before_detail = false};
constexpr LayoutTexts kInline{.before_file = "error\nfile: ",
                              .before_function = "\nfunction: ",
                              .before_site = "\nline: ",
                              .after_site = "\n",
                              .before_handler = nullptr,
                              .after_handler = nullptr,
                              .handler_before_detail = false};
constexpr LayoutTexts kShouted{.before_file = "\nERROR\n\nfile:\n\n",
                               .before_function = "\nfunction:\n\n",
                               .before_site = "\nline:\n\n",
                               .after_site = "\n\n",
                               .before_handler = nullptr,
                               .after_handler = nullptr,
                               .handler_before_detail = false};

LayoutTexts texts_of(ErrorLayout layout)
{
    LayoutTexts texts = kPlain;
    switch (layout) {
    case ErrorLayout::PLAIN:
        break;
    case ErrorLayout::COMPACT:
        texts = kCompact;
        break;
    case ErrorLayout::SPACED:
        texts = kSpaced;
        break;
    case ErrorLayout::SPACED_END_OF_LINE:
        texts = kSpaced;
        texts.after_handler = "\n";
        break;
    case ErrorLayout::SPACED_GAP:
        texts = kSpaced;
        texts.before_handler = "\n\nline of error handler:\n";
        break;
    case ErrorLayout::HANDLER_FIRST:
        texts = kSpaced;
        texts.after_site = "";
        texts.after_handler = "\n";
        texts.handler_before_detail = true;
        break;
    case ErrorLayout::INLINE:
        texts = kInline;
        break;
    case ErrorLayout::SHOUTED:
        texts = kShouted;
        break;
    }
    return texts;
}

// Where a field stands in the composed text, in bytes.
struct FieldRange {
    std::size_t begin;
    std::size_t end;
};

// A message in the making: 8-bit text that is cut, never overrun, where it would leave the buffer.
struct ComposedText {
    std::array<char, kMessageCapacity_units> text{};
    std::size_t length = 0; // bytes, without the closing zero
    FieldRange file{};
    FieldRange function{};
};

void append_text(ComposedText* composed, const char* text)
{
    const std::size_t room = composed->text.size() - 1 - composed->length;
    const std::size_t wanted = text == nullptr ? 0 : std::strlen(text);
    const std::size_t count = wanted < room ? wanted : room;
    std::memcpy(composed->text.data() + composed->length, text == nullptr ? "" : text, count);
    composed->length += count;
}

FieldRange append_field(ComposedText* composed, const char* field)
{
    const std::size_t begin = composed->length;
    append_text(composed, field);
    return {begin, composed->length};
}

// The values are formatted as Windows' C runtime does: _vsnprintf prints %p as 16 upper-case digits.
void append_values(ComposedText* composed, const char* format, va_list values)
{
    const std::size_t room = composed->text.size() - 1 - composed->length;
    const int written = _vsnprintf(composed->text.data() + composed->length, room, format, values);
    composed->length +=
        written >= 0 && static_cast<std::size_t>(written) <= room ? static_cast<std::size_t>(written) : room;
    composed->text[composed->length] = '\0';
}

void append_number(ComposedText* composed, std::uint32_t number)
{
    std::array<char, 16> digits{};
    _snprintf(digits.data(), digits.size() - 1, "%d", static_cast<int>(number));
    append_text(composed, digits.data());
}

void append_handler(ComposedText* composed, const LayoutTexts& texts, std::uint32_t handler)
{
    append_text(composed, texts.before_handler);
    append_number(composed, handler);
    append_text(composed, texts.after_handler);
}

void compose(ComposedText* composed, const ErrorRow& row, va_list values)
{
    const LayoutTexts texts = texts_of(row.layout);
    if (texts.before_file != nullptr) {
        append_text(composed, texts.before_file);
        composed->file = append_field(composed, row.source->file);
        append_text(composed, texts.before_function);
        composed->function = append_field(composed, row.function);
        append_text(composed, texts.before_site);
        append_number(composed, *row.source->error_site);
        append_text(composed, texts.after_site);
    }
    if (texts.handler_before_detail)
        append_handler(composed, texts, row.handler);
    append_values(composed, row.detail, values);
    if (texts.before_handler != nullptr && !texts.handler_before_detail)
        append_handler(composed, texts, row.handler);
}

// Widens text[begin..end) to `out` and returns the position after it.
wchar_t* widen(const ComposedText& composed, std::size_t begin, std::size_t end, wchar_t* out)
{
    for (std::size_t i = begin; i < end; ++i)
        *out++ = static_cast<wchar_t>(static_cast<unsigned char>(composed.text[i]));
    return out;
}

wchar_t* lay_field(const ComposedText& composed, FieldRange field, wchar_t* out)
{
    const std::string_view bytes(composed.text.data() + field.begin, field.end - field.begin);
    return out + lay_bytes_as_wide(bytes, {out, bytes.size() / 2 + 2});
}

// Brings the composed text into the shared buffer. It never grows: a character needs at most one unit.
void encode(const ComposedText& composed, ErrorEncoding encoding, std::span<wchar_t> message)
{
    wchar_t* out = message.data();
    switch (encoding) {
    case ErrorEncoding::WIDE:
        out = widen(composed, 0, composed.length, out);
        break;
    case ErrorEncoding::BYTES:
        lay_bytes_as_wide({composed.text.data(), composed.length}, message);
        return;
    case ErrorEncoding::WIDE_BYTE_FIELDS:
        out = widen(composed, 0, composed.file.begin, out);
        out = lay_field(composed, composed.file, out);
        out = widen(composed, composed.file.end, composed.function.begin, out);
        out = lay_field(composed, composed.function, out);
        out = widen(composed, composed.function.end, composed.length, out);
        break;
    }
    *out = L'\0';
}

void encode_title(std::string_view title, ErrorEncoding encoding, std::span<wchar_t> out)
{
    if (encoding == ErrorEncoding::BYTES) {
        lay_bytes_as_wide(title, out);
        return;
    }
    std::size_t length = 0;
    for (; length < title.size() && length + 1 < out.size(); ++length)
        out[length] = static_cast<wchar_t>(static_cast<unsigned char>(title[length]));
    out[length] = L'\0';
}

} // namespace

std::int32_t error_box::show(HWND owner, const ErrorRow* row, ...)
{
    *row->source->error_site = row->site;

    ComposedText composed;
    va_list values;
    va_start(values, row);
    compose(&composed, *row, values);
    va_end(values);
    encode(composed, row->encoding, {row->source->message, kMessageCapacity_units});

    std::array<wchar_t, 64> title{};
    encode_title(row->title, row->title_encoding, title);
    const WaitCursorPause pause;
    MessageBoxW(owner, row->source->message, title.data(), row->style);
    return row->result;
}
