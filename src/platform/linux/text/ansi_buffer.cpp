#include "platform/linux/text/ansi_buffer.h"

#include <algorithm>

#include "platform/linux/text/code_pages.h"

namespace tovera {

std::u16string textOf(const AnsiText& text) {
    return fromAnsi1252(text.terminated());
}

I4 fill(AnsiText& buffer, std::string_view text) {
    text = text.substr(0, std::min(text.find('\0'), buffer.bytes.size() - 1));
    buffer.bytes.replace(0, text.size(), text);
    buffer.bytes[text.size()] = '\0';
    return static_cast<I4>(text.size());
}

I4 fillWhole(AnsiText& buffer, std::u16string_view text) {
    const auto bytes = toAnsi1252(text);
    if (buffer.isNull || bytes.size() >= buffer.bytes.size()) return static_cast<I4>(bytes.size() + 1);
    return fill(buffer, bytes);
}

}  // namespace tovera
